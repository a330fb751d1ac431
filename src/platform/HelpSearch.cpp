#include "platform/HelpSearch.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "rich_text/Encoding.h"

namespace platform {
namespace {

constexpr std::size_t ExcerptBytes = 140, ExcerptBefore = 40;
constexpr double TitleWeight = 10, PhraseWeight = 4, SameWordWeight = 2;

bool IsBlank(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// Letters, digits and everything that is not plain ASCII.
bool IsOfWord(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

/// The character that an entity stands for, and how long the entity is; "&" itself when it is none that we write.
std::pair<std::string_view, std::size_t> Entity(std::string_view html) {
  static constexpr std::pair<std::string_view, std::string_view> Entities[] = {
      {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&nbsp;", " "}};
  for (const auto& [name, character] : Entities)
    if (html.starts_with(name)) return {character, name.size()};
  return {"&", 1};
}

void AppendText(std::string& text, std::string_view piece) {
  for (const char c : piece) {
    if (!IsBlank(c))
      text += c;
    else if (!text.empty() && text.back() != ' ')
      text += ' ';
  }
}

/// What stands between the tags; a tag parts words.
std::string TextOf(std::string_view html) {
  std::string text;
  for (std::size_t i = 0; i < html.size();) {
    if (html[i] == '<') {
      i = std::min(html.find('>', i), html.size() - 1) + 1;
      AppendText(text, " ");
    } else if (html[i] == '&') {
      const auto [character, length] = Entity(html.substr(i));
      AppendText(text, character);
      i += length;
    } else {
      AppendText(text, html.substr(i, 1));
      ++i;
    }
  }
  return text;
}

std::string_view Between(std::string_view html, std::string_view open, std::string_view close) {
  const std::size_t start = html.find(open);
  if (start == std::string_view::npos) return {};
  const std::size_t inside = start + open.size();
  return html.substr(inside, std::min(html.find(close, inside), html.size()) - inside);
}

/// Where the word begins a word of the text, from `start` on.
std::size_t FindWord(std::string_view text, std::string_view word, std::size_t start = 0) {
  for (std::size_t at = text.find(word, start); at != std::string_view::npos; at = text.find(word, at + 1))
    if (at == 0 || !IsOfWord(text[at - 1]) || !IsOfWord(word.front())) return at;
  return std::string_view::npos;
}

/// 0 where the word is not there. The tenth place of a word tells less than the first.
double ScoreOf(std::string_view title, std::string_view text, std::string_view word) {
  double places = 0;
  for (std::size_t at = FindWord(text, word); at != std::string_view::npos; at = FindWord(text, word, at + 1)) {
    const std::size_t end = at + word.size();
    places += end == text.size() || !IsOfWord(text[end]) ? SameWordWeight : 1;
  }
  return (FindWord(title, word) != std::string_view::npos ? TitleWeight : 0) + std::log2(1 + places);
}

/// The words as they were typed, one behind the other.
std::string PhraseOf(const std::vector<std::string>& words) {
  std::string phrase;
  for (const std::string& word : words) phrase += (phrase.empty() ? "" : " ") + word;
  return phrase;
}

/// A stretch of the text round an offset, from word to word. The lower-case text has other lengths where a letter's
/// small form is longer, so the offset is a guess that only has to be near.
std::string ExcerptAt(const std::string& text, std::size_t offset) {
  std::size_t start = offset < ExcerptBefore ? 0 : text.find(' ', offset - ExcerptBefore);
  start = start == std::string::npos || start > text.size() ? 0 : start;
  std::size_t end = start + ExcerptBytes < text.size() ? text.rfind(' ', start + ExcerptBytes) : text.size();
  if (end <= start) end = text.size();
  const std::string middle = text.substr(start, end - start);
  return (start > 0 ? "…" : "") + middle + (end < text.size() ? " …" : "");
}

}  // namespace

HelpPage ReadHelpPage(std::string address, std::string_view html) {
  std::string_view body = Between(html, "<body>", "</body>");
  if (const std::size_t heading = body.find("</h1>"); heading != std::string_view::npos) body.remove_prefix(heading);
  return {std::move(address), TextOf(Between(html, "<title>", "</title>")), TextOf(body)};
}

HelpSearch::HelpSearch(std::vector<HelpPage> pages) : m_pages(std::move(pages)) {
  m_folded.reserve(m_pages.size());
  for (const HelpPage& page : m_pages) m_folded.push_back(rich_text::LowerCase(page.Text));
}

std::vector<std::string> HelpSearch::WordsOf(std::string_view query) {
  std::vector<std::string> words;
  const std::string folded = rich_text::LowerCase(query);
  for (std::size_t i = 0; i < folded.size();) {
    const std::size_t end =
        std::find_if(folded.begin() + static_cast<std::ptrdiff_t>(i), folded.end(), IsBlank) - folded.begin();
    if (end > i) words.push_back(folded.substr(i, end - i));
    i = end + 1;
  }
  return words;
}

std::vector<HelpSearch::Hit> HelpSearch::Find(std::string_view query) const {
  const std::vector<std::string> words = WordsOf(query);
  const std::string phrase = PhraseOf(words);
  std::vector<std::pair<double, Hit>> found;
  for (std::size_t i = 0; i < m_pages.size() && !words.empty(); ++i) {
    const std::string title = rich_text::LowerCase(m_pages[i].Title);
    double total = FindWord(m_folded[i], phrase) != std::string_view::npos ? PhraseWeight : 0;
    const bool all = std::all_of(words.begin(), words.end(), [&](const std::string& word) {
      const double score = ScoreOf(title, m_folded[i], word);
      total += score;
      return score > 0;
    });
    if (!all) continue;
    const std::size_t first = FindWord(m_folded[i], words.front());
    found.push_back({total, {&m_pages[i], ExcerptAt(m_pages[i].Text, first == std::string::npos ? 0 : first)}});
  }
  std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<Hit> hits;
  hits.reserve(found.size());
  for (auto& [score, hit] : found) hits.push_back(std::move(hit));
  return hits;
}

}  // namespace platform
