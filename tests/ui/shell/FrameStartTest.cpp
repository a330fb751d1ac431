// The real frame from its start to its end, in a program folder and with settings of its own: what is there the next
// time, what a damaged file does, and what another start hands over.

#include <gtest/gtest.h>

#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QToolBar>
#include <atomic>
#include <thread>

#include "aids/ui/ContextList.h"
#include "platform/InstanceChannel.h"
#include "shell/StartUp.h"
#include "shell/ui/BackWin.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/Widgets.h"

namespace {

using platform::PromptAnswer;
using platform::PromptButtons;
using platform::PromptIcon;
using shell::ui::BackWin;

class FrameStart : public testing::Test {
 protected:
  FrameStart() {
    for (const std::string& folder : {m_places.ProgramFolder, m_places.InstanceFolder})
      std::filesystem::create_directory(folder);
    for (const char* name : {"JavaScript", "Python", "HTML"})
      std::filesystem::copy_file(std::string(QUILLMARK_SOURCE_DIR "/data/templates/") + name + ".def",
                                 m_places.ProgramFolder + '/' + name + ".def");
    m_folder.Write("work/a.py", "x = 1\nyy = 2\n");
    m_folder.Write("work/b.js", "var b;\n");
    m_folder.Write("work/c.zzz", "c\n");
  }
  ~FrameStart() override { std::filesystem::current_path("/"); }

  /// Starts the frame as with these arguments, does something in it, and ends it.
  template <typename Doing>
  void Run(const std::vector<std::string>& arguments, Doing doing) {
    BackWin frame(m_prompts, m_places);
    frame.Load(shell::ParseCommandLine(arguments, m_folder.Path("work")));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&frame));
    doing(frame);
    frame.close();
    EXPECT_EQ(frame.WindowCount(), 0U);
  }
  void Run(const std::vector<std::string>& arguments = {}) {
    Run(arguments, [](BackWin&) {});
  }

  /// A tool made while the program runs is made anew each time; earlier ones are about to go.
  static QAction* Tool(BackWin& frame, const char* name) {
    const QList<QAction*> all = frame.findChildren<QAction*>(QString::fromLatin1(name));
    return all.isEmpty() ? nullptr : all.last();
  }
  static std::string Caption(BackWin& frame, const char* tool) {
    const QAction* action = Tool(frame, tool);
    return action ? action->text().toStdString() : "none";
  }
  static void Trigger(BackWin& frame, const char* tool) {
    QAction* action = Tool(frame, tool);
    ASSERT_NE(action, nullptr) << tool;
    action->trigger();
  }

  tests::TemporaryFolder m_folder;
  tests::ScriptedPrompts m_prompts;
  const shell::ui::FramePlaces m_places = {.ProgramFolder = m_folder.Path("program"),
                                           .StartFolder = m_folder.Path("work"),
                                           .RegistryPath = m_folder.Path("config/registry.reg"),
                                           .InstanceFolder = m_folder.Path("instance")};
};

