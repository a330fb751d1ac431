#pragma once
// Where the program's own files live: templates, help definition files, FileInfo.ini and the rest.
//
// In this order: $QUILLMARK_HOME; the executable's folder when it holds templates and can be written (a portable copy);
// the user's data folder ($XDG_DATA_HOME/quillmark), with copies of the installed files (TemplateCopies), which
// are never overwritten where the user changed one.

#include <string>
#include <vector>

namespace platform {

/// What the choice depends on; FromProcess reads it from the running process.
struct ProgramPlaces {
  std::string Executable;  ///< absolute path of the running program
  std::string Override;    ///< $QUILLMARK_HOME
  std::string DataHome;    ///< as DataHome gives it

  static ProgramPlaces FromProcess();
};

/// The program folder as an absolute path, without a final separator. With `fill` the user's data folder is made and
/// its copies of the installed files are brought up to date; without it nothing on disk changes, and when the data
/// folder does not exist the folder of the installed files is the answer.
std::string FindProgramFolder(const ProgramPlaces& places, bool fill);

/// The folder with the files as installed ("../share/quillmark" from the executable, or the source tree's
/// data/templates beside a build), "" when there is none.
std::string InstalledFolder(const ProgramPlaces& places);

/// The compiled help: Quillmark.hlp in the program folder, or else as installed or built beside the executable's
/// folder. Where there is none, the path in the program folder, at which nothing is.
std::string FindHelpFile(const std::string& programFolder, const ProgramPlaces& places);

/// The files of a folder whose names end with `ending` (compared without regard to case), full paths, sorted by name
/// without regard to case.
std::vector<std::string> ListFiles(const std::string& folder, const std::string& ending);

}  // namespace platform
