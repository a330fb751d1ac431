#pragma once
// The folder of the journals of unsaved documents: $XDG_STATE_HOME/quillmark, open to its owner alone.
//
// NAME.journal is the journal of one document, whose lock tells whether the document is still open in some running
// program; NAME.new is one being written. Paths are UTF-8. What cannot be used is told as a sentence, never thrown.

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editor/RecoveryJournal.h"
#include "editor/RecoveryWriter.h"
#include "platform/FileDescriptor.h"
#include "platform/Prompts.h"

namespace editor {

/// A journal whose document is open nowhere. While this lives no other program takes it.
class DeadJournal {
 public:
  /// Takes the journal if nobody has it; "" in `error` for one that lives. Does not read it yet.
  static std::optional<DeadJournal> Take(const std::string& path, std::string& error);

  /// Reads it; the file that it tells of helps where the journal does not hold the whole text.
  JournalContent Read() const;
  const std::string& Path() const { return m_path; }
  /// Deletes it.
  void Remove();

 private:
  DeadJournal(std::string path, platform::FileDescriptor file) : m_path(std::move(path)), m_file(std::move(file)) {}

  std::string m_path;
  platform::FileDescriptor m_file;
};

class RecoveryStore {
 public:
  /// How long changes may wait to be written together.
  static constexpr std::chrono::milliseconds Gather{750};

  explicit RecoveryStore(std::string folder, std::chrono::milliseconds gather = Gather);

  /// From XDG_STATE_HOME and HOME; "" when neither is an absolute path.
  static std::string DefaultFolder();

  /// The journals whose documents are open nowhere, oldest name first. Leftovers of journals that were never finished
  /// are cleared away. `problems` gets a line for each file that is not readable or not ours.
  std::vector<DeadJournal> TakeDead(std::vector<std::string>& problems) const;

  /// A name that no journal has.
  static std::string NewName();

  RecoveryWriter& Writer() { return m_writer; }

  /// Tells the user, the first time that it is called, that unsaved text is not protected.
  void TellOnce(platform::Prompts& prompts, const std::string& error);

 private:
  std::string m_folder;
  RecoveryWriter m_writer;
  bool m_told = false;
};

}  // namespace editor
