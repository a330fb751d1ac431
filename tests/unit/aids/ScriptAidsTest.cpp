// Word help, synonyms, preview and run: everything of them that needs no window.

#include <gtest/gtest.h>

#include "aids/CommandLines.h"
#include "aids/DocumentSynonyms.h"
#include "aids/PreviewPage.h"
#include "aids/ScriptRuns.h"
#include "aids/SynonymFile.h"
#include "aids/WordAtCaret.h"
#include "aids/WordHelp.h"
#include "tests/support/FakeFrame.h"
#include "tests/support/FakeShell.h"
#include "tests/support/LoadedTemplate.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/SourceFile.h"

namespace {

using namespace aids;
using platform::PromptAnswer, platform::PromptButtons, platform::PromptIcon;

TEST(CommandLines, AreTakenApartAndFilledIn) {
  const struct {
    const char *Line, *Help, *Run;  // "program|arguments"
  } cases[] = {{"hh", "hh|", "hh|"},
               {"hh topic x", "hh| topic x", "hh|topic x"},
               {"\"a b\" topic", "a b| topic", "a b|topic"},
               {"\"a b", "a b|", "a b|"},
               {"\"a\"", "a|", "a|"},
               {"", "|", "|"},
               {"\"", "|", "|"}};
  for (const auto& c : cases) {
    const auto help = SplitHelpCommand(c.Line), run = SplitRunCommand(c.Line);
    EXPECT_EQ(help.Program + '|' + help.Arguments, c.Help) << c.Line;
    EXPECT_EQ(run.Program + '|' + run.Arguments, c.Run) << c.Line;
  }
  EXPECT_EQ(CommandFor("notepad %s %s", "/a b"), "notepad /a b /a b");
  EXPECT_EQ(CommandFor("\"C:\\Tools\\run.exe\" /x %s", "C:\\a b\\t.js"), "\"C:\\Tools\\run.exe\" /x C:\\a b\\t.js");
  EXPECT_EQ(CommandFor("run", "/a"), "run");
}

TEST(CommandLines, AQuotedPathStaysOneArgumentWhateverItHolds) {
  for (const std::string path :
       {"/a b/c.js", "/a\"b\\", "/\\\"", "/100%s %d", "/\xC3\xA4 \xE2\x82\xAC", "/$(x);`y`", "/'"})
    EXPECT_EQ(platform::SplitArguments(SplitRunCommand(CommandFor("node -x \"%s\" end", path)).Arguments),
              (std::vector<std::string>{"-x", path, "end"}))
        << path;
  EXPECT_EQ(platform::SplitArguments("  a  \"\" b\\c \\\"d\\\" \"e f\"g"),
            (std::vector<std::string>{"a", "", "b\\c", "\"d\"", "e fg"}));
}

/// A document without a window.
struct Desk {
  tests::MemoryTextControl Control;
  editor::DocumentState State;
  tests::FakeFrame Frame;
  tests::FakeShell Shell;

