#pragma once
// The texts of the status bar's document panels.

#include <cstddef>
#include <string>
#include <string_view>

namespace editor {

/// "(Line 3, Col 7)"; both 1-based.
std::string CaretText(std::size_t line, std::size_t column);

/// "Selected: 2 lines".
std::string SelectionText(std::size_t lines);

/// "120 Lines".
std::string SizeText(std::size_t lines);

/// "Using 'JavaScript' Template"; no name shows as "<none>".
std::string TemplateText(std::string_view name);

}  // namespace editor
