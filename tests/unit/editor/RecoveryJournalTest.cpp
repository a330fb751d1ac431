// The journal's format: whatever is cut off or damaged, what is read is a text that once was there.

#include "editor/RecoveryJournal.h"

#include <gtest/gtest.h>

#include <limits>

#include "editor/ChunkedText.h"
#include "editor/Crc32c.h"
#include "tests/laws/Dice.h"

namespace {

using editor::JournalContent;
using editor::JournalHead;
using laws::Dice;

/// A text that is changed and journalled, and every state that it had.
class Journalled {
 public:
  Journalled(std::string text, const JournalHead& head) : m_base(std::move(text)), m_text(m_base) {
    States.push_back(m_text);
    m_encoder.Head(Bytes, head);
    Mark();
  }

  void Change(std::size_t start, std::size_t removed, const std::string& inserted) {
    m_text.replace(start, removed, inserted);
    m_encoder.Change(Bytes, start, removed, inserted, static_cast<std::int64_t>(States.size()));
    const editor::CopiedPart part = editor::PartInCopy(m_copied, start, removed);
    if (!m_whole) m_copied += (part.Applies ? inserted.size() : 0) - part.Removed;
    States.push_back(m_text);
    Mark();
  }
  void Slice(std::size_t bytes) {
    const std::string slice = m_text.substr(m_copied, bytes);
    m_encoder.Slice(Bytes, slice);
    Mark();
    m_copied += slice.size();
    if (m_whole || m_copied < m_text.size()) return;
    m_whole = true;
    m_encoder.Whole(Bytes, 0);
    Mark();
  }
  void RandomChange(Dice& dice) {
    const std::size_t start = dice.Below(m_text.size() + 1);
    const std::size_t removed = dice.Below(std::min<std::size_t>(m_text.size() - start, 12) + 1);
    std::string inserted;
    for (std::size_t size = dice.Below(10); size > 0; --size) inserted += dice.Pick(std::string("ab\r\n{}\\ \t"));
    Change(start, removed, inserted);
  }

  std::string Bytes;
  std::vector<std::string> States;  ///< after so many changes
  /// How many changes stand in the records that end at or before `offset`, and where the last of these ends.
  struct Intact {
    std::size_t Changes = 0, End = 0;
    bool HasHead = false;
  };
  Intact Before(std::size_t offset) const {
    Intact intact;
    for (const auto& [end, changes] : m_ends)
      if (end <= offset) intact = {changes, end, true};
    return intact;
  }
  bool IsWhole() const { return m_whole; }
  editor::BaseText Base() const {
    return [this](const JournalHead&) { return m_base; };
  }

 private:
  void Mark() { m_ends.emplace_back(Bytes.size(), States.size() - 1); }

