#pragma once
// The help's project as it is compiled: the pages written by hand, with what the program knows by itself put into them.
//
// In a page, a comment "<!-- NAME ARGUMENT… -->" stands for such a part; every comment must be one of these:
//
//   command TOOL             heading and facts of a command, and the place that the index and the shortcuts lead to
//   band BAND                the tools of a menu or toolbar
//   shortcuts                every tool with a shortcut
//   windows                  the windows that F1 has a page for
//   templates                the templates that ship
//   file PATH                a file of the sources, as it stands
//   coloured TEMPLATE FILE   a file of the sources, coloured by a template of the sources, which may lie in several
//   files:
//                            the names then have "+" between
//   usage, colour-usage      what the two programs print for --help
//   licence, version
//   keywords, files          in the project file alone

#include <map>
#include <string>

namespace help_pages {

struct Sources {
  std::string HelpFolder;      ///< pages, style sheet, project files, and what the pages show
  std::string TemplateFolder;  ///< the templates that ship
  std::string LicenceFile;
};

/// Name → bytes of every file of the project. A fault in the sources is a std::runtime_error "FILE:LINE: REASON".
std::map<std::string, std::string> MakePages(const Sources& sources);

}  // namespace help_pages
