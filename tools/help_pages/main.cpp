// help_pages HELP-FOLDER TEMPLATE-FOLDER LICENCE OUTPUT-FOLDER: writes the help's project, ready to be compiled.

#include <exception>
#include <filesystem>
#include <iostream>

#include "platform/Files.h"
#include "tools/help_pages/HelpPages.h"

int main(int argc, char** argv) {
  if (argc != 5) {
    std::cerr << "Usage: help_pages HELP-FOLDER TEMPLATE-FOLDER LICENCE OUTPUT-FOLDER\n";
    return 2;
  }
  try {
    const std::string output = argv[4];
    const auto pages = help_pages::MakePages({argv[1], argv[2], argv[3]});
    // A page that has gone from the sources must not stay in the help.
    std::filesystem::remove_all(output);
    std::filesystem::create_directories(output);
    for (const auto& [name, bytes] : pages)
      if (const std::string error = platform::WriteFile(output + "/" + name, bytes); !error.empty())
        throw std::runtime_error(output + "/" + name + ": " + error);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
