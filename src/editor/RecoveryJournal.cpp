#include "editor/RecoveryJournal.h"

#include <algorithm>
#include <array>

#include "editor/ChunkedText.h"
#include "editor/Crc32c.h"

namespace editor {
namespace {

constexpr std::string_view FormatLine = "Quillmark journal 1\n";
constexpr std::size_t FrontBytes = 9, BackBytes = 4;

enum RecordKind : std::uint8_t { HeadRecord = 1, SliceRecord = 2, WholeRecord = 3, ChangeRecord = 4 };

template <typename Number>
void AppendNumber(std::string& bytes, Number number) {
  for (std::size_t byte = 0; byte < sizeof number; ++byte)
    bytes += static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * byte) & 0xFF);
}

void AppendText(std::string& bytes, std::string_view text) {
  AppendNumber(bytes, static_cast<std::uint32_t>(text.size()));
  bytes += text;
}

/// Takes fields from the front of some bytes. Once they do not suffice everything is 0 or "", and Ok is false.
class Fields {
 public:
  explicit Fields(std::string_view bytes) : m_bytes(bytes) {}
  bool Ok() const { return m_ok; }
  std::string_view Rest() const { return m_bytes; }

  std::string_view Bytes(std::size_t count) {
    if (count > m_bytes.size()) {
      m_ok = false;
      m_bytes = {};
      return {};
    }
    const std::string_view taken = m_bytes.substr(0, count);
    m_bytes.remove_prefix(count);
    return taken;
  }
  template <typename Number>
  Number Take() {
    std::uint64_t number = 0;
    const std::string_view taken = Bytes(sizeof(Number));
    for (std::size_t byte = 0; byte < taken.size(); ++byte)
      number |= static_cast<std::uint64_t>(static_cast<unsigned char>(taken[byte])) << (8 * byte);
    return static_cast<Number>(number);
  }
  std::string Text() { return std::string(Bytes(Take<std::uint32_t>())); }

 private:
  std::string_view m_bytes;
  bool m_ok = true;
};

std::string EncodeHead(const JournalHead& head) {
  std::string bytes;
  AppendText(bytes, head.Path);
  AppendText(bytes, head.TemplateFile);
  const platform::FileIdentity& base = head.Base;
  const std::array<bool, 5> flags = {head.TemplateChosen, head.Encoding == rich_text::TextEncoding::Windows1252,
                                     head.HasMark, base.Exists, base.Settled};
  for (const bool flag : flags) bytes += static_cast<char>(flag);
  for (const std::uint64_t number : {base.Device, base.Inode, base.Size, base.Contents}) AppendNumber(bytes, number);
  for (const std::int64_t number : {base.Modified, base.Changed, head.Started}) AppendNumber(bytes, number);
  return bytes;
}

bool DecodeHead(std::string_view bytes, JournalHead& result) {
  Fields fields(bytes);
  JournalHead head;
  head.Path = fields.Text();
  head.TemplateFile = fields.Text();
  platform::FileIdentity& base = head.Base;
  bool isWindows = false;
  for (bool* flag : {&head.TemplateChosen, &isWindows, &head.HasMark, &base.Exists, &base.Settled})
    *flag = fields.Take<std::uint8_t>() != 0;
  head.Encoding = isWindows ? rich_text::TextEncoding::Windows1252 : rich_text::TextEncoding::Utf8;
  for (std::uint64_t* number : {&base.Device, &base.Inode, &base.Size, &base.Contents})
    *number = fields.Take<std::uint64_t>();
  for (std::int64_t* number : {&base.Modified, &base.Changed, &head.Started}) *number = fields.Take<std::int64_t>();
  const bool hasNul = head.Path.find('\0') != std::string::npos || head.TemplateFile.find('\0') != std::string::npos;
  if (!fields.Ok() || !fields.Rest().empty() || hasNul) return false;
  result = std::move(head);
  return true;
}

/// Walks over the records of a journal until the bytes end or are damaged.
class Records {
 public:
  explicit Records(std::string_view bytes) : m_bytes(bytes) {
    m_damaged = !bytes.starts_with(FormatLine);
    if (!m_damaged) m_bytes.remove_prefix(FormatLine.size());
  }

  std::uint8_t Kind = 0;
  std::string_view Bytes;

  bool Next() {
    if (m_damaged || m_bytes.empty()) return false;
    m_damaged = true;
    if (m_bytes.size() < FrontBytes + BackBytes) return false;
    Fields front(m_bytes);
    Kind = front.Take<std::uint8_t>();
    const std::size_t length = front.Take<std::uint32_t>();
    const std::uint32_t frontSum = front.Take<std::uint32_t>();
    if (frontSum != Crc32c(m_bytes.substr(0, FrontBytes - 4), m_chain)) return false;
    if (length > m_bytes.size() - FrontBytes - BackBytes) return false;
    Bytes = front.Bytes(length);
    if (front.Take<std::uint32_t>() != Crc32c(Bytes, frontSum)) return false;
    m_chain = Crc32c(Bytes, frontSum);
    m_bytes = front.Rest();
    m_damaged = false;
    return true;
  }
  bool Damaged() const { return m_damaged; }

 private:
  std::string_view m_bytes;
  std::uint32_t m_chain = 0;
  bool m_damaged = false;
};

