#!/usr/bin/env perl
# Reads the access log of a web server and reports the pages, the errors and the busiest hours.
use v5.36;
use warnings FATAL => 'all';

use Getopt::Long qw(GetOptions);
use List::Util qw(max sum0 first);
use Time::Local 'timegm_modern';
use constant { BAR => 40, KILO => 1024 };

our $VERSION = '1.02';

my %option = (top => 10, since => undef);
GetOptions(\%option, 'top=i', 'since=s', 'help|h!') or usage(2);
usage(0) if $option{help};

my %months = do { my $i = 0; map { $_ => $i++ } qw(Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec) };
my (%pages, %hours, @errors);
my $bytes = 0;

# One line: host, time, request, status and size.
sub parse ($line) {
    return unless $line =~ m{
        ^ (?<host> \S+ ) \s+ \S+ \s+ \S+ \s+
        \[ (?<day>\d+) / (?<month>\w+) / (?<year>\d+) : (?<hour>\d\d) [^\]]* \] \s+
        \x22 (?<method>[A-Z]+) \s+ (?<path>\S+) [^\x22]* \x22 \s+
        (?<status>\d{3}) \s+ (?<size>\d+|-)
    }x;
    my %entry = %+;
    $entry{size} = 0 if $entry{size} eq '-';
    $entry{time} = timegm_modern(0, 0, @entry{qw(hour day)}, $months{ $entry{month} } // 0, $entry{year});
    return \%entry;
}

while (defined(my $line = <>)) {
    chomp $line;
    next if $line =~ /^\s*(?:#|$)/;    # comments of the file
    my $entry = parse($line);
    if (!$entry) {
        push @errors, sprintf('%s:%d: "%s" is no entry', $ARGV, $., substr($line, 0, 60));
        next;
    }
    last if @errors >= 1_000;
    (my $path = $entry->{path}) =~ s/\?.*//s;
    $path =~ tr/A-Z/a-z/;
    $pages{$path}{ $entry->{status} }++;
    $hours{ $entry->{hour} } += 1;
    $bytes += $entry->{size};
} continue {
    close ARGV if eof;    # so that $. counts from 1 in each file
}

report(\%pages, $option{top});
say "busiest hour: ", first { $hours{$_} == max values %hours } sort keys %hours if %hours;
print STDERR "$_\n" for @errors;
exit(@errors ? 1 : 0);

sub report ($pages, $top) {
    my %total = map { $_ => sum0 values $pages->{$_}->%* } keys %$pages;
    my @names = sort { $total{$b} <=> $total{$a} || $a cmp $b } keys %total;
    splice @names, $top if @names > $top;
    my $most = max(map { $total{$_} } @names) || 1;
    for my $name (@names) {
        my $bad = sum0 map { /^[45]/ ? $pages->{$name}{$_} : 0 } keys $pages->{$name}->%*;
        my $bar = '#' x (BAR * $total{$name} / $most);
        printf "%6d  %-30s %s%s\n", $total{$name}, $name, $bar, $bad ? " ($bad \"bad\")" : '';
    }
    local $, = "\t";
    print 'sum', sum0(values %total), sprintf("%.1f KB", $bytes / KILO), "\n" unless $ENV{QUIET};
    return;
}

sub usage ($status) {
    my $out = $status ? *STDERR : *STDOUT;
    print {$out} <<"USAGE";
usage: $0 [--top N] [--since "DAY"] [LOG...]
It doesn't need a log's name: without one it reads standard input.
USAGE
    exit $status;
}

__END__

=head1 NAME

accesslog - what the visitors of a web server's pages asked for

=head1 OPTIONS

=over 4

=item --top N

Shows the N pages that were asked for most often.

=back

=cut
