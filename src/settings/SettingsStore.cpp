#include "settings/SettingsStore.h"

#include <algorithm>
#include <utility>

#include "settings/StoredForms.h"

namespace settings {
namespace {

using platform::Registry;
using platform::RegistryResult;
using platform::RegistryType;
using platform::RegistryValue;

const std::string MainKey = "Software\\Quillmark";
const std::string AssociationsKey = MainKey + "\\Associations";
const std::string HistoryKey = MainKey + "\\History";
const std::string SettingsKey = MainKey + "\\Settings";

struct FontPlace {
  std::string Key;
  std::string SaveStatus;
  platform::FontRecord Settings::*Font;
};

const std::vector<FontPlace>& FontPlaces() {
  static const std::vector<FontPlace> places = {
      {MainKey + "\\Fonts\\DOS", "Opening DOS Font Key", &Settings::DosFont},
      {MainKey + "\\Fonts\\Fixed", "Opening Fixed Font Key", &Settings::FixedFont},
      {MainKey + "\\Fonts\\Proportional", "Opening Proportional Font Key", &Settings::ProportionalFont}};
  return places;
}

bool Succeeded(RegistryResult result) {
  return result == RegistryResult::Success;
}

std::string CodeOf(RegistryResult result) {
  return std::to_string(static_cast<int>(result));
}

// Single values.

RegistryResult QueryBinary(const Registry& registry, std::string_view key, std::string_view name, std::string& bytes) {
  RegistryValue value;
  const RegistryResult result = registry.QueryValue(key, name, value);
  if (!Succeeded(result)) return result;
  if (value.Type != RegistryType::Binary) return RegistryResult::InvalidData;
  bytes = std::move(value.Data);
  return result;
}

RegistryResult SetBinary(Registry& registry, std::string_view key, std::string_view name, std::string bytes) {
  return registry.SetValue(key, name, {RegistryType::Binary, std::move(bytes)});
}

/// A string value; "" when it is missing, empty or no string.
std::string GetStringValue(const Registry& registry, std::string_view key, std::string_view name) {
  RegistryValue value;
  const bool isString = Succeeded(registry.QueryValue(key, name, value)) && value.Type == RegistryType::String;
  return isString ? value.Data : "";
}

RegistryResult SetStringValue(Registry& registry, std::string_view key, std::string_view name, std::string_view text) {
  return registry.SetValue(key, name, {RegistryType::String, std::string(text)});
}

/// Reads the font of a key; `font` is unchanged when that fails.
RegistryResult ReadFont(const Registry& registry, std::string_view key, platform::FontRecord& font) {
  platform::FontRecord read = font;
  std::string flags, size;
  for (const auto& [name, bytes] : {std::pair("Flags", &flags), std::pair("Size", &size)})
    if (const RegistryResult result = QueryBinary(registry, key, name, *bytes); !Succeeded(result)) return result;
  read.Name = GetStringValue(registry, key, "Name");
  if (!UnpackFontFlags(flags, read) || !UnpackFontSize(size, read.Size)) return RegistryResult::InvalidData;
  font = read;
  return RegistryResult::Success;
}

RegistryResult WriteFont(Registry& registry, std::string_view key, const platform::FontRecord& font) {
  RegistryResult result = SetBinary(registry, key, "Flags", PackFontFlags(font));
  if (Succeeded(result)) result = SetStringValue(registry, key, "Name", font.Name);
  if (Succeeded(result)) result = SetBinary(registry, key, "Size", PackFontSize(font.Size));
  return result;
}

// Loading.

class Load {
 public:
  Load(const Registry& registry, Settings& values, HistoryPaths& history)
      : m_registry(registry), m_values(values), m_history(history) {}

  /// Everything after the opening of the main key; false when a step failed, which Status names.
  bool Run() {
    m_values.Version = GetStringValue(m_registry, MainKey, "");
    return ReadFramePlace() && ReadHelpPlace() && ReadAssociations() && ReadFonts() && ReadHistory() && ReadSettings();
  }
  const std::string& Status() const { return m_status; }

 private:
  bool ReadFramePlace() {
    m_status = "Opening WindowPos Key";
    std::string bytes;
    return Succeeded(QueryBinary(m_registry, MainKey, "WindowPos", bytes)) && UnpackFramePlace(bytes, m_values.Frame);
  }

  /// Settings without it are whole.
  bool ReadHelpPlace() {
    std::string bytes;
    if (Succeeded(QueryBinary(m_registry, MainKey, "HelpWindowPos", bytes)))
      UnpackFramePlace(bytes, m_values.HelpWindow);
    return true;
  }

