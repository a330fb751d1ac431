#pragma once
// Keeps one document's unsaved text safe from a crash: its journal, from the first change to the save.
//
// A change costs what it is long. The text itself is copied into the journal in slices, from a timer, while the user
// goes on typing. When the changes have grown larger than the text, or writing has failed, a second journal is begun
// beside the first and takes its place once it holds the whole text. Store, control and prompts outlive this; without a
// store nothing happens at all.

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "editor/RecoveryJournal.h"
#include "editor/RecoveryStore.h"
#include "platform/Prompts.h"
#include "platform/TextControl.h"
#include "platform/Timer.h"

namespace editor {

class Recovery {
 public:
  /// Tells what the text belongs to; the base and the time are filled in here.
  using Describe = std::function<JournalHead()>;

  Recovery(RecoveryStore* store, platform::TextControl& control, std::unique_ptr<platform::Timer> timer,
           platform::Prompts& prompts, Describe describe);
  /// Leaves the journal: only Settled and Closed delete it.
  ~Recovery();
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  /// The text is that of the file, which has just been read or safely written.
  void Settled(const platform::FileIdentity& base);
  /// The text changed. The first change begins a journal, unless the program made it.
  void Changed(const platform::TextChange& change, bool byProgram);
  /// The text is in no file any more, though nothing of it has changed: begins a journal.
  void LostFile();
  /// What the text belongs to has changed.
  void HeadChanged();
  /// The document closes, and the user wants none of what is unsaved.
  void Closed();

  /// The text was restored from a journal: begins a new one, and waits until it is safe. False when that failed.
  bool Restored(const JournalContent& content);

 private:
  /// A journal being written.
  struct Stream {
    JournalHandle File;
    JournalEncoder Encoder;
    std::size_t Copied = 0;  ///< bytes of the text that the slices have
    bool Whole = false;      ///< the slices have all
    std::size_t Bytes = 0;   ///< written since then
  };

  /// What the journals begin with, as of now.
  JournalHead Head() const;
  Stream Begin();
  void BeginMain();
  void Write(Stream& stream, const std::string& bytes);
  void WriteChange(Stream& stream, const platform::TextChange& change, const std::string& inserted);
  void CopySlice(Stream& stream);
  void Drop();
  void Tick();
  void LookAfterNext(std::string& error);
  void LookAfterMain(std::string& error);
  int NextTick() const;
  void Fail(std::string& error, const std::string& reason);

  RecoveryStore* m_store;
  platform::TextControl& m_control;
  std::unique_ptr<platform::Timer> m_timer;
  platform::Prompts& m_prompts;
  Describe m_describe;
  platform::FileIdentity m_base;
  std::int64_t m_lastChanged = 0;  ///< milliseconds since 1970
  std::size_t m_length = 0;        ///< of the text, by the changes told
  std::string m_name;
  std::optional<Stream> m_main, m_next;
  bool m_failed = false;   ///< nothing more is written to the main journal
  bool m_resting = false;  ///< after a failure, until the next attempt
  int m_rest;              ///< how long, in milliseconds
};

}  // namespace editor
