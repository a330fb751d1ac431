#include "settings/OptionsModel.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "platform/Files.h"
#include "settings/TemplateQuestions.h"
#include "templates/Values.h"

namespace settings {
namespace {

constexpr const char* NoneShown = "<none>";

Highlighting HighlightingOf(const Settings& values) {
  if (values.UseColours) return values.ReducedColours ? Highlighting::Edit : Highlighting::Full;
  return values.ReducedColours ? Highlighting::Reduced : Highlighting::None;
}

}  // namespace

OptionsModel::OptionsModel(Settings& values, const std::vector<templates::Template>& templateList,
                           const std::vector<templates::Template>& extraTemplates, platform::Prompts& prompts)
    : m_values(values), m_templateList(templateList), m_extraTemplates(extraTemplates), m_prompts(prompts) {}

OptionsForm OptionsModel::Load() const {
  OptionsForm form;
  form.Ask = m_values.AskUnknownTemplates;
  const bool isNone = m_values.DefOpenTemplate == templates::NoTemplate;
  if (isNone) form.Entry = 0;
  form.TemplateText = isNone ? NoneShown : m_values.DefOpenTemplate;
  form.AutoIndent = m_values.AutoIndent;
  form.CompleteOnly = !m_values.NewLineForEnter;
  form.TabWidth = std::to_string(m_values.TabWidth);
  form.Highlight = HighlightingOf(m_values);
  return form;
}

std::vector<std::string> OptionsModel::TemplateEntries() const {
  std::vector<std::string> entries = {NoneShown};
  for (const templates::Template& record : m_templateList) entries.push_back(record.Name);
  for (const templates::Template& record : m_extraTemplates) entries.push_back(record.FileName);
  return entries;
}

std::string OptionsModel::Browse(const std::string& programFolder) const {
  return SelectTemplate(m_prompts, programFolder);
}

std::optional<std::string> OptionsModel::DefaultTemplate(const OptionsForm& form) const {
  if (form.Entry && *form.Entry > 0 && *form.Entry <= m_templateList.size())
    return m_templateList[*form.Entry - 1].FileName;
  if (form.Entry && *form.Entry > 0) return m_extraTemplates.at(*form.Entry - 1 - m_templateList.size()).FileName;
  // Whoever types what the list shows means the same.
  if (form.Entry || form.TemplateText.empty() || form.TemplateText == NoneShown) return templates::NoTemplate;
  if (!platform::FileExists(form.TemplateText)) return std::nullopt;
  return form.TemplateText;
}

bool OptionsModel::Accept(const OptionsForm& form) {
  const std::optional<std::string> defaultTemplate = DefaultTemplate(form);
  if (!defaultTemplate) {
    m_prompts.Show({.Text = form.TemplateText + " does not exist", .Icon = platform::PromptIcon::Critical});
    return false;
  }
  m_values.DefOpenTemplate = *defaultTemplate;
  m_values.AskUnknownTemplates = form.Ask;
  m_values.AutoIndent = form.AutoIndent;
  m_values.NewLineForEnter = !form.CompleteOnly;
  AcceptTabWidth(form.TabWidth);
  AcceptHighlighting(form.Highlight);
  return true;
}

void OptionsModel::AcceptTabWidth(const std::string& text) {
  if (const std::optional<std::int32_t> width = ParseNumeric(text))
    m_values.TabWidth = *width;
  else
    m_prompts.Show({.Text = "Tab Width was not changed (not a numeric value)"});
}

void OptionsModel::AcceptHighlighting(std::optional<Highlighting> highlight) {
  if (!highlight)
    m_prompts.Show({.Text = "Hmm... that's strange, one of those Syntax Highlighting options should be selected.  "
                            "Using Full Highlighting.",
                    .Title = "Quillmark Options",
                    .Icon = platform::PromptIcon::Exclamation});
  const Highlighting chosen = highlight.value_or(Highlighting::Full);
  m_values.UseColours = chosen == Highlighting::Edit || chosen == Highlighting::Full;
  m_values.ReducedColours = chosen == Highlighting::Edit || chosen == Highlighting::Reduced;
}

std::optional<std::int32_t> ParseNumeric(std::string_view text) {
  text = templates::Trimmed(text);
  if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) return std::nullopt;
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  number = std::nearbyint(number);
  using Limits = std::numeric_limits<std::int32_t>;
  if (number < Limits::min() || number > Limits::max()) return std::nullopt;
  return static_cast<std::int32_t>(number);
}

}  // namespace settings
