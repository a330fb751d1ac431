#pragma once
// What the options dialog decides: how the settings show in it, what its choices mean, and what is refused.
//
// The template list begins with "<none>", then come the known templates by name, then the extra ones by path. Entries
// are 0-based.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Prompts.h"
#include "settings/Settings.h"

namespace settings {

/// optNone, optReduced, optEdit, optFull.
enum class Highlighting { None, Reduced, Edit, Full };

/// The state of the dialog's controls.
struct OptionsForm {
  bool Ask = true;                   ///< optAsk; else optUse
  std::optional<std::size_t> Entry;  ///< of the template list; nothing when TemplateText was typed, browsed or loaded
  std::string TemplateText;
  bool AutoIndent = true;
  bool CompleteOnly = false;  ///< optNewLineForEnter
  std::string TabWidth;
  std::optional<Highlighting> Highlight;
};

class OptionsModel {
 public:
  /// All must outlive the model. `extraTemplates` are templates outside the program folder.
  OptionsModel(Settings& values, const std::vector<templates::Template>& templateList,
               const std::vector<templates::Template>& extraTemplates, platform::Prompts& prompts);

  /// The settings as the dialog shows them at first.
  OptionsForm Load() const;
  std::vector<std::string> TemplateEntries() const;
  /// A template file picked by the user; "" when cancelled.
  std::string Browse(const std::string& programFolder) const;
  /// Takes the dialog's choices over. False when the dialog has to stay open: nothing was changed then.
  bool Accept(const OptionsForm& form);

 private:
  /// The stored form of the default template; nothing when no such file exists.
  std::optional<std::string> DefaultTemplate(const OptionsForm& form) const;
  void AcceptTabWidth(const std::string& text);
  void AcceptHighlighting(std::optional<Highlighting> highlight);

  Settings& m_values;
  const std::vector<templates::Template>& m_templateList;
  const std::vector<templates::Template>& m_extraTemplates;
  platform::Prompts& m_prompts;
};

/// A number as people write it – sign, decimal point, exponent, blanks around it – rounded to an integer, halves to the
/// even one. Nothing for any other text and for what 32 bits cannot hold.
std::optional<std::int32_t> ParseNumeric(std::string_view text);

}  // namespace settings
