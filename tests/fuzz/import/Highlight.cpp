// The reader of highlight's definitions; every file that they take in is the bytes themselves.

#include "import/HighlightReader.h"
#include "tests/fuzz/import/CheckDefinition.h"

void fuzz::Try(const std::string& bytes) {
  const std::string text = rich_text::DecodeText(bytes).Text;
  CheckDefinition(import::ReadHighlight(text, "x.lang", [&](std::string_view) { return text; }));
}
