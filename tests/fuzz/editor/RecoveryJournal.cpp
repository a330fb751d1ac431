// The reader of journals: any bytes as a journal, and as the contents of records whose checksums are right, so that
// what stands behind the checksums is reached too.

#include "editor/RecoveryJournal.h"

#include <cstring>
#include <string_view>

#include "tests/fuzz/Fuzzer.h"

namespace {

void Read(std::string_view bytes, const editor::BaseText& base) {
  const editor::JournalContent content = editor::ReadJournal(bytes, base);
  fuzz::Require(rich_text::IsValidUtf8(content.Text) && content.Caret <= content.Text.size());
}

std::uint64_t Number(std::string_view& bytes) {
  std::uint64_t number = 0;
  const std::size_t taken = std::min(bytes.size(), sizeof number);
  std::memcpy(&number, bytes.data(), taken);
  bytes.remove_prefix(taken);
  return number;
}

/// The bytes as a script: what record comes, and its numbers.
std::string Journal(std::string_view script) {
  std::string bytes;
  editor::JournalEncoder encoder;
  encoder.Head(bytes, {});
  while (script.size() > 1) {
    const auto kind = static_cast<unsigned char>(script[0]);
    const auto length = static_cast<unsigned char>(script[1]);
    script.remove_prefix(2);
    const std::string_view text = script.substr(0, length);
    script.remove_prefix(text.size());
    const std::uint64_t start = kind < 128 ? kind : Number(script);
    if (kind % 8 == 0)
      encoder.Whole(bytes, start);
    else if (kind % 8 == 1)
      encoder.Slice(bytes, text);
    else
      encoder.Change(bytes, start, kind % 8 == 2 ? Number(script) : length / 16, text, 0);
  }
  return bytes;
}

}  // namespace

void fuzz::Try(const std::string& bytes) {
  Read(bytes, nullptr);
  const std::string journal = Journal(bytes);
  Read(journal, nullptr);
  Read(journal, [&](const editor::JournalHead&) { return std::string(100, 'b'); });
}
