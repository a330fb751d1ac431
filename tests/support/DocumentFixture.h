#pragma once
// A document without a window: its text is a control in memory, its frame notes what it is told, its files lie in a
// folder of the test.

#include <gtest/gtest.h>

#include <string>

#include "editor/Document.h"
#include "tests/support/FakeFrame.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/TemporaryFolder.h"

namespace tests {

class DocumentFixture : public testing::Test {
 protected:
  const editor::DocumentState& State() const { return m_document.State(); }
  /// Opens a file with these bytes and gives its path.
  std::string Open(const std::string& bytes, const std::string& name = "file.txt") {
    const std::string path = m_folder.Write(name, bytes);
    m_document.OpenFile(path);
    return path;
  }
  void Select(std::size_t start, std::size_t length) {
    m_control.SetSelStart(start);
    m_control.SetSelLength(length);
  }
  /// Puts text at the end, as an edit.
  void Append(const std::string& text) {
    m_control.SetSelStart(m_control.Length());
    m_control.SetSelText(text);
  }

  TemporaryFolder m_folder;
  MemoryTextControl m_control;
  FakeFrame m_frame;
  FakeWindow m_window;
  editor::Document m_document{m_control, m_frame, m_window};
};

}  // namespace tests
