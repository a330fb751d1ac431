// Searching and replacing against a plain model: the text as a row of characters with a space before and behind it.

#include <gtest/gtest.h>

#include "aids/DocumentSearch.h"
#include "aids/FindDialog.h"
#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"
#include "tests/support/LoadedTemplate.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/ScriptedPrompts.h"

namespace {

using namespace aids;
using tests::FromUtf8, tests::ToUtf8;
using Outcome = FindDialog::Outcome;
using platform::PromptAnswer;

/// The rules as they are told; offsets are characters of the text.
struct Model {
  const templates::TemplateFields& Fields;
  std::u32string Text, Word;
  bool CaseSense, WholeWord;

  char32_t Folded(char32_t c) const { return CaseSense ? c : rich_text::LowerCase(c); }
  std::u32string Folded(std::u32string text) const {
    for (char32_t& c : text) c = Folded(c);
    return text;
  }
  std::u32string Haystack() const { return U' ' + Folded(Text) + U' '; }
  bool Delimits(char32_t c) const { return Fields.IsDelimeter(ToUtf8({c})); }

  bool MatchesAt(const std::u32string& haystack, std::size_t place) const {
    const std::u32string word = Folded(Word);
    if (word.empty() || place == 0 || place + word.size() >= haystack.size()) return false;
    if (haystack.compare(place, word.size(), word) != 0) return false;
    return !WholeWord || (Delimits(haystack[place - 1]) && Delimits(haystack[place + word.size()]));
  }

  int Find(int direction, std::size_t caret) const {
    const std::u32string haystack = Haystack();
    int found = -1;
    for (std::size_t p = 0; p < Text.size(); ++p) {
      const bool up = direction == 2;
      const bool candidate = up ? p < caret && p + Word.size() - 1 <= caret : direction == 0 || p >= caret + 1;
      if (!candidate || !MatchesAt(haystack, p + 1)) continue;
      found = static_cast<int>(p);
      if (!up) break;
    }
    return found;
  }

