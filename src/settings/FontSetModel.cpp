#include "settings/FontSetModel.h"

namespace settings {
namespace {

std::array<platform::FontRecord, FontSetModel::Groups> FontsOf(const Settings& values) {
  return {values.ProportionalFont, values.FixedFont, values.DosFont};
}

}  // namespace

FontSetModel::FontSetModel(Settings& values)
    : Override(values.OverrideTemplateFonts), m_values(values), m_fonts(FontsOf(values)) {
  const auto type = static_cast<std::size_t>(values.DefaultFontType);
  if (type < Groups) DefaultType = type;
}

bool FontSetModel::ChooseFont(std::size_t group, platform::Prompts& prompts) {
  const std::optional<platform::FontRecord> chosen = prompts.AskFont(m_fonts[group]);
  if (chosen) m_fonts[group] = *chosen;
  return chosen.has_value();
}

void FontSetModel::Reset() {
  Settings defaults;
  SetDefaultFonts(defaults);
  m_fonts = FontsOf(defaults);
}

void FontSetModel::Accept() {
  m_values.ProportionalFont = m_fonts[Proportional];
  m_values.FixedFont = m_fonts[Fixed];
  m_values.DosFont = m_fonts[Dos];
  m_values.OverrideTemplateFonts = Override;
  if (DefaultType) m_values.DefaultFontType = static_cast<std::int16_t>(*DefaultType);
}

}  // namespace settings
