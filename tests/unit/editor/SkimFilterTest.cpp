#include "editor/SkimFilter.h"

#include <gtest/gtest.h>

#include <cctype>
#include "tests/laws/Dice.h"

namespace {

using editor::SkimFilter;

/// A filter as a template makes it: letters are tokens, blanks and commas begin nothing, other signs may.
SkimFilter FilterOf(bool caseSensitive) {
  std::array<bool, 256> tokens{}, blanks{};
  for (unsigned byte = 0; byte < 0x80; ++byte) {
    tokens[byte] = std::isalnum(static_cast<int>(byte)) != 0 || byte == '_';
    blanks[byte] = byte == ' ' || byte == ',' || byte == '\n';
  }
  SkimFilter filter;
  filter.SetClasses(tokens, blanks, caseSensitive);
  for (const char* word : {"if", "function", "constructor"}) filter.AddToken(word);
  filter.AddPair('/', '/');
  return filter;
}

TEST(SkimFilter, SortsABlockWithAndWithoutVectorsAlike) {
  const SkimFilter filter = FilterOf(true);
  laws::Dice dice(1);
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    while (text.size() < SkimFilter::BlockBytes) text += static_cast<char>(dice.Below(round % 8 == 0 ? 256 : 128));
    const SkimFilter::Block bytes = filter.SortBytes(text.data()), any = filter.Sort(text.data());
    ASSERT_EQ(bytes.Wide, any.Wide);
    ASSERT_TRUE(bytes == any) << "round " << round;
    for (unsigned i = 0; i < SkimFilter::BlockBytes; ++i)
      ASSERT_EQ(bytes.IsToken(i), std::isalnum(static_cast<unsigned char>(text[i])) != 0 || text[i] == '_') << i;
  }
}

TEST(SkimFilter, LetsThroughWhatBeginsAWordAndLittleElse) {
  const struct {
    const char* Text;
    bool Sensitive, Insensitive;
  } cases[] = {{"if", true, true},        {"IF", false, true},  {"iff", false, false},  {"constructor", true, true},
               {"Function", false, true}, {"// x", true, true}, {"/* x", false, false}, {"functio", false, false}};
  for (const auto& c : cases) {
    std::string text = c.Text;
    text.resize(SkimFilter::BlockBytes + SkimFilter::ReadsBehind, ' ');
    for (const bool sensitive : {true, false}) {
      const SkimFilter filter = FilterOf(sensitive);
      EXPECT_EQ(filter.MayBegin(text.data(), filter.Sort(text.data()), 0), sensitive ? c.Sensitive : c.Insensitive)
          << c.Text << (sensitive ? ", letter case counts" : "");
    }
  }
}

}  // namespace
