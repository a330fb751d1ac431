// The frame with real document windows: files opened, typed into, saved and closed.

#include <QClipboard>
#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QToolButton>

#include "rich_text/Rtf.h"
#include "tests/ui/FrameFixture.h"

namespace {

using platform::PromptAnswer;

constexpr const char* Templates = QUILLMARK_SOURCE_DIR "/data/templates";

using FrameTest = tests::FrameFixture;

TEST_F(FrameTest, EveryCommandHasItsAction) {
  EXPECT_EQ(m_frame.WaitingCommands(), std::vector<std::string>());
}

TEST_F(FrameTest, UndoAndRedoByTheirKeys) {
  const std::string text = "var a = 1;\r\nvar b = '\xC3\xA4';\nvar c;\r\n";
  editor::ui::Mainwin& window = Open("a.js", text);
  platform::qt::RichTextBox& area = window.TextArea();
  const std::string coloured = area.TextRTF();
  QGuiApplication::clipboard()->setText(QStringLiteral("var p;\nreturn 'q';\n"));
  QTest::keyClick(area.viewport(), Qt::Key_V, Qt::ControlModifier);
  const std::string pasted = area.Text();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Tool("miUndo").isEnabled(); })) << "half a second later it is a record";
  area.Select(3, area.LineStart(5) + 2);
  QTest::keyClick(area.viewport(), Qt::Key_Delete);
  const std::string cut = area.Text();
  EXPECT_EQ(cut, "varr c;\r\n");

  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers more = {}) {
    QTest::keyClick(area.viewport(), key, Qt::ControlModifier | more);
    return area.Text();
  };
  EXPECT_EQ(press(Qt::Key_Z), pasted) << "what is pending comes first";
  EXPECT_EQ(press(Qt::Key_Z), text);
  QTest::keyClick(area.viewport(), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(area.TextRTF(), coloured) << "what came back is coloured as it was, once the caret has left its line";
  EXPECT_FALSE(Tool("miUndo").isEnabled());
  EXPECT_EQ(press(Qt::Key_Y), pasted);
  EXPECT_EQ(press(Qt::Key_Z, Qt::ShiftModifier), cut);
  EXPECT_FALSE(Tool("miRedo").isEnabled());

  Open("b.js", "other\n");
  EXPECT_FALSE(Tool("miUndo").isEnabled()) << "each document has a history of its own";
}

TEST_F(FrameTest, AFileThatDoesNotExistOpensNothing) {
  m_prompts.Expect({.Text = "/no/such/file.js does not exist.",
                    .Title = "Error opening file...",
                    .Icon = platform::PromptIcon::Critical});
  m_frame.OpenFile("/no/such/file.js");
  EXPECT_EQ(m_frame.WindowCount(), 0U);
}

TEST_F(FrameTest, TheTemplatePanelLetsTheUserChooseATemplate) {
  m_prompts.ExpectOpenFile("Select Template", "");  // at first the user wants none
  editor::ui::Mainwin& window = Open("notes.zzz", "if x: pass\n");
  EXPECT_TRUE(rich_text::ReadRtf(window.TextArea().TextRTF()).Runs.empty());
  m_prompts.ExpectOpenFile("Select Template", std::string(Templates) + "/Python.def");
  m_prompts.ExpectAssociating("zzz", PromptAnswer::Yes);
  auto* panel = m_frame.findChild<QToolButton*>(QStringLiteral("Template"));
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->text(), QStringLiteral("Using '<none>' Template"));
  QTest::mouseClick(panel, Qt::LeftButton);
  EXPECT_EQ(panel->text(), QStringLiteral("Using 'Python' Template"));
  EXPECT_FALSE(rich_text::ReadRtf(window.TextArea().TextRTF()).Runs.empty());
  EXPECT_TRUE(window.Saved());
  // The association holds for the next file of the kind.
  EXPECT_FALSE(rich_text::ReadRtf(Open("more.zzz", "if y: pass\n").TextArea().TextRTF()).Runs.empty());
}

TEST_F(FrameTest, ColouringALongFileYieldsAndEndsWithItsWindow) {
  std::string text;
  while (text.size() < 60'000'000) text += "var a = 'b'; // c\n";
  const std::string path = m_folder.Write("long.js", text);
  bool closedWhileBusy = false;
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [&] {
    editor::ui::Mainwin* window = m_frame.ActiveDocument();
    if (!window || !window->Busy() || closedWhileBusy) return;
    closedWhileBusy = true;
    EXPECT_FALSE(window->TextArea().Enabled());
    window->parentWidget()->close();
    EXPECT_EQ(m_frame.WindowCount(), 1U);  // the run below in the stack still needs it
  });
  closer.start(0);
  m_frame.OpenFile(path);
  EXPECT_TRUE(closedWhileBusy);
  EXPECT_TRUE(AllClosed());
}

TEST_F(FrameTest, EscapeStopsColouring) {
  std::string text;
  while (text.size() < 60'000'000) text += "var a = 'b'; // c\n";
  const std::string path = m_folder.Write("long.js", text);
  int yields = 0;
  QTimer presser;
  QObject::connect(&presser, &QTimer::timeout, [&] {
    editor::ui::Mainwin* window = m_frame.ActiveDocument();
    if (window && window->Busy() && ++yields > 1) QTest::keyClick(window->TextArea().viewport(), Qt::Key_Escape);
  });
  presser.start(0);
  m_frame.OpenFile(path);
  const rich_text::StyledText shown = rich_text::ReadRtf(m_frame.ActiveDocument()->TextArea().TextRTF());
  ASSERT_FALSE(shown.Runs.empty());
  EXPECT_LT(shown.Runs.back().End, text.size() * 9 / 10);
  EXPECT_EQ(shown.Text.size(), text.size());
  EXPECT_TRUE(m_frame.ActiveDocument()->TextArea().Enabled());
}

}  // namespace
