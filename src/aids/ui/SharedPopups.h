#pragma once
// The one completion list and the one tooltip of a frame, and the rules that connect a document to them.
//
// Made by the frame, which outlives this; documents are given their pop-ups one by one and may go at any time. When
// asked to, both windows hide while the frame's is not the active one, and are shown again afterwards; they follow the
// frame when it moves. A document that loses the keyboard to another part of the frame loses its pop-ups too.

#include <QObject>
#include <memory>

#include "aids/ui/ContextList.h"
#include "aids/ui/frmToolTip.h"
#include "editor/ui/Mainwin.h"

namespace aids::ui {

class SharedPopups final : public QObject {
  Q_OBJECT

 public:
  explicit SharedPopups(QWidget& frame);
  ~SharedPopups() override;

  /// Gives the document its pop-ups.
  void Serve(editor::ui::Mainwin& document);

  /// Whether the windows are hidden while the frame is not active; they are not, at first.
  void WatchActivation(bool watch);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Suspend(bool suspended);

  bool m_watchesActivation = false;
  std::unique_ptr<ContextList> m_list;
  std::unique_ptr<frmToolTip> m_tip;
};

}  // namespace aids::ui
