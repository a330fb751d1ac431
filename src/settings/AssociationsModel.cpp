#include "settings/AssociationsModel.h"

#include <algorithm>

namespace settings {
namespace {

constexpr int Margin = 12;
constexpr int NarrowestExtension = 58;

std::vector<platform::PairRow> RowsOf(const std::vector<templates::Template>& associations) {
  std::vector<platform::PairRow> rows;
  rows.reserve(associations.size());
  for (const templates::Template& record : associations) rows.push_back({record.Extension, record.FileName});
  return rows;
}

}  // namespace

AssociationsModel::AssociationsModel(std::vector<templates::Template>& associations)
    : m_associations(associations), m_rows(RowsOf(associations)) {}

void AssociationsModel::Accept() const {
  m_associations.clear();
  for (const platform::PairRow& row : m_rows.All()) m_associations.push_back({"", row.First, row.Second});
}

int AssociationsModel::ExtensionColumnWidth(int widestText) {
  return std::max(NarrowestExtension, widestText + Margin);
}

int AssociationsModel::TemplateColumnWidth(int widestText) {
  return widestText + Margin;
}

}  // namespace settings
