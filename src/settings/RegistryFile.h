#pragma once
// The user's registry in one text file. It is read when the object is made, and written by Flush, atomically. An object
// serves one load or one save: a save that starts from a fresh one keeps what others wrote into the file meanwhile.
//
// A missing file is an empty registry. One that cannot be read is never written: every call answers AccessDenied. A
// damaged one is kept beside the new one as "….damaged" before the first Flush replaces it.

#include <string>
#include <vector>

#include "platform/Registry.h"
#include "settings/RegistryText.h"

namespace settings {

class RegistryFile : public platform::Registry {
 public:
  /// `path` is the file's; its folder need not exist.
  explicit RegistryFile(std::string path);

  platform::RegistryResult OpenKey(std::string_view key) const override;
  Creation CreateKey(std::string_view key) override;
  platform::RegistryResult DeleteKey(std::string_view key) override;
  platform::RegistryResult QueryValue(std::string_view key, std::string_view name,
                                      platform::RegistryValue& value) const override;
  platform::RegistryResult SetValue(std::string_view key, std::string_view name,
                                    const platform::RegistryValue& value) override;
  platform::RegistryResult DeleteValue(std::string_view key, std::string_view name) override;
  platform::RegistryResult DeleteValues(std::string_view key) override;
  ValueInfo QueryValueInfo(std::string_view key) const override;
  platform::RegistryResult EnumValue(std::string_view key, std::size_t index, std::string& name,
                                     platform::RegistryValue& value) const override;
  std::string Flush() override;
  const std::vector<std::string>& Damages() const override { return m_damages; }
  void KeepOldStore() override { m_keepOld = true; }

 private:
  std::string Load();

  std::string m_path;
  std::string m_error;  ///< why the file cannot be read; "" when it could
  std::string m_old;    ///< the file's bytes as last read or written
  RegistryText m_text;
  std::vector<std::string> m_damages;
  bool m_keepOld = false;
};

/// Where the registry of the user who runs the process lies: $XDG_CONFIG_HOME/quillmark/registry.reg.
std::string UserRegistryPath();

}  // namespace settings
