#pragma once
// A list of pairs with two fields below it that edit the selected row as the user types, and the buttons that add and
// delete rows, which its window places where it wants them.

#include <QString>
#include <QWidget>

#include "platform/PairRows.h"

class QDialog;
class QLayout;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace platform::qt {

/// What a list of pairs calls its parts.
struct PairListTexts {
  QString Name;                         ///< of the list, for screen readers
  QString FirstHeading, SecondHeading;  ///< of the columns
  QString FirstCaption, SecondCaption;  ///< of the fields, with access keys
};

class PairList final : public QWidget {
  Q_OBJECT

 public:
  /// The rows must outlive it. The first one is selected.
  PairList(PairRows& rows, const PairListTexts& texts, QWidget* parent);

  QPushButton& NewButton() { return *m_btnNew; }
  QPushButton& DeleteButton() { return *m_btnDelete; }

  /// The widest text of a column (0 or 1), in pixels of the window's font.
  int WidestText(int column) const;
  void SetColumnWidths(int first, int second);
  /// Makes both columns as wide as their widest text or heading.
  void FitColumns();

  /// Whether a new row is selected and its first field gets the focus; not at first.
  void SelectNew(bool selects) { m_selectsNew = selects; }
  /// Puts a text into the second field of the selected row; nothing without one.
  void SetSecond(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeList(const PairListTexts& texts);
  void MakeFields();
  void LayOut(const PairListTexts& texts);
  void AddItem(const PairRow& row);
  void ShowInList(int column, const QString& text);
  void SelectionChanged();
  void ShowFields();
  void New();
  void Delete();

  PairRows& m_rows;
  QTreeWidget* m_lstAss;
  QLineEdit *m_txtExt, *m_txtTemp;
  QPushButton *m_btnNew, *m_btnDelete;
  bool m_selectsNew = false;
};

/// The row of buttons below a list of pairs: its two, the dialog's own "btnClose", which accepts, and "btnCancel".
QLayout* PairListButtons(PairList& list, const QString& closeCaption, QDialog& dialog);

}  // namespace platform::qt
