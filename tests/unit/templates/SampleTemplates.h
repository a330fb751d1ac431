#pragma once
// Templates for the tests: one small one with everything in it, and random ones. Describe puts a template into words
// without the writer's help, so that two can be compared and a difference read.

#include <cstdint>
#include <string>

#include "templates/EditorTemplate.h"
#include "tests/laws/Dice.h"

namespace tests {

/// A template that uses every record.
templates::EditorTemplate FullTemplate();

/// Any template that a file can hold: texts with blanks, quotes and non-ASCII characters, repeated words and synonyms.
templates::EditorTemplate RandomTemplate(laws::Dice& dice);

std::string Describe(const templates::colWord& word);
std::string Describe(const templates::Word& word);
std::string Describe(const templates::EditorTemplate& source);

/// Makes an action with list entries.
std::shared_ptr<templates::WrdAct> MakeAction(std::int16_t action, std::string delimeter, std::string tip,
                                              const std::vector<std::pair<std::string, int>>& entries);

}  // namespace tests
