#include "shell/TemplatesMenu.h"

#include "shell/ListedTools.h"
#include "shell/TemplateList.h"

namespace shell {

TemplatesMenu PopulateTemplates(const std::string& folder, templates::Template& defNewTemplate,
                                platform::Prompts& prompts) {
  TemplatesMenu menu;
  for (templates::Template& record : ReadTemplateList(folder)) {
    if (menu.List.size() == MostListed) {
      prompts.Show({.Text = "A maximum of 1999 templates can be displayed",
                    .Title = "Too Many Templates",
                    .Icon = platform::PromptIcon::Critical});
      menu.Complete = false;
      return menu;
    }
    if (defNewTemplate.Name.empty() || defNewTemplate.Name == record.Name) defNewTemplate = record;
    const int number = static_cast<int>(menu.List.size()) + 1;
    menu.Tools.push_back({.Name = std::string(TemplateTool) + std::to_string(number),
                          .Id = TemplateToolBase + number,
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
