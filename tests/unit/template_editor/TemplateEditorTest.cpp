// The whole editor without its widgets: files, marks of changes, buttons, captions and what the frame is told.

#include "template_editor/TemplateEditor.h"

#include <gtest/gtest.h>

#include "templates/EditorReader.h"
#include "templates/Writer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/SourceFile.h"
#include "tests/unit/template_editor/EditorFixture.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

using namespace template_editor;
using platform::MessageBox, platform::PromptAnswer, platform::PromptButtons, platform::PromptIcon;
using tests::EditorUser;

class TemplateEditorTest : public testing::Test {
 protected:
  void Type(TextField field, std::string_view text) { m_editor.Typed(field, text); }
  std::string WriteFull() {
    return m_folder.Write("full.def", tests::SourceFile("tests/unit/templates/cases/full.def"));
  }
  tests::TemporaryFolder m_folder;
  EditorUser m_user;
  TemplateEditor& m_editor = m_user.Editor;
};

TEST_F(TemplateEditorTest, OpenedEmptyItHasTheDefaultsAndNothingToSave) {
  m_editor.Activated();
  m_editor.OpenedEmpty();
  EXPECT_EQ(tests::Describe(m_editor.Contents()), tests::Describe(templates::EditorTemplate()));
  EXPECT_EQ(m_user.WindowCaption, "Untitled (Template)");
  EXPECT_EQ(m_user.InitialText.Font().Name, "Courier New");
  EXPECT_EQ(m_editor.Icon(), 1);
  EXPECT_EQ(m_editor.ColourNameShown(), "[ColourName]");
  EXPECT_TRUE(m_editor.Saved());
  EXPECT_FALSE(m_user.Tools.at("save"));
}

TEST_F(TemplateEditorTest, EveryEditMarksTheTemplateOnceAndLookingDoesNot) {
  const std::vector<std::pair<const char*, std::function<void()>>> edits = {
      {"field", [&] { Type(TextField::Comments, "x"); }},
      {"working word", [&] { Type(TextField::ActWordName, "x"); }},
      {"tip", [&] { Type(TextField::ToolTipBox, "x"); }},
      {"font", [&] { m_editor.SetFont(2); }},
      {"check box", [&] { m_editor.SetCaseSense(true); }},
      {"end point", [&] { m_editor.SetEndPoint(1); }},
      {"include", [&] { m_editor.SetColWordInclude(true); }},
      {"action", [&] { m_editor.SetAction(2); }},
      {"palette", [&] { m_editor.Click(Button::colAdd); }},
      {"synonyms", [&] { m_editor.Click(Button::btnNew); }},
      {"initial text", [&] { m_editor.InitialTextChanged(); }},
  };
  for (const auto& [name, edit] : edits) {
    ASSERT_TRUE(m_editor.OpenFile(WriteFull()));
    m_editor.Select(List::ActWordList, 0);
    m_editor.Select(List::DelimetersList, 1);
    m_editor.Select(List::ColWordList, 1);
    m_editor.Select(List::lstAss, 0);
    Type(TextField::ColName, m_editor.TextOf(TextField::ColName));
    EXPECT_TRUE(m_editor.Saved()) << name;
    const int tabs = m_user.Tabs;
    edit();
    edit();
    EXPECT_FALSE(m_editor.Saved()) << name;
    EXPECT_EQ(m_user.Tabs, tabs + 1) << name;
    EXPECT_TRUE(m_user.Tools.at("save")) << name;
  }
  m_user.Active = false;
  m_user.Tools.clear();
  ASSERT_TRUE(m_editor.OpenFile(WriteFull()));
  Type(TextField::Comments, "y");
  EXPECT_TRUE(m_user.Tools.empty()) << "the tools are another window's";
}

TEST_F(TemplateEditorTest, SpacesAndLineBreaksLeaveTheDelimetersBox) {
  EXPECT_TRUE(m_editor.Typed(TextField::DelimetersBox, "a"));
  EXPECT_FALSE(m_editor.Typed(TextField::DelimetersBox, "a "));
  EXPECT_TRUE(m_editor.WarnsOfDelimeters());
  EXPECT_TRUE(m_editor.Typed(TextField::DelimetersBox, "ab"));
  EXPECT_FALSE(m_editor.WarnsOfDelimeters());
  EXPECT_FALSE(m_editor.Typed(TextField::DelimetersBox, " a\r\nb ü\n"));
  EXPECT_EQ(m_editor.TextOf(TextField::DelimetersBox), "abü");
  EXPECT_EQ(TemplateEditor::Cleaned(TextField::DelimetersBox, " a\r"), "a");
}

