#pragma once
// A small window that lists texts and gives back the chosen one: by its button or a double click. The first is selected
// at first.

#include <QDialog>
#include <optional>

class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace aids::ui {

class ChooseDialog : public QDialog {
  Q_OBJECT

 public:
  /// The place (0-based) of the chosen text once the window has been left by OK; nothing before and otherwise.
  std::optional<std::size_t> Chosen() const;

 protected:
  ChooseDialog(const QStringList& texts, QWidget* parent);

  /// Builds the window: `above` over the list, and the buttons, of which the first accepts.
  void LayOut(const QString& above, const QList<QPushButton*>& buttons);
  QListWidget& List() { return *m_list; }

 private:
  QListWidget* m_list;
};

/// The chooser among several help entries of one word.
class frmHelpChoose final : public ChooseDialog {
 public:
  frmHelpChoose(const QStringList& names, QWidget* parent);
};

/// The chooser of an action word.
class frmSynonymSelect final : public ChooseDialog {
 public:
  frmSynonymSelect(const QStringList& names, QWidget* parent);
};

}  // namespace aids::ui
