#pragma once
// The rows of the synonym editor: a list of its own, which becomes the document's when the editor is closed. Rows are
// 0-based.

#include <cstddef>
#include <optional>
#include <vector>

#include "templates/Model.h"

namespace aids {

class SynonymRows {
 public:
  explicit SynonymRows(const templates::KeyedCollection<templates::Synonym>& synonyms);

  const std::vector<templates::Synonym>& Rows() const { return m_rows; }

  /// Which row is selected; fields and deletion belong to it.
  void Select(std::optional<std::size_t> row) { m_selected = row; }
  std::optional<std::size_t> Selected() const { return m_selected; }

  /// What was typed into a field; without a selected row nothing happens.
  void SetWord(const std::string& text);
  void SetSynonym(const std::string& text);

  /// Appends a row to be edited and selects it.
  void New();
  /// Removes the selected row; the one that takes its place is selected, or the last.
  void Delete();

 private:
  std::vector<templates::Synonym> m_rows;
  std::optional<std::size_t> m_selected;
};

}  // namespace aids
