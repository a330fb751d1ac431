#include "templates/Loader.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

using namespace templates;
using Sort = LoadProblem::Sort;

class LoaderTest : public testing::Test {
 protected:
  LoadResult Load(std::string_view text) {
    Messages.Problems.clear();
    return LoadTemplateText(text, "dir/x.def", Fields, Options, Messages, HelpFile);
  }

  /// The numbers of the lines with a fault.
  std::vector<std::size_t> BadLines() const {
    std::vector<std::size_t> numbers;
    for (const LoadProblem& problem : Messages.Problems) numbers.push_back(problem.LineNumber);
    return numbers;
  }

  std::string WordsText() const {
    std::string text;
    for (const auto& word : Fields.Words) text += tests::Describe(*word);
    return text;
  }

  TemplateFields Fields;
  LoadOptions Options;
  CollectedMessages Messages;
  std::string HelpFile;
};

using Numbers = std::vector<std::size_t>;

TEST_F(LoaderTest, EveryLoadEmptiesTheListsAndKeepsWhatTheFileDoesNotSet) {
  Load(
      "N: One\nX: htm;html\nD: ,\nS: True\nV: 2.1\nA: me\nE: now\nM: c\nR: run %s\nH: a.hdf\nF: 1\nC: #0000FF\n"
      "L: a 0  1 True\nW: \"w\" 0\nY: \"y\" \"w\"\n");
  EXPECT_EQ(BadLines(), Numbers{});
  EXPECT_EQ(HelpFile, "a.hdf");
  EXPECT_EQ(Fields.DefaultExtension, "htm");
  EXPECT_EQ(Fields.UseFont, 2);
  EXPECT_EQ(Fields.ExecuteCommand, "run %s");
  EXPECT_EQ(Fields.Delimeters, (std::vector<std::string>{",", " ", "\r", "\n"}));
  Fields.HelpWords.Add(std::make_shared<HelpWord>());

  Load(";nothing\n");
  EXPECT_EQ(HelpFile, "");
  EXPECT_TRUE(Fields.Words.Empty() && Fields.ColWords.Empty() && Fields.Synonyms.Empty() && Fields.HelpWords.Empty());
  EXPECT_TRUE(Fields.Colours.empty() && Fields.Delimeters.empty() && Fields.ExecuteCommand.empty());
  EXPECT_EQ(Fields.UseFont, 0);
  EXPECT_TRUE(Fields.CaseSensitive);
  EXPECT_EQ(Fields.TName + Fields.TVer + Fields.TAuthor + Fields.TDate + Fields.TComments, "One2.1menowc");
  EXPECT_EQ(Fields.DefaultExtension, "htm");
}

TEST_F(LoaderTest, TwoDelimeterLinesAppend) {
  Load("D: ,.\r\nD: ;\r\n");
  EXPECT_EQ(Fields.Delimeters, (std::vector<std::string>{",", ".", " ", "\r", "\n", ";", " ", "\r", "\n"}));
}

TEST_F(LoaderTest, TipsEndWithADelimeterOfTheLinesBefore) {
  constexpr std::string_view Words =
      "W: \"w\" 3\n1 \"(\" 0\n\"f(a)\"\n1 \",\" 0\n\"x\"\n\n;comment\n2 \".\" 2\n\"\"\nget it 3\n;shifted 9\nx 1\n";
  Load(Words);
  EXPECT_EQ(WordsText(),
            "[w]\n  1 after [(] tip [f(a) ] words 0\n  1 after [,] tip [x ] words 0\n"
            "  2 after [.] tip [ ] words 2\n    [get it] icon 3\n    [x] icon 1\n");
  Load("D: )é\n" + std::string(Words) + "W: \"v\" 1\n1 \"(\" 0\n\"é\"\n");
  EXPECT_EQ(BadLines(), Numbers{});
  EXPECT_EQ(Fields.Words.Item("w")->Actions.Item("(")->tipText, "f(a)");
  EXPECT_EQ(Fields.Words.Item("v")->Actions.Item("(")->tipText, "é");
}

