#pragma once
// What the associations dialog decides. It works on a list of its own; the associations change with Accept alone. Rows
// are 0-based; widths are pixels at 96 dpi.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "templates/Model.h"

namespace settings {

class AssociationsModel {
 public:
  struct Row {
    std::string Extension, Template;
  };

  /// The associations must outlive the model.
  explicit AssociationsModel(std::vector<templates::Template>& associations);

  const std::vector<Row>& Rows() const { return m_rows; }

  /// Which row the user has selected; the fields and the deletion belong to it.
  void Select(std::optional<std::size_t> row) { m_selected = row; }
  std::optional<std::size_t> Selected() const { return m_selected; }
  /// The row that the fields edit; null when they are off.
  const Row* Edited() const { return m_selected ? &m_rows[*m_selected] : nullptr; }

  /// What was typed into a field; without a selected row nothing happens.
  void SetExtension(const std::string& text);
  void SetTemplate(const std::string& text);

  /// Appends a row to be edited; the selection stays.
  void New();
  /// Removes the selected row; the one that takes its place is selected, or the last.
  void Delete();
  /// The list becomes the associations.
  void Accept() const;

  static int ExtensionColumnWidth(int widestText);
  static int TemplateColumnWidth(int widestText);

 private:
  std::vector<templates::Template>& m_associations;
  std::vector<Row> m_rows;
  std::optional<std::size_t> m_selected;
};

}  // namespace settings
