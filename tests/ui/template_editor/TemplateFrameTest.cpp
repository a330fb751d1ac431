// Template editors among the frame's windows: tools, lists of windows, files and the questions of closing.

#include <QLabel>

#include "tests/ui/template_editor/FormFixture.h"

namespace tests {
namespace {

using platform::PromptAnswer;

class TemplateFrame : public FormTest {
 protected:
  std::string Captions() {
    std::string captions;
    for (const QMdiSubWindow* window : Frame.findChild<QMdiArea*>()->subWindowList())
      captions += window->windowTitle().toStdString() + '|';
    return captions;
  }
  std::string EnabledTools() const {
    std::string names;
    for (const char* name : {"save", "saveas", "miUndo", "miFind", "miReplace", "miFindNext", "miSelectAll", "miPaste",
                             "miWordWrap", "miRefresh", "GenPrev", "fntProportional", "fntFixedWidth", "fntDOS"})
      if (Tool(name).isEnabled()) names += std::string(name) + ' ';
    return names;
  }
};

TEST_F(TemplateFrame, ToolsFollowTheWindowInFront) {
  Folder.Write("a.def", "N: A\r\nX: aaa\r\n");
  Form& first = NewTemplate();
  EXPECT_EQ(EnabledTools(), "saveas ");
  Child<QLineEdit>("Comments").setText(QStringLiteral("x"));
  EXPECT_EQ(EnabledTools(), "save saveas ");
  Prompts.ExpectOpenFile("Select Template", "");
  Frame.OpenFile(Folder.Write("t.txt", "text\n"));
  EXPECT_EQ(EnabledTools(),
            "saveas miFind miReplace miFindNext miSelectAll miPaste miWordWrap miRefresh fntProportional fntFixedWidth "
            "fntDOS ");
  QMdiSubWindow* window = qobject_cast<QMdiSubWindow*>(first.parentWidget());
  window->mdiArea()->setActiveSubWindow(window);
  EXPECT_EQ(EnabledTools(), "save saveas ");
  Prompts.ExpectClosing("New Template", PromptAnswer::No);
  Frame.close();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Frame.WindowCount() == 0; }));
  EXPECT_EQ(EnabledTools(), "");
}

TEST_F(TemplateFrame, SeveralEditorsAreListedWithTheirCaptions) {
  const std::string file = Folder.Write("lua.def", "N: Lua\r\n");
  NewTemplate();
  OpenTemplate(file);
  NewTemplate();
  Child<QLineEdit>("Comments").setText(QStringLiteral("x"));
  EXPECT_EQ(Captions(), "Untitled (Template)|lua.def (Template)|Untitled (Template) *|");
  EXPECT_EQ(Active().CurFileName(), "");
  Frame.ActiveBar_ToolClick("tbWList2");
  EXPECT_EQ(Active().CurFileName(), file);
  Active().parentWidget()->close();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Frame.WindowCount() == 2; }));
  EXPECT_EQ(Captions(), "Untitled (Template)|Untitled (Template) *|");
}

TEST_F(TemplateFrame, SavingUnderANewNameFillsTheMenuOfTemplates) {
  NewTemplate();
  Child<QLineEdit>("TemplateName").setText(QStringLiteral("Mine"));
  Prompts.ExpectSaveFile("Save Template", "");
  Frame.ActiveBar_ToolClick("save");
  EXPECT_EQ(Prompts.LastFileQuestion().SuggestedName, Folder.Path("Mine.def"));
  EXPECT_EQ(Prompts.LastFileQuestion().Filters.front().Description, "Template Definition File");
  EXPECT_FALSE(Active().Saved());
  Prompts.ExpectSaveFile("Save Template", Folder.Path("Mine.def"));
  Frame.ActiveBar_ToolClick("save");
  EXPECT_EQ(Active().Caption(), "Mine.def (Template)");
  EXPECT_FALSE(Tool("save").isEnabled());
  ASSERT_EQ(Frame.Values().TemplateList.size(), 1U);
  EXPECT_EQ(Frame.Values().TemplateList[0].Name, "Mine");
  Prompts.ExpectSaveFile("Save Template", Folder.Path("Other.def"));
  Frame.ActiveBar_ToolClick("saveas");
  EXPECT_EQ(Frame.Values().TemplateList.size(), 2U);
  EXPECT_EQ(Active().CurFileName(), Folder.Path("Other.def"));
}

