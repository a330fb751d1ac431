#pragma once
// What the associations dialog decides. It works on a list of its own, of extensions and template files; the
// associations change with Accept alone. Widths are pixels at 96 dpi.

#include <vector>

#include "platform/PairRows.h"
#include "templates/Model.h"

namespace settings {

class AssociationsModel {
 public:
  /// The associations must outlive the model.
  explicit AssociationsModel(std::vector<templates::Template>& associations);

  platform::PairRows& Rows() { return m_rows; }
  /// The list becomes the associations.
  void Accept() const;

  static int ExtensionColumnWidth(int widestText);
  static int TemplateColumnWidth(int widestText);

 private:
  std::vector<templates::Template>& m_associations;
  platform::PairRows m_rows;
};

}  // namespace settings
