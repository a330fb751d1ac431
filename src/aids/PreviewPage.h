#pragma once
// The page that shows what a JavaScript text does: the script with a field below it in which commands are tried.

#include <string>
#include <string_view>

namespace aids {

/// The page's bytes for a text: the text itself when it is a whole page already (it begins with "<html>" in any letter
/// case); else the text between the harness's lines, each ended by CR LF, as a script unless it begins with "<".
std::string PreviewPage(std::string_view text);

/// The page's path, in the program folder.
std::string PreviewFile(const std::string& programFolder);

}  // namespace aids
