#pragma once
// What the two readers of whole templates have in common: the records of a template file, in file order, each handed to
// the reader that derives from it. Faults are reported and leave the reader in step with the file: a broken action
// block is left at the next line that looks like a record, so that one fault gives one message.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "templates/LineReader.h"
#include "templates/LoadMessages.h"
#include "templates/Model.h"

namespace templates {

class RecordReader {
 public:
  virtual ~RecordReader() = default;

  /// Reads all records; false when a message was answered with Cancel where that counts.
  bool Read();

 protected:
  /// `text` is a file's decoded text and must outlive the reader, as must `messages`; `file` is its name for messages.
  RecordReader(std::string_view text, std::string file, LoadMessages& messages)
      : m_lines(text), m_file(std::move(file)), m_messages(messages) {}
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;

  /// A line and where it stands.
  struct Place {
    std::string_view Line;
    std::size_t Number = 0;
  };

  /// The value of an H, R, N, X, D, V, A, E or M line.
  virtual void TakeText(char tag, std::string_view value) = 0;
  virtual void TakeCaseSensitive(bool value) = 0;
  virtual void TakeFont(const Place& place, std::string_view value) = 0;
  virtual void TakeColour(rich_text::ColourValue value) = 0;  ///< NoColour for a bad one, which has been reported
  virtual void TakeColourWord(std::shared_ptr<colWord> word) = 0;
  virtual void TakeWord(std::shared_ptr<Word> word) = 0;
  virtual void TakeSynonym(std::string_view word, std::string_view synonym) = 0;
  virtual void TakeInitialText(std::string_view text) = 0;
  virtual std::string TipText(std::string_view written) = 0;  ///< the tip to keep for the one in the file
  virtual bool MayCancel(LoadProblem::Sort kind) const = 0;

  void Report(const Place& place, LoadProblem::Sort kind, std::string reason);
  void Invalid(const Place& place, std::string reason) {
    Report(place, LoadProblem::Sort::BadValue, std::move(reason));
  }
  LineReader& Lines() { return m_lines; }

 private:
  enum class Block { GoesOn, Ended };
  struct ActionHead;

  void Dispatch(const Place& place);
  void ReadCaseSensitive(const Place& place, std::string_view value);
  void ReadColour(const Place& place);
  void ReadColourWord(const Place& place, std::string_view value);
  void ReadWord(const Place& place, std::string_view value);
  Block ReadAction(const Place& wordPlace, Word& word);
  bool ReadActionLists(const Place& place, std::int16_t count, WrdAct& action);
  void ReadListLine(const Place& place, std::string& text, std::int32_t& icon);
  void ReadTextBlock(const Place& place, std::string_view value);
  void ReadSynonym(const Place& place, std::string_view value);
  void SkipToRecord();

  LineReader m_lines;
  std::string m_file;
  LoadMessages& m_messages;
  bool m_cancelled = false;
};

}  // namespace templates
