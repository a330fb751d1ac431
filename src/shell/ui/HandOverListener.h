#pragma once
// The first instance's ear: serves the instance channel from the event loop, and opens the files that other starts hand
// over, one after another and never within a command of the user's or while another one is being opened.

#include <QObject>
#include <deque>
#include <functional>

#include "platform/InstanceServer.h"

namespace shell::ui {

class HandOverListener : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    std::function<void(const std::string& argument)> OpenFile;  ///< a full path, perhaps with a place
    std::function<void()> BringToFront;
  };

  /// Listens in a folder whose lock this process holds ("" for nowhere), until it is deleted. Files wait until Start.
  HandOverListener(const std::string& folder, Actions actions);

  /// The frame is ready for files.
  void Start();

 private:
  bool Execute(std::string_view command);
  void OpenNext();

  Actions m_actions;
  std::deque<std::string> m_waiting;
  bool m_opening = true;  ///< or not started yet
  platform::InstanceServer m_server;
};

}  // namespace shell::ui
