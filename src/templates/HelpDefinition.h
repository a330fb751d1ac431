#pragma once
// The help definition file beside a template: a table of words, each with a command that shows help on it. All texts
// are UTF-8. Nothing about such a file is ever reported: one that is missing, or is none, gives no entries.

#include <string>
#include <string_view>

#include "templates/Model.h"

namespace templates {

/// The name of the help definition file of a template file that names none: its title and ".hdf", without a folder.
std::string DerivedHelpFile(const std::string& templateFile);

/// Appends the entries of the file to `helpWords`. A name without a folder is one in the current folder; "\" separates
/// folders as "/" does. Only regular files are read, so that a template cannot make the program wait on a device.
void ReadHelpDefinition(const std::string& file, KeyedCollection<HelpWord>& helpWords);

/// The same from the file's decoded text.
void ReadHelpDefinitionText(std::string_view text, KeyedCollection<HelpWord>& helpWords);

}  // namespace templates