TEST_F(FrameStart, AnEmptyHomeGivesABlankDocumentAndEverythingIsKept) {
  m_folder.Write("program/~Preview.html", "left over");
  Run({}, [&](BackWin& frame) {
    EXPECT_TRUE(frame.isMaximized());
    EXPECT_EQ(frame.WindowCount(), 1U);
    EXPECT_EQ(frame.ActiveDocument()->Caption(), "Untitled");
    EXPECT_EQ(std::filesystem::current_path(), m_folder.Path("program"));
    EXPECT_EQ(Caption(frame, "Template3"), "Python");
    Trigger(frame, "Template3");
    EXPECT_EQ(frame.ActiveDocument()->TemplateFile(), m_folder.Path("program/Python.def"));
    frame.OpenFile(m_folder.Path("work/a.py"));
    frame.OpenFile(m_folder.Path("work/b.js"));
    frame.showNormal();
    frame.resize(640, 480);
  });
  EXPECT_EQ(m_folder.Read("program/FileInfo.ini").find("[/"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(m_folder.Path("program/~Preview.html")));
  EXPECT_TRUE(std::filesystem::exists(m_folder.Path("program/CustomToolbar.ab2")));
  EXPECT_NE(m_folder.Read("config/registry.reg").find("\"DefNewTemplate\"=\"Python\""), std::string::npos);
  Run({}, [&](BackWin& frame) {
    EXPECT_FALSE(frame.isMaximized());
    EXPECT_EQ(frame.size(), QSize(640, 480));
    EXPECT_EQ(frame.ActiveDocument()->TemplateFile(), m_folder.Path("program/Python.def"));
    EXPECT_EQ(Caption(frame, "History2"), "&2 b.js");
    Trigger(frame, "History1");
    EXPECT_EQ(frame.ActiveDocument()->CurFileName(), m_folder.Path("work/a.py"));
  });
}

TEST_F(FrameStart, PopupsStayWhereNothingWatchesTheActivation) {
  for (const char* argument : {"/NoSubclassing", "a.py"})
    Run({"b.js", argument}, [&](BackWin& frame) {
      Trigger(frame, "tbWList1");
      tests::Activate(frame);
      QTest::keyClicks(&frame.ActiveDocument()->TextArea(), QStringLiteral("document."));
      QWidget other;
      tests::Activate(other);
      EXPECT_EQ(frame.findChild<aids::ui::ContextList*>()->isVisible(), *argument == '/');
      m_prompts.ExpectClosing("b.js", PromptAnswer::No);
    });
}

TEST_F(FrameStart, TheCommandLineIsFollowed) {
  m_prompts.Expect({.Text = "'/X' is not a valid command line parameter.  Valid parameters are '/ResetSettings', "
                            "'/ResetToolbars' and '/NoSubclassing'."});
  m_prompts.Expect({.Text = "\"none.js\" does not exist.", .Icon = PromptIcon::Exclamation});
  Run({"none.js", "a.py:2:2", "/NoSubclassing", "b.js", "/X"}, [&](BackWin& frame) {
    EXPECT_FALSE(frame.Values().UseSubclassing);
    EXPECT_EQ(frame.WindowCount(), 2U);
    EXPECT_EQ(frame.ActiveDocument()->Caption(), "b.js");
    Trigger(frame, "tbWList1");
    EXPECT_EQ(frame.ActiveDocument()->Caption(), "a.py");
    EXPECT_EQ(frame.ActiveDocument()->TextArea().SelStart(), 7U);
  });
}

TEST_F(FrameStart, SwitchesResetWhatTheLastRunLeft) {
  const auto width = [](BackWin& frame) { return frame.Values().Settings.TabWidth; };
  const auto bar = [](BackWin& frame) { return frame.findChild<QToolBar*>(QStringLiteral("tbrFonts"))->isVisible(); };
  Run({}, [&](BackWin& frame) {
    frame.Values().Settings.TabWidth = 7;
    frame.findChild<QToolBar*>(QStringLiteral("tbrFonts"))->hide();
  });
  Run({"/ResetToolbars"}, [&](BackWin& frame) {
    EXPECT_EQ(width(frame), 7);
    EXPECT_TRUE(bar(frame));
    frame.findChild<QToolBar*>(QStringLiteral("tbrFonts"))->hide();
  });
  Run({"a.py", "/ResetSettings"}, [&](BackWin& frame) {
    EXPECT_EQ(width(frame), 4);
    EXPECT_TRUE(bar(frame));
    EXPECT_EQ(frame.WindowCount(), 1U) << "no blank document beside a file";
  });
}

TEST_F(FrameStart, GarbageInTheSettingsAndTheLayoutIsToldAndTheFrameComes) {
  std::string garbage;
  for (int i = 0; i < 5000; ++i) garbage += static_cast<char>(i * 7919 % 251 + i / 251);
  m_folder.Write("config/registry.reg", garbage);
  m_folder.Write("program/CustomToolbar.ab2", garbage);
  m_folder.Write("program/FileInfo.ini", garbage);
  // The texts of what is told are the settings' own matter; here everything is answered with its default.
  class Patient : public tests::ScriptedPrompts {
   public:
    PromptAnswer Show(const platform::MessageBox& box) override {
      Told += box.Text + '\n';
      return box.Default;
    }
    std::string Told;
  } patient;
  BackWin frame(patient, m_places);
  frame.Load({});
  EXPECT_EQ(frame.WindowCount(), 1U);
  EXPECT_NE(patient.Told.find("An Error occured when trying to load the layout changes."), std::string::npos);
  EXPECT_TRUE(frame.close());
}

TEST_F(FrameStart, ResettingAsksAndNoChangesNothing) {
  const auto ask = [&](const char* question, PromptAnswer answer) {
    m_prompts.ExpectQuestion(question, PromptButtons::YesNo, PromptAnswer::No, answer);
  };
  Run({}, [&](BackWin& frame) {
    frame.Values().Settings.TabWidth = 7;
    ask("Reset All Settings, are you sure?", PromptAnswer::No);
    Trigger(frame, "Reset");
    EXPECT_EQ(frame.Values().Settings.TabWidth, 7);
    ask("Reset All Toolbars, are you sure?", PromptAnswer::Yes);
    Trigger(frame, "ResetToolbars");
    EXPECT_EQ(frame.Values().Settings.TabWidth, 7);
    EXPECT_EQ(Caption(frame, "Template1"), "HTML");
    ask("Reset All Settings, are you sure?", PromptAnswer::Yes);
    Trigger(frame, "Reset");
    EXPECT_EQ(frame.Values().Settings.TabWidth, 4);
  });
}

TEST_F(FrameStart, TabsAndWindowMenuFollowTheWindows) {
  Run({"a.py", "b.js"}, [&](BackWin& frame) {
    QTest::keyClicks(frame.ActiveDocument()->TextArea().viewport(), QStringLiteral("x"));
    EXPECT_EQ(Caption(frame, "tbWList2"), "b.js *");
    auto* menu = frame.findChild<QMenu*>(QStringLiteral("mnuWindow"));
    ASSERT_NE(menu, nullptr);
    menu->popup(QPoint(0, 0));
    EXPECT_EQ(Caption(frame, "miWList2"), "&2 b.js");
    menu->hide();
    Trigger(frame, "miWList1");
    EXPECT_EQ(frame.ActiveDocument()->Caption(), "a.py");
    m_prompts.ExpectClosing("b.js", PromptAnswer::No);
    QTest::keyClick(&frame, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(frame.ActiveDocument()->Caption(), "b.js");
    QTest::keyClick(&frame, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(frame.WindowCount(), 1U);
    EXPECT_EQ(Caption(frame, "tbWList1"), "a.py");
  });
}

}  // namespace
