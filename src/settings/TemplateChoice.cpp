#include "settings/TemplateChoice.h"

#include "platform/FileParsing.h"
#include "platform/Files.h"
#include "settings/TemplateQuestions.h"

namespace settings {
namespace {

/// The template that the user picks; none when cancelled.
std::string AskTemplate(const std::string& extension, const TemplateSources& sources, platform::Prompts& prompts) {
  const std::string file = SelectTemplate(prompts, sources.ProgramFolder);
  if (file.empty()) return templates::NoTemplate;
  if (WantsForAllFiles(prompts, extension)) sources.Values.Associations.push_back({"", extension, file});
  return file;
}

}  // namespace

bool MayOpen(const std::string& path, platform::Prompts& prompts) {
  if (platform::FileExists(path)) return true;
  prompts.Show(
      {.Text = path + " does not exist.", .Title = "Error opening file...", .Icon = platform::PromptIcon::Critical});
  return false;
}

std::string GetTemplateOf(std::string_view extension, const std::vector<templates::Template>& templateList,
                          const std::vector<templates::Template>& associations) {
  const std::string file = templates::FileOfExtension(templateList, extension);
  return file.empty() ? templates::FileOfExtension(associations, extension) : file;
}

ChosenTemplate ChooseTemplate(const std::string& path, const TemplateSources& sources, platform::Prompts& prompts) {
  ChosenTemplate chosen;
  if (const auto record = sources.Records.Find(path)) {
    chosen.File = record->UsesTemplate;
    chosen.Synonyms = record->UsesSynonyms;
  }
  const std::string extension = platform::FileExtension(path);
  const std::string name = platform::FileNameOf(path);  // of a makefile, the only thing that tells
  for (const std::string& known : {extension, name})
    if (chosen.File.empty()) chosen.File = GetTemplateOf(known, sources.TemplateList, sources.Values.Associations);
  if (!chosen.File.empty()) return chosen;
  chosen.TemplateChosen = sources.Values.AskUnknownTemplates;
  chosen.File = chosen.TemplateChosen ? AskTemplate(extension, sources, prompts) : sources.Values.DefOpenTemplate;
  return chosen;
}

}  // namespace settings
