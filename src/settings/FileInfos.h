#pragma once
// Which template and which synonym file each edited file uses: the records, and the file "FileInfo.ini" of the program
// folder that keeps them. Paths are UTF-8 and full; records are found without regard to letter case and stand in the
// order in which they were made.
//
// Reading is what people may write by hand: in a section the first "Synonyms=" line counts and the first "Template="
// line behind it, even if they stand in a later section. That section still has its own. A section that the file's end
// cuts off takes what it has. Of two sections for one file the later counts.

#include <string>
#include <string_view>

#include "platform/Prompts.h"
#include "templates/KeyedCollection.h"

namespace settings {

struct FileInfo {
  std::string FileName;
  std::string UsesTemplate;  ///< a path, or templates::NoTemplate; "" for none recorded
  std::string UsesSynonyms;  ///< a path; "" for none

  bool operator==(const FileInfo&) const = default;
};

/// The records, under their FileName.
class FileInfos {
 public:
  using Collection = templates::KeyedCollection<FileInfo>;

  /// Null when the file has none.
  std::shared_ptr<const FileInfo> Find(std::string_view fileName) const;
  /// Appends a record; one that the file had is removed.
  void Put(const FileInfo& record);
  const Collection& All() const { return m_records; }

 private:
  Collection m_records;
};

/// The document that closes, as its record needs it.
struct ClosingDocument {
  std::string CurFileName, CurSFileName, TemplateFile;
  bool TemplateChosen = false;  ///< the user chose the template for this file
};

/// Makes the record of a document that closes. Nothing is recorded for a document without a name, or one with neither a
/// synonym file nor a template that the user chose.
void RecordClosing(FileInfos& records, const ClosingDocument& document);

/// The text of the file, decoded.
void ReadFileInfoText(std::string_view text, FileInfos& records);
std::string WriteFileInfoText(const FileInfos& records);

/// The file itself. One that is there and cannot be read is told and never replaced.
class FileInfoFile {
 public:
  /// Both must outlive the object.
  FileInfoFile(const std::string& programFolder, FileInfos& records, platform::Prompts& prompts);

  void ReadFileInfo();   ///< a missing file gives no records
  void WriteFileInfo();  ///< a failure is told, and leaves the old file whole

 private:
  void Tell(const std::string& what, const std::string& reason);

  std::string m_path;
  FileInfos& m_records;
  platform::Prompts& m_prompts;
  bool m_unreadable = false;
};

}  // namespace settings
