// Feeds any bytes to the readers of RTF and to the scanners over it. What was read must be well-formed, and must be
// read again from what the writer makes of it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "editor/rtfscan/Scanners.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void Scan(std::string rtf) {
  using namespace editor::rtfscan;
  const std::size_t lines = NumberOfLinesIn(rtf);
  Require(lines >= 1 && GoToLine(rtf, lines + 1) <= rtf.size() + 1);
  Require(WhiteSpace(rtf, lines) <= rtf.size());
  std::size_t cachePos = 0, cacheOffset = 0;
  for (std::size_t offset = 0; offset < 40; offset += 3) {
    Require(RTFPosition(rtf, offset, cachePos, cacheOffset) <= rtf.size() + 1);
    Require(cacheOffset <= offset);
  }
  Require(ClearLn(rtf) <= rtf.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rich_text;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Scan(bytes);
  ReadRtfPiece(bytes);
  const StyledText read = ReadRtf(bytes);
  Require(DecodeText(read.Text).Encoding == TextEncoding::Utf8);
  std::size_t end = 0;
  for (const ColourRun& run : read.Runs) {
    Require(run.Start >= end && run.Start < run.End && run.End <= read.Text.size());
    Require(run.Colour >= 1 && run.Colour <= read.Colours.size());
    end = run.End;
  }
  Require(ReadRtf(WriteRtf(read, "Courier New")).Text == read.Text);
  return 0;
}