TEST_F(TemplateEditorTest, ADelimeterOfAnActionBecomesOneOfTheTemplate) {
  Type(TextField::DelimetersBox, ",.");
  for (const char* delimeter : {".", " ", "::", ":"}) {
    Type(TextField::DelimBox, delimeter);
    m_editor.Click(Button::DelimAdd);
  }
  EXPECT_EQ(m_editor.TextOf(TextField::DelimetersBox), ",.::");
  EXPECT_FALSE(m_editor.WarnsOfDelimeters()) << "a space is one anyway";
  Type(TextField::DelimBox, ">");
  m_editor.Click(Button::DelimChange);
  EXPECT_EQ(m_editor.TextOf(TextField::DelimetersBox), ",.::>");
}

TEST_F(TemplateEditorTest, ButtonsAreEnabledForWhatIsSelected) {
  const auto enabled = [&] {
    std::string names;
    for (int i = 0; i <= static_cast<int>(Button::btnDelete); ++i)
      if (m_editor.Enabled(static_cast<Button>(i))) names += std::string(NameOf(static_cast<Button>(i))) + ' ';
    return names;
  };
  EXPECT_EQ(enabled(), "colAdd ColBrowse ActAdd ClearButton DelimAdd btnNew ");
  ASSERT_TRUE(m_editor.OpenFile(WriteFull()));
  m_editor.Select(List::ColWordList, 0);
  EXPECT_EQ(enabled(),
            "colAdd colRemove colChange ColBrowse AddColWord RemoveColWord ChangeColWord ActAdd ClearButton DelimAdd "
            "btnNew ");
  m_editor.Click(Button::colRemove);
  EXPECT_EQ(m_editor.ColourNameShown(), "[no colour]");
  m_editor.Click(Button::RemoveColWord);
  m_editor.Select(List::ActWordList, 0);
  EXPECT_EQ(enabled(), "colAdd ColBrowse ActAdd ActRemove ActChange ClearButton DelimAdd btnNew ");
  m_editor.Select(List::DelimetersList, 0);  // a list
  m_editor.Select(List::lstAss, 1);
  EXPECT_EQ(enabled(),
            "colAdd ColBrowse ActAdd ActRemove ActChange ClearButton DelimAdd DelimRemove DelimChange wlstAdd btnNew "
            "btnDelete ");
  EXPECT_TRUE(m_editor.WordListUsable());
  m_editor.Select(List::WordList, 1);
  EXPECT_TRUE(m_editor.Enabled(Button::wlstRemove));
  m_editor.Select(List::DelimetersList, 1);  // a tooltip
  EXPECT_TRUE(m_editor.ToolTipShown());
  EXPECT_FALSE(m_editor.Enabled(Button::wlstAdd) || m_editor.FieldEnabled(TextField::wlstName));
}

TEST_F(TemplateEditorTest, EnterAddsWhatIsBeingTyped) {
  EXPECT_EQ(m_editor.DefaultButton(), std::nullopt);
  const std::pair<TextField, Button> cases[] = {
      {TextField::colWordName, Button::AddColWord}, {TextField::ColName, Button::colAdd},
      {TextField::wlstName, Button::wlstAdd},       {TextField::ColHex, Button::colAdd},
      {TextField::ActWordName, Button::ActAdd},     {TextField::DelimBox, Button::DelimAdd}};
  for (const auto& [field, button] : cases) {
    Type(field, "x");
    EXPECT_EQ(m_editor.DefaultButton(), button);
    Type(TextField::Comments, std::string(NameOf(field)));
    EXPECT_EQ(m_editor.DefaultButton(), button) << "other fields leave it";
  }
}

TEST_F(TemplateEditorTest, CaptionsFollowWordAndDelimeter) {
  Type(TextField::ActWordName, "a&b");
  Type(TextField::DelimBox, "&");
  EXPECT_EQ(m_editor.DelimetersCaption(), "Word Delimeters for [a&&b]");
  EXPECT_EQ(m_editor.ActionCaption(), "Action for [&&]");
  EXPECT_EQ(m_editor.WordListCaption(), "Word List for [&&]");
  EXPECT_EQ(m_editor.ToolTipCaption(), "Tool T&ip for [&&] of [a&&b]");
}

