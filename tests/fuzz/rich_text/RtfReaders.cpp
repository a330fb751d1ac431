// The readers of RTF and the scanners over it. What was read must be well-formed, and the same when it is written and
// read again.

#include "StyledLaws.h"
#include "editor/rtfscan/Scanners.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"
#include "tests/fuzz/Fuzzer.h"

namespace {

void Scan(std::string rtf) {
  using namespace editor::rtfscan;
  using fuzz::Require;
  const std::size_t lines = NumberOfLinesIn(rtf);
  Require(lines >= 1);
  for (const std::size_t line : {std::size_t{0}, std::size_t{1}, lines / 2, lines, lines + 1})
    Require(GoToLine(rtf, line) <= rtf.size() + 1 && WhiteSpace(rtf, line) <= rtf.size());
  std::size_t cachePos = 0, cacheOffset = 0;
  for (std::size_t offset = 0; offset < 40; offset += 3) {
    Require(RTFPosition(rtf, offset, cachePos, cacheOffset) <= rtf.size() + 1);
    Require(cacheOffset <= offset);
  }
  Require(ClearLn(rtf) <= rtf.size());
}

}  // namespace

void fuzz::Try(const std::string& bytes) {
  using namespace rich_text;
  Scan(bytes);
  Require(IsValidUtf8(ReadRtfPiece(bytes)));
  const StyledText read = ReadRtf(bytes);
  Require(laws::FaultOf(read).empty());
  const StyledText again = ReadRtf(WriteRtf(read, "Courier New"));
  Require(laws::Difference(laws::Characters(read), laws::Characters(again)).empty());
}
