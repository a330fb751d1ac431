// The reader of toolbar layouts: any bytes as they are and under a forged seal. An arrangement that is taken must come
// back from its own text.

#include "platform/BandLayout.h"
#include "shell/ToolTable.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/SealedLayout.h"

void fuzz::Try(const std::string& bytes) {
  const platform::BarDesign& design = shell::DesignedBar();
  for (const std::string& text : {bytes, tests::Sealed(bytes)}) {
    const auto layout = platform::BandLayout::Decode(design, text);
    Require(!layout || platform::BandLayout::Decode(design, layout->Encode()) == layout);
  }
}
