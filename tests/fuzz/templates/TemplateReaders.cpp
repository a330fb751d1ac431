// Feeds any bytes to the readers of template files and help definition files. What the editor's reader gives is written
// and read again: the initial text must come back.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "rich_text/Encoding.h"
#include "templates/EditorReader.h"
#include "templates/HeaderScan.h"
#include "templates/HelpDefinition.h"
#include "templates/Loader.h"
#include "templates/Writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace templates;
  const std::string text = rich_text::DecodeText(std::string(reinterpret_cast<const char*>(data), size)).Text;
  CollectedMessages messages;
  TemplateFields fields;
  std::string helpFile;
  LoadTemplateText(text, "x.def", fields, {}, messages, helpFile);
  ReadHelpDefinitionText(text, fields.HelpWords);
  Template record;
  ScanTemplateHeader(text, record);

  const EditorTemplate read = ReadEditorTemplateText(text, "x.def", messages).Template;
  const EditorTemplate again = ReadEditorTemplateText(WriteTemplate(read, "1/1/2024"), "x.def", messages).Template;
  if (again.InitialText != read.InitialText) std::abort();
  return 0;
}
