// Feeds any bytes to the reader of toolbar layouts, as they are and under a forged seal. An arrangement that is taken
// must come back from its own text.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/BandLayout.h"
#include "shell/ToolTable.h"
#include "tests/support/SealedLayout.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const platform::BarDesign& design = shell::DesignedBar();
  for (const std::string& text : {bytes, tests::Sealed(bytes)}) {
    const auto layout = platform::BandLayout::Decode(design, text);
    if (layout && platform::BandLayout::Decode(design, layout->Encode()) != layout) std::abort();
  }
  return 0;
}
