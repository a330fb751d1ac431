// The help's project: no link leads nowhere, every page can be reached, every command and every window has its place.

#include "tools/help_pages/HelpPages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <stdexcept>
#include <vector>

#include "shell/CommandTable.h"
#include "shell/HelpTopics.h"
#include "shell/ToolTable.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Files = std::map<std::string, std::string>;

const Files& Pages() {
  static const Files pages = help_pages::MakePages(
      {QUILLMARK_SOURCE_DIR "/data/help", QUILLMARK_SOURCE_DIR "/data/templates", QUILLMARK_SOURCE_DIR "/LICENSE"});
  return pages;
}

std::vector<std::string> AllOf(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

/// Whether "page.html", "page.html#place" or, within the page itself, "#place" is there.
bool IsThere(const std::string& address, const std::string& from) {
  const std::size_t hash = address.find('#');
  const auto page = Pages().find(hash == 0 ? from : address.substr(0, hash));
  if (page == Pages().end()) return false;
  return hash == std::string::npos || page->second.find(" id=\"" + address.substr(hash + 1) + '"') != std::string::npos;
}

bool IsOutside(const std::string& address) {
  return address.starts_with("https://") || address.starts_with("icon:");
}

std::string Project(const char* from, const char* to) {
  const std::string& project = Pages().at("Quillmark.qhp");
  const std::size_t start = project.find(from);
  return project.substr(start, project.find(to) - start);
}

TEST(HelpPages, NoLinkLeadsNowhere) {
  std::size_t links = 0;
  for (const auto& [name, text] : Pages()) {
    if (!name.ends_with(".html")) continue;
    for (const std::string& address : AllOf(text, "(?:href|src)=\"([^\"]*)\"")) {
      ++links;
      EXPECT_TRUE(IsOutside(address) || IsThere(address, name)) << name << ": " << address;
    }
    std::set<std::string> places;
    for (const std::string& place : AllOf(text, " id=\"([^\"]*)\""))
      EXPECT_TRUE(places.insert(place).second) << name << ": two places are called " << place;
    for (const std::string& icon : AllOf(text, "src=\"icon:([^\"]*)\""))
      EXPECT_TRUE(std::filesystem::exists(QUILLMARK_SOURCE_DIR "/data/icons/" + icon + ".svg")) << name << ": " << icon;
  }
  EXPECT_GT(links, 300U);
}

TEST(HelpPages, ContentsAndKeywordsLeadSomewhereAndToEveryPage) {
  const std::string toc = Project("<toc>", "</toc>"), index = Project("<keywords>", "</keywords>");
  std::set<std::string> reached;
  for (const std::string& address : AllOf(toc, " ref=\"([^\"]*)\"")) {
    EXPECT_TRUE(IsThere(address, "")) << address;
    EXPECT_TRUE(reached.insert(address).second) << "twice in the contents, which follow the page shown: " << address;
  }
  for (const auto& [name, text] : Pages())
    EXPECT_TRUE(!name.ends_with(".html") || reached.contains(name)) << name << " is in no contents";

  std::set<std::string> keywords;
  for (const std::string& keyword : AllOf(index, " name=\"([^\"]*)\""))
    EXPECT_TRUE(keywords.insert(keyword).second) << "twice in the index: " << keyword;
  for (const std::string& address : AllOf(index, " ref=\"([^\"]*)\"")) EXPECT_TRUE(IsThere(address, "")) << address;
  EXPECT_GT(keywords.size(), 100U);
}

TEST(HelpPages, EveryCommandAndEveryWindowHasItsPlaceAndKeyword) {
  const std::string index = Project("<keywords>", "</keywords>");
  for (const platform::ToolDesign& tool : shell::DesignedBar().Tools) {
    if (!tool.HasCommand) continue;
    const std::string id = " id=\"" + std::string(tool.Name) + '"';
    const auto places = std::count_if(Pages().begin(), Pages().end(), [&](const auto& page) {
      return page.first.ends_with(".html") && page.second.find("<h2" + id) != std::string::npos;
    });
    EXPECT_EQ(places, 1) << tool.Name;
    EXPECT_NE(index.find(id), std::string::npos) << tool.Name;
  }
  std::set<std::string_view> windows;
  for (const shell::HelpTopic& topic : shell::HelpTopics()) {
    EXPECT_TRUE(windows.insert(topic.Window).second) << topic.Window;
    EXPECT_TRUE(IsThere(std::string(topic.Page), "")) << topic.Page;
    EXPECT_NE(index.find("name=\"" + std::string(topic.Keyword) + '"'), std::string::npos) << topic.Keyword;
  }
}

TEST(HelpPages, AFaultInTheSourcesIsToldWithItsPlace) {
  const std::pair<const char*, const char*> cases[] = {
      {"<h1>A</h1>\n<!-- comand new -->\n", "a.html:2:"},
      {"<h1>A</h1>\n\n<!-- command nothing -->\n", "a.html:3: there is no tool nothing"},
      {"<h1>A</h1>\n<!-- command new -->\n<!-- command new -->\n", "a.html:3: the command new"},
      {"<h1>A</h1>\n<!-- band Toolbar -->\n", "a.html:2: no page tells about the command"},
      {"<h1>A</h1>\n<!-- file none -->\n", "a.html:2:"},
      {"<h1>A</h1>\n<!-- coloured bad.def a.html -->\n", "a.html:2: bad.def:2:"},
      {"<p>A</p>\n", "a.html:1:"},
  };
  for (const auto& [page, message] : cases) {
    const tests::TemporaryFolder folder;
    folder.Write("a.html", page);
    folder.Write("bad.def", "N: Bad\nZ: 1\n");
    try {
      help_pages::MakePages({folder.Path(), folder.Path(), folder.Path("bad.def")});
      ADD_FAILURE() << "not noticed: " << page;
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
    }
  }
}

}  // namespace