  Desk() { State.Template = tests::LoadedTemplate("D: ()\nW: \"Document\" 0\nW: \"Window\" 0\n"); }
  void Type(const std::string& text, std::size_t caret) {
    Control.SetText(text);
    Control.SetSelStart(caret);
  }
  void AddHelp(const char* word, const char* command, const char* name) {
    State.Template.HelpWords.Add(std::make_shared<templates::HelpWord>(templates::HelpWord{word, command, name}));
  }
};

TEST(WordAtCaret, ReachesFromDelimiterToDelimiter) {
  Desk desk;
  const std::string wide = "\xE2\x82\xAC\xC3\xA4";
  const std::string longWord(700, 'x');
  const struct {
    std::string Text;
    std::size_t Caret;
    std::string Word;
  } cases[] = {{"a print b", 2, "print"},
               {"print(x)", 2, "print"},
               {"print(x)", 5, "print"},
               {"a  b", 2, ""},
               {"", 0, ""},
               {wide + " b", 3, wide},
               {"a " + wide, 2, wide},
               {longWord + wide, 650, longWord + wide},
               {" " + longWord, 701, longWord}};
  for (const auto& c : cases) {
    desk.Type(c.Text, c.Caret);
    EXPECT_EQ(HelpedWord(desk.Control, desk.State.Template), c.Word) << c.Text << " at " << c.Caret;
  }
}

TEST(WordHelp, RunsTheEntryOrAsksOrSaysThatThereIsNone) {
  Desk desk;
  desk.AddHelp("Print", "\"/opt/a viewer\" print", "One");
  desk.AddHelp("PRINT", "other x", "Two");
  desk.AddHelp("only", "see", "Three");
  const auto show = [&](const std::string& text, const char* choice) {
    desk.Type(text, 0);
    ShowWordHelp(desk.Control, desk.State.Template, desk.Shell, desk.Frame.Questions, [&](const HelpChoices& choices) {
      for (const auto& entry : choices)
        if (entry->Name == choice) return entry;
      return std::shared_ptr<const templates::HelpWord>();
    });
  };
  show("print", "One");
  show("print", "Two");
  show("print", "");
  show("ONLY", "not asked");
  EXPECT_EQ(desk.Shell.Runs, (std::vector<std::string>{"/opt/a viewer| print", "other| x", "see|"}));
  desk.Frame.Questions.Expect({.Text = "No help is available for \"none\".  Sorry."});
  show("none", "");
  desk.Shell.Result = 32;
  desk.Frame.Questions.Expect({.Text = "\"see\" could not be executed.", .Icon = PromptIcon::Exclamation});
  show("only", "");
}

TEST(SynonymFile, IsWrittenAndReadToTheByte) {
  templates::KeyedCollection<templates::Synonym> synonyms;
  ReplaceSynonym(synonyms, {"obj", "Document"});
  ReplaceSynonym(synonyms, {"a\"b", "left out"});
  ReplaceSynonym(synonyms, {"two\r\nlines", "left out"});
  ReplaceSynonym(synonyms, {"a,b", "Window"});
  std::string written = tests::SourceFile("tests/unit/aids/cases/saved.syn");
  EXPECT_EQ(WriteSynonyms(synonyms, "/x.js"), written);
  const std::string origin = "Saved From /x.js.  ";
  written.erase(written.find(origin), origin.size());
  EXPECT_EQ(WriteSynonyms(synonyms, ""), written);
  EXPECT_FALSE(ReadSynonyms("quillmark synonym file\r\n\r\n"));

  const auto read = [](const std::string& body) {
    std::string all;
    const auto found = ReadSynonyms("Quillmark Synonym File\nwarning\n" + body);
    for (const auto& record : *found) all += '[' + record.Word + '=' + record.Synonym + ']';
    return all;
  };
  EXPECT_EQ(read("\"obj\",\"Document\"\r\n\"a,b\",\"Window\"\r\n"), "[obj=Document][a,b=Window]");
  EXPECT_EQ(read("  a b ,  c\n\n\"d\"\n\"e\"\nlast"), "[a b=c][d=e]");
  EXPECT_EQ(read("\"open,x\n\"y\",z"), "[open,x=y]");
}

TEST(DocumentSynonyms, AreSavedLoadedAddedAndAskedAbout) {
  Desk desk;
  tests::TemporaryFolder folder;
  DocumentSynonyms synonyms(desk.Control, desk.State, desk.Frame);
  desk.Type("let obj = 1", 5);
  synonyms.AddSynonym([](const std::vector<std::string>& names) { return names.at(1); });
  EXPECT_EQ(desk.Control.SelText(), "obj");
  EXPECT_EQ(desk.State.Template.Synonyms.Item("OBJ")->Synonym, "Window");
  EXPECT_FALSE(desk.State.SSaved);

  desk.State.CurFileName = "/somewhere/x.js";
  desk.Frame.Questions.ExpectSaveFile("Save Synonyms", "");
  EXPECT_FALSE(synonyms.SaveSynonyms(""));
  EXPECT_EQ(desk.Frame.Suggested, "/somewhere/x.js.syn");
  const std::string path = folder.Path("a.syn");
  EXPECT_TRUE(synonyms.SaveSynonyms(path));
  EXPECT_TRUE(desk.State.SSaved);
  EXPECT_EQ(desk.State.CurSFileName, path);

  synonyms.Replace(platform::PairRows({{"w", "first"}, {"W", "second"}}));
  EXPECT_EQ(desk.State.Template.Synonyms.Count(), 1U);
  const auto expect = [&](PromptAnswer answer) {
    desk.Frame.Questions.ExpectQuestion("Save changes to current set of Synonyms?", PromptButtons::YesNoCancel,
                                        PromptAnswer::Cancel, answer);
  };
  expect(PromptAnswer::Cancel);
  synonyms.LoadSynonyms(path);
  EXPECT_EQ(desk.State.Template.Synonyms.Item("w")->Synonym, "second");
  expect(PromptAnswer::No);
  synonyms.LoadSynonyms(path);
  EXPECT_EQ(desk.State.Template.Synonyms.Item("obj")->Synonym, "Window");
  const std::string other = folder.Write("b.syn", "something else\n");
  desk.Frame.Questions.Expect({.Text = other + " does is not a valid synonym file.", .Icon = PromptIcon::Critical});
  synonyms.LoadSynonyms(other);
  EXPECT_EQ(desk.State.CurSFileName, path);
}

/// A page of the cases, with the text in the place of its "@".
std::string PageAround(const std::string& text, const std::string& name) {
  std::string page = tests::SourceFile("tests/unit/aids/cases/" + name);
  return page.replace(page.find('@'), 1, text);
}

TEST(PreviewPage, IsTheTextAmongTheHarnesssLinesToTheByte) {
  for (const std::string text : {"", "f('\xC3\xA4%s');\n// </script>\r\n", " <html>", "html>"})
    EXPECT_EQ(PreviewPage(text), PageAround(text, "script.html"));
  for (const std::string text : {"<script>f()</script>", "<", "<html", "<html lang='en'>"})
    EXPECT_EQ(PreviewPage(text), PageAround(text, "page.html"));
  for (const std::string text : {"<html>", "<HtMl>x\n"}) EXPECT_EQ(PreviewPage(text), text);
}

TEST(ScriptRuns, SaveFirstAndTellWhatFails) {
  Desk desk;
  tests::TemporaryFolder folder;
  const RunTools tools{desk.Shell, desk.Frame.Questions};
  const auto run = [&](const std::function<bool()>& save) { SaveExec(desk.State, save, tools); };
  const auto unasked = [] {
    ADD_FAILURE() << "nothing is to be saved";
    return true;
  };
  desk.Frame.Questions.Expect({.Text = "No execution command has been defined for this template."});
  run(unasked);
  desk.State.Template.ExecuteCommand = "node \"%s\"";
  desk.State.Saved = false;
  run([] { return false; });  // the user cancelled
  const auto save = [&](bool done) {
    desk.State.CurFileName = "/a b.js";
    return done;
  };
  run([&] { return save(false); });  // the disk is full, and the file as it was before
  EXPECT_TRUE(desk.Shell.Runs.empty());
  run([&] { return save(true); });
  desk.Shell.Result = 2;
  desk.Frame.Questions.Expect({.Text = "An error occured when trying to execute the command:\r\n\r\nnode \"/a b.js\"",
                               .Title = "Error",
                               .Icon = PromptIcon::Critical});
  desk.State.Saved = true;
  run(unasked);
  desk.Shell.Result = 33;
  desk.Control.SetText("f()");
  GenerateJavaScriptPreview(desk.Control, folder.Path(), tools);
  EXPECT_EQ(desk.Shell.Runs,
            (std::vector<std::string>{"node|\"/a b.js\"", "node|\"/a b.js\"", folder.Path() + "/~Preview.html|"}));
  EXPECT_EQ(folder.Read("~Preview.html"), PreviewPage("f()"));
}

}  // namespace
