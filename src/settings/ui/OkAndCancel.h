#pragma once
// The buttons of a dialog that takes its choices over with OK.

class QDialog;
class QDialogButtonBox;

namespace settings::ui {

/// "OKButton", which Enter presses, accepts the dialog; "CancelButton" rejects it.
QDialogButtonBox* OkAndCancel(QDialog& dialog);

}  // namespace settings::ui
