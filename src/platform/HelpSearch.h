#pragma once
// The full-text search of the help. A page is found when it has every word that was asked for, each as the beginning of
// a word of the page, letter case aside. Pages whose title has the words come first, then those that have them often
// or one behind the other.
// All texts are UTF-8.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct HelpPage {
  std::string Address;
  std::string Title;
  std::string Text;  ///< words with single spaces between
};

/// A page from its HTML, without the markup. The heading that repeats the title does not count as text.
HelpPage ReadHelpPage(std::string address, std::string_view html);

class HelpSearch {
 public:
  struct Hit {
    const HelpPage* Page = nullptr;  ///< one of the pages given to the search, which owns them
    std::string Excerpt;             ///< about a line of the page's text, round the first word
  };

  explicit HelpSearch(std::vector<HelpPage> pages);

  /// The pages that have all words of the query, best first; none for a query without a word.
  std::vector<Hit> Find(std::string_view query) const;

  /// The words that a query asks for, in lower case.
  static std::vector<std::string> WordsOf(std::string_view query);

 private:
  std::vector<HelpPage> m_pages;
  std::vector<std::string> m_folded;  ///< the texts in lower case, beside m_pages
};

}  // namespace platform
