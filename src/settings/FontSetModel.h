#pragma once
// What the font dialog decides. It edits copies of the three fonts; the settings change with Accept alone.

#include <array>
#include <cstddef>
#include <optional>

#include "platform/Prompts.h"
#include "settings/Settings.h"

namespace settings {

class FontSetModel {
 public:
  /// The groups, by their number as DefaultFontType.
  static constexpr std::size_t Proportional = 0, Fixed = 1, Dos = 2, Groups = 3;

  /// The settings must outlive the model.
  explicit FontSetModel(Settings& values);

  std::optional<std::size_t> DefaultType;  ///< the group selected; nothing when the settings name none
  bool Override = false;                   ///< chkOverride

  const platform::FontRecord& Font(std::size_t group) const { return m_fonts[group]; }
  /// Asks for a group's font; false when the user cancelled.
  bool ChooseFont(std::size_t group, platform::Prompts& prompts);
  /// The three fonts as they are when the program is new.
  void Reset();
  void Accept();

 private:
  Settings& m_values;
  std::array<platform::FontRecord, Groups> m_fonts;
};

}  // namespace settings
