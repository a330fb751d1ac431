// Feeds any bytes, in chunks of any size, to the reader of the instance channel: the chunks must not matter, and no
// line may be longer than allowed.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/ExecuteLines.h"
#include "shell/ExecuteString.h"

namespace {

std::string LinesOf(std::string_view bytes, std::size_t chunk) {
  platform::ExecuteLines lines;
  std::string all;
  while (!bytes.empty()) {
    lines.Add(bytes.substr(0, chunk));
    bytes.remove_prefix(std::min(chunk, bytes.size()));
    while (const auto line = lines.Next()) {
      if (line->size() > platform::ExecuteLines::Longest) std::abort();
      shell::ExecuteCommand(*line, {[](const std::string&) {}, [] {}});
      all += *line + '\n';
    }
  }
  return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (LinesOf(bytes, size) != LinesOf(bytes, 1 + data[0] % 7)) std::abort();
  return 0;
}
