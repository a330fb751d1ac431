#pragma once
// Every program-wide value, in one struct that the frame owns and hands on by reference.

#include <string>
#include <vector>

#include "settings/FileInfos.h"
#include "settings/Settings.h"
#include "shell/History.h"
#include "templates/Model.h"

namespace shell {

struct ProgramValues {
  std::string ProgramFolder;  ///< templates and the program's own files; without a final separator
  std::string StartFolder;    ///< where the program was started: relative paths begin here
  std::string HelpFile;
  settings::Settings Settings;  ///< with DefNewTemplate and the user's Associations
  std::vector<templates::Template> TemplateList;
  std::vector<templates::Template> ExtraTemplates;  ///< chosen by the user outside the program folder
  settings::FileInfos FileInfos;
  shell::History History;
  bool UseSubclassing = true;    ///< pop-ups follow the application's activation
  bool DialogCancelled = false;  ///< the options or font dialog shown last was cancelled
};

}  // namespace shell
