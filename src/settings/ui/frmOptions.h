#pragma once
// The options dialog. It shows what OptionsModel gives and hands back what the user chose; `DialogCancelled` becomes
// true when it is left by any other way than OK. To show it:
//
//   DialogCancelled = false;
//   frmOptions({settings, templateList, extraTemplates, prompts}, programFolder, DialogCancelled, this).exec();
//   if (!DialogCancelled) … colour every document again …

#include <QDialog>
#include <string>

#include "settings/OptionsModel.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QRadioButton;

namespace settings::ui {

class frmOptions : public QDialog {
  Q_OBJECT

 public:
  /// `dialogCancelled` must outlive the dialog.
  frmOptions(OptionsModel model, std::string programFolder, bool& dialogCancelled, QWidget* parent = nullptr);

  void accept() override;
  void reject() override;

 private:
  QGroupBox* UnknownFrame();
  QGroupBox* TabsFrame();
  QGroupBox* HighlightFrame();
  void Show(const OptionsForm& form);
  OptionsForm Chosen() const;
  void Browse();

  OptionsModel m_model;
  std::string m_programFolder;
  bool& m_dialogCancelled;
  QRadioButton *m_optAsk = nullptr, *m_optUse = nullptr;
  QComboBox* m_cmbDefTemp = nullptr;
  bool m_entrySelected = false;  ///< the combo's text is that of its current entry
  QLineEdit* m_tabWidth = nullptr;
  QCheckBox *m_autoIndentBox = nullptr, *m_optNewLineForEnter = nullptr;
  QButtonGroup* m_highlight;  ///< ids are Highlighting's values
};

}  // namespace settings::ui
