// A template and, behind a zero byte, a text: the passes must give what the literal rules give.

#include "Comparison.h"
#include "LiteralColouring.h"
#include "rich_text/Encoding.h"
#include "templates/Loader.h"
#include "tests/fuzz/Fuzzer.h"

namespace {

// The literal rules take the square of the text's length, and more words make them slower still.
constexpr std::size_t LongestText = 600, MostWords = 40;

bool DelimetersHaveCase(const templates::TemplateFields& fields) {
  for (const std::string& delimeter : fields.Delimeters)
    if (rich_text::LowerCase(delimeter) != delimeter) return true;
  return false;
}

}  // namespace

void fuzz::Try(const std::string& bytes) {
  const std::size_t zero = bytes.find('\0');
  if (zero == std::string::npos) return;
  const std::string source = rich_text::DecodeText(bytes.substr(0, zero)).Text;
  const std::string text = rich_text::DecodeText(bytes.substr(zero + 1)).Text;
  templates::CollectedMessages messages;
  templates::TemplateFields fields;
  std::string helpFile;
  templates::LoadTemplateText(source, "x.def", fields, {}, messages, helpFile);
  const editor::ColourPass pass(fields);
  Require(laws::FaultOfRuns(text, pass.Whole(text)).empty());
  constexpr std::size_t OneIn = 8;  // threads take longer than the rest
  Require(text.size() % OneIn != 0 || pass.Whole(text, {}, 3) == pass.Whole(text, {}, 1));
  if (text.size() > LongestText || fields.ColWords.Count() > MostWords) return;
  Require(laws::FastWhole(fields, text) == laws::LiteralWhole(fields, text));
  // What is captured from folded text is not told where delimiters change by folding.
  if (!fields.CaseSensitive && fields.Words.Count() > 0 && DelimetersHaveCase(fields)) return;
  for (const bool close : {false, true})
    Require(laws::FastLines(fields, text, close) == laws::LiteralLines(fields, text, close));
}
