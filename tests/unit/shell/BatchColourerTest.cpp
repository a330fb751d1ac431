// The batch colourer as its users start it: the built program, its output, its messages and its exit status.

#include "shell/BatchColourer.h"

#include <gtest/gtest.h>

#include "platform/ProgramFolder.h"
#include "tests/laws/Dice.h"
#include "tests/support/RunProgram.h"

namespace {

using namespace std::string_literals;
using tests::ProgramRun;

constexpr const char* Shipped = QUILLMARK_SOURCE_DIR "/data/templates";

class BatchColourerTest : public testing::Test {
 protected:
  ProgramRun Run(std::vector<std::string> arguments, std::string_view input = "") {
    arguments.insert(arguments.begin(), QUILLMARK_COLOUR);
    return tests::RunProgram(arguments, input, {"QUILLMARK_HOME=" + Home});
  }
  /// For runs that must succeed without a word.
  std::string Quiet(const std::vector<std::string>& arguments, std::string_view input = "") {
    const ProgramRun run = Run(arguments, input);
    EXPECT_EQ(run.Status, 0) << testing::PrintToString(arguments);
    EXPECT_EQ(run.Errors, "") << testing::PrintToString(arguments);
    return run.Output;
  }

  std::string Home = Shipped;
  tests::TemporaryFolder m_folder;
  std::string m_sample = m_folder.Write(
      "Sample.def", "N: Sample\nX: smp\nD: ()\nC: #0000FF\nC: #804020\nL: if 0  1 True\nL: # 1  2 True\n");
};

TEST_F(BatchColourerTest, ListVersionHelp) {
  const std::string list = Quiet({"--list"});
  EXPECT_EQ(static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n')),
            platform::ListFiles(Shipped, ".def").size());
  EXPECT_NE(list.find("\nJavaScript\tjs;mjs;cjs;jsx\t"s + Shipped + "/JavaScript.def\n"), std::string::npos) << list;
  Home = m_folder.Path();
  EXPECT_EQ(Quiet({"--list"}), "Sample\tsmp\t" + m_sample + "\n");
  EXPECT_EQ(Quiet({"--version"}), "quillmark-colour 3.1.0\n");
  EXPECT_TRUE(Quiet({"--help"}).starts_with("Usage: quillmark-colour "));
}

TEST_F(BatchColourerTest, ChoosesTheTemplateByExtension) {
  Home = m_folder.Path();
  const std::string text = "if x # if\n";
  const std::string coloured = "\x1B[38;2;255;0;0mif\x1B[39m x \x1B[38;2;32;64;128m# if\x1B[39m\n";
  EXPECT_EQ(Quiet({"--to", "ansi", m_folder.Write("a.SMP", text)}), coloured);
  EXPECT_EQ(Quiet({"--to", "ansi", "--template", m_sample}, text), coloured) << "standard input";
  EXPECT_EQ(Quiet({"--to", "ansi", "--template", m_sample, "-"}, text), coloured);

  EXPECT_EQ(Quiet({"--to", "ansi", m_folder.Write("other.x/SMP", text)}), coloured) << "the whole name is known";

  const std::string unknown = m_folder.Write("s.mp/a", text);
  const ProgramRun run = Run({"--to", "ansi", unknown});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Output, text);
  EXPECT_EQ(run.Errors,
            "quillmark-colour: " + unknown + ": no template knows this extension; the text is not coloured\n");
  EXPECT_EQ(Run({"--strict", unknown}).Status, 1);
}