TEST_F(TemplateFrame, ClosingAsksAndMayStay) {
  NewTemplate();
  Child<QLineEdit>("TemplateName").setText(QStringLiteral("Mine"));
  Prompts.ExpectClosing("Mine", PromptAnswer::Cancel);
  Frame.close();
  EXPECT_TRUE(Frame.isVisible());
  Prompts.ExpectClosing("Mine", PromptAnswer::Yes);
  Prompts.ExpectSaveFile("Save Template", "");
  Frame.close();
  EXPECT_TRUE(Frame.isVisible()) << "without a name nothing is saved";
  Prompts.ExpectClosing("Mine", PromptAnswer::Yes);
  Prompts.ExpectSaveFile("Save Template", Folder.Path("m.def"));
  Frame.close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Frame.WindowCount() == 0; }));
  EXPECT_NE(Folder.Read("m.def").find("N: Mine\r\n"), std::string::npos);
}

TEST_F(TemplateFrame, AnEditorWhoseFileDoesNotOpenCloses) {
  Prompts.ExpectOpenFile("Open Template", "");
  Frame.ActiveBar_ToolClick("OpenTemplate");
  EXPECT_EQ(Frame.WindowCount(), 0U);
  Prompts.ExpectOpenFile("Open Template", Folder.Write("bad.def", "?\r\n"));
  Prompts.ExpectBoxWith({"Unrezognized Line:"}, PromptAnswer::Cancel);
  Frame.ActiveBar_ToolClick("OpenTemplate");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Frame.WindowCount() == 0; }));
  Prompts.ExpectOpenFile("Open Template", Folder.Path("none.def"));
  Prompts.ExpectBoxWith({"Could not read"});
  Frame.ActiveBar_ToolClick("OpenTemplate");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Frame.WindowCount() == 0; }));
}

TEST_F(TemplateFrame, AboutShowsTheTemplateOfTheWindowInFront) {
  const auto about = [&] {
    std::string shown = "nothing";
    InModalWindow([&shown](QWidget& window) {
      EXPECT_EQ(window.objectName(), QStringLiteral("AboutTemplate"));
      shown = window.windowTitle().toStdString();
      for (const char* name : {"lblVersion", "lblDate", "lblAuthor", "lblComments"})
        shown += '|' + tests::Child<QLabel>(window, name).text().toStdString();
      tests::Click(window, "OKButton");
    });
    Frame.ActiveBar_ToolClick("miHAboutTemplate");
    return shown;
  };
  Folder.Write("a.def", "N: A\r\nX: aaa\r\nV: 1\r\nA: Me\r\nE: now\r\nM: <b>all</b>\r\n");
  Prompts.ExpectOpenFile("Select Template", "");
  Frame.OpenFile(Folder.Write("t.txt", "text\n"));
  EXPECT_EQ(about(), "Quillmark - About ||||");
  Prompts.ExpectOpenFile("Select Template", Folder.Path("a.def"));
  Prompts.ExpectBoxWith({"all .txt files"}, PromptAnswer::No);
  Frame.ActiveDocument()->SetTemplate("");
  EXPECT_EQ(about(), "Quillmark - About A|1|now|Me|<b>all</b>");
  NewTemplate();
  Child<QLineEdit>("AuthorBox").setText(QStringLiteral("typed"));
  EXPECT_EQ(about(), "Quillmark - About New Template|||typed|");
  Prompts.ExpectClosing("New Template", PromptAnswer::No);
  Frame.close();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Frame.WindowCount() == 0; }));
  Frame.ActiveBar_ToolClick("miHAboutTemplate");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(TemplateFrame, TheFocusComesBackToItsField) {
  NewTemplate();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("TemplateName"));
  Play("<Alt+F>");
  Frame.ActiveBar_ToolClick("nothing");
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("hdfFile"));
  NewTemplate();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("TemplateName"));
  Frame.ActiveBar_ToolClick("tbWList1");
  EXPECT_EQ(QApplication::focusWidget(), &Child<QLineEdit>("hdfFile"));
}

}  // namespace
}  // namespace tests
