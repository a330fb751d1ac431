// The reader of SciTE's property files; every file that they take in is the bytes themselves. The first line names the
// language.

#include "import/SciteReader.h"
#include "tests/fuzz/import/CheckDefinition.h"

void fuzz::Try(const std::string& bytes) {
  const std::string text = rich_text::DecodeText(bytes).Text;
  for (const std::string& language : {std::string(), text.substr(0, text.find('\n'))})
    CheckDefinition(import::ReadScite(text, "x.properties", language, [&](std::string_view) { return text; }));
}