TEST_F(BatchColourerTest, WhatCannotBeReadIsStatus1) {
  const std::string missing = m_folder.Path("missing");
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{missing}, missing + ": No such file or directory"},
      {{m_folder.Path()}, m_folder.Path() + ": it is a folder"},
      {{"--template", missing, m_sample}, missing + ": No such file or directory"},
      {{"--template", m_folder.Path(), m_sample}, m_folder.Path() + ": it is a folder"},
  };
  for (const auto& [arguments, error] : cases) {
    const ProgramRun run = Run(arguments);
    EXPECT_EQ(run.Status, 1) << error;
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Errors, "quillmark-colour: " + error + "\n");
  }
  const ProgramRun usage = Run({"--to", "pdf"});
  EXPECT_EQ(usage.Status, 2);
  EXPECT_EQ(usage.Output, "");
  EXPECT_NE(usage.Errors, "");
}

TEST_F(BatchColourerTest, BadLinesAreNamedAndFailOnlyWithStrict) {
  const std::string bad = m_folder.Write("bad.def", "D: (\n\nQ: what\nF: 9\nC: #0000FF\nL: if\nL: if 0  1 True\n");
  const std::string reasons = bad + ":3: No record begins with this character.\n" + bad +
                              ":4: The font type is not 0, 1 or 2.\n" + bad +
                              ":6: A colour word has five fields with one space between.\n";
  const ProgramRun lenient = Run({"--template", bad, "--to", "html", "--fragment"}, "if");
  EXPECT_EQ(lenient.Status, 0);
  EXPECT_EQ(lenient.Output, "<pre>\n<span style=\"color:#ff0000\">if</span></pre>\n") << "the rest is used";
  EXPECT_EQ(lenient.Errors, reasons);
  const ProgramRun strict = Run({"--template", bad, "--strict"}, "if");
  EXPECT_EQ(strict.Status, 1);
  EXPECT_EQ(strict.Output, "");
  EXPECT_EQ(strict.Errors, reasons);
}

TEST_F(BatchColourerTest, AClosedPipeEndsItQuietlyAndAFullDiskDoesNot) {
  std::string text;
  while (text.size() < 3'000'000) text += "if (x) # comment\n";
  const std::string file = m_folder.Write("big.smp", text);
  for (const char* format : {"rtf", "html", "ansi"}) {
    const std::string colour = QUILLMARK_COLOUR " --template " + m_sample + " --to " + format + ' ' + file;
    const ProgramRun run = tests::RunProgram({"/bin/bash", "-c", colour + " | head -c 10; exit ${PIPESTATUS[0]}"});
    EXPECT_EQ(run.Status, 0) << format;
    EXPECT_EQ(run.Output.size(), 10u);
    EXPECT_EQ(run.Errors, "");
  }
  const ProgramRun full =
      tests::RunProgram({"/bin/sh", "-c", "exec " QUILLMARK_COLOUR " --template '" + m_sample + "' >/dev/full"}, "if");
  EXPECT_EQ(full.Status, 1);
  EXPECT_EQ(full.Errors, "quillmark-colour: standard output: No space left on device\n");
}

