#include "template_editor/ui/RowModel.h"

#include <algorithm>

namespace template_editor::ui {

void RowModel::SetCount(int count) {
  const int kept = std::min(count, m_count);
  if (count > m_count) {
    beginInsertRows({}, m_count, count - 1);
    m_count = count;
    endInsertRows();
  } else if (count < m_count) {
    beginRemoveRows({}, count, m_count - 1);
    m_count = count;
    endRemoveRows();
  }
  if (kept > 0) Q_EMIT dataChanged(index(0, 0), index(kept - 1, columnCount() - 1));
}

int RowModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_source.Headers.size());
}

QString RowModel::Spoken(std::size_t row, int column) const {
  const QString note = m_source.Note ? m_source.Note(row) : QString();
  const QString text = m_source.Text(row, column);
  return note.isEmpty() ? text : text + QStringLiteral(", ") + note;
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return m_source.Text(row, index.column());
    case Qt::DecorationRole:
      return m_source.Icon && index.column() == 0 ? QVariant(m_source.Icon(row)) : QVariant();
    case Qt::ToolTipRole:
      return m_source.Note ? QVariant(m_source.Note(row)) : QVariant();
    case Qt::AccessibleTextRole:
      return Spoken(row, index.column());
    default:
      return {};
  }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return m_source.Headers.value(section);
}

}  // namespace template_editor::ui
