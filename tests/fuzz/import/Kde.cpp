// The reader of KDE's definitions; every definition that they include is the bytes themselves.

#include "import/KdeReader.h"
#include "tests/fuzz/import/CheckDefinition.h"

void fuzz::Try(const std::string& bytes) {
  const std::string text = rich_text::DecodeText(bytes).Text;
  CheckDefinition(import::ReadKde(text, "x.xml", [&](std::string_view) { return text; }));
}
