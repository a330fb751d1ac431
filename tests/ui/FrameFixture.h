#pragma once
// The real frame in front of the test, with a user who follows a script and a folder of the test's own.

#include <gtest/gtest.h>

#include <QAction>
#include <string>
#include <string_view>

#include "shell/ui/BackWin.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/Widgets.h"

namespace tests {

class FrameFixture : public testing::Test {
 protected:
  /// The frame's templates are those of a folder, "" for the test's own.
  explicit FrameFixture(const std::string& templates = QUILLMARK_SOURCE_DIR "/data/templates")
      : m_frame(m_prompts, templates.empty() ? m_folder.Path() : templates) {
    Activate(m_frame);
  }

  editor::ui::Mainwin& Open(const std::string& name, std::string_view bytes) {
    m_frame.OpenFile(m_folder.Write(name, bytes));
    return *m_frame.ActiveDocument();
  }
  QAction& Tool(const char* name) const { return Child<QAction>(m_frame, name); }
  bool AllClosed() {
    return QTest::qWaitFor([&] { return m_frame.WindowCount() == 0; });
  }

  TemporaryFolder m_folder;
  ScriptedPrompts m_prompts;
  shell::ui::BackWin m_frame;
};

}  // namespace tests
