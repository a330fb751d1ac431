#pragma once
// The menu of templates, one entry for each template file of the program folder, and the choice of the template that
// new documents get.

#include <string>
#include <vector>

#include "platform/ActiveBar.h"
#include "platform/Prompts.h"
#include "templates/Model.h"

namespace shell {

struct TemplatesMenu {
  std::vector<templates::Template> List;     ///< TemplateList
  std::vector<platform::DynamicTool> Tools;  ///< one for each record
  bool Complete = true;                      ///< false when there were too many: then nothing follows the entries
};

/// Reads the folder's templates. `defNewTemplate` keeps its name when a template has it (the last such one is taken),
/// else becomes the last template; without a name, the first one. Too many templates are told to the user.
TemplatesMenu PopulateTemplates(const std::string& folder, templates::Template& defNewTemplate,
                                platform::Prompts& prompts);

/// The description of the "new" button.
std::string NewDescription(const templates::Template& defNewTemplate);

}  // namespace shell
