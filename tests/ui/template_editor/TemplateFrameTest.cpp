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
    for (const QMdiSubWindow* window : m_frame.findChild<QMdiArea*>()->subWindowList())
      captions += window->windowTitle().toStdString() + '|';
    return captions;
  }
  std::string EnabledTools() const {
    std::string names;
    for (const char* name : {"save", "saveas", "miFind"})
      if (Tool(name).isEnabled()) names += std::string(name) + ' ';
    return names;
  }
};

TEST_F(TemplateFrame, ToolsFollowTheWindowInFront) {
  m_folder.Write("a.def", "N: A\r\nX: aaa\r\n");
  Form& first = NewTemplate();
  EXPECT_EQ(EnabledTools(), "saveas ");
  Child<QLineEdit>("Comments").setText(QStringLiteral("x"));
  EXPECT_EQ(EnabledTools(), "save saveas ");
  m_prompts.ExpectOpenFile("Select Template", "");
  m_frame.OpenFile(m_folder.Write("t.txt", "text\n"));
  EXPECT_EQ(EnabledTools(), "saveas miFind ");
  QMdiSubWindow* window = qobject_cast<QMdiSubWindow*>(first.parentWidget());
  window->mdiArea()->setActiveSubWindow(window);
  EXPECT_EQ(EnabledTools(), "save saveas ");
  m_prompts.ExpectClosing("New Template", PromptAnswer::No);
  m_frame.close();
  ASSERT_TRUE(AllClosed());
  EXPECT_EQ(EnabledTools(), "");
}

TEST_F(TemplateFrame, SeveralEditorsAreListedWithTheirCaptions) {
  const std::string file = m_folder.Write("lua.def", "N: Lua\r\n");
  NewTemplate();
  OpenTemplate(file);
  NewTemplate();
  Child<QLineEdit>("Comments").setText(QStringLiteral("x"));
  EXPECT_EQ(Captions(), "Untitled (Template)|lua.def (Template)|Untitled (Template) *|");
  EXPECT_EQ(Active().CurFileName(), "");
  m_frame.ActiveBar_ToolClick("tbWList2");
  EXPECT_EQ(Active().CurFileName(), file);
  Active().parentWidget()->close();
  ASSERT_TRUE(QTest::qWaitFor([&] { return m_frame.WindowCount() == 2; }));
  EXPECT_EQ(Captions(), "Untitled (Template)|Untitled (Template) *|");
}

TEST_F(TemplateFrame, ClosingAsksAndMayStay) {
  NewTemplate();
  Child<QLineEdit>("TemplateName").setText(QStringLiteral("Mine"));
  m_prompts.ExpectClosing("Mine", PromptAnswer::Cancel);
  m_frame.close();
  EXPECT_TRUE(m_frame.isVisible());
  m_prompts.ExpectClosing("Mine", PromptAnswer::Yes);
  m_prompts.ExpectSaveFile("Save Template", "");
  m_frame.close();
  EXPECT_TRUE(m_frame.isVisible()) << "without a name nothing is saved";
  m_prompts.ExpectClosing("Mine", PromptAnswer::Yes);
  m_prompts.ExpectSaveFile("Save Template", m_folder.Path("m.def"));
  m_frame.close();
  ASSERT_TRUE(AllClosed());
  EXPECT_NE(m_folder.Read("m.def").find("N: Mine\r\n"), std::string::npos);
}

TEST_F(TemplateFrame, AnEditorWhoseFileDoesNotOpenCloses) {
  m_prompts.ExpectOpenFile("Open Template", "");
  m_frame.ActiveBar_ToolClick("OpenTemplate");
  EXPECT_EQ(m_frame.WindowCount(), 0U);
  m_prompts.ExpectOpenFile("Open Template", m_folder.Write("bad.def", "?\r\n"));
  m_prompts.ExpectBoxWith({"Unrezognized Line:"}, PromptAnswer::Cancel);
  m_frame.ActiveBar_ToolClick("OpenTemplate");
  ASSERT_TRUE(AllClosed());
  m_prompts.ExpectOpenFile("Open Template", m_folder.Path("none.def"));
  m_prompts.ExpectBoxWith({"Could not read"});
  m_frame.ActiveBar_ToolClick("OpenTemplate");
  ASSERT_TRUE(AllClosed());
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
    m_frame.ActiveBar_ToolClick("miHAboutTemplate");
    return shown;
  };
  m_folder.Write("a.def", "N: A\r\nX: aaa\r\nV: 1\r\nA: Me\r\nE: now\r\nM: <b>all</b>\r\n");
  m_prompts.ExpectOpenFile("Select Template", "");
  m_frame.OpenFile(m_folder.Write("t.txt", "text\n"));
  EXPECT_EQ(about(), "Quillmark - About ||||");
  m_prompts.ExpectOpenFile("Select Template", m_folder.Path("a.def"));
  m_prompts.ExpectBoxWith({"all .txt files"}, PromptAnswer::No);
  m_frame.ActiveDocument()->SetTemplate("");
  EXPECT_EQ(about(), "Quillmark - About A|1|now|Me|<b>all</b>");
  NewTemplate();
  Child<QLineEdit>("AuthorBox").setText(QStringLiteral("typed"));
  EXPECT_EQ(about(), "Quillmark - About New Template|||typed|");
  m_prompts.ExpectClosing("New Template", PromptAnswer::No);
  m_frame.close();
  ASSERT_TRUE(AllClosed());
  m_frame.ActiveBar_ToolClick("miHAboutTemplate");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(TemplateFrame, TheFocusComesBackToItsField) {
  NewTemplate();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("TemplateName"));
  Play("<Alt+F>");
  m_frame.ActiveBar_ToolClick("nothing");
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("hdfFile"));
  NewTemplate();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("TemplateName"));
  m_frame.ActiveBar_ToolClick("tbWList1");
  EXPECT_EQ(QApplication::focusWidget(), &Child<QLineEdit>("hdfFile"));
}

}  // namespace
}  // namespace tests
