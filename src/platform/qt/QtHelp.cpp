#include "platform/qt/QtHelp.h"

#include "platform/qt/HelpWindow.h"

namespace platform::qt {

QtHelp::QtHelp(const std::string& file, Prompts& prompts, Shell& shell, std::function<void(QWidget&)> place)
    : m_file(file), m_prompts(prompts), m_shell(shell), m_place(std::move(place)) {}

QtHelp::~QtHelp() = default;

HelpWindow* QtHelp::Window() {
  if (m_window) return m_window.get();
  auto collection = std::make_unique<HelpCollection>();
  if (const std::string error = collection->Open(m_file); !error.empty()) {
    m_prompts.Show({.Text = error + "  The help cannot be shown.", .Icon = PromptIcon::Exclamation});
    return nullptr;
  }
  m_window = std::make_unique<HelpWindow>(std::move(collection), m_shell);
  if (m_place) m_place(*m_window);
  return m_window.get();
}

const QWidget* QtHelp::Widget() const {
  return m_window.get();
}

void QtHelp::ShowContents() {
  if (HelpWindow* window = Window()) window->ShowContents();
}

void QtHelp::ShowKeywords() {
  if (HelpWindow* window = Window()) window->ShowKeywords();
}

void QtHelp::ShowPage(std::string_view page) {
  if (HelpWindow* window = Window()) window->ShowPage(page);
}

void QtHelp::Hide() {
  if (m_window) m_window->hide();
}

}  // namespace platform::qt
