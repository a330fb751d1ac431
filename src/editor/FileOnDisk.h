#pragma once
// What a document knows of its file: how its text is encoded, and how the file looked when it was last read or written.
// Asks the user about a character that the encoding cannot hold, and about whatever another program did to the file;
// the document does what the answers say.
//
// Paths and texts are UTF-8. The prompts outlive this. Failures are told to the user and returned.

#include <functional>
#include <optional>
#include <string>

#include "platform/FileIdentity.h"
#include "platform/Prompts.h"
#include "rich_text/Encoding.h"

namespace editor {

class FileOnDisk {
 public:
  explicit FileOnDisk(platform::Prompts& prompts) : m_prompts(prompts) {}

  /// Called with the size in bytes of a large file, while it is being read.
  using MakeRoom = std::function<void(std::size_t)>;

  /// Reads the file; nothing when it cannot be read, which the user is told.
  std::optional<std::string> Open(const std::string& path, const MakeRoom& makeRoom = {});

  /// Takes over what another run of the program knew of the file that a restored text belongs to.
  void Adopt(const std::string& path, const platform::FileIdentity& known, rich_text::TextEncoding encoding,
             bool hasMark);

  /// The file as it was read or written last.
  const platform::FileIdentity& Identity() const { return m_known; }
  rich_text::TextEncoding Encoding() const { return m_encoding; }
  bool HasMark() const { return m_hasMark; }

  /// Writes the text into the file. False when nothing was written: the user said so, or was told why.
  bool Save(const std::string& path, const std::string& text);

  enum class Verdict {
    Nothing,    ///< the file is as it was, or the user knows already
    Reload,     ///< the user wants the text that is in the file now
    Keep,       ///< the user wants the text of the window, which is in no file now
    SaveAgain,  ///< the same, and wants it written
  };

  /// Looks whether another program changed or removed the file, and asks; about one state of the file once. `saved`
  /// tells whether the window's text has no changes of the user's own. Costs one look at the file's status when all is
  /// well.
  Verdict LookForChanges(bool saved);

 private:
  platform::PromptAnswer Ask(const std::string& text, platform::PromptAnswer byDefault);
  bool Tell(const std::string& text);
  platform::PromptAnswer AskToSaveAgain(const std::string& path);
  std::optional<std::string> Encode(const std::string& path, const std::string& text,
                                    rich_text::TextEncoding& encoding);
  bool MayReplace(const std::string& path, const platform::FileLook& look);
  bool Write(const std::string& path, const std::string& bytes);
  bool KnowsOf(const platform::FileIdentity& seen) const { return m_told && m_told->HasContentsOf(seen); }

  platform::Prompts& m_prompts;
  std::string m_path;  ///< the file that `m_known` is about; "" for none
  platform::FileIdentity m_known;
  std::optional<platform::FileIdentity> m_told;  ///< the other state that the user was asked about last
  bool m_isAsking = false;                       ///< a box of ours is up, and its going activates the window
  rich_text::TextEncoding m_encoding = rich_text::TextEncoding::Utf8;
  bool m_hasMark = false;
};

}  // namespace editor
