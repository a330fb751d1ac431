#include "platform/TemplateCopies.h"

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <sstream>

#include "platform/FileIdentity.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

/// An installed file when it was looked at last.
struct Installed {
  std::uint64_t Hash = 0, Size = 0;
  std::int64_t Time = 0;
};

using Record = std::map<std::string, Installed>;

Record ReadRecord(const std::string& path) {
  Record record;
  std::istringstream lines(ReadFile(path).Bytes);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    Installed file;
    std::string name;
    if (fields >> file.Hash >> file.Size >> file.Time >> std::ws && std::getline(fields, name)) record[name] = file;
  }
  return record;
}

std::string TextOf(const Record& record) {
  std::ostringstream text;
  for (const auto& [name, file] : record)
    text << file.Hash << ' ' << file.Size << ' ' << file.Time << ' ' << name << '\n';
  return text.str();
}

/// Never leaves a part of a file behind: what stands under the name would count as the user's.
bool CopyNew(const std::string& file, const fs::path& target) {
  const fs::path part = target.string() + ".new" + std::to_string(::getpid());
  std::error_code error;
  fs::copy_file(file, part, fs::copy_options::overwrite_existing, error);
  if (!error) fs::rename(part, target, error);
  if (!error) return true;
  std::error_code ignored;
  fs::remove(part, ignored);
  return false;
}

/// True when the copy is what it should be now, be it ours or the user's.
bool RenewCopy(const std::string& file, const std::string& bytes, const fs::path& target, const Installed* before) {
  const FileContent copy = ReadFile(target.string());
  std::error_code error;
  if (!fs::exists(fs::symlink_status(target, error))) return before || CopyNew(file, target);
  const bool isOurs = copy.Ok() && before && HashOf(copy.Bytes) == before->Hash;
  return !isOurs || copy.Bytes == bytes || WriteFile(target.string(), bytes).empty();
}

/// True when the record has changed.
bool Renew(const std::string& file, const fs::path& own, Record& record) {
  const std::string name = fs::path(file).filename().string();
  std::error_code error, timeError;
  Installed now;
  now.Size = fs::file_size(file, error);
  now.Time = fs::last_write_time(file, timeError).time_since_epoch().count();
  const auto known = record.find(name);
  const Installed* before = known == record.end() ? nullptr : &known->second;
  if (error || timeError || (before && before->Size == now.Size && before->Time == now.Time)) return false;
  const FileContent content = ReadFile(file);
  if (!content.Ok() || !RenewCopy(file, content.Bytes, own / name, before)) return false;
  now.Hash = HashOf(content.Bytes);
  record[name] = now;
  return true;
}

}  // namespace

void RenewCopies(const std::string& own, const std::string& installed) {
  std::error_code error;
  fs::create_directories(own, error);
  const std::string path = own + '/' + CopiesRecord;
  // Who has emptied the folder wants it filled again.
  Record record = ListFiles(own, ".def").empty() ? Record() : ReadRecord(path);
  bool changed = false;
  for (const char* ending : {".def", ".hdf"})
    for (const std::string& file : ListFiles(installed, ending)) changed = Renew(file, own, record) || changed;
  if (changed) WriteFile(path, TextOf(record));
}

}  // namespace platform
