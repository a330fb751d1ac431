#pragma once
// The synonym editor of one document: the list of synonyms, and that of the action words, which a double click or Enter
// takes into the selected row. The document changes when the editor is left by its Close button.

#include <QDialog>

#include "aids/DocumentSynonyms.h"

class QListWidget;
class QListWidgetItem;

namespace platform::qt {
class PairList;
}

namespace aids::ui {

class frmSynonyms final : public QDialog {
  Q_OBJECT

 public:
  /// `target` must outlive the dialog.
  frmSynonyms(DocumentSynonyms& target, QWidget* parent);

  void accept() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeActionWords();
  void LayOut();
  void Take(const QListWidgetItem* actionWord);

  DocumentSynonyms& m_target;
  platform::PairRows m_rows;
  platform::qt::PairList* m_list;
  QListWidget* m_synList;
};

}  // namespace aids::ui