TEST_F(TemplateEditorTest, TheEndWordBelongsToItsOption) {
  EXPECT_EQ(m_editor.SetEndPoint(1).Focus, std::nullopt);
  EXPECT_EQ(m_editor.SetEndPoint(2).Focus, TextField::colEndWord);
  m_editor.SetEndPoint(0);
  Type(TextField::colEndWord, "*/");
  EXPECT_EQ(m_editor.EndPoint(), 2);
}

TEST_F(TemplateEditorTest, SynonymRowsAreWrittenThrough) {
  EXPECT_FALSE(m_editor.FieldEnabled(TextField::txtWord));
  EXPECT_TRUE(m_editor.Click(Button::btnDelete).Beep);
  for (int i = 0; i < 2; ++i) m_editor.Click(Button::btnNew);
  Type(TextField::txtWord, "do\"c");
  Type(TextField::ActWordName, "document");
  m_editor.Click(Button::ActAdd);
  m_editor.TakeSynonym(0);
  m_editor.TakeSynonym(9);
  ASSERT_EQ(m_editor.Synonyms().size(), 2U);
  EXPECT_EQ(m_editor.Synonyms()[0].Word + m_editor.Synonyms()[0].Synonym, "new(click to select, then edit below)");
  EXPECT_EQ(m_editor.Synonyms()[1].Word + m_editor.Synonyms()[1].Synonym, "docdocument");
  m_editor.Click(Button::btnNew);
  m_editor.Select(List::lstAss, 1);
  m_editor.Click(Button::btnDelete);
  EXPECT_EQ(m_editor.Selected(List::lstAss), 1U) << "the row that takes its place";
  for (int i = 0; i < 2; ++i) m_editor.Click(Button::btnDelete);
  EXPECT_EQ(m_editor.TextOf(TextField::txtWord), "");
}

// Files.

TEST_F(TemplateEditorTest, ATemplateKeepsTheEncodingOfItsFile) {
  for (const std::string mark : {"N: caf\xE9\r\n", "\xEF\xBB\xBFN: caf\xC3\xA9\r\n", "N: caf\xC3\xA9\r\n"}) {
    const std::string path = m_folder.Write("encoded.def", mark);
    ASSERT_TRUE(m_editor.OpenFile(path));
    ASSERT_TRUE(m_editor.SaveFile(path));
    const std::string start = mark.substr(0, mark.find('N')), name = mark.substr(start.size());
    EXPECT_TRUE(m_folder.Read("encoded.def").starts_with(start));
    EXPECT_NE(m_folder.Read("encoded.def").find(name), std::string::npos) << mark;
  }
}

TEST_F(TemplateEditorTest, AFileIsOpenedInPlaceOfEverything) {
  Type(TextField::ActWordName, "old");
  m_editor.Click(Button::ActAdd);
  m_editor.Click(Button::btnNew);
  Type(TextField::wlstName, "old");
  m_user.User.ExpectOpenFile("Open Template", "");
  EXPECT_FALSE(m_editor.OpenFile(""));
  EXPECT_EQ(m_editor.Count(List::ActWordList), 1U);
  m_user.User.ExpectOpenFile("Open Template", WriteFull());
  EXPECT_TRUE(m_editor.OpenFile(""));
  EXPECT_EQ(m_user.User.LastFileQuestion().Folder, "/templates");
  EXPECT_TRUE(m_editor.Saved());
  EXPECT_FALSE(m_user.Tools.at("save"));
  EXPECT_EQ(m_user.WindowCaption, "full.def (Template)");
  EXPECT_EQ(m_editor.CurFileName(), m_folder.Path("full.def"));
  templates::CollectedMessages messages;
  const auto full = templates::ReadEditorTemplate(m_folder.Path("full.def"), messages);
  EXPECT_EQ(tests::Describe(m_editor.Contents()), tests::Describe(full.Template));
  EXPECT_EQ(m_editor.TextOf(TextField::ActWordName) + m_editor.TextOf(TextField::wlstName), "");
}

