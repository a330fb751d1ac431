#pragma once
// A child window of the frame, whatever it shows.

#include <string>

namespace shell {

class ChildWindow {
 public:
  virtual ~ChildWindow() = default;

  /// "Mainwin" for a document window, "frmTemplate" for the template editor.
  virtual std::string FormName() const = 0;
  virtual std::string Caption() const = 0;
  virtual bool Saved() const = 0;
  virtual std::string CurFileName() const = 0;
  /// Writes the file; "" asks for a name. False when nothing was written.
  virtual bool SaveFile(const std::string& path) = 0;
};

}  // namespace shell
