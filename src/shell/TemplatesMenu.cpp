#include "shell/TemplatesMenu.h"

#include "platform/ProgramFolder.h"
#include "templates/HeaderScan.h"

namespace shell {

TemplatesMenu PopulateTemplates(const std::string& folder, templates::Template& defNewTemplate,
                                platform::Prompts& prompts) {
  TemplatesMenu menu;
  for (const std::string& file : platform::ListFiles(folder, ".def")) {
    if (menu.List.size() == MostListed) {
      prompts.Show({.Text = "A maximum of 1999 templates can be displayed",
                    .Title = "Too Many Templates",
                    .Icon = platform::PromptIcon::Critical});
      menu.Complete = false;
      return menu;
    }
    templates::Template record = templates::ReadTemplateHeader(file);
    if (defNewTemplate.Name.empty() || defNewTemplate.Name == record.Name) defNewTemplate = record;
    const std::size_t index = menu.List.size();
    menu.Tools.push_back({.Identifier = TemplateToolBase + static_cast<int>(index) + 1,
                          .Name = std::string(TemplateTool) + std::to_string(index + 1),
                          .Caption = CaptionText(record.Name),
                          .Description = NewDescription(record)});
    menu.List.push_back(std::move(record));
  }
  if (!defNewTemplate.Name.empty() && defNewTemplate.FileName.empty() && !menu.List.empty())
    defNewTemplate = menu.List.back();
  return menu;
}

std::string NewDescription(const templates::Template& defNewTemplate) {
  return "New " + defNewTemplate.Name;
}

}  // namespace shell
