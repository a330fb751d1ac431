#include "rich_text/Encoding.h"

#include <gtest/gtest.h>

#include "tests/laws/Dice.h"

namespace {

using namespace rich_text;
using namespace std::string_literals;

/// Well-formed means: the only encoding of its code points. Written without a look at the lead bytes' ranges.
bool IsCanonical(const std::string& bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const CodePoint point = CodePointAt(bytes, i);
    std::string again;
    AppendUtf8(again, point.Value);
    const bool isScalar = point.Value < 0xD800 || (point.Value > 0xDFFF && point.Value < 0x110000);
    if (!isScalar || bytes.compare(i, point.Bytes, again) != 0) return false;
    i += point.Bytes;
  }
  return true;
}

const std::string Mark = "\xEF\xBB\xBF";

std::string RandomBytes(laws::Dice& dice) {
  static const std::string lively =
      "aZ\r\n\0\x7F\x80\x81\x8F\x90\x9F\xA0\xBB\xBF\xC0\xC1\xC2\xDF\xE0\xED\xEF\xF0\xF4\xF5\xFF"s;
  std::string bytes = dice.Chance(30) ? dice.Text({Mark}, 2) : "";
  if (dice.Chance(50)) bytes += std::string(dice.Below(17), 'x');  // to reach over the blocks of eight
  for (std::size_t count = dice.Below(9); count > 0; --count) {
    if (dice.Chance(30))
      AppendUtf8(bytes, static_cast<char32_t>(dice.Below(dice.Chance(50) ? 0x800 : 0xD800)));
    else if (dice.Chance(10))
      bytes += {dice.Pick("\xE0\xED"s), dice.Pick("\x9F\xA0"s), '\x80'};  // overlong, or a surrogate
    else
      bytes += dice.Chance(80) ? dice.Pick(lively) : static_cast<char>(dice.Below(256));
  }
  return bytes;
}

TEST(Encoding, AnyBytesComeBack) {
  int valid = 0;
  for (std::uint64_t seed = 0; seed < 100'000 && !testing::Test::HasFailure(); ++seed) {
    laws::Dice dice(seed);
    const std::string bytes = RandomBytes(dice);
    const DecodedText decoded = DecodeText(bytes);
    EXPECT_EQ(EncodeText(decoded), bytes) << "seed " << seed << ": " << testing::PrintToString(bytes);
    EXPECT_TRUE(IsCanonical(decoded.Text)) << testing::PrintToString(decoded.Text);
    const bool isUtf8 = decoded.Encoding == TextEncoding::Utf8;
    EXPECT_EQ(isUtf8, IsCanonical(bytes)) << testing::PrintToString(bytes);
    EXPECT_EQ(decoded.HasMark, isUtf8 && bytes.starts_with(Mark)) << testing::PrintToString(bytes);
    EXPECT_TRUE(!isUtf8 || decoded.Text == bytes.substr(decoded.HasMark ? 3 : 0)) << "one mark is kept aside, no other";
    EXPECT_TRUE(isUtf8 || CharacterCount(decoded.Text) == bytes.size()) << "a character a byte";
    valid += isUtf8;
  }
  EXPECT_GT(valid, 10'000) << "both kinds must occur";
  EXPECT_LT(valid, 90'000);
}

TEST(Encoding, Windows1252) {
  EXPECT_EQ(DecodeText("\x80\x81\x8A\x93\x9F\xA0\xD7\xFF"s).Text, "€\u0081Š“Ÿ\u00A0×ÿ");
  for (unsigned byte = 0; byte < 256; ++byte)
    EXPECT_EQ(ToWindows1252(FromWindows1252(static_cast<unsigned char>(byte))), byte);
  for (const char32_t missing : {U'\u0080', U'\u0093', U'Ω', U'Ā', U'\uFFFD', U'\U0001F600'}) {
    EXPECT_EQ(ToWindows1252(missing), std::nullopt) << std::hex << static_cast<unsigned>(missing);
    DecodedText text = DecodeText("12345678\xE9"s);
    AppendUtf8(text.Text, missing);
    EXPECT_EQ(EncodeText(text), std::nullopt);
  }
}

TEST(Encoding, LowerCaseIsTheSimpleMappingOfUnicode14) {
  // The number of characters that have one and a hash over all of them, from an implementation of the database.
  std::uint64_t hash = 0xCBF2'9CE4'8422'2325U;
  int count = 0;
  for (char32_t c = 0; c < 0x110000; ++c) {
    if (c >= 0xD800 && c < 0xE000) continue;
    const char32_t lower = LowerCase(c);
    if (lower == c) continue;
    ++count;
    for (const char32_t value : {c, lower}) hash = (hash ^ value) * 0x100'0000'01B3U;
  }
  EXPECT_EQ(count, 1433);
  EXPECT_EQ(hash, 0xAB53'73D0'02A2'9227U);
  EXPECT_EQ(LowerCase("ÀÉ×ß İ Ÿ ẞ ΣΑΣ K Å Ѐ Я ǅ \U00010400 Ꭰ Z"),
            "àé×ß i ÿ ß σασ k å ѐ я ǆ \U00010428 ꭰ z");
}

}  // namespace
