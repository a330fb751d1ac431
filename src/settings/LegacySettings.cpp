// The settings of an older release: strings, one key a section, each with a default. What people may have written by
// hand is taken leniently; what is no value of its kind counts as missing.

#include <charconv>

#include "settings/SettingsStore.h"
#include "settings/StoredForms.h"
#include "templates/Values.h"

namespace settings {
namespace {

using platform::Registry;

constexpr const char* LegacyKey = "Software\\Quillmark Legacy\\Quillmark\\";
constexpr std::int32_t MostAssociations = 1999;  ///< more than the old release could hold

class LegacyReader {
 public:
  explicit LegacyReader(const Registry& registry) : m_registry(registry) {}

  std::string Text(std::string_view section, std::string_view name, std::string_view otherwise) const {
    platform::RegistryValue value;
    const auto result = m_registry.QueryValue(LegacyKey + std::string(section), name, value);
    const bool isText = result == platform::RegistryResult::Success && value.Type == platform::RegistryType::String;
    return isText ? value.Data : std::string(otherwise);
  }

  template <std::signed_integral Number>
  Number Integer(std::string_view section, std::string_view name, Number otherwise) const {
    return templates::ParseInteger<Number>(Text(section, name, "")).value_or(otherwise);
  }

  bool Boolean(std::string_view section, std::string_view name, bool otherwise) const {
    return templates::ParseBoolean(Text(section, name, "")).value_or(otherwise);
  }

  /// A decimal number; some countries write its point as a comma.
  double Decimal(std::string_view section, std::string_view name, double otherwise) const {
    std::string text(templates::Trimmed(Text(section, name, "")));
    if (const std::size_t comma = text.find(','); comma != std::string::npos) text[comma] = '.';
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() ? number : otherwise;
  }

 private:
  const Registry& m_registry;
};

void ReadPlace(const LegacyReader& legacy, FramePlace& place) {
  const auto twips = [&](const char* name, float otherwise) {
    return static_cast<float>(legacy.Decimal("WindowPos", name, static_cast<double>(otherwise)));
  };
  const std::int32_t state = legacy.Integer("WindowPos", "WindowState", 2);
  FramePlace read = place;
  read.Width = twips("Width", place.Width);
  read.Height = twips("Height", place.Height);
  read.Left = twips("Left", place.Left);
  read.Top = twips("Top", place.Top);
  read.State = state >= 0 && state <= 2 ? static_cast<WindowState>(state) : WindowState::Maximised;
  UnpackFramePlace(PackFramePlace(read), place);  // a place that cannot be stored is none
}

void ReadSwitches(const LegacyReader& legacy, Settings& values) {
  values.DefNewTemplate.Name = legacy.Text("Settings", "DefaultTemplate", "");
  values.DefOpenTemplate = legacy.Text("Settings", "DefaultOpenTemplate", "*none*");
  values.AskUnknownTemplates = legacy.Boolean("Settings", "AskUnknownTemplates", true);
  values.NewLineForEnter = legacy.Boolean("Settings", "NewLineForEnter", true);
  values.AutoIndent = legacy.Boolean("Settings", "AutoIndent", true);
  values.TabWidth = legacy.Integer<std::int32_t>("Settings", "TabWidth", 4);
  values.UseColours = legacy.Boolean("Settings", "UseColours", true);
  values.ReducedColours = legacy.Boolean("Settings", "ReducedColours", false);
  values.DefaultFontType = legacy.Integer<std::int16_t>("Settings", "DefaultFontType", 1);
  values.OverrideTemplateFonts = legacy.Boolean("Settings", "OverrideTemplateFonts", false);
}

/// `font` holds the defaults.
void ReadLegacyFont(const LegacyReader& legacy, std::string_view section, platform::FontRecord& font) {
  font.Bold = legacy.Boolean(section, "Bold", false);
  font.Italic = legacy.Boolean(section, "Italic", false);
  font.Strikethrough = legacy.Boolean(section, "StrikeThrough", false);
  font.Underline = legacy.Boolean(section, "Underline", false);
  font.Name = legacy.Text(section, "Name", font.Name);
  if (const double size = legacy.Decimal(section, "Size", font.Size); IsFontSize(size)) font.Size = size;
}

void ReadAssociations(const LegacyReader& legacy, std::vector<templates::Template>& associations) {
  const std::int32_t count = std::min(legacy.Integer<std::int32_t>("Associations", "Count", 0), MostAssociations);
  for (std::int32_t i = 1; i <= count; ++i) {
    const std::string text = legacy.Text("Associations", std::to_string(i), " ; ");
    const std::size_t separator = std::min(text.find(';'), text.size());
    associations.push_back({"", text.substr(0, separator), text.substr(std::min(separator + 1, text.size()))});
  }
}

}  // namespace

bool HasLegacySettings(const Registry& registry) {
  return LegacyReader(registry).Text("WindowPos", "Width", "Test") != "Test";
}

HistoryPaths SettingsStore::ImportLegacySettings(const Registry& registry) {
  const LegacyReader legacy(registry);
  m_values.Frame = DefaultPlace();
  ReadPlace(legacy, m_values.Frame);
  ReadSwitches(legacy, m_values);
  HistoryPaths history;
  for (std::size_t i = 0; i < history.size(); ++i) history[i] = legacy.Text("History", std::to_string(i + 1), "");
  SetDefaultFonts(m_values);
  ReadLegacyFont(legacy, "ProportionalFont", m_values.ProportionalFont);
  ReadLegacyFont(legacy, "FixedFont", m_values.FixedFont);
  ReadLegacyFont(legacy, "DOSFont", m_values.DosFont);
  ReadAssociations(legacy, m_values.Associations);
  return history;
}

}  // namespace settings
