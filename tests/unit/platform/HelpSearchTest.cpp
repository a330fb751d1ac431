// The full-text search of the help.

#include "platform/HelpSearch.h"

#include <gtest/gtest.h>

namespace {

using platform::HelpPage;
using platform::HelpSearch;
using platform::ReadHelpPage;

std::string Addresses(const HelpSearch& search, const char* query) {
  std::string addresses;
  for (const HelpSearch::Hit& hit : search.Find(query)) addresses += hit.Page->Address + ' ';
  return addresses;
}

TEST(HelpSearch, APageIsReadWithoutItsMarkup) {
  const HelpPage page = ReadHelpPage("a.html",
                                     "<html><head><title>Tabs &amp; more</title><style>p {}</style></head>\n<body>\n"
                                     "<h1>Tabs &amp; more</h1><p>One<br>two&nbsp;&lt;three&gt;\n four</p>&x <p");
  EXPECT_EQ(page.Title, "Tabs & more");
  EXPECT_EQ(page.Text, "One two <three> four &x ");
  EXPECT_EQ(ReadHelpPage("", "<body").Text, "");
  EXPECT_EQ(ReadHelpPage("", "").Title, "");
}

TEST(HelpSearch, EveryWordMustBeginAWordAndTitlesComeFirst) {
  const HelpSearch search({{"often", "Other", "Tab tab tabulator"},
                           {"title", "Tabs", "Something"},
                           {"once", "Other", "stab (tab)"},
                           {"inside", "Other", "stable Ähre"},
                           {"part", "Other", "the file.def and C++"}});
  const std::pair<const char*, const char*> cases[] = {{"tab", "title often once "},
                                                       {"TAB ", "title often once "},
                                                       {"tab tabul", "often "},
                                                       {"stab", "once inside "},
                                                       {"äHR", "inside "},
                                                       {"tab file", ""},
                                                       {".def", "part "},
                                                       {"c++", "part "},
                                                       {"", ""},
                                                       {" \t", ""},
                                                       {"other", "often once inside part "}};
  for (const auto& [query, addresses] : cases) EXPECT_EQ(Addresses(search, query), addresses) << query;
}

TEST(HelpSearch, TheExcerptShowsTheFirstWordAndIsShort) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += "fillér ";
  const HelpSearch search({{"a", "A", text + "needle " + text}, {"b", "B", "needle"}, {"c", "needle", text}});
  for (const HelpSearch::Hit& hit : search.Find("needle")) {
    EXPECT_LT(hit.Excerpt.size(), 200U) << hit.Page->Address;
    EXPECT_EQ(hit.Excerpt.find("needle") != std::string::npos, hit.Page->Address != "c") << hit.Excerpt;
  }
  EXPECT_EQ(search.Find("needle").size(), 3U);
}

}  // namespace
