// When a tooltip must close, on a text in memory.

#include "aids/TipRules.h"

#include <gtest/gtest.h>

#include "tests/support/LoadedTemplate.h"
#include "tests/support/MemoryTextControl.h"

namespace aids {
namespace {

TEST(TipRules, ATipClosesWhenItsHintIsTypedOutOrItsWordIsGone) {
  struct Case {
    const char* Why;
    std::string Caption, Word, Text;
    std::size_t Start;
    std::size_t Caret;
    bool Valid;
  };
  const std::string call = "foo(a, b)";  // four delimiters
  const Case cases[] = {
      {"just opened", call, "foo", "foo(", 0, 4, true},
      {"typing arguments", call, "foo", "foo(x,", 0, 6, true},
      {"as many delimiters as the caption", call, "foo", "foo(x, y ", 0, 9, false},
      {"only what is before the caret counts", call, "foo", "foo(x, y )", 0, 8, true},
      {"the closing parenthesis", call, "foo", "foo()", 0, 5, false},
      {"the caret on the word", call, "foo", "x foo(", 2, 3, true},
      {"the caret before the word", call, "foo", "x foo(", 2, 1, false},
      {"the word edited away", call, "foo", "fox(", 0, 4, false},
      {"the word cut short", call, "foo", "fo", 0, 2, false},
      {"letter case does not count here", call, "foo", "FOO(", 0, 4, true},
      {"a caption without delimiters", "hint", "foo", "foo(", 0, 4, false},
      {"a caption that ends with a blank is not closed by one", "a, b, c, ", "foo", "foo( ", 0, 5, true},
      {"a last character that stands twice closes nothing", "f((,,)x)", "f", "f()", 0, 3, true},
      {"a last character that is no delimiter closes nothing", "foo(a, b); x", "foo", "foo()x", 0, 6, true},
      {"characters, not bytes", "f\xC3\xB6\xC3\xB6(a, b)", "f\xC3\xB6\xC3\xB6", "\xC3\xA9 f\xC3\x96\xC3\x96(", 3, 9,
       true},
      {"a delimiter of two bytes closes", "f(a, b\xC2\xA7", "f", "f(\xC2\xA7", 0, 4, false},
      {"an empty caption", "", "foo", "foo(", 0, 4, false},
  };
  templates::TemplateFields fields = tests::LoadedTemplate("D: (),§\n");
  for (const Case& c : cases) {
    tests::MemoryTextControl control;
    control.SetText(c.Text);
    const ShownTip tip{c.Caption, c.Word, c.Start, CountDelimeters(fields, c.Caption)};
    EXPECT_EQ(TipStillValid(control, fields, tip, c.Caret), c.Valid) << c.Why;
  }
  fields.CaseSensitive = true;
  tests::MemoryTextControl control;
  control.SetText("FOO(");
  EXPECT_FALSE(TipStillValid(control, fields, {call, "foo", 0, 4}, 4));
}

}  // namespace
}  // namespace aids
