#include "RandomCase.h"

#include <algorithm>
#include <array>
#include <utility>

#include "rich_text/Encoding.h"

namespace laws {
namespace {

using Characters = std::u32string;

/// Letters whose case folding is not plain ASCII: é É ß İ ẞ, the Kelvin sign, an emoji.
const Characters Unusual = U"éÉß\u0130\u1E9E\u212Aki\U0001F600";

const std::array<Characters, 7> Alphabets = {U"abAB ",     U"ab\"/*- ", U"aB-",  U"abAB\"/*- ",
                                             U"abc  .,()", U"ab ",      U"ab*/ "};

/// What also stands in the codes of rich text, where no word may be found.
const std::array<Characters, 11> CodeWords = {U"par", U"\\par ", U"\\par", U"cf",       U"cf0",  U"\\cf1 ",
                                              U"0",   U"\\",     U"fs20",  U"\\plain ", U"{\\b}"};

const std::array<Characters, 3> LineEnds = {U"\n", U"\r\n", U"\r"};

class Maker {
 public:
  explicit Maker(Dice& dice) : m_dice(dice), m_alphabet(dice.Pick(Alphabets)) {
    if (dice.Chance(20)) m_alphabet += dice.Pick(Unusual);
    if (dice.Chance(20)) m_alphabet += Unusual;
    if (dice.Chance(5)) m_alphabet += U"\t{}\\";
    m_usesCodeWords = dice.Chance(8);
  }

  RandomCase Make() {
    m_case.CaseSensitive = m_dice.Chance(40);
    m_case.Colours = m_dice.Between(1, 4);
    m_case.CloseAtLineEnd = m_dice.Chance(60);
    MakeDelimeters();
    MakeColourWords();
    if (m_case.CaseSensitive && !m_case.Delimeters.empty() && m_dice.Chance(40)) MakeEndsOfTokens();
    MakeActionWords();
    MakeText();
    return std::move(m_case);
  }

 private:
  void MakeDelimeters() {
    Characters& set = m_case.Delimeters;
    if (m_dice.Chance(8)) return;
    for (std::size_t count = m_dice.Below(6); count > 0; --count) set += m_dice.Pick(m_alphabet);
    if (m_dice.Chance(30)) set += U"\"/*-.,()";
    if (m_dice.Chance(75))
      set += U" \r\n";
    else if (m_dice.Chance(50))
      set += m_dice.Pick(Characters(U" \r\n"));
  }

  Characters MakeWord() {
    if (m_usesCodeWords && m_dice.Chance(40)) return m_dice.Pick(CodeWords);
    Characters word;
    for (std::size_t length = m_dice.Chance(3) ? 0 : 1 + m_dice.Below(4); length > 0; --length) {
      const char32_t character = m_dice.Pick(m_alphabet);
      word += character == U' ' && m_dice.Chance(80) ? U'a' : character;
    }
    return word;
  }

  void MakeColourWords() {
    std::vector<RandomCase::ColourWord>& words = m_case.ColourWords;
    const std::size_t count = m_dice.Chance(90) ? 1 + m_dice.Below(8) : 0;
    while (words.size() < count) {
      RandomCase::ColourWord word;
      word.Start = MakeWord();
      word.EndPoint = m_dice.Chance(94) ? m_dice.Between(0, 2) : m_dice.Between(-1, 3);
      if (word.EndPoint == 2 ? m_dice.Chance(96) : m_dice.Chance(15)) {
        word.End = m_dice.Chance(20) ? word.Start : MakeWord();
        if (!words.empty() && m_dice.Chance(15)) word.End = m_dice.Pick(words).Start;
      }
      word.Colour = m_dice.Chance(95) ? m_dice.Between(0, m_case.Colours + 1) : m_dice.Between(-2, 12);
      word.Include = m_dice.Chance(50);
      words.push_back(std::move(word));
    }
  }

