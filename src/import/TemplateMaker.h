#pragma once
// Makes a template of a definition: the palette that the templates share, the definition's marks and words as colour
// words, and the colour words that keep quotes from running astray. Longer marks stand before shorter ones that they
// begin with, for of two colour words at one place the first wins.

#include <string>

#include "import/Definition.h"
#include "templates/EditorTemplate.h"

namespace import {

struct MadeTemplate {
  templates::EditorTemplate Template;
  std::vector<Loss> Losses;  ///< what the definition says and the template cannot, those of the definition first
};

/// `date` is today's date, for the template's own date field.
MadeTemplate MakeTemplate(Definition definition, const std::string& date);

}  // namespace import
