#include "settings/RegistryFile.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>

#include "platform/Files.h"
#include "platform/UserFolders.h"

namespace settings {
namespace {

using platform::RegistryResult;
using platform::RegistryValue;

constexpr std::string_view Root = "HKEY_CURRENT_USER\\";
constexpr std::uintmax_t LargestFile = 64 * 1024 * 1024;  ///< bytes; nothing that is a registry of ours is larger

std::string FullKey(std::string_view key) {
  return std::string(Root) + std::string(key);
}

bool IsOneLine(std::string_view text) {
  return text.find_first_of(std::string_view("\0\r\n", 3)) == std::string_view::npos;
}

}  // namespace

RegistryFile::RegistryFile(std::string path) : m_path(std::move(path)) {
  m_error = Load();
  if (!m_error.empty()) m_damages.push_back(m_path + ": " + m_error);
  for (const std::string& damage : m_text.Damages()) m_damages.push_back(m_path + ", " + damage);
  m_keepOld = !m_damages.empty();
}

std::string RegistryFile::Load() {
  std::error_code error;
  const auto status = std::filesystem::status(m_path, error);
  if (status.type() == std::filesystem::file_type::not_found) return "";
  if (error) return error.message();
  if (!std::filesystem::is_regular_file(status)) return "it is not a regular file";
  if (std::filesystem::file_size(m_path, error) > LargestFile) return error ? error.message() : "it is too large";
  platform::FileContent file = platform::ReadFile(m_path);
  if (!file.Ok()) return file.Error;
  m_old = std::move(file.Bytes);
  m_text.Read(m_old);
  return "";
}

RegistryResult RegistryFile::OpenKey(std::string_view key) const {
  if (!m_error.empty()) return RegistryResult::AccessDenied;
  return m_text.Exists(FullKey(key)) ? RegistryResult::Success : RegistryResult::FileNotFound;
}

platform::Registry::Creation RegistryFile::CreateKey(std::string_view key) {
  if (!m_error.empty()) return {RegistryResult::AccessDenied, false};
  if (key.empty() || !IsOneLine(key)) return {RegistryResult::InvalidParameter, false};
  const bool isNew = !m_text.Exists(FullKey(key));
  m_text.Create(FullKey(key));
  return {RegistryResult::Success, isNew};
}

RegistryResult RegistryFile::DeleteKey(std::string_view key) {
  const RegistryResult opened = OpenKey(key);
  if (opened == RegistryResult::Success) m_text.Remove(FullKey(key));
  return opened;
}

RegistryResult RegistryFile::QueryValue(std::string_view key, std::string_view name, RegistryValue& value) const {
  if (const RegistryResult opened = OpenKey(key); opened != RegistryResult::Success) return opened;
  const RegistryTextKey* found = m_text.Find(FullKey(key));
  const RegistryTextKey::Value* read = found ? found->Find(name) : nullptr;
  if (read == nullptr) return RegistryResult::FileNotFound;
  value = read->Content;
  return RegistryResult::Success;
}

RegistryResult RegistryFile::SetValue(std::string_view key, std::string_view name, const RegistryValue& value) {
  if (const RegistryResult opened = OpenKey(key); opened != RegistryResult::Success) return opened;
  if (!IsOneLine(name)) return RegistryResult::InvalidParameter;
  m_text.Create(FullKey(key)).Set(name, value);
  return RegistryResult::Success;
}

RegistryResult RegistryFile::DeleteValue(std::string_view key, std::string_view name) {
  if (const RegistryResult opened = OpenKey(key); opened != RegistryResult::Success) return opened;
  RegistryTextKey* found = m_text.Find(FullKey(key));
  return found && found->Remove(name) ? RegistryResult::Success : RegistryResult::FileNotFound;
}

RegistryResult RegistryFile::DeleteValues(std::string_view key) {
  const RegistryResult opened = OpenKey(key);
  RegistryTextKey* found = m_text.Find(FullKey(key));
  if (opened == RegistryResult::Success && found) found->Clear();
  return opened;
}

platform::Registry::ValueInfo RegistryFile::QueryValueInfo(std::string_view key) const {
  ValueInfo info;
  info.Result = OpenKey(key);
  const RegistryTextKey* found = m_text.Find(FullKey(key));
  if (info.Result != RegistryResult::Success || found == nullptr) return info;
  info.Count = found->Values().size();
  for (const RegistryTextKey::Value& value : found->Values()) {
    info.LongestName = std::max(info.LongestName, value.Name.size() + 1);
    info.LongestData = std::max(info.LongestData, value.Content.Data.size());
  }
  return info;
}

RegistryResult RegistryFile::EnumValue(std::string_view key, std::size_t index, std::string& name,
                                       RegistryValue& value) const {
  if (const RegistryResult opened = OpenKey(key); opened != RegistryResult::Success) return opened;
  const RegistryTextKey* found = m_text.Find(FullKey(key));
  if (found == nullptr || index >= found->Values().size()) return RegistryResult::NoMoreItems;
  name = found->Values()[index].Name;
  value = found->Values()[index].Content;
  return RegistryResult::Success;
}

std::string RegistryFile::Flush() {
  if (!m_error.empty()) return m_path + ": " + m_error;
  std::string text = m_text.Write();
  if (text == m_old) return "";
  std::error_code ignored;  // writing tells why it cannot
  std::filesystem::create_directories(std::filesystem::path(m_path).parent_path(), ignored);
  if (m_keepOld)
    if (const std::string error = platform::WriteFile(m_path + ".damaged", m_old); !error.empty())
      return m_path + ".damaged: " + error;
  m_keepOld = false;
  if (const std::string error = platform::WriteFile(m_path, text); !error.empty()) return m_path + ": " + error;
  m_old = std::move(text);
  return "";
}

std::string UserRegistryPath() {
  return platform::ConfigHome() + "/quillmark/registry.reg";
}

}  // namespace settings
