#pragma once
// The parts of help pages that the program knows by itself, as HTML. Each throws a std::runtime_error with the reason
// when it is asked for something that does not exist.

#include <functional>
#include <string>
#include <string_view>

namespace help_pages {

/// Text with what HTML treats specially written out.
std::string Escaped(std::string_view text);

/// A caption as it is read: without the mark of its access key.
std::string Plain(std::string_view caption);

/// A block of text that keeps its lines, in a box.
std::string Box(std::string_view html);

/// Gives the address of a command's place in the pages.
using CommandPlace = std::function<std::string(std::string_view tool)>;

std::string CommandHeading(std::string_view tool);
std::string BandTable(std::string_view band, const CommandPlace& place);
std::string ShortcutTable(const CommandPlace& place);
std::string WindowTable();
std::string TemplateTable(const std::string& folder);

/// The text coloured by a template; a template with a bad line is an error. `name` is the template's, for messages.
std::string Coloured(const std::string& name, std::string_view definition, std::string_view text);

/// Index entries for the commands and for the windows.
std::string Keywords(const CommandPlace& place);

}  // namespace help_pages