/// Plays records on a text: on the copied part of it, or, from the first change on, on the whole of a known base.
class Replay {
 public:
  explicit Replay(std::optional<std::string> base) : m_text(base ? *base : ""), m_hasBase(base.has_value()) {}

  /// False when the record's bytes make no sense.
  bool Play(const Records& record, JournalContent& content) {
    Fields fields(record.Bytes);
    switch (record.Kind) {
      case HeadRecord:
        return DecodeHead(record.Bytes, content.Head);
      case SliceRecord:
        if (!m_hasBase && !m_whole) m_text.Replace(m_text.Size(), 0, record.Bytes);
        return true;
      case WholeRecord:
        content.Caret = fields.Take<std::uint64_t>();
        m_whole = true;
        return fields.Ok();
      case ChangeRecord:
        return PlayChange(fields, content);
      default:
        return false;
    }
  }
  bool Whole() const { return m_whole || m_hasBase; }
  std::string TakeText() { return m_text.Take(); }

 private:
  bool PlayChange(Fields& fields, JournalContent& content) {
    const auto milliseconds = fields.Take<std::int64_t>();
    const auto start = fields.Take<std::uint64_t>(), removed = fields.Take<std::uint64_t>();
    if (!fields.Ok() || start + removed < start) return false;
    const std::string_view inserted = fields.Rest();
    if (Whole()) {
      if (start + removed > m_text.Size()) return false;
      m_text.Replace(start, removed, inserted);
    } else if (const CopiedPart part = PartInCopy(m_text.Size(), start, removed); part.Applies || part.Removed > 0) {
      m_text.Replace(start, part.Removed, part.Applies ? inserted : std::string_view());
    }
    content.Caret = start + inserted.size();
    content.LastChanged = milliseconds;
    ++content.Changes;
    return true;
  }

  ChunkedText m_text;
  bool m_hasBase;
  bool m_whole = false;
};

/// What can be read before the text itself is: the head, and whether slices reach the end of the text.
struct Overview {
  std::optional<JournalHead> Head;
  bool Whole = false;
};

Overview LookThrough(std::string_view bytes) {
  Overview overview;
  JournalHead head;
  for (Records records(bytes); records.Next();) {
    if (records.Kind == HeadRecord && DecodeHead(records.Bytes, head)) overview.Head = head;
    if (!overview.Head) break;
    overview.Whole = overview.Whole || records.Kind == WholeRecord;
  }
  return overview;
}

/// A text cut anywhere loses the piece of a character at its end; bytes that are no text at all are taken as 1252.
std::string AsText(std::string text, bool cut) {
  for (int bytes = 0; cut && bytes < 3 && !text.empty() && !rich_text::IsValidUtf8(text); ++bytes) text.pop_back();
  return rich_text::IsValidUtf8(text) ? text : rich_text::DecodeText(std::move(text)).Text;
}

}  // namespace

void JournalEncoder::Record(std::string& bytes, std::uint8_t kind, std::string_view front, std::string_view back) {
  if (!m_started) bytes += FormatLine;
  m_started = true;
  const std::size_t at = bytes.size();
  AppendNumber(bytes, kind);
  AppendNumber(bytes, static_cast<std::uint32_t>(front.size() + back.size()));
  m_chain = Crc32c(std::string_view(bytes).substr(at), m_chain);
  AppendNumber(bytes, m_chain);
  bytes += front;
  bytes += back;
  m_chain = Crc32c(back, Crc32c(front, m_chain));
  AppendNumber(bytes, m_chain);
}

void JournalEncoder::Head(std::string& bytes, const JournalHead& head) {
  Record(bytes, HeadRecord, EncodeHead(head));
}

void JournalEncoder::Slice(std::string& bytes, std::string_view text) {
  Record(bytes, SliceRecord, text);
}

void JournalEncoder::Whole(std::string& bytes, std::size_t caret) {
  std::string front;
  AppendNumber(front, static_cast<std::uint64_t>(caret));
  Record(bytes, WholeRecord, front);
}

void JournalEncoder::Change(std::string& bytes, std::size_t start, std::size_t removed, std::string_view inserted,
                            std::int64_t milliseconds) {
  std::string front;
  AppendNumber(front, milliseconds);
  AppendNumber(front, static_cast<std::uint64_t>(start));
  AppendNumber(front, static_cast<std::uint64_t>(removed));
  Record(bytes, ChangeRecord, front, inserted);
}

CopiedPart PartInCopy(std::size_t copied, std::size_t start, std::size_t removed) {
  if (start >= copied) return {};
  const std::size_t inCopy = std::min(removed, copied - start);
  return {inCopy, inCopy == removed};
}

JournalContent ReadJournal(std::string_view bytes, const BaseText& baseText) {
  JournalContent content;
  const Overview overview = LookThrough(bytes);
  if (!overview.Head) return content;
  content.Readable = true;
  content.LastChanged = overview.Head->Started;
  Replay replay(overview.Whole || !baseText ? std::nullopt : baseText(*overview.Head));
  Records records(bytes);
  bool sense = true;
  while (sense && records.Next()) sense = replay.Play(records, content);
  content.Complete = replay.Whole();
  content.Damaged = !sense || records.Damaged();
  content.Text = AsText(replay.TakeText(), !content.Complete);
  content.Caret = std::min(content.Caret, content.Text.size());
  return content;
}

}  // namespace editor
