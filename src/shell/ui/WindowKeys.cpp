#include "shell/ui/WindowKeys.h"

#include <QAction>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

namespace shell::ui {
namespace {

void AddKeys(QMainWindow& frame, QMdiArea& windows, const QList<QKeySequence>& keys, void (QMdiArea::*command)()) {
  auto* action = new QAction(&frame);
  action->setShortcuts(keys);
  QObject::connect(action, &QAction::triggered, &windows, command);
  frame.addAction(action);
}

}  // namespace

void AddWindowKeys(QMainWindow& frame, QMdiArea& windows) {
  AddKeys(frame, windows, {QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::Key_F6)},
          &QMdiArea::activateNextSubWindow);
  AddKeys(frame, windows,
          {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F6)},
          &QMdiArea::activatePreviousSubWindow);
  AddKeys(frame, windows, {QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::CTRL | Qt::Key_F4)},
          &QMdiArea::closeActiveSubWindow);
}

void RemoveWindowKeys(QMdiSubWindow& window) {
  for (QAction* action : window.systemMenu()->actions()) action->setShortcuts(QList<QKeySequence>());
}

}  // namespace shell::ui
