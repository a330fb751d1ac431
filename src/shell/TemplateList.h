#pragma once
// The templates that the program knows: those of the program folder, and those that the user has picked elsewhere.

#include <string>
#include <vector>

#include "templates/Model.h"

namespace shell {

/// One record for each "*.def" of the folder, sorted by file name without regard to case. A file that cannot be read is
/// listed without name and extension.
std::vector<templates::Template> ReadTemplateList(const std::string& folder);

/// Keeps a template that the user has picked among the extra ones, unless it is there or in the program folder.
void AddExtraTemplate(std::vector<templates::Template>& extra, const std::string& path,
                      const std::string& programFolder);

}  // namespace shell
