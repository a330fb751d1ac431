#pragma once
// Reads a template file for the template editor: everything as it is written, the names of the colours too. Every
// problem may be answered with Cancel, which closes the editor. All texts are UTF-8.

#include <string>
#include <string_view>

#include "rich_text/Encoding.h"
#include "templates/EditorTemplate.h"
#include "templates/LoadMessages.h"

namespace templates {

struct EditorReadResult {
  EditorTemplate Template;
  bool Closed = false;  ///< the user answered Cancel: the editor is to be closed, Template is incomplete
  std::string Error;    ///< "" or why the file could not be read, a sentence
  rich_text::TextEncoding Encoding = rich_text::TextEncoding::Utf8;
  bool HasMark = false;  ///< the file begins with the UTF-8 mark
};

/// Reads a template. Lines that the file lacks leave empty texts and the fixed-width font; without a help line HelpFile
/// is the file's title and ".hdf".
EditorReadResult ReadEditorTemplate(const std::string& path, LoadMessages& messages);

/// The same from a template's decoded text; `path` is for messages and the help file's name.
EditorReadResult ReadEditorTemplateText(std::string_view text, const std::string& path, LoadMessages& messages);

}  // namespace templates