TEST_F(TemplateEditorTest, MessagesAboutAFileMayCloseTheEditor) {
  const std::string bad = m_folder.Write("bad.def", "N: x\n?\n");
  const MessageBox box{.Text = "Unrezognized Line:\n\n?",
                       .Title = "Error Loading Template",
                       .Buttons = PromptButtons::OkCancel,
                       .Icon = PromptIcon::Exclamation};
  m_user.User.Expect(box, PromptAnswer::Cancel);
  EXPECT_FALSE(m_editor.OpenFile(bad));
  EXPECT_TRUE(m_user.Closed);
  m_user.User.Expect(box);
  EXPECT_TRUE(m_editor.OpenFile(bad));
  m_user.User.ExpectBoxWith({"Could not read " + m_folder.Path("none.def")});
  EXPECT_FALSE(m_editor.OpenFile(m_folder.Path("none.def")));
  EXPECT_EQ(m_editor.TextOf(TextField::TemplateName), "x");
}

TEST_F(TemplateEditorTest, SavingANewTemplateAsksForItsName) {
  Type(TextField::TemplateName, "A/B");
  Type(TextField::DefaultExt, ".lua; .x.y");
  m_user.User.ExpectSaveFile("Save Template", "");
  EXPECT_FALSE(m_editor.SaveFile(""));
  EXPECT_FALSE(m_editor.Saved());
  EXPECT_EQ(m_user.Suggested, "/templates/A_B.def");
  m_user.User.ExpectSaveFile("Save Template", m_folder.Path("lua.def"));
  EXPECT_TRUE(m_editor.SaveFile(""));
  EXPECT_TRUE(m_editor.Saved());
  EXPECT_EQ(m_editor.TextOf(TextField::DefaultExt), "lua; x.y");
  EXPECT_EQ(m_user.WindowCaption, "lua.def (Template)");
  EXPECT_EQ(m_user.Populated, 1);
  EXPECT_EQ(m_folder.Read("lua.def"), templates::WriteTemplate(m_editor.Contents(), "1/2/2024"));
  Type(TextField::Comments, "more");
  EXPECT_TRUE(m_editor.SaveFile(m_editor.CurFileName()));
  EXPECT_EQ(m_user.Populated, 1) << "the menus change for a new file alone";
}

TEST_F(TemplateEditorTest, AFailedSaveLosesNothing) {
  Type(TextField::Comments, "kept");
  m_user.User.ExpectBoxWith({"Could not save /no/such/folder/x.def"});
  EXPECT_FALSE(m_editor.SaveFile("/no/such/folder/x.def"));
  EXPECT_FALSE(m_editor.Saved());
  EXPECT_EQ(m_editor.CurFileName(), "");
}

TEST_F(TemplateEditorTest, SavingOffersToCommitAnUnfinishedWord) {
  Type(TextField::ActWordName, "word");
  Type(TextField::DelimBox, "(");
  m_user.Leaving.Answers = {LeaveAnswer::Add, LeaveAnswer::Stay};
  EXPECT_FALSE(m_editor.SaveFile(m_folder.Path("t.def")));
  EXPECT_EQ(m_folder.EntryCount(), 0U);
  EXPECT_EQ(m_editor.Count(List::DelimetersList), 1U);
  m_user.Leaving.Answers = {LeaveAnswer::Add};
  EXPECT_TRUE(m_editor.SaveFile(m_folder.Path("t.def")));
  EXPECT_NE(m_folder.Read("t.def").find("W: \"word\" 1\r\n1 \"(\" 0\r\n"), std::string::npos);
  Type(TextField::ActWordName, "changed");
  m_user.Leaving.Answers = {LeaveAnswer::Discard};
  EXPECT_TRUE(m_editor.SaveFile(m_folder.Path("t.def")));
  EXPECT_EQ(m_editor.TextOf(TextField::ActWordName), "word");
}

TEST_F(TemplateEditorTest, RepeatedWordsAreListedAndWritten) {
  m_editor.Click(Button::colAdd);
  m_editor.Select(List::ColourList, 0);
  for (int i = 0; i < 2; ++i) {
    Type(TextField::colWordName, "same");
    EXPECT_EQ(m_editor.Click(Button::AddColWord).Focus, TextField::colWordName);
    Type(TextField::ActWordName, "twice");
    m_editor.Click(Button::ActAdd);
  }
  ASSERT_TRUE(m_editor.SaveFile(m_folder.Path("t.def")));
  const std::string bytes = m_folder.Read("t.def");
  EXPECT_NE(bytes.find("L: same 0  1 False\r\nL: same 0  1 False\r\nW: \"twice\" 0\r\nW: \"twice\" 0\r\n"),
            std::string::npos);
}

}  // namespace
