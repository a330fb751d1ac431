#pragma once
// The window where the user rearranges tools: a list of all of them, and the bands as a tree. Tools are dragged from
// the list to a band, within a band, from band to band, and back to the list to take them away; buttons do the same for
// the keyboard. Every change is seen at once.

#include <QDialog>
#include <QListWidget>
#include <QTreeWidget>
#include <functional>
#include <map>

#include "platform/BandLayout.h"

class QPushButton;

namespace platform::qt {

class ActiveBar;

/// The list of all tools. What is dropped on it from elsewhere is taken away there.
class ToolList : public QListWidget {
  Q_OBJECT

 public:
  using QListWidget::QListWidget;

 Q_SIGNALS:
  void Returned();

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
};

/// The bands with their tools.
class BandTree : public QTreeWidget {
  Q_OBJECT

 public:
  using QTreeWidget::QTreeWidget;

 Q_SIGNALS:
  /// Something was dropped before the tool with this 0-based index of a band (behind the last for its count); it came
  /// from the tree itself or from the list.
  void Dropped(const QString& band, int index, bool fromTree);

 protected:
  void dropEvent(QDropEvent* event) override;
};

class CustomiseDialog : public QDialog {
  Q_OBJECT

 public:
  /// The bar must outlive the dialog.
  CustomiseDialog(ActiveBar& bar, QWidget& parent);

  /// Shows the bar's present arrangement.
  void Refresh();

 private:
  struct Place {
    std::string Band;
    int Index = -1;  ///< -1 for the band itself
  };

  void FillList();
  QLayout* MakeColumns();
  QLayout* MakeButtons();
  QPushButton* MakeButton(const char* name, const QString& text, void (CustomiseDialog::*action)());
  void FillBand(QTreeWidgetItem& item, const BandState& band);
  Place Selected() const;
  void Select(const Place& place);
  void Change(const std::function<Place(BandLayout&)>& change);
  void Add();
  void Remove();
  void MoveUp() { MoveBy(-1); }
  void MoveDown() { MoveBy(1); }
  void MoveBy(int step);
  void ResetBand();
  void ResetAll();
  void Drop(const QString& band, int index, bool fromTree);
  void EnableButtons();

  ActiveBar& m_bar;
  ToolList* m_tools;
  BandTree* m_bands;
  std::map<std::string, QPushButton*> m_buttons;
};

}  // namespace platform::qt
