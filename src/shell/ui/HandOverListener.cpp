#include "shell/ui/HandOverListener.h"

#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

#include "shell/ExecuteString.h"

namespace shell::ui {

HandOverListener::HandOverListener(const std::string& folder, Actions actions)
    : m_actions(std::move(actions)), m_server(folder, [this](std::string_view command) { return Execute(command); }) {
  if (!m_server.Listening()) return;
  auto* notifier = new QSocketNotifier(m_server.Descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this] { m_server.Serve(); });
}

void HandOverListener::Start() {
  m_opening = false;
  QTimer::singleShot(0, this, &HandOverListener::OpenNext);
}

// The answer goes out at once; the file is opened when pending window events have run.
bool HandOverListener::Execute(std::string_view command) {
  return ExecuteCommand(command, {.OpenFile =
                                      [this](const std::string& path) {
                                        m_waiting.push_back(path);
                                        QTimer::singleShot(0, this, &HandOverListener::OpenNext);
                                      },
                                  .BringToFront = [this] { m_actions.BringToFront(); }});
}

void HandOverListener::OpenNext() {
  if (m_opening || m_waiting.empty()) return;
  const std::string argument = std::move(m_waiting.front());
  m_waiting.pop_front();
  const QPointer<HandOverListener> alive(this);
  m_opening = true;
  m_actions.OpenFile(argument);
  if (!alive) return;
  m_opening = false;
  if (!m_waiting.empty()) QTimer::singleShot(0, this, &HandOverListener::OpenNext);
}

}  // namespace shell::ui
