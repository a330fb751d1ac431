#pragma once
// Takes a template file into use: empties a document's template fields and fills them from the file and from its help
// definition file. All texts are UTF-8, paths as the caller has them. Lines that do not convert are reported and have
// no effect; a file that cannot be read leaves the fields emptied and is told in the result. What concerns the document
// (its text, colouring, TemplateFile, ColourTable) is the caller's.

#include <functional>
#include <string>
#include <string_view>

#include "templates/LoadMessages.h"
#include "templates/Model.h"

namespace templates {

struct LoadOptions {
  bool OverrideTemplateFonts = false;  ///< the user's setting: font lines are passed over
  bool NoInitialText = false;          ///< no initial text in the result
  std::function<void()> NameRead;      ///< if set, called at each name line, when TName has its value
};

struct LoadResult {
  std::string InitialText;
  bool Cancelled =
      false;          ///< the user answered Cancel; the rest of the file and the help definition file were not read
  std::string Error;  ///< "" or why the file could not be read, a sentence
};

/// Empties what every load empties: the collections, ExecuteCommand and UseFont.
void EmptyTemplate(TemplateFields& fields);

/// Empties `fields` and fills them from the file and its help definition file.
LoadResult LoadTemplate(const std::string& path, TemplateFields& fields, const LoadOptions& options,
                        LoadMessages& messages);

/// The same from a template's decoded text; `helpFile` gets the value of its last help line ("" when there is none),
/// and no help definition file is read. `path` is for messages.
LoadResult LoadTemplateText(std::string_view text, const std::string& path, TemplateFields& fields,
                            const LoadOptions& options, LoadMessages& messages, std::string& helpFile);

}  // namespace templates
