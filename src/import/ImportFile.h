#pragma once
// The template maker: from a file with another editor's syntax definition to the text of a template file. The format is
// told by the file's extension: KDE's XML (".xml"), SciTE's ".properties", highlight's ".lang".

#include <cstddef>
#include <string>
#include <vector>

#include "import/Definition.h"

namespace import {

struct ImportedFile {
  std::string Template;      ///< the template file's text
  std::vector<Loss> Losses;  ///< what could not be carried over
  std::size_t ErrorLine = 0;
  std::string Error;  ///< "" or why there is no template, a sentence
};

/// Reads the file and what it takes in from its folder. `language` chooses among several in one file, "" takes the
/// first; `date` is today's date as it is to stand in the template.
ImportedFile ImportFile(const std::string& path, const std::string& language, const std::string& date);

}  // namespace import
