#pragma once
// Which template a file gets that is opened: its own record's, else that of a known template with its extension, else
// the user's association of the extension, else the same with the whole file name ("Makefile"), else the user is asked
// or the default for opened files is taken. All paths are UTF-8; templates::NoTemplate stands for no template.
//
// The frame's OpenFile in its order:
//   if (!MayOpen(path, prompts)) return;
//   AddToHistory(path);  … make the document window …
//   const ChosenTemplate chosen = ChooseTemplate(path, {templateList, records, settings, programFolder}, prompts);
//   if (chosen.TemplateChosen) document.SetTemplateChosen(true);
//   document.SetTemplate(chosen.File, true);  document.OpenFile(path);
//   if (!chosen.Synonyms.empty()) document.LoadSynonyms(chosen.Synonyms);

#include <string>
#include <string_view>
#include <vector>

#include "platform/Prompts.h"
#include "settings/FileInfos.h"
#include "settings/Settings.h"
#include "templates/Model.h"

namespace settings {

/// What the choice looks at. A "Yes" to the question about all files adds to the settings' associations.
struct TemplateSources {
  const std::vector<templates::Template>& TemplateList;
  const FileInfos& Records;
  Settings& Values;
  std::string ProgramFolder;
};

struct ChosenTemplate {
  std::string File;             ///< for SetTemplate; "" only when a setting says so
  bool TemplateChosen = false;  ///< the user was asked
  std::string Synonyms;         ///< the synonym file of the record; "" for none
};

/// Whether the file exists; if not, says so.
bool MayOpen(const std::string& path, platform::Prompts& prompts);

/// The template file for an extension without ".", in any letter case: of the first template that names it, else of the
/// first association; "" for none.
std::string GetTemplateOf(std::string_view extension, const std::vector<templates::Template>& templateList,
                          const std::vector<templates::Template>& associations);

ChosenTemplate ChooseTemplate(const std::string& path, const TemplateSources& sources, platform::Prompts& prompts);

}  // namespace settings
