#pragma once
// A template file's display name and extension, for the list of templates: every line that begins with "N:" or "X:"
// counts, wherever it stands, the initial text included, and the last one wins. All texts are UTF-8.

#include <string>
#include <string_view>

#include "templates/Model.h"

namespace templates {

/// The file's record, its Extension as written (perhaps several, separated by ";"). A file that cannot be read gives a
/// record with its FileName alone.
Template ReadTemplateHeader(const std::string& path);

/// Takes name and extension from a template's decoded text; what the text lacks stays.
void ScanTemplateHeader(std::string_view text, Template& record);

}  // namespace templates
