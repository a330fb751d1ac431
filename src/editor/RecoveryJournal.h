#pragma once
// The journal of one document's unsaved text: what stands in the file, how it is written and how it is read.
//
// A line that names the format, then records: kind (1 byte), length (4), checksum of these (4), the bytes, checksum of
// those (4); numbers have their lowest byte first. Checksums go on from one record to the next, so that a record in the
// wrong place is damage too. Records are
//   head       what the text belongs to;
//   slice      the next stretch of the text, as it stands at that moment;
//   whole      the slices have reached the end of the text;
//   change     one change of the text.
// Text is copied while it is being changed: a slice goes on where the text copied so far ends, and a change that lies
// behind that end is found in a later slice. So from `whole` on slices and changes alone give the text back; before it
// the changes are applied to the file that the text came from. Offsets are bytes.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileIdentity.h"
#include "rich_text/Encoding.h"

namespace editor {

/// What a text belongs to.
struct JournalHead {
  std::string Path;  ///< "" for an untitled document
  std::string TemplateFile;
  bool TemplateChosen = false;
  rich_text::TextEncoding Encoding = rich_text::TextEncoding::Utf8;
  bool HasMark = false;
  platform::FileIdentity Base;  ///< the file with the text as it was read or saved last
  std::int64_t Started = 0;     ///< when the text was last changed before the journal began: milliseconds since 1970
};

/// Makes the bytes of a journal, which must be written in the order in which they were made.
class JournalEncoder {
 public:
  /// The beginning of a journal. May come again later, when what it tells has changed.
  void Head(std::string& bytes, const JournalHead& head);
  void Slice(std::string& bytes, std::string_view text);
  void Whole(std::string& bytes, std::size_t caret);
  /// `milliseconds` since 1970.
  void Change(std::string& bytes, std::size_t start, std::size_t removed, std::string_view inserted,
              std::int64_t milliseconds);

 private:
  void Record(std::string& bytes, std::uint8_t kind, std::string_view front, std::string_view back = {});

  std::uint32_t m_chain = 0;
  bool m_started = false;
};

/// How much of the text, in bytes, has been copied by slices once a change has happened: the change's own part of the
/// copied text is Removed from Start on, and Applies tells whether what it inserted belongs there.
struct CopiedPart {
  std::size_t Removed = 0;
  bool Applies = false;
};
CopiedPart PartInCopy(std::size_t copied, std::size_t start, std::size_t removed);

/// What a journal gave back.
struct JournalContent {
  bool Readable = false;  ///< false when not even the head is there; nothing else holds then
  JournalHead Head;
  std::string Text;              ///< valid UTF-8
  bool Complete = false;         ///< Text is the whole text as it was after the last change that could be read
  bool Damaged = false;          ///< something stands behind the last record that could be read
  std::size_t Caret = 0;         ///< behind the last change
  std::size_t Changes = 0;       ///< how many changes could be read
  std::int64_t LastChanged = 0;  ///< when the last change was made: milliseconds since 1970
};

/// The text of the file that the head tells of, if it is still the same.
using BaseText = std::function<std::optional<std::string>(const JournalHead& head)>;

/// Reads any bytes: takes every record up to the first damaged one. `baseText` is asked only when the journal does not
/// hold the whole text.
JournalContent ReadJournal(std::string_view bytes, const BaseText& baseText);

}  // namespace editor
