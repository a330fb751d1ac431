#pragma once
// The text of a template file, as the template editor saves it: UTF-8, every line of its own ended by CR LF.

#include <string>
#include <string_view>

#include "templates/EditorTemplate.h"

namespace templates {

/// The whole file. `date` is today's date in the system's short form. A "." at the start of the extension falls away; a
/// line end inside a text of one line becomes a blank, so that no value can pass for a record.
std::string WriteTemplate(const EditorTemplate& source, std::string_view date);

}  // namespace templates
