#include "aids/ui/DocumentAids.h"

namespace aids::ui {

DocumentAids::DocumentAids(editor::ui::Mainwin& window, editor::DocumentFrame& frame)
    : QObject(&window),
      m_window(window),
      m_search(window.TextArea(), window.Core().State().Template),
      m_synonyms(window.TextArea(), window.Core().State(), frame) {
  window.SetSynonymSaver([this](const std::string& path) { return m_synonyms.SaveSynonyms(path); });
}

DocumentAids& DocumentAids::Of(editor::ui::Mainwin& window) {
  return *window.findChild<DocumentAids*>(QString(), Qt::FindDirectChildrenOnly);
}

void DocumentAids::ReplaceSelection(const std::string& text) {
  m_window.TextArea().SetSelText(text);
}

std::size_t DocumentAids::ReplaceAll(const std::string& word, const std::string& replacement, bool caseSense,
                                     bool wholeWord) {
  return m_search.ReplaceAll(word, replacement, caseSense, wholeWord,
                             [this](const auto& edit) { m_window.Core().EditEverywhere(edit); });
}

QRect DocumentAids::CaretOnScreen() const {
  const QRect caret = m_window.TextArea().CaretRectangle();
  return {m_window.TextArea().mapToGlobal(caret.topLeft()), caret.size()};
}

}  // namespace aids::ui
