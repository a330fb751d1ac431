#pragma once
// The templates that ship and the files to try them on: the examples and the template files themselves.

#include <string>
#include <vector>

#include "templates/Model.h"

namespace laws {

struct ShippedTemplate {
  std::string Name;
  templates::TemplateFields Fields;
};
struct ShippedText {
  std::string Name;
  std::string Text;

  /// Whether a user would have this file in the template's colours; a template file counts as its own template's.
  bool BelongsTo(const ShippedTemplate& shipped) const;
};

/// Every *.def of data/templates; a bad line, or one without colour words, fails the test.
std::vector<ShippedTemplate> ShippedTemplates();

/// Every file of examples/ and of data/templates/, decoded.
std::vector<ShippedText> ShippedTexts();

/// The first `bytes` of a text, no character and no line end cut.
std::string Beginning(const std::string& text, std::size_t bytes);

}  // namespace laws
