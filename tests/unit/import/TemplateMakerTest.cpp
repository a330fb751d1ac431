// Templates made of definitions: they load without a bad line, and colour as the definition means it.

#include "import/TemplateMaker.h"

#include <gtest/gtest.h>

#include "editor/ColourPass.h"
#include "templates/Writer.h"
#include "tests/support/LoadedTemplate.h"

namespace {

using namespace import;

Definition Sample() {
  Definition definition;
  definition.File = "x.lang";
  definition.Format = "highlight";
  definition.Name = "X";
  definition.Extensions = {"x", "xx"};
  definition.Delimeters = DelimetersBut("_-");
  definition.Version = "7";
  definition.Licence = "MIT";
  definition.HasNumbers = true;
  definition.Ranges = {
      {Role::Comment, "#", "", 1},    {Role::Comment, "#[", "]#", 2}, {Role::Comment, "--", "", 3},
      {Role::Text, "\"", "\"", 4},    {Role::Text, "'", "'", 4},      {Role::Text, "\"\"\"", "\"\"\"", 5},
      {Role::Text, "R\"(", ")\"", 6}, {Role::Text, "q{", "}", 7},     {Role::Comment, "a b", "", 8}};
  definition.Lists = {{Role::Keyword, {"if", "If", "true", "int", "two words", "begin-end", ""}, 9},
                      {Role::Function, {"print", "if", "@at", "@attr"}, 10}};
  return definition;
}

/// The text with "{n" before and "}" after each run of colour n.
std::string Coloured(const templates::TemplateFields& fields, const std::string& text) {
  std::string shown;
  std::size_t at = 0;
  for (const editor::PassRun& run : editor::ColourPass(fields).Whole(text)) {
    shown += text.substr(at, run.Start - at) + '{' + std::to_string(run.Colour) + ' ' +
             text.substr(run.Start, run.End - run.Start) + '}';
    at = run.End;
  }
  return shown + text.substr(at);
}

templates::TemplateFields Loaded(const MadeTemplate& made) {
  return tests::LoadedTemplate(templates::WriteTemplate(made.Template, "d"));
}

TEST(TemplateMaker, LoadsAndColours) {
  const MadeTemplate made = MakeTemplate(Sample(), "2026-01-02");
  std::string losses;
  for (const Loss& loss : made.Losses) losses += std::to_string(loss.Line) + ' ' + loss.What + '\n';
  EXPECT_EQ(losses,
            "7 The mark \"q{\" would be found at the end of longer words; it is left out.\n"
            "8 The mark \"a b\" does not fit a colour word.\n"
            "9 Words with blanks in them, or too long for a colour word (1): two words.\n"
            "9 Words that differ from another in letter case alone; the first stays (1): If.\n");

  const templates::TemplateFields fields = Loaded(made);
  EXPECT_EQ(fields.TName, "X");
  EXPECT_EQ(fields.DefaultExtension, "x");
  EXPECT_EQ(fields.TComments, "Made from x.lang (highlight), version: 7, licence: MIT.");

  const std::pair<const char*, const char*> cases[] = {
      {"if iffy If true int print 42", "{3 if} iffy If {5 true} {4 int} {7 print} {5 42}"},
      {"begin-end @attr @at", "{3 begin-end} {7 @attr} {7 @at}"},
      {"x #[ if ]#        if # if", "x {1 #[ if ]#}        {3 if} {1 # if}"},
      {"a--b", "a{1 --b}"},
      {"'if' \"\"\"a\"b\"\"\"       if", "'{2 if}' \"\"\"{2 a\"b}\"\"\"       {3 if}"},
      {"R\"(x)\"       if", "R{2 \"(x)\"}       {3 if}"},
      {"'\"' if \"\\\"\" if", "{2 '\"'} {3 if} {2 \"\\\"\"} {3 if}"},
      {"\"a\\\"b\")  if 'x'", "\"{2 a\\}\"b{8 \")}  {3 if} '{2 x}'"},
  };
  for (const auto& [text, coloured] : cases) EXPECT_EQ(Coloured(fields, text), coloured);
}

TEST(TemplateMaker, QuotesInPagesAndShells) {
  Definition page, shell;
  page.Delimeters = shell.Delimeters = DelimetersBut("_");
  page.Ranges =
      shell.Ranges = {{Role::Text, "\"", "\"", 1}, {Role::Text, "'", "'", 1}, {Role::Comment, "<!--", "-->", 1}};
  shell.Ranges.pop_back();
  shell.Lists = {{Role::Keyword, {"if", "fi", "done"}, 1}};
  EXPECT_EQ(Coloured(Loaded(MakeTemplate(page, "d")), "don't <a b='c' d=\"e\">\"f\"> <!-- g -->"),
            "don't <a b='{2 c}' d=\"{2 e}\">\"{2 f}\"> {1 <!-- g -->}");
  EXPECT_EQ(Coloured(Loaded(MakeTemplate(shell, "d")), "don\\'t 'if' if"), "don{8 \\'}t '{2 if}' {3 if}");
}

TEST(TemplateMaker, AMarkThatWordsMayHoldIsFoundEverywhere) {
  Definition definition;
  definition.Delimeters = DelimetersBut("_-%");
  definition.Ranges = {{Role::Comment, "%", "", 1}, {Role::Comment, "rem", "", 1}};
  const MadeTemplate made = MakeTemplate(definition, "d");
  EXPECT_NE(made.Template.Delimeters.find('%'), std::string::npos);
  EXPECT_EQ(made.Template.Delimeters.find('-'), std::string::npos);
  EXPECT_EQ(made.Losses.size(), 0u);
}

}  // namespace
