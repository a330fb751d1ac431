#pragma once
// The templates that the program knows: those of the program folder, by name and by extension.

#include <string>
#include <string_view>
#include <vector>

#include "templates/Model.h"

namespace shell {

/// One record for each "*.def" of the folder, sorted by file name without regard to case. A file that cannot be read is
/// listed without name and extension.
std::vector<templates::Template> ReadTemplateList(const std::string& folder);

/// The template file for an extension (without ".", any letter case): the first of the list that names it; "" for none.
std::string TemplateOfExtension(const std::vector<templates::Template>& list, std::string_view extension);

}  // namespace shell
