// Feeds any bytes to the reader of SciTE's property files; every file that they take in is the bytes themselves. The
// first line names the language.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "import/SciteReader.h"
#include "rich_text/Encoding.h"
#include "tests/fuzz/import/CheckDefinition.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = rich_text::DecodeText(std::string(reinterpret_cast<const char*>(data), size)).Text;
  const std::string language = text.substr(0, std::min(text.find('\n'), text.size()));
  for (const std::string& one : {std::string(), language})
    fuzz::CheckDefinition(import::ReadScite(text, "x.properties", one, [&](std::string_view) { return text; }));
  return 0;
}
