// The readers of template files and of help definition files. Problems are told of lines that exist, both readers count
// the same colours, and the initial text comes back from what the writer makes of what was read.

#include "rich_text/Encoding.h"
#include "templates/EditorReader.h"
#include "templates/HeaderScan.h"
#include "templates/HelpDefinition.h"
#include "templates/LineReader.h"
#include "templates/Loader.h"
#include "templates/Writer.h"
#include "tests/fuzz/Fuzzer.h"

namespace {

using namespace templates;

void RequireProblemsInside(const CollectedMessages& messages, std::string_view text) {
  LineReader lines(text);
  std::vector<std::string_view> all;
  while (const auto line = lines.RawLine()) all.push_back(*line);
  for (const LoadProblem& problem : messages.Problems) {
    fuzz::Require(problem.LineNumber >= 1 && problem.LineNumber <= all.size());
    fuzz::Require(all[problem.LineNumber - 1].ends_with(problem.Line));  // a text block may cut a line
  }
}

}  // namespace

void fuzz::Try(const std::string& bytes) {
  const std::string text = rich_text::DecodeText(bytes).Text;
  CollectedMessages messages, editorMessages, ignored;
  TemplateFields fields;
  std::string helpFile;
  LoadTemplateText(text, "x.def", fields, {}, messages, helpFile);
  RequireProblemsInside(messages, text);
  const EditorTemplate read = ReadEditorTemplateText(text, "x.def", editorMessages).Template;
  RequireProblemsInside(editorMessages, text);
  Require(fields.Words.Count() <= read.Words.size() && fields.Colours.size() == read.Palette.size());
  const EditorTemplate again = ReadEditorTemplateText(WriteTemplate(read, "1/1/2024"), "x.def", ignored).Template;
  Require(again.InitialText == read.InitialText);

  for (const char* head : {"", "Quillmark Help Definition File\n"})
    ReadHelpDefinitionText(head + text, fields.HelpWords);
  Template record;
  ScanTemplateHeader(text, record);
}
