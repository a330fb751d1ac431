#pragma once
// Pop-ups without windows: what is shown is what the test says, and what key handling asks for is written down.

#include <functional>
#include <string>
#include <vector>

#include "editor/PopupHost.h"

namespace tests {

class FakePopups final : public editor::PopupHost {
 public:
  bool ListShown = false, TipShown = false;
  std::function<void()> OnWriteIt;
  std::vector<std::string> Log;

  bool PopupListShown() const override { return ListShown; }
  bool ToolTipShown() const override { return TipShown; }
  void WriteIt() override {
    ListShown = false;
    Log.emplace_back("WriteIt");
    if (OnWriteIt) OnWriteIt();
  }
  bool KeyDown(int keyCode, int) override { return ListShown && keyCode == 40; }
  bool KeyUp(int keyCode, int) override { return ListShown && keyCode == 40; }
  void CloseToolTip() override { Log.emplace_back("CloseToolTip"); }
  void CloseAll() override { Log.emplace_back("CloseAll"); }
};

}  // namespace tests