  bool ReadAssociations() {
    m_status = "Reading Associations";
    if (!Succeeded(m_registry.OpenKey(AssociationsKey))) return false;
    const Registry::ValueInfo info = m_registry.QueryValueInfo(AssociationsKey);
    m_status = "Reading Associations Values.  Result: " + CodeOf(info.Result) +
               ", Number of Values: " + std::to_string(info.Count);
    if (!Succeeded(info.Result)) return false;
    for (std::size_t i = 0; i < info.Count; ++i) {
      std::string extension;
      RegistryValue value;
      if (!Succeeded(m_registry.EnumValue(AssociationsKey, i, extension, value))) return false;
      if (value.Type == RegistryType::String) m_values.Associations.push_back({"", extension, value.Data});
    }
    return true;
  }

  bool ReadFonts() {
    m_status = "Reading Fonts";
    for (const FontPlace& place : FontPlaces())
      if (!Succeeded(ReadFont(m_registry, place.Key, m_values.*place.Font))) return false;
    return true;
  }

  bool ReadHistory() {
    m_status = "Reading History";
    if (!Succeeded(m_registry.OpenKey(HistoryKey))) return false;
    for (std::size_t i = 0; i < m_history.size(); ++i)
      m_history[i] = GetStringValue(m_registry, HistoryKey, std::to_string(i + 1));
    return true;
  }

  bool ReadSettings() {
    m_status = "Reading Settings";
    std::string bytes;
    if (!Succeeded(QueryBinary(m_registry, SettingsKey, "Flags", bytes)) || !UnpackFlags(bytes, m_values)) return false;
    m_values.DefOpenTemplate = GetStringValue(m_registry, SettingsKey, "DefOpenTemplate");
    m_values.DefNewTemplate.Name = GetStringValue(m_registry, SettingsKey, "DefNewTemplate");
    return true;
  }

  const Registry& m_registry;
  Settings& m_values;
  HistoryPaths& m_history;
  std::string m_status;  ///< names the step reached
};

// Saving.

class Save {
 public:
  Save(Registry& registry, const Settings& values) : m_registry(registry), m_values(values) {}

  bool Run() {
    return OpenMainKey() && WriteMainValues() && WriteAssociations() && WriteFonts() && WriteHistory() &&
           WriteSettings() && Close();
  }
  const std::string& Status() const { return m_status; }

 private:
  bool OpenMainKey() {
    const Registry::Creation created = m_registry.CreateKey(MainKey);
    m_status = "Opening/Creating Quillmark Registry Key.  Result: " + CodeOf(created.Result);
    if (!Succeeded(created.Result)) return false;
    if (!created.NewlyCreated) return true;
    for (const char* key : {"\\Associations", "\\Fonts", "\\Fonts\\DOS", "\\Fonts\\Fixed", "\\Fonts\\Proportional",
                            "\\History", "\\Settings"})
      m_registry.CreateKey(MainKey + key);
    return true;
  }

  bool WriteMainValues() {
    return Succeeded(SetStringValue(m_registry, MainKey, "", SettingsVersion)) &&
           Succeeded(SetBinary(m_registry, MainKey, "WindowPos", PackFramePlace(m_values.Frame))) && WriteHelpPlace();
  }

  bool WriteHelpPlace() {
    if (m_values.HelpWindow.Width > 0)
      return Succeeded(SetBinary(m_registry, MainKey, "HelpWindowPos", PackFramePlace(m_values.HelpWindow)));
    m_registry.DeleteValue(MainKey, "HelpWindowPos");
    return true;
  }

  /// The key holds the associations in memory and no others; of two with one extension the last.
  bool WriteAssociations() {
    m_status = "Opening Associations Registry Key";
    if (!Open(AssociationsKey)) return false;
    m_registry.DeleteValues(AssociationsKey);
    for (const templates::Template& record : m_values.Associations) {
      // An extension that no value can be named by is one with a line end in it: it is given up, not all the settings.
      const RegistryResult result = SetStringValue(m_registry, AssociationsKey, record.Extension, record.FileName);
      if (!Succeeded(result) && result != RegistryResult::InvalidParameter) return false;
    }
    return true;
  }

  bool WriteFonts() {
    for (const FontPlace& place : FontPlaces()) {
      m_status = place.SaveStatus;
      if (!Open(place.Key) || !Succeeded(WriteFont(m_registry, place.Key, m_values.*place.Font))) return false;
    }
    return true;
  }

