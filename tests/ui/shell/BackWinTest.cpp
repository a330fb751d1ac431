// The frame with real document windows: files opened, typed into, saved and closed.

#include <QMdiSubWindow>
#include <QToolButton>

#include "rich_text/Rtf.h"
#include "tests/ui/FrameFixture.h"

namespace {

using platform::PromptAnswer;

constexpr const char* Templates = QUILLMARK_SOURCE_DIR "/data/templates";

class FrameTest : public tests::FrameFixture {
 protected:
  /// Opens a file that is long in colouring, and does something again and again while it is.
  void OpenLong(const std::function<void(editor::ui::Mainwin&)>& meanwhile) {
    std::string text;
    while (text.size() < LongBytes) text += "var a = 'b'; // c\n";
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
      editor::ui::Mainwin* window = m_frame.ActiveDocument();
      if (window && window->Busy()) meanwhile(*window);
    });
    timer.start(0);
    m_frame.OpenFile(m_folder.Write("long.js", text));
  }
  static constexpr std::size_t LongBytes = 60'000'000;
};

TEST_F(FrameTest, TypingThatPausesCanBeUndoneAndRedoneByTheirKeys) {
  platform::qt::RichTextBox& area = Open("a.js", "var a;\n").TextArea();
  QTest::keyClick(area.viewport(), Qt::Key_X);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Tool("miUndo").isEnabled(); })) << "half a second later it is a record";
  QTest::keyClick(area.viewport(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(area.Text(), "var a;\n");
  QTest::keyClick(area.viewport(), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(area.Text(), "xvar a;\n");
  Open("b.js", "other\n");
  EXPECT_FALSE(Tool("miUndo").isEnabled()) << "each document has a history of its own";
  m_prompts.ExpectClosing("a.js", PromptAnswer::No);
  m_frame.close();
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
  const auto& panel = tests::Child<QToolButton>(m_frame, "Template");
  EXPECT_EQ(panel.text(), QStringLiteral("Using '<none>' Template"));
  tests::Click(m_frame, "Template");
  EXPECT_EQ(panel.text(), QStringLiteral("Using 'Python' Template"));
  EXPECT_FALSE(rich_text::ReadRtf(window.TextArea().TextRTF()).Runs.empty());
  EXPECT_TRUE(window.Saved());
  // The association holds for the next file of the kind.
  EXPECT_FALSE(rich_text::ReadRtf(Open("more.zzz", "if y: pass\n").TextArea().TextRTF()).Runs.empty());
}

TEST_F(FrameTest, ColouringALongFileYieldsAndEndsWithItsWindow) {
  bool closedWhileBusy = false;
  OpenLong([&](editor::ui::Mainwin& window) {
    if (std::exchange(closedWhileBusy, true)) return;
    EXPECT_FALSE(window.TextArea().Enabled());
    window.parentWidget()->close();
    EXPECT_EQ(m_frame.WindowCount(), 1U);  // the run below in the stack still needs it
  });
  EXPECT_TRUE(closedWhileBusy);
  EXPECT_TRUE(AllClosed());
}

TEST_F(FrameTest, EscapeStopsColouring) {
  int yields = 0;
  OpenLong([&](editor::ui::Mainwin& window) {
    if (++yields > 1) QTest::keyClick(window.TextArea().viewport(), Qt::Key_Escape);
  });
  const rich_text::StyledText shown = rich_text::ReadRtf(m_frame.ActiveDocument()->TextArea().TextRTF());
  ASSERT_FALSE(shown.Runs.empty());
  EXPECT_LT(shown.Runs.back().End, LongBytes * 9 / 10);
  EXPECT_GE(shown.Text.size(), LongBytes);
  EXPECT_TRUE(m_frame.ActiveDocument()->TextArea().Enabled());
}

}  // namespace
