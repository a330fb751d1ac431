#include "bench/Inputs.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>

#include "templates/Loader.h"

namespace bench {
namespace {

std::string theScript;

std::string ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Repeat(std::size_t bytes) {
  std::string text;
  text.reserve(bytes + theScript.size());
  while (text.size() < bytes) text += theScript;
  const std::size_t lineEnd = text.find('\n', bytes - 1);
  if (lineEnd != std::string::npos) text.resize(lineEnd + 1);
  return text;
}

std::string InOneLine(std::string text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') text[i] = ' ';
    const bool opensComment =
        text[i] == '/' ? i > 0 && text[i - 1] == '/' : text[i] == '!' && i > 0 && text[i - 1] == '#';
    if (opensComment) text[i - 1] = text[i] = ';';
  }
  return text;
}

}  // namespace

bool ReadScript(int argc, char** argv) {
  if (argc == 2) theScript = ReadWhole(argv[1]);
  if (!theScript.empty()) return true;
  std::cerr << "Usage: " << argv[0] << " [--benchmark_…] SCRIPT, a JavaScript file that is not empty\n";
  return false;
}

const std::string& Script() {
  return theScript;
}

const std::string& ScriptOfSize(std::size_t bytes) {
  static std::map<std::size_t, std::string> texts;
  std::string& text = texts[bytes];
  if (text.empty()) text = Repeat(bytes);
  return text;
}

const std::string& LineOfSize(std::size_t bytes) {
  static std::map<std::size_t, std::string> texts;
  std::string& text = texts[bytes];
  if (text.empty()) text = InOneLine(Repeat(bytes));
  return text;
}

std::string TemplateText(std::size_t furtherWords) {
  std::string text = ReadWhole(QUILLMARK_SOURCE_DIR "/data/templates/JavaScript.def");
  if (!text.ends_with('\n')) text += "\r\n";
  // Names of the length and the letters that scripts use, so that they cost what real words cost.
  for (std::size_t i = 0; i < furtherWords; ++i) text += "L: getNode" + std::to_string(i) + " 0  1 True\r\n";
  return text;
}

templates::TemplateFields LoadFields(const std::string& templateText) {
  templates::TemplateFields fields;
  templates::CollectedMessages messages;
  std::string helpFile;
  templates::LoadOptions options;
  options.NoInitialText = true;
  templates::LoadTemplateText(templateText, "JavaScript.def", fields, options, messages, helpFile);
  for (const templates::LoadProblem& problem : messages.Problems)
    std::cerr << problem.File << ':' << problem.LineNumber << ": " << problem.Reason << '\n';
  if (!messages.Problems.empty() || fields.ColWords.Empty()) {
    std::cerr << "The template is not fit to measure with.\n";
    std::exit(1);
  }
  return fields;
}

const templates::TemplateFields& JavaScript() {
  static const templates::TemplateFields fields = LoadFields(TemplateText());
  return fields;
}

const editor::ColourPass& JavaScriptPass() {
  static const editor::ColourPass pass(JavaScript());
  return pass;
}

void CountText(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
  state.counters["text"] = static_cast<double>(bytes);
}

}  // namespace bench
