#include "settings/Settings.h"

namespace settings {

const platform::FontRecord& Settings::FontOf(std::int16_t useFont) const {
  const int type = useFont >= 1 && useFont <= 3 ? useFont : DefaultFontType + 1;
  return type == 1 ? ProportionalFont : type == 3 ? DosFont : FixedFont;
}

void SetDefaultFonts(Settings& values) {
  const Settings defaults;
  values.ProportionalFont = defaults.ProportionalFont;
  values.FixedFont = defaults.FixedFont;
  values.DosFont = defaults.DosFont;
}

}  // namespace settings
