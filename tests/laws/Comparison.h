#pragma once
// The program's own passes in the form of the literal ones, so that the two can be compared.

#include <string>
#include <string_view>
#include <vector>

#include "LiteralColouring.h"
#include "editor/ColourPass.h"

namespace laws {

/// Colour numbers a character of `text`, line ends left out; numbers outside of 1 to `colours` as 0.
std::vector<int> ColoursOfRuns(std::string_view text, const std::vector<editor::PassRun>& runs, std::size_t colours);

LiteralResult FastWhole(const templates::TemplateFields& fields, std::string_view text);
LiteralResult FastLines(const templates::TemplateFields& fields, std::string_view text, bool closeAtLineEnd);
/// The same with a pass made before; `colours` is the template's number of colours.
LiteralResult FastLines(const editor::ColourPass& pass, std::size_t colours, std::string_view text,
                        bool closeAtLineEnd);

/// What is wrong with the order or the bounds of `runs`; "" if nothing is.
std::string FaultOfRuns(std::string_view text, const std::vector<editor::PassRun>& runs);

/// A colour digit a character, "." where there is none and "|" for a line end; then what else the result says.
std::string Picture(std::string_view text, const LiteralResult& result);

}  // namespace laws