TEST_F(LoaderTest, TheTextBlockCountsCharacters) {
  const struct {
    const char *File, *Text, *Name;
  } cases[] = {{"T: 6\r\na\r\n;\r\n\r\nN: x\r\n", "a\r\n;\r\n", "x"},
               {"T: 4\na\n;\n\nN: x\n", "a\n;\n", "x"},
               {"T: 2\n\xC3\xBC\xE2\x82\xACN: x\n", "\xC3\xBC\xE2\x82\xAC", "x"},
               {"T: 2\nA\r\nN: x\n", "A\r", "x"},
               {"T: 0\nN: x\n", "", "x"},
               {"T: 5\nN: a\nN: x", "N: a\n", "x"}};
  for (const auto& c : cases) {
    EXPECT_EQ(Load(c.File).InitialText, c.Text) << c.File;
    EXPECT_EQ(Fields.TName, c.Name) << c.File;
    EXPECT_EQ(BadLines(), Numbers{}) << c.File;
  }
  Options.NoInitialText = true;
  EXPECT_EQ(Load("T: 5\nN: a\nN: x").InitialText, "");
  EXPECT_EQ(Fields.TName, "x");
}

TEST_F(LoaderTest, FontLines) {
  const struct {
    const char* Value;
    int UseFont;
    bool Asked;
  } cases[] = {{"-1", 0, false}, {"0", 1, false}, {" 2 ", 3, false},
               {"3", 0, true},   {"-2", 0, true}, {"99999999999", 0, true}};
  for (const auto& c : cases) {
    EXPECT_FALSE(Load("F: 1\nF: " + std::string(c.Value)).Cancelled);
    EXPECT_EQ(Fields.UseFont, c.UseFont) << c.Value;
    ASSERT_EQ(Messages.Problems.size(), c.Asked ? 1U : 0U) << c.Value;
    if (c.Asked) {
      EXPECT_EQ(Messages.Problems[0].Kind, Sort::BadFont);
      EXPECT_TRUE(Messages.Problems[0].MayCancel);
    }
  }
  Load("F: 1\nF: big\n");
  EXPECT_EQ(Fields.UseFont, 2);
  ASSERT_EQ(BadLines(), Numbers{2});
  EXPECT_FALSE(Messages.Problems[0].MayCancel);

  Options.OverrideTemplateFonts = true;
  Load("F: 1\nF: 3\nF: big\n");
  EXPECT_EQ(Fields.UseFont, 0);
  EXPECT_EQ(BadLines(), Numbers{});
}