  /// A delimiter, and words of a character and that delimiter, which are looked for from behind when no other word
  /// starts inside a token.
  void MakeEndsOfTokens() {
    std::vector<RandomCase::ColourWord>& words = m_case.ColourWords;
    const auto isDelimeter = [this](char32_t character) {
      return m_case.Delimeters.find(character) != Characters::npos;
    };
    std::erase_if(words, [&](const RandomCase::ColourWord& word) {
      return !word.Start.empty() && !isDelimeter(word.Start[0]) && std::ranges::any_of(word.Start, isDelimeter);
    });
    const Characters delimeter(1, m_dice.Pick(m_case.Delimeters));
    for (std::size_t count = m_dice.Between(2, 5); count > 0; --count) {
      RandomCase::ColourWord word;
      word.Start = count == 1 ? delimeter : Characters(1, m_dice.Pick(m_alphabet)) + delimeter;
      word.EndPoint = m_dice.Between(0, 2);
      if (word.EndPoint == 2) word.End = delimeter;
      word.Include = m_dice.Chance(50);
      words.insert(words.begin() + static_cast<std::ptrdiff_t>(m_dice.Below(words.size() + 1)), std::move(word));
    }
  }

  void MakeActionWords() {
    for (std::size_t count = m_dice.Below(5); count > 0; --count) {
      RandomCase::ActionWord word{MakeWord(), m_dice.Chance(60)};
      if (!m_case.ColourWords.empty() && m_dice.Chance(15)) word.Name = m_dice.Pick(m_case.ColourWords).Start;
      m_case.ActionWords.push_back(std::move(word));
    }
  }

  /// A word of the template, now and then in another letter case.
  Characters TemplateWord() {
    Characters word;
    const std::size_t kind = m_dice.Below(5);
    if (kind == 0 && !m_case.ActionWords.empty())
      word = m_dice.Pick(m_case.ActionWords).Name;
    else if (!m_case.ColourWords.empty() && kind < 4)
      word = m_dice.Pick(m_case.ColourWords).Start;
    else if (!m_case.ColourWords.empty())
      word = m_dice.Pick(m_case.ColourWords).End;
    if (m_dice.Chance(15))
      for (char32_t& character : word)
        if (character >= U'a' && character <= U'z' && m_dice.Chance(50)) character -= U'a' - U'A';
    return word;
  }

  /// "token action token", as a synonym is captured from.
  Characters CapturePattern() {
    const Characters blanks = U" \"-.,";
    const char32_t blank = m_dice.Pick(m_case.Delimeters.empty() ? blanks : m_case.Delimeters);
    Characters pattern(1, m_dice.Pick(m_alphabet));
    pattern += Characters(1 + m_dice.Below(2), blank) + m_dice.Pick(m_case.ActionWords).Name;
    pattern += Characters(1 + m_dice.Below(2), blank) + m_dice.Pick(m_case.ActionWords).Name;
    return m_dice.Chance(80) ? pattern + blank : pattern;
  }

  void MakeText() {
    const std::size_t length = m_dice.Chance(60) ? m_dice.Below(30) : m_dice.Below(m_dice.Chance(75) ? 100 : 400);
    const int lineEndsOfHundred = m_dice.Pick(std::array{0, 4, 12});
    Characters& text = m_case.Text;
    while (text.size() < length) {
      if (m_dice.Chance(lineEndsOfHundred))
        text += m_dice.Pick(LineEnds);
      else if (m_dice.Chance(30))
        text += TemplateWord();
      else if (!m_case.ActionWords.empty() && m_dice.Chance(8))
        text += CapturePattern();
      else if (m_usesCodeWords && m_dice.Chance(10))
        text += m_dice.Pick(CodeWords);
      else
        text += m_dice.Pick(m_alphabet);
    }
  }

