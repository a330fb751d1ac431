// The reader of the instance channel, fed in chunks of any size: the chunks must not matter, and no line may be longer
// than allowed.

#include "platform/ExecuteLines.h"

#include "shell/ExecuteString.h"
#include "tests/fuzz/Fuzzer.h"

namespace {

std::string LinesOf(std::string_view bytes, std::size_t chunk) {
  platform::ExecuteLines lines;
  std::string all;
  while (!bytes.empty()) {
    lines.Add(bytes.substr(0, chunk));
    bytes.remove_prefix(std::min(chunk, bytes.size()));
    while (const auto line = lines.Next()) {
      fuzz::Require(line->size() <= platform::ExecuteLines::Longest);
      shell::ExecuteCommand(*line, {[](const std::string&) {}, [] {}});
      all += *line + '\n';
    }
  }
  return all;
}

}  // namespace

void fuzz::Try(const std::string& bytes) {
  if (!bytes.empty())
    Require(LinesOf(bytes, bytes.size()) == LinesOf(bytes, 1 + static_cast<unsigned char>(bytes[0]) % 7));
}