TEST_F(LoaderTest, ABadValueIsReportedAndTheRestOfTheFileStaysInStep) {
  const struct {
    const char* Fault;
    Numbers Lines;  ///< the faulty ones, the first being 1
    const char* Words;
  } cases[] = {
      {"S: yes\n", {1}, ""},
      {"C: #GG\n;name\n", {1}, ""},
      {"L: a b\n", {1}, ""},
      {"L: a x  1 True\n", {1}, ""},
      {"L: a 0  one True\n", {1}, ""},
      {"L: a 0  40000 True\n", {1}, ""},
      {"L: a 0  1 maybe\n", {1}, ""},
      {"Y: a \"b\"\n", {1}, ""},
      {"Y: \"a\" b\n", {1}, ""},
      {"Y: \"a\" \"b\n", {1}, ""},
      {"T: x\n", {1}, ""},
      {"T: -1\n", {1}, ""},
      {"T: 999999999999\n", {1}, ""},
      {"x: y\n", {1}, ""},
      {"n: y\n", {1}, ""},
      {"W: w 1\n1 \"(\" 0\n\"tip\"\n", {1}, ""},
      {"W: \"w\" many\n1 \"(\" 0\n\"tip\"\n", {1}, ""},
      {"W: \"w\" 40000\n1 \"(\" 0\n\"tip\"\n", {1}, ""},
      {"W: \"w\n1 \"(\" 0\n\"tip\"\n", {1}, ""},
      {"W: \"w\" 2\n1 \"(\" 0\n\"tip\"\n", {1}, "[w]\n  1 after [(] tip [tip ] words 0\n"},
      {"W: \"w\" 1\n1 \"(\" some\n\"tip\"\nentry 1\n", {2}, "[w]\n"},
      {"W: \"w\" 1\n1 ( 0\n\"tip\"\n", {2}, "[w]\n"},
      {"W: \"w\" 2\nx \"(\" 1\n\"\"\ne 1\n1 \".\" 0\n\"\"\n", {2}, "[w]\n  1 after [.] tip [ ] words 0\n"},
      {"W: \"w\" 2\n1 \"A\" 1\n\"\"\ne 1\n1 \"a\" 1\n\"\"\nf 1\n",
       {5},
       "[w]\n  1 after [A] tip [ ] words 1\n    [e] icon 1\n"},
      {"W: \"w\" 1\n2 \".\" 3\n\"\"\nentry\nan entry\nok 2\n",
       {4, 5},
       "[w]\n  2 after [.] tip [ ] words 3\n    [entry] icon 0\n    [an] icon 0\n    [ok] icon 2\n"},
      {"W: \"w\" -1\n", {}, "[w]\n"},
  };
  for (const auto& c : cases) {
    Load(std::string(c.Fault) + "W: \"next\" 1\n2 \".\" 1\n\"\"\nlast 1\nN: after\n");
    EXPECT_EQ(BadLines(), c.Lines) << c.Fault;
    EXPECT_EQ(WordsText(), std::string(c.Words) + "[next]\n  2 after [.] tip [ ] words 1\n    [last] icon 1\n")
        << c.Fault;
    EXPECT_EQ(Fields.TName, "after") << c.Fault;
    EXPECT_TRUE(Fields.ColWords.Empty() && Fields.Synonyms.Empty()) << c.Fault;
    for (const LoadProblem& problem : Messages.Problems) {
      EXPECT_EQ(problem.File, "dir/x.def");
      EXPECT_NE(std::string(c.Fault).find(problem.Line + "\n"), std::string::npos) << problem.Line;
      EXPECT_TRUE(problem.Reason.ends_with('.')) << problem.Reason;
    }
  }
}

TEST_F(LoaderTest, ABadColourKeepsItsPlace) {
  Load("C: #0000FF\nC: #red\nC: #00FF00\nC: #1000000\n");
  EXPECT_EQ(Fields.Colours, (std::vector<rich_text::ColourValue>{0xFF, NoColour, 0xFF00, NoColour}));
  EXPECT_EQ(BadLines(), (Numbers{2, 4}));
}

TEST_F(LoaderTest, AFileThatEndsEarlyKeepsWhatItHas) {
  const struct {
    const char* File;
    std::size_t Line;
    const char* Words;
  } cases[] = {{"W: \"x\" 32767\n", 1, "[x]\n"},
               {"W: \"x\" 2\n1 \"(\" 0\n\"t\"\n", 1, "[x]\n  1 after [(] tip [t ] words 0\n"},
               {"W: \"x\" 1\n2 \".\" 32767\n\"\"\na 1\n", 2, "[x]\n  2 after [.] tip [ ] words 1\n    [a] icon 1\n"}};
  for (const auto& c : cases) {
    Load(c.File);
    EXPECT_EQ(BadLines(), Numbers{c.Line}) << c.File;
    EXPECT_EQ(WordsText(), c.Words) << c.File;
  }
  EXPECT_EQ(Load("T: 2147483647\nN: a\n").InitialText, "N: a\n");
  EXPECT_EQ(BadLines(), Numbers{1});
}

