#!/usr/bin/env ruby
# frozen_string_literal: true

# Keeps recipes in a YAML file and scales them to the number of guests.
#
#   ruby recipes.rb list
#   ruby recipes.rb show "Onion soup" 6

require 'optparse'
require 'yaml'

=begin
Amounts are Rational, so that a third of a cup stays a third. What cannot be
scaled ("a pinch") has no amount at all.
=end
module Kitchen
  UNITS = %w[g kg ml l cup tbsp tsp].freeze
  DEFAULT_GUESTS = 4

  class UnknownRecipe < StandardError
    def initialize(name)
      super("there is no recipe called \"#{name}\"")
    end
  end

  Ingredient = Struct.new(:name, :amount, :unit, keyword_init: true) do
    include Comparable

    # "1/2 cup sugar" or "salt"
    def self.parse(text)
      case text.split
      in [/\A[\d\/.]+\z/ => amount, unit, *rest] if UNITS.include?(unit)
        new(name: rest.join(' '), amount: amount.to_r, unit: unit.to_sym)
      in [/\A[\d\/.]+\z/ => amount, *rest]
        new(name: rest.join(' '), amount: amount.to_r)
      else
        new(name: text.strip)
      end
    end

    def <=>(other) = name.casecmp(other.name)

    def scaled(factor)
      amount ? dup.tap { |copy| copy.amount *= factor } : self
    end

    def to_s
      return name unless amount

      number = amount.denominator == 1 ? amount.to_i : amount.round(2).to_f
      [number, unit, name].compact.join(' ')
    end
  end

  class Book
    attr_reader :path, :recipes

    def initialize(path)
      @path = path
      @recipes = File.exist?(path) ? YAML.safe_load_file(path, symbolize_names: true) : {}
    rescue Psych::SyntaxError => e
      warn "#{path}:#{e.line}: #{e.problem}"
      @recipes = {}
    ensure
      @recipes.default = nil if @recipes
    end

    def each
      return to_enum(:each) { recipes.size } unless block_given?

      recipes.sort_by { |name, _| name.to_s.downcase }.each { |name, recipe| yield name, recipe }
    end

    def show(name, guests: DEFAULT_GUESTS)
      recipe = recipes.fetch(name.to_sym) { raise UnknownRecipe, name }
      factor = Rational(guests, recipe.fetch(:guests, DEFAULT_GUESTS))
      lines = recipe[:ingredients].map { Ingredient.parse(_1).scaled(factor) }.sort
      <<~TEXT
        #{name} for #{guests}
        #{'=' * name.length}
        #{lines.map { |line| "- #{line}" }.join("\n")}

        It's ready in #{recipe[:minutes] || '?'} minutes.
      TEXT
    end
  end
end

options = { file: ENV.fetch('RECIPES', 'recipes.yml'), guests: 4 }
parser = OptionParser.new do |o|
  o.banner = "usage: #{$PROGRAM_NAME} [options] list|show NAME"
  o.on('-f', '--file FILE', "the book's file") { |file| options[:file] = file }
  o.on('-g', '--guests N', Integer) { |n| options[:guests] = n }
end

begin
  command, *rest = parser.parse(ARGV)
  book = Kitchen::Book.new(options[:file])
  case command
  when 'list', nil
    book.each { |name, recipe| puts format('%-30s %3d ingredients', name, recipe[:ingredients].size) }
  when 'show'
    puts book.show(rest.join(' '), guests: options[:guests])
  else
    abort parser.help
  end
rescue OptionParser::InvalidOption, Kitchen::UnknownRecipe => e
  $stderr.puts "recipes: #{e.message}"
  exit 1
end

__END__
Onion soup:
  guests: 2
  ingredients: ["3 onions", "1/2 l stock", "salt"]
