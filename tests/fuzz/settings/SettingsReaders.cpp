// Feeds any bytes to the readers of the registry file and of "FileInfo.ini". What was read and written again must be
// sound: read once more it is the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "rich_text/Encoding.h"
#include "settings/FileInfos.h"
#include "settings/RegistryText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace settings;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  RegistryText first, second;
  first.Read(bytes);
  second.Read(first.Write());
  if (!second.Damages().empty() || second.Write() != first.Write()) std::abort();

  FileInfos records, again;
  ReadFileInfoText(rich_text::DecodeText(bytes).Text, records);
  const std::string text = WriteFileInfoText(records);
  ReadFileInfoText(text, again);
  if (WriteFileInfoText(again) != text) std::abort();
  return 0;
}
