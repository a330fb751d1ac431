#pragma once
// The editing aids of one document window beside its pop-ups: its search and its synonyms. Belongs to the window and
// goes with it.

#include <QObject>
#include <QRect>

#include "aids/DocumentSearch.h"
#include "aids/DocumentSynonyms.h"
#include "aids/FindDialog.h"
#include "editor/ui/Mainwin.h"

namespace aids::ui {

class DocumentAids final : public QObject, public SearchedDocument {
  Q_OBJECT

 public:
  /// The frame must outlive the window.
  DocumentAids(editor::ui::Mainwin& window, editor::DocumentFrame& frame);

  /// The aids of a window that were made for it.
  static DocumentAids& Of(editor::ui::Mainwin& window);

  DocumentSearch& Search() override { return m_search; }
  DocumentSynonyms& Synonyms() { return m_synonyms; }
  bool MayEdit() const override { return !m_window.Busy(); }
  void BringToFront() override { m_window.BringToFront(); }
  void ReplaceSelection(const std::string& text) override;
  std::size_t ReplaceAll(const std::string& word, const std::string& replacement, bool caseSense,
                         bool wholeWord) override;

  /// The caret's rectangle on the screen.
  QRect CaretOnScreen() const;

 private:
  editor::ui::Mainwin& m_window;
  DocumentSearch m_search;
  DocumentSynonyms m_synonyms;
};

}  // namespace aids::ui
