// Feeds any bytes to the reader of KDE's definitions; every definition that they include is the bytes themselves.

#include <cstddef>
#include <cstdint>
#include <string>

#include "import/KdeReader.h"
#include "rich_text/Encoding.h"
#include "tests/fuzz/import/CheckDefinition.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = rich_text::DecodeText(std::string(reinterpret_cast<const char*>(data), size)).Text;
  fuzz::CheckDefinition(import::ReadKde(text, "x.xml", [&](std::string_view) { return text; }));
  return 0;
}
