// A template and, behind a zero byte, a text: the passes must give what the literal rules give.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Comparison.h"
#include "LiteralColouring.h"
#include "rich_text/Encoding.h"
#include "templates/Loader.h"

namespace {

// The literal rules take the square of the text's length, and more words make them slower still.
constexpr std::size_t LongestText = 600, MostWords = 40;

bool DelimetersHaveCase(const templates::TemplateFields& fields) {
  for (const std::string& delimeter : fields.Delimeters)
    if (rich_text::LowerCase(delimeter) != delimeter) return true;
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t zero = bytes.find('\0');
  if (zero == std::string::npos) return 0;
  const std::string source = rich_text::DecodeText(bytes.substr(0, zero)).Text;
  const std::string text = rich_text::DecodeText(bytes.substr(zero + 1)).Text;
  templates::CollectedMessages messages;
  templates::TemplateFields fields;
  std::string helpFile;
  templates::LoadTemplateText(source, "x.def", fields, {}, messages, helpFile);
  const editor::ColourPass pass(fields);
  if (!laws::FaultOfRuns(text, pass.Whole(text)).empty()) std::abort();
  constexpr std::size_t OneIn = 8;  // threads take longer than the rest
  if (text.size() % OneIn == 0 && pass.Whole(text, {}, 3) != pass.Whole(text, {}, 1)) std::abort();
  if (text.size() > LongestText || fields.ColWords.Count() > MostWords) return 0;
  if (laws::FastWhole(fields, text) != laws::LiteralWhole(fields, text)) std::abort();
  // What is captured from folded text is not told where delimiters change by folding.
  if (!fields.CaseSensitive && fields.Words.Count() > 0 && DelimetersHaveCase(fields)) return 0;
  for (const bool close : {false, true})
    if (laws::FastLines(fields, text, close) != laws::LiteralLines(fields, text, close)) std::abort();
  return 0;
}
