#pragma once
// Random templates for the tests. Describe puts a template into words without the writer's help, so that two can be
// compared and a difference read.

#include <cstdint>
#include <string>

#include "templates/EditorTemplate.h"
#include "tests/laws/Dice.h"

namespace tests {

/// Any template that a file can hold: texts with blanks, quotes and non-ASCII characters, repeated words and synonyms.
templates::EditorTemplate RandomTemplate(laws::Dice& dice);

std::string Describe(const templates::colWord& word);
std::string Describe(const templates::Word& word);
std::string Describe(const templates::EditorTemplate& source);

}  // namespace tests