  std::size_t ReplaceAll(const std::u32string& replacement) {
    std::u32string haystack = Haystack();
    std::size_t count = 0;
    for (std::size_t place = 1; place < haystack.size(); ++place) {
      if (!MatchesAt(haystack, place)) continue;
      haystack.replace(place, Word.size(), replacement);
      Text.replace(place - 1, Word.size(), replacement);
      place += replacement.size() - 1;
      ++count;
    }
    return count;
  }
};

std::u32string RandomText(laws::Dice& dice, std::size_t longest) {
  static const std::u32string alphabet = U"aAbB ,.\n\u00E4\u00C4\u20AC\U0001F600kK\u212A";
  std::u32string text;
  for (std::size_t length = dice.Below(longest + 1); length > 0; --length)
    text += dice.Pick(dice.Chance(70) ? alphabet.substr(0, 6) : alphabet);
  return text;
}

TEST(Search, FindsAndReplacesWhatThePlainRulesFind) {
  const templates::TemplateFields fields = tests::LoadedTemplate("D: ,.\n");
  int found = 0, replaced = 0;
  for (std::uint64_t seed = laws::FirstSeed(); seed < laws::FirstSeed() + laws::Runs(20'000); ++seed) {
    laws::Dice dice(seed);
    Model model{fields, RandomText(dice, 40), RandomText(dice, 4), dice.Chance(50), dice.Chance(40)};
    if (model.Word.find(U'\n') != std::u32string::npos) continue;
    const std::string word = ToUtf8(model.Word);
    const std::size_t caret = dice.Below(model.Text.size() + 1);
    const int direction = dice.Between(0, 2);
    tests::MemoryTextControl control;
    control.SetText(ToUtf8(model.Text));
    control.SetSelStart(ToUtf8(model.Text.substr(0, caret)).size());
    DocumentSearch search(control, fields, 1 + dice.Below(30));

    const int expected = model.Find(direction, caret);
    const std::int32_t result = search.Find(word, direction, model.CaseSense, model.WholeWord);
    ASSERT_EQ(result, expected < 0 ? -1 : 0) << "seed " << seed << ": " << ToUtf8(model.Text) << " / " << word;
    if (expected >= 0) {
      ++found;
      ASSERT_EQ(control.SelStart(), ToUtf8(model.Text.substr(0, static_cast<std::size_t>(expected))).size())
          << "seed " << seed;
      ASSERT_EQ(FromUtf8(control.SelText()).size(), model.Word.size()) << "seed " << seed;
    }
    const std::u32string replacement = RandomText(dice, 3);
    const std::size_t count = search.ReplaceAll(word, ToUtf8(replacement), model.CaseSense, model.WholeWord,
                                                [](const auto& edit) { edit(); });
    ASSERT_EQ(count, model.ReplaceAll(replacement)) << "seed " << seed;
    ASSERT_EQ(control.Text(), ToUtf8(model.Text)) << "seed " << seed;
    replaced += count > 0;
  }
  if (laws::Runs(20'000) >= 20'000) {
    EXPECT_GT(found, 2000);
    EXPECT_GT(replaced, 3000);
  }
}

/// A document with a find dialog on it, and the user's answers.
struct Desk : SearchedDocument {
  templates::TemplateFields Fields = tests::LoadedTemplate("D: ()\n");
  tests::MemoryTextControl Control;
  DocumentSearch Searching{Control, Fields};
  tests::ScriptedPrompts Prompts;
  FindDialog Dialog{Prompts};

  explicit Desk(const std::string& text) {
    Control.SetText(text);
    Dialog.SetParentForm(this);
  }
  void ExpectGoingOn(const char* question, PromptAnswer answer) {
    Prompts.Expect(
        {question, "Find", platform::PromptButtons::YesNo, platform::PromptIcon::Question, PromptAnswer::Yes}, answer);
  }

  /// Where the dialog finds the word; -1 for nothing.
  int FoundAt(const FindFields& fields) {
    return Dialog.Find(fields) == Outcome::Found ? static_cast<int>(Control.SelStart()) : -1;
  }
  void ExpectReplaced(const std::string& count) {
    Prompts.Expect({.Text = "Replace Complete.  " + count + " were made.",
                    .Title = "Replace",
                    .Icon = platform::PromptIcon::Information});
  }

  bool Coloured = true;
  DocumentSearch& Search() override { return Searching; }
  bool MayEdit() const override { return Coloured; }
  void BringToFront() override {}
  void ReplaceSelection(const std::string& text) override { Control.SetSelText(text); }
  std::size_t ReplaceAll(const std::string& word, const std::string& replacement, bool caseSense,
                         bool wholeWord) override {
    return Searching.ReplaceAll(word, replacement, caseSense, wholeWord, [](const auto& edit) { edit(); });
  }
};

TEST(FindDialog, AllGoesFromTheTopThenDownAndAsksAtTheEnd) {
  Desk desk("one two one");
  desk.Control.SetSelStart(6);
  FindFields fields{.FindWord = "one"};
  EXPECT_EQ(desk.FoundAt(fields), 0);
  EXPECT_EQ(desk.FoundAt(fields), 8);
  desk.ExpectGoingOn("\"one\" not found, continue search from beginning of document?", PromptAnswer::Yes);
  EXPECT_EQ(desk.FoundAt(fields), 0);
  EXPECT_EQ(desk.FoundAt(fields), 8);
  desk.Prompts.Expect({.Text = "No more instances of \"one\" found in document", .Title = "Find"}, PromptAnswer::Ok);
  EXPECT_EQ(desk.Dialog.Find(fields), Outcome::NotFound);
  desk.Dialog.FindWordEdited();
  fields.FindWord = "three";
  desk.Prompts.Expect({.Text = "\"three\" not found in document", .Title = "Find"}, PromptAnswer::Ok);
  EXPECT_EQ(desk.Dialog.Find(fields), Outcome::NotFound);
  EXPECT_EQ(desk.Dialog.Find({}), Outcome::NoWord);

  Desk other("one two one");
  desk.Dialog.SetParentForm(&other);
  other.Control.SetSelStart(6);
  EXPECT_EQ(desk.Dialog.Find({.FindWord = "one"}), Outcome::Found);
  EXPECT_EQ(other.Control.SelStart(), 0U) << "another document begins a search of its own";
}

TEST(FindDialog, UpAsksToGoOnFromTheEndAndFindNextRepeats) {
  Desk desk("a b a b");
  desk.ExpectGoingOn("\"a\" not found, continue search from end of document?", PromptAnswer::Yes);
  EXPECT_EQ(desk.FoundAt({.FindWord = "a", .DirectionIndex = 1}), 4);
  desk.Searching.FindNext(desk.Prompts);
  EXPECT_EQ(desk.Control.SelStart(), 0U);
  desk.ExpectGoingOn("\"a\" not found, continue search from end of document?", PromptAnswer::No);
  desk.Searching.FindNext(desk.Prompts);
  EXPECT_EQ(desk.Dialog.Remembered({}).DirectionIndex, 1);
}

TEST(FindDialog, ReplacesWhatIsFoundAndCountsAll) {
  Desk desk("foo(foo) Foo");
  EXPECT_EQ(desk.Dialog.Replace({}), Outcome::SwitchedMode);
  EXPECT_EQ(desk.Dialog.Caption(), "Replace");
  EXPECT_FALSE(desk.Dialog.ReplaceEnabled());
  const FindFields fields{.FindWord = "foo", .ReplaceWord = "foofoo", .MatchCase = true};
  EXPECT_EQ(desk.FoundAt(fields), 0);
  EXPECT_TRUE(desk.Dialog.ReplaceIsDefault());
  desk.Coloured = false;
  EXPECT_EQ(desk.Dialog.Replace(fields), Outcome::Nothing);
  desk.Dialog.ReplaceAll(fields);
  EXPECT_EQ(desk.Control.Text(), "foo(foo) Foo") << "the text is being coloured";
  desk.Coloured = true;
  EXPECT_EQ(desk.Dialog.Replace(fields), Outcome::Found);
  EXPECT_EQ(desk.Control.Text(), "foofoo(foo) Foo");
  EXPECT_EQ(desk.Control.SelStart(), 7U);
  desk.Dialog.FindWordEdited();
  EXPECT_FALSE(desk.Dialog.ReplaceEnabled());
  desk.ExpectReplaced("3 replacements");
  desk.Dialog.ReplaceAll(fields);
  EXPECT_EQ(desk.Control.Text(), "foofoofoofoo(foofoo) Foo");
  desk.ExpectReplaced("1 replacement");
  desk.Dialog.ReplaceAll({.FindWord = "FOO", .ReplaceWord = "x", .WholeWord = true});
  EXPECT_EQ(desk.Control.Text(), "foofoofoofoo(foofoo) x");
}

TEST(FindDialog, KeepsOffTheCaretsLine) {
  const DialogPlace dialog{100, 300, 500, 400};
  EXPECT_EQ(TopOffCaret(dialog, 50, 350, 16, 1000), 300);   // beside it
  EXPECT_EQ(TopOffCaret(dialog, 200, 350, 16, 1000), 234);  // a line above
  EXPECT_EQ(TopOffCaret({100, 600, 500, 700}, 200, 650, 16, 1000), 682);
  EXPECT_EQ(TopOffCaret({100, 0, 500, 100}, 200, 50, 16, 1000), 82);  // no room above
}

}  // namespace