  Dice& m_dice;
  Characters m_alphabet;
  bool m_usesCodeWords;
  RandomCase m_case;
};

}  // namespace

std::string Visible(std::string_view text) {
  std::u32string visible = FromUtf8(text);
  for (char32_t& character : visible)
    if (character < 0x20) character += U'\u2400';
  return ToUtf8(visible);
}

templates::TemplateFields RandomCase::Fields() const {
  templates::TemplateFields fields;
  fields.CaseSensitive = CaseSensitive;
  for (const char32_t delimeter : Delimeters) fields.Delimeters.push_back(ToUtf8({delimeter}));
  for (int i = 1; i <= Colours; ++i) fields.Colours.push_back(static_cast<rich_text::ColourValue>(i * 0x10203));
  for (const ColourWord& word : ColourWords) {
    auto entry = std::make_shared<templates::colWord>();
    entry->StartWord = ToUtf8(word.Start);
    entry->EndWord = ToUtf8(word.End);
    entry->EndPoint = static_cast<std::int16_t>(word.EndPoint);
    entry->Colour = static_cast<std::int16_t>(word.Colour);
    entry->IncludeWord = word.Include;
    entry->AddTo(fields.ColWords);  // of two words that differ in letter case alone the first stays
  }
  for (const ActionWord& word : ActionWords) {
    auto entry = std::make_shared<templates::Word>();
    entry->Name = ToUtf8(word.Name);
    auto action = std::make_shared<templates::WrdAct>();
    action->Action = word.Captures ? 3 : 2;
    action->AddTo(entry->Actions);
    entry->AddTo(fields.Words);
  }
  return fields;
}

std::string RandomCase::TextUtf8() const {
  return ToUtf8(Text);
}

std::string RandomCase::Describe() const {
  std::string lines = "  delimiters \"" + Visible(ToUtf8(Delimeters)) + "\", " + std::to_string(Colours) +
                      " colours, " + (CaseSensitive ? "case-sensitive" : "any case") + "\n";
  for (const ColourWord& word : ColourWords)
    lines += "  start \"" + ToUtf8(word.Start) + "\" end point " + std::to_string(word.EndPoint) + " end \"" +
             ToUtf8(word.End) + "\" colour " + std::to_string(word.Colour) + (word.Include ? " included\n" : "\n");
  for (const ActionWord& word : ActionWords)
    lines += "  action word \"" + ToUtf8(word.Name) + (word.Captures ? "\" captures synonyms\n" : "\"\n");
  return lines + "  text \"" + Visible(TextUtf8()) + "\"\n";
}

RandomCase MakeRandomCase(Dice& dice) {
  return Maker(dice).Make();
}

RandomCase Shrink(RandomCase broken, const std::function<bool(const RandomCase&)>& breaks) {
  bool changed = true;
  // Leaves out every element of a list or string of the case that can be spared, the last ones first.
  const auto shorten = [&](auto part) {
    for (std::size_t i = part(broken).size(); i > 0; --i) {
      RandomCase smaller = broken;
      part(smaller).erase(part(smaller).begin() + static_cast<std::ptrdiff_t>(i - 1));
      if (!breaks(smaller)) continue;
      broken = std::move(smaller);
      changed = true;
    }
  };
  while (std::exchange(changed, false)) {
    shorten([](RandomCase & c) -> auto& { return c.ColourWords; });
    shorten([](RandomCase & c) -> auto& { return c.ActionWords; });
    shorten([](RandomCase & c) -> auto& { return c.Delimeters; });
    shorten([](RandomCase & c) -> auto& { return c.Text; });
    for (std::size_t i = 0; i < broken.ColourWords.size(); ++i) {
      shorten([i](RandomCase & c) -> auto& { return c.ColourWords[i].Start; });
      shorten([i](RandomCase & c) -> auto& { return c.ColourWords[i].End; });
    }
    for (std::size_t i = 0; i < broken.ActionWords.size(); ++i)
      shorten([i](RandomCase & c) -> auto& { return c.ActionWords[i].Name; });
  }
  return broken;
}

}  // namespace laws