TEST_F(LoaderTest, TheNameIsToldAtOnce) {
  std::vector<std::string> names;
  Options.NameRead = [&] { names.push_back(Fields.TName + std::to_string(Messages.Problems.size())); };
  Load("?\nN: a\n?\nN: b\n");
  EXPECT_EQ(names, (std::vector<std::string>{"a1", "b2"}));
}

platform::MessageBox Box(std::string text, platform::PromptButtons buttons) {
  return {std::move(text), "Error Loading Template", buttons, platform::PromptIcon::Exclamation, {}};
}

TEST_F(LoaderTest, OnlyTheFontMessageCanStopTheLoad) {
  using platform::PromptAnswer, platform::PromptButtons;
  tests::ScriptedPrompts prompts;
  PromptMessages messages(prompts);
  prompts.Expect(Box("Unrezognized Line:\n\nq x", PromptButtons::Ok));
  prompts.Expect(Box("Invalid Line:\n\nF: 7", PromptButtons::OkCancel), PromptAnswer::Ok);
  prompts.Expect(
      Box("Invalid Line:\n\nS: ?\n\nThe value is neither True nor False.\n\nLine 4 of t.def", PromptButtons::Ok),
      PromptAnswer::Cancel);
  prompts.Expect(Box("Invalid Line:\n\nF: 3", PromptButtons::OkCancel), PromptAnswer::Cancel);
  const LoadResult result =
      LoadTemplateText("q x\nN: a\nF: 7\nS: ?\nN: b\nF: 3\nN: c\nF: 9\n", "t.def", Fields, Options, messages, HelpFile);
  EXPECT_TRUE(result.Cancelled);
  EXPECT_EQ(Fields.TName, "b");

  prompts.Expect(Box("Unrezognized Line:\n\n" + std::string(500, 'q') + " ...", PromptButtons::Ok));
  EXPECT_FALSE(LoadTemplateText(std::string(9999, 'q'), "t.def", Fields, Options, messages, HelpFile).Cancelled);
}

TEST_F(LoaderTest, TheHelpDefinitionFileIsTheNamedOneOrThatBesideTheName) {
  const tests::TemporaryFolder folder;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  const auto table = [](const char* word) {
    return "Quillmark Help Definition File\n\n\nPre : <\nSuf : >\n" + std::string(word) + ",x,T\n";
  };
  folder.Write("my.t.hdf", table("derived"));
  folder.Write("sub/n.hdf", table("named"));
  folder.Write("sub/my.t.def", "N: a\n");
  const auto loaded = [&](const char* file) {
    LoadTemplate(file, Fields, Options, Messages);
    return Fields.HelpWords.Empty() ? std::string() : Fields.HelpWords.Item(1)->Word;
  };
  EXPECT_EQ(loaded("sub/my.t.def"), "derived");
  EXPECT_EQ(Fields.HelpWords.Item(1)->CommandLine, "<x>");
  for (const auto& [value, word] : std::vector<std::pair<std::string, std::string>>{
           {"sub/n.hdf", "named"}, {"sub\\n.hdf", "named"}, {"none.hdf", ""}, {"sub", ""}, {"/dev/zero", ""}}) {
    folder.Write("b.def", "H: " + value + "\n");
    EXPECT_EQ(loaded("b.def"), word) << value;
  }
  EXPECT_EQ(Fields.TName, "a");
  // A cancelled load reads no help definition file.
  struct : LoadMessages {
    bool Report(const LoadProblem&) override { return false; }
  } cancel;
  folder.Write("b.def", "H: sub/n.hdf\nF: 9\n");
  EXPECT_EQ(loaded("b.def"), "named");
  EXPECT_TRUE(LoadTemplate("b.def", Fields, Options, cancel).Cancelled);
  EXPECT_TRUE(Fields.HelpWords.Empty());
  const LoadResult missing = LoadTemplate("gone.def", Fields, Options, Messages);
  EXPECT_NE(missing.Error, "");
  std::filesystem::current_path(before);
}

}  // namespace
