#pragma once
// Starting programs and opening documents, on the toolkit.

#include "platform/Shell.h"

namespace platform::qt {

class QtShell final : public Shell {
 public:
  int ShellExecute(const std::string& program, const std::string& arguments) override;
};

}  // namespace platform::qt
