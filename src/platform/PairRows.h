#pragma once
// The rows of a list of pairs that the user edits: which of them is selected, and what its two fields hold. Rows are
// 0-based.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace platform {

struct PairRow {
  std::string First, Second;
};

class PairRows {
 public:
  explicit PairRows(std::vector<PairRow> rows) : m_rows(std::move(rows)) {}

  const std::vector<PairRow>& All() const { return m_rows; }

  /// Which row the user has selected; fields and deletion belong to it.
  void Select(std::optional<std::size_t> row) { m_selected = row; }
  std::optional<std::size_t> Selected() const { return m_selected; }
  /// The row that the fields edit; null when they are off.
  const PairRow* Edited() const { return m_selected ? &m_rows[*m_selected] : nullptr; }

  /// What was typed into a field; without a selected row nothing happens.
  void SetFirst(const std::string& text);
  void SetSecond(const std::string& text);

  /// Appends a row to be edited; the selection stays.
  void New();
  /// Removes the selected row; the one that takes its place is selected, or the last.
  void Delete();

 private:
  std::vector<PairRow> m_rows;
  std::optional<std::size_t> m_selected;
};

}  // namespace platform
