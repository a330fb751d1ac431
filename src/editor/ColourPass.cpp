#include "editor/ColourPass.h"

#include "editor/LinePass.h"
#include "editor/PassTables.h"
#include "editor/SplitPass.h"
#include "rich_text/Encoding.h"

namespace editor {

std::string CaseFold(const templates::TemplateFields& fields, std::string_view text) {
  return Folding(fields.CaseSensitive).Fold(text);
}

std::size_t DelimeterIn(const templates::TemplateFields& fields, std::string_view text) {
  const DelimeterSet delimeters(fields.Delimeters);
  std::size_t place = 0;
  for (std::size_t i = 0; i < text.size();) {
    const rich_text::CodePoint point = rich_text::CodePointAt(text, i);
    ++place;
    if (delimeters.Has(point.Value)) return place;
    i += point.Bytes;
  }
  return 0;
}

struct ColourPass::Tables : PassTables {
  using PassTables::PassTables;

  /// Every colour word, made when the line pass first needs it.
  const Trie& AllWords() {
    if (!m_allWords) {
      m_allWords.emplace();
      for (std::uint32_t i = 0; i < Words.size(); ++i) m_allWords->Add(Words[i].Start.Folded(), i);
    }
    return *m_allWords;
  }

 private:
  std::optional<Trie> m_allWords;
};

ColourPass::ColourPass(const templates::TemplateFields& fields) : m_tables(std::make_unique<Tables>(fields)) {}
ColourPass::~ColourPass() = default;
ColourPass::ColourPass(ColourPass&&) noexcept = default;
ColourPass& ColourPass::operator=(ColourPass&&) noexcept = default;

std::vector<PassRun> ColourPass::Whole(std::string_view text, const Progress& progress, std::size_t parts) const {
  return SplitPass(*m_tables, text, progress, parts).Run();
}

ColourPass::LineResult ColourPass::Lines(std::string_view text, bool closeAtLineEnd,
                                         std::vector<templates::Synonym>* captured, const Progress& progress) const {
  return LinePass(*m_tables, m_tables->AllWords(), text, closeAtLineEnd).Run(captured, progress);
}

bool DrawsColour(int number, const std::vector<rich_text::ColourValue>& colours) {
  return number >= 1 && static_cast<std::size_t>(number) <= colours.size() &&
         templates::IsColour(colours[static_cast<std::size_t>(number) - 1]);
}

std::vector<rich_text::ColourRun> ColouredRuns(const std::vector<PassRun>& runs,
                                               const std::vector<rich_text::ColourValue>& colours) {
  std::vector<rich_text::ColourRun> coloured;
  coloured.reserve(runs.size());
  for (const PassRun& run : runs)
    if (run.Start < run.End && DrawsColour(run.Colour, colours))
      coloured.push_back({run.Start, run.End, static_cast<std::uint32_t>(run.Colour)});
  return coloured;
}

}  // namespace editor
