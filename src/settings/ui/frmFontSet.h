#pragma once
// The font dialog: three groups, each with the option that makes its font the default, a button that chooses the font,
// and a sample of it. To show it:
//
//   if (frmFontSet(FontSetModel(settings), prompts, this).exec() == QDialog::Accepted)
//     … UpdateFont of every document …

#include <QDialog>
#include <array>

#include "platform/Prompts.h"
#include "settings/FontSetModel.h"

class QCheckBox;
class QGroupBox;
class QRadioButton;
class QTextEdit;

namespace settings::ui {

class frmFontSet : public QDialog {
  Q_OBJECT

 public:
  /// The prompts must outlive the dialog.
  frmFontSet(FontSetModel model, platform::Prompts& prompts, QWidget* parent = nullptr);

  void accept() override;

 private:
  QGroupBox* Group(std::size_t group);
  QWidget* Buttons();
  void ShowSample(std::size_t group);

  FontSetModel m_model;
  platform::Prompts& m_prompts;
  std::array<QRadioButton*, FontSetModel::Groups> m_options{};
  std::array<QTextEdit*, FontSetModel::Groups> m_samples{};
  QCheckBox* m_chkOverride = nullptr;
};

}  // namespace settings::ui
