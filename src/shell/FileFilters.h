#pragma once
// The type lists of the file choosers.

#include <string_view>
#include <vector>

#include "platform/Prompts.h"
#include "templates/Model.h"

namespace shell {

/// One type, whose extensions may be several ("htm;html"), and all files.
std::vector<platform::FileFilter> FiltersFor(std::string_view name, std::string_view extensions);

/// Every template's files, then the associations' ones together, then all files.
std::vector<platform::FileFilter> TemplateFilters(const std::vector<templates::Template>& list,
                                                  const std::vector<templates::Template>& associations);

/// The type name that asks for TemplateFilters instead of one type.
inline constexpr std::string_view TemplateTypes = "*Templates*";

}  // namespace shell
