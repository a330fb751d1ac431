#pragma once
// A child window of the frame that is a name.

#include <string>
#include <utility>

#include "shell/ChildWindow.h"

namespace tests {

class FakeChild : public shell::ChildWindow {
 public:
  explicit FakeChild(std::string form, std::string caption = "", bool saved = true)
      : m_form(std::move(form)), m_caption(std::move(caption)), m_saved(saved) {}
  std::string FormName() const override { return m_form; }
  std::string Caption() const override { return m_caption; }
  bool Saved() const override { return m_saved; }
  std::string CurFileName() const override { return m_saved ? "/x/" + m_caption : ""; }
  bool SaveFile(const std::string&) override { return false; }

 private:
  std::string m_form, m_caption;
  bool m_saved;
};

}  // namespace tests
