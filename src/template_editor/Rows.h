#pragma once
// A list as the template editor shows it: rows, which of them is selected, and a number that changes whenever the rows
// do. Rows are 0-based.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace template_editor {

template <typename Row>
class Rows {
 public:
  const std::vector<Row>& All() const { return m_rows; }
  std::size_t Count() const { return m_rows.size(); }

  std::optional<std::size_t> Selected() const { return m_selected; }
  /// The selected row, null when there is none.
  const Row* Current() const { return m_selected ? &m_rows[*m_selected] : nullptr; }
  /// A row that does not exist selects none.
  void Select(std::optional<std::size_t> row) { m_selected = row && *row < m_rows.size() ? row : std::nullopt; }

  /// Nothing is selected afterwards.
  void Assign(std::vector<Row> rows) {
    m_rows = std::move(rows);
    m_selected.reset();
    Touch();
  }
  /// Appends a row; the selection stays.
  void Add(Row row) {
    m_rows.push_back(std::move(row));
    Touch();
  }
  /// These two need a selected row. After the removal none is selected.
  void ReplaceSelected(Row row) {
    m_rows[*m_selected] = std::move(row);
    Touch();
  }
  void RemoveSelected() {
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(*m_selected));
    m_selected.reset();
    Touch();
  }

  /// Changes with every change of the rows, and with Touch, which says that they look different.
  std::uint64_t Revision() const { return m_revision; }
  void Touch() { ++m_revision; }

 private:
  std::vector<Row> m_rows;
  std::optional<std::size_t> m_selected;
  std::uint64_t m_revision = 0;
};

}  // namespace template_editor
