// The readers of the registry file and of "FileInfo.ini". What was read and written again must be sound: read once more
// it is the same.

#include "rich_text/Encoding.h"
#include "settings/FileInfos.h"
#include "settings/RegistryText.h"
#include "tests/fuzz/Fuzzer.h"

void fuzz::Try(const std::string& bytes) {
  using namespace settings;
  RegistryText first, second;
  first.Read(bytes);
  second.Read(first.Write());
  Require(second.Damages().empty() && second.Write() == first.Write());

  FileInfos records, again;
  ReadFileInfoText(rich_text::DecodeText(bytes).Text, records);
  const std::string text = WriteFileInfoText(records);
  ReadFileInfoText(text, again);
  Require(WriteFileInfoText(again) == text);
}