TEST_F(BatchColourerTest, HtmlAndTerminalTextEscapeWhatTheyMust) {
  const std::string text = "<if&\"> if # a<b\r\nx\ry\0\x1B[31m\x07\x7F\xC2\x9B if z"s;
  const std::string body =
      "&lt;if&amp;&quot;&gt; <span style=\"color:#ff0000\">if</span> "
      "<span style=\"color:#204080\"># a&lt;b</span>\nx\ny\xEF\xBF\xBD\x1B[31m\x07\x7F\xC2\x9B "
      "<span style=\"color:#ff0000\">if</span> z";
  EXPECT_EQ(Quiet({"--template", m_sample, "--to", "html", "--fragment"}, text), "<pre>\n" + body + "</pre>\n");
  const std::string file = m_folder.Write("a<b>.smp", text);
  const std::string page = Quiet({"--template", m_sample, "--to", "html", file});
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n")) << page;
  EXPECT_NE(page.find("<title>a&lt;b&gt;.smp</title>"), std::string::npos) << page;
  EXPECT_TRUE(page.ends_with("<pre>\n" + body + "</pre>\n</body>\n</html>\n")) << page;

  const std::string red = "\x1B[38;2;255;0;0m", blue = "\x1B[38;2;32;64;128m", off = "\x1B[39m";
  EXPECT_EQ(Quiet({"--template", m_sample, "--to", "ansi"}, text), "<if&\"> " + red + "if" + off + " " + blue +
                                                                       "# a<b" + off + "\r\nx\ry␀␛[31m␇␡\xEF\xBF\xBD " +
                                                                       red + "if" + off + " z");
  // A run over a line end is off at the line's end; nothing from the file starts a sequence.
  const std::string open = m_folder.Write("open.def", "C: #0000FF\nD: (\nL: ( 2  1 True\n");
  laws::Dice dice(1);
  std::string wild = "(";
  while (wild.size() < 20'000) wild += static_cast<char>(dice.Chance(30) ? dice.Below(0x20) : dice.Below(0x100));
  const std::string shown = Quiet({"--template", open, "--to", "ansi"}, wild);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const auto byte = static_cast<unsigned char>(shown[i]);
    const bool ours = shown.compare(i, 5, "\x1B[38;") == 0 || shown.compare(i, 5, off) == 0;
    ASSERT_TRUE(byte >= 0x20 || byte == '\t' || byte == '\r' || byte == '\n' || ours) << i;
    ASSERT_NE(byte, 0x7F);
    ASSERT_FALSE(byte == 0xC2 && static_cast<unsigned char>(shown[i + 1]) < 0xA0) << i;
  }
}

TEST_F(BatchColourerTest, MakesATemplateOfADefinition) {
  const std::string source = m_folder.Write(
      "small.lang",
      "Description='Small'\nKeywords={{Id=1,List={'when'}}}\nComments={{Block=false,Delimiter={'%'}}}\nx()\n");
  const ProgramRun made = Run({"--import", source});
  EXPECT_EQ(made.Status, 0);
  EXPECT_EQ(made.Errors, source + ":4: This statement is not understood and left out.\n");
  EXPECT_EQ(Quiet({"--strict", "--to", "ansi", "--template", m_folder.Write("Small.def", made.Output)}, "when % x"),
            "\x1B[38;2;0;0;230mwhen\x1B[39m \x1B[38;2;0;128;0m% x\x1B[39m");

  const std::string cut = m_folder.Write("cut.lang", "Description='Small'\nKeywords={"),
                    other = m_folder.Write("a.txt", "");
  const std::pair<std::string, std::string> failures[] = {
      {cut, cut + ":2: The table that begins here never ends."},
      {m_folder.Path("missing.lang"), m_folder.Path("missing.lang") + ": No such file or directory"},
      {other, other + ": "},
  };
  for (const auto& [file, error] : failures) {
    const ProgramRun run = Run({"--import", file});
    EXPECT_EQ(run.Status, 1) << file;
    EXPECT_EQ(run.Output, "");
    EXPECT_TRUE(run.Errors.starts_with("quillmark-colour: " + error)) << run.Errors;
  }
}

TEST_F(BatchColourerTest, AHundredThousandWordsOfEachKind) {
  std::string definition = "D: ()\nC: #0000FF\nC: #00FF00\n", text, expected;
  for (int i = 0; i < 100'000; ++i) {
    const std::string word = "w" + std::to_string(i), colour = std::to_string(1 + i % 2);
    definition +=
        "L: " + word + " 0  " + colour + " True\nY: \"" + word + "\" \"x\"\nW: \"" + word + "\" 1\n1 \"(\" 0\n\"\"\n";
    text += word + " x" + word + " \xE9 ";
    expected += "\\cf" + colour + ' ' + word + "\\cf0  x" + word + " \\'e9 ";
  }
  const std::string rtf = Quiet({"--template", m_folder.Write("many.def", definition)}, text);
  EXPECT_TRUE(rtf.ends_with("\\fs20 " + expected + "\r\n\\par }")) << rtf.substr(0, 500);
}

}  // namespace