  std::string m_base, m_text;
  editor::JournalEncoder m_encoder;
  std::size_t m_copied = 0;
  bool m_whole = false;
  std::vector<std::pair<std::size_t, std::size_t>> m_ends;
};

JournalHead SampleHead() {
  JournalHead head;
  head.Path = "/home/user/näme.js";
  head.TemplateFile = "/t/JavaScript.def";
  head.TemplateChosen = head.HasMark = true;
  head.Encoding = rich_text::TextEncoding::Windows1252;
  head.Base = {true, 1, 2, 3, -4, 5, 0xFFFFFFFFFFFFFFFF, false};
  head.Started = 1234567890123;
  return head;
}

std::string Encoded(const JournalHead& head) {
  std::string bytes;
  editor::JournalEncoder().Head(bytes, head);
  return bytes;
}

/// Slices are small, so that changes happen before, inside and behind what is copied.
Journalled Sample(Dice& dice, std::size_t changes) {
  Journalled sample("The quick brown fox\r\njumps over the lazy dog.\r\n", SampleHead());
  for (std::size_t count = 0; count < changes; ++count) {
    sample.RandomChange(dice);
    if (!sample.IsWhole() && dice.Below(2) == 0) sample.Slice(1 + dice.Below(9));
  }
  return sample;
}

/// What may come out of bytes that are intact up to `intact`.
void ExpectPrefix(const Journalled& sample, const std::string& bytes, Journalled::Intact intact, bool damaged) {
  for (const bool hasBase : {false, true}) {
    const JournalContent content = editor::ReadJournal(bytes, hasBase ? sample.Base() : editor::BaseText());
    ASSERT_EQ(content.Readable, intact.HasHead);
    if (!content.Readable) continue;
    EXPECT_EQ(Encoded(content.Head), Encoded(SampleHead()));
    EXPECT_EQ(content.Damaged, damaged);
    ASSERT_EQ(content.Changes, intact.Changes) << "every record up to the damage counts, and none behind it";
    ASSERT_LE(content.Caret, content.Text.size());
    ASSERT_TRUE(content.Complete || !hasBase);
    ASSERT_TRUE(!content.Complete || content.Text == sample.States[content.Changes]) << content.Text;
  }
}

TEST(RecoveryJournalTest, CutAnywhereItGivesThePartBefore) {
  Dice dice(20);
  for (int round = 0; round < 2; ++round) {
    const Journalled sample = Sample(dice, 40);
    for (std::size_t size = 0; size < sample.Bytes.size(); ++size) {
      const Journalled::Intact intact = sample.Before(size);
      ExpectPrefix(sample, sample.Bytes.substr(0, size), intact, size != intact.End);
      if (HasFatalFailure()) FAIL() << "cut at " << size;
    }
  }
}

TEST(RecoveryJournalTest, FlippedAnywhereItGivesThePartBefore) {
  Dice dice(21);
  const Journalled sample = Sample(dice, 40);
  for (std::size_t at = 0; at < sample.Bytes.size(); ++at)
    for (const int flip : {0x01, 0x80}) {
      std::string bytes = sample.Bytes;
      bytes[at] = static_cast<char>(bytes[at] ^ flip);
      ExpectPrefix(sample, bytes, sample.Before(at), true);
      if (HasFatalFailure()) FAIL() << "flipped " << flip << " at " << at;
    }
}

TEST(RecoveryJournalTest, RandomChangesComeBack) {
  Dice dice(22);
  std::size_t wholes = 0;
  for (int round = 0; round < 300; ++round) {
    Journalled sample = Sample(dice, 10 + dice.Below(150));
    const JournalContent content = editor::ReadJournal(sample.Bytes, sample.Base());
    ASSERT_TRUE(content.Complete && !content.Damaged);
    ASSERT_EQ(content.Text, sample.States.back());
    ASSERT_EQ(content.LastChanged, static_cast<std::int64_t>(sample.States.size() - 1));
    wholes += sample.IsWhole() ? 1 : 0;
    while (!sample.IsWhole()) sample.Slice(100);
    ASSERT_EQ(editor::ReadJournal(sample.Bytes, nullptr).Text, sample.States.back());
  }
  EXPECT_GT(wholes, 50u);
  EXPECT_LT(wholes, 300u) << "texts copied in part must be among the cases";
}

TEST(RecoveryJournalTest, RecordsInTheWrongPlaceAreDamage) {
  Dice dice(23);
  const Journalled sample = Sample(dice, 30), other = Sample(dice, 30);
  const std::size_t end = sample.Before(sample.Bytes.size() - 1).End;
  const std::string last = sample.Bytes.substr(end);
  EXPECT_EQ(editor::ReadJournal(sample.Bytes + last, sample.Base()).Text, sample.States.back()) << "a record twice";
  EXPECT_TRUE(editor::ReadJournal(sample.Bytes + last, sample.Base()).Damaged);
  const std::string mixed = sample.Bytes.substr(0, end) + other.Bytes.substr(other.Before(end).End);
  const JournalContent content = editor::ReadJournal(mixed, sample.Base());
  EXPECT_EQ(content.Text, sample.States[content.Changes]);
  EXPECT_TRUE(content.Damaged);
}

TEST(RecoveryJournalTest, HostileRecordsWithRightChecksumsAreDamageToo) {
  const auto most = std::numeric_limits<std::size_t>::max();
  for (const auto& [start, removed] : std::vector<std::pair<std::size_t, std::size_t>>{
           {6, 0}, {0, 6}, {5, 1}, {most, 0}, {most, most}, {1, most}, {most - 1, 3}}) {
    std::string bytes;
    editor::JournalEncoder encoder;
    encoder.Head(bytes, SampleHead());
    encoder.Change(bytes, 1000, 7, "x", 1);  // before any text: nothing to check it against
    encoder.Slice(bytes, "caf\xC3");
    const JournalContent cut = editor::ReadJournal(bytes, nullptr);
    EXPECT_EQ(cut.Text, "caf") << "no piece of a character";
    EXPECT_FALSE(cut.Complete);
    encoder.Slice(bytes, "\xA9");
    encoder.Whole(bytes, most);
    EXPECT_EQ(editor::ReadJournal(bytes, nullptr).Caret, 5u);
    encoder.Change(bytes, start, removed, "x", 1);
    encoder.Change(bytes, 0, 0, "y", 1);
    const JournalContent content = editor::ReadJournal(bytes, nullptr);
    EXPECT_EQ(content.Text, "café");
    EXPECT_TRUE(content.Damaged && content.Complete);
  }
}

TEST(RecoveryJournalTest, PiecesOfALongTextAreOneText) {
  Dice dice(25);
  std::string plain(300'000, 'x');
  editor::ChunkedText chunked(plain);
  for (int round = 0; round < 2000; ++round) {
    const std::size_t start = dice.Below(plain.size() + 1);
    const std::size_t most = dice.Below(50) == 0 ? plain.size() : 40;
    const std::size_t removed = dice.Below(std::min(plain.size() - start, most) + 1);
    const std::string inserted(dice.Below(40) == 0 ? 200'000 : dice.Below(60), static_cast<char>('a' + round % 26));
    plain.replace(start, removed, inserted);
    chunked.Replace(start, removed, inserted);
    ASSERT_EQ(chunked.Size(), plain.size());
  }
  EXPECT_EQ(chunked.Take(), plain);
}

TEST(Crc32cTest, TheCheckValueAndAnySplit) {
  EXPECT_EQ(editor::Crc32c("123456789"), 0xE3069283U);
  const std::string_view text = "a text of more than sixteen bytes";
  for (std::size_t split = 0; split <= text.size(); ++split)
    EXPECT_EQ(editor::Crc32c(text.substr(split), editor::Crc32c(text.substr(0, split))), editor::Crc32c(text));
}

}  // namespace
