#pragma once
// The font dialog: three groups, each with the option that makes its font the default, a button that chooses the font,
// and a sample of it. `DialogCancelled` becomes true when it is left by any other way than OK. To show it:
//
//   DialogCancelled = false;
//   frmFontSet(FontSetModel(settings), prompts, DialogCancelled, this).exec();
//   if (!DialogCancelled) … UpdateFont of every document …

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
  /// Prompts and `dialogCancelled` must outlive the dialog.
  frmFontSet(FontSetModel model, platform::Prompts& prompts, bool& dialogCancelled, QWidget* parent = nullptr);

  void accept() override;
  void reject() override;

 private:
  QGroupBox* Group(std::size_t group);
  QWidget* Buttons();
  void ShowSample(std::size_t group);

  FontSetModel m_model;
  platform::Prompts& m_prompts;
  bool& m_dialogCancelled;
  std::array<QRadioButton*, FontSetModel::Groups> m_options{};
  std::array<QTextEdit*, FontSetModel::Groups> m_samples{};
  QCheckBox* m_chkOverride = nullptr;
};

}  // namespace settings::ui