  bool WriteHistory() {
    m_status = "Opening Opened File History Key";
    if (!Open(HistoryKey)) return false;
    for (std::size_t i = 0; i < HistoryPaths().size(); ++i) {
      const std::string name = std::to_string(i + 1);
      if (i >= m_values.History.size())
        m_registry.DeleteValue(HistoryKey, name);
      else if (!Succeeded(SetStringValue(m_registry, HistoryKey, name, m_values.History[i])))
        return false;
    }
    return true;
  }

  bool WriteSettings() {
    m_status = "Opening Settings Key";
    return Open(SettingsKey) && Succeeded(SetBinary(m_registry, SettingsKey, "Flags", PackFlags(m_values))) &&
           Succeeded(SetStringValue(m_registry, SettingsKey, "DefOpenTemplate", m_values.DefOpenTemplate)) &&
           Succeeded(SetStringValue(m_registry, SettingsKey, "DefNewTemplate", m_values.DefNewTemplate.Name));
  }

  bool Close() {
    const std::string error = m_registry.Flush();
    m_status = "Closing Quillmark Registry Key.  " + error;
    return error.empty();
  }

  /// Someone may have removed a key below an existing main key: it is made again.
  bool Open(const std::string& key) { return Succeeded(m_registry.CreateKey(key).Result); }

  Registry& m_registry;
  const Settings& m_values;
  std::string m_status;  ///< names the step reached
};

}  // namespace

SettingsStore::SettingsStore(Settings& values, platform::Prompts& prompts, StoreSteps steps)
    : m_values(values), m_prompts(prompts), m_steps(std::move(steps)) {}

HistoryPaths SettingsStore::LoadSettings(const Registry& registry) {
  HistoryPaths history;
  TellDamages(registry);
  m_values.Frame = DefaultPlace();
  const RegistryResult opened = registry.OpenKey(MainKey);
  if (opened == RegistryResult::FileNotFound) {
    if (HasLegacySettings(registry)) return ImportLegacySettings(registry);
    SetDefaults(false);
    return history;
  }
  Load load(registry, m_values, history);
  m_loadFailed = !Succeeded(opened) || !load.Run();
  if (!m_loadFailed) return history;
  const std::string status = Succeeded(opened) ? load.Status() : "Opening Quillmark Key.  Result: " + CodeOf(opened);
  m_prompts.Show({.Text = "An error occured when reading the settings from the registry:\n" + status,
                  .Icon = platform::PromptIcon::Critical});
  return history;
}

bool SettingsStore::SaveSettings(Registry& registry) {
  if (m_steps.WriteFileInfo) m_steps.WriteFileInfo();
  if (m_loadFailed) registry.KeepOldStore();  // it may hold what was never read
  Save save(registry, m_values);
  if (!save.Run()) {
    m_prompts.Show({.Text = "An error occured when writing the settings to the registry:\n" + save.Status(),
                    .Icon = platform::PromptIcon::Critical});
    return false;
  }
  if (m_steps.SaveToolbarLayout) m_steps.SaveToolbarLayout();
  if (!HasLegacySettings(registry)) return true;
  registry.DeleteKey("Software\\Quillmark Legacy\\Quillmark");
  registry.Flush();  // if it fails, the next save removes it
  return true;
}

void SettingsStore::SetDefaults(bool resetToolbars) {
  Settings defaults;
  defaults.Frame = DefaultPlace();
  defaults.History = std::move(m_values.History);
  defaults.Associations = std::move(m_values.Associations);
  defaults.Version = SettingsVersion;
  m_values = std::move(defaults);
  if (resetToolbars && m_steps.ResetToolbars) m_steps.ResetToolbars();
}

FramePlace SettingsStore::DefaultPlace() const {
  const ScreenSize screen = m_steps.Screen ? m_steps.Screen() : ScreenSize{};
  FramePlace place;
  place.Width = screen.Width * 3 / 4;
  place.Height = screen.Height * 3 / 4;
  place.Left = (screen.Width - place.Width) / 2;
  place.Top = (screen.Height - place.Height) / 2;
  return place;
}

void SettingsStore::TellDamages(const Registry& registry) {
  constexpr std::size_t Shown = 5;
  const std::vector<std::string>& damages = registry.Damages();
  if (damages.empty()) return;
  std::string text = "Not all of the stored settings could be read:\n";
  for (std::size_t i = 0; i < std::min(Shown, damages.size()); ++i) text += '\n' + damages[i];
  if (damages.size() > Shown) text += "\n… and " + std::to_string(damages.size() - Shown) + " more";
  m_prompts.Show({.Text = text, .Icon = platform::PromptIcon::Exclamation});
}

}  // namespace settings
