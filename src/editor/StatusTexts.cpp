#include "editor/StatusTexts.h"

namespace editor {
namespace {

std::string Counted(std::size_t count, std::string_view noun) {
  return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

}  // namespace

std::string CaretText(std::size_t line, std::size_t column) {
  return "(Line " + std::to_string(line) + ", Col " + std::to_string(column) + ")";
}

std::string SelectionText(std::size_t lines) {
  return "Selected: " + Counted(lines, "line");
}

std::string SizeText(std::size_t lines) {
  return Counted(lines, "Line");
}

std::string TemplateText(std::string_view name) {
  return "Using '" + std::string(name.empty() ? "<none>" : name) + "' Template";
}

}  // namespace editor
