#pragma once
// The rows of one list, read from the editor whenever they are drawn. The model itself knows only how many there are,
// so that a list of thousands costs nothing to show again, and keeps its scroll position.

#include <QAbstractTableModel>
#include <QIcon>
#include <QStringList>
#include <functional>

namespace template_editor::ui {

/// How a list reads its rows (0-based). They are asked for rows that exist in the model; a row that the editor has no
/// longer gives an empty text.
struct RowSource {
  std::function<QString(std::size_t row, int column)> Text;
  std::function<QIcon(std::size_t row)> Icon = {};    ///< of the first column
  std::function<QString(std::size_t row)> Note = {};  ///< said beside the text, as a tip and to screen readers
  QStringList Headers = {QString()};                  ///< one a column
};

class RowModel : public QAbstractTableModel {
 public:
  RowModel(RowSource source, QObject* parent) : QAbstractTableModel(parent), m_source(std::move(source)) {}

  /// The list has `count` rows now, and any of them may look different.
  void SetCount(int count);

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_count; }
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString Spoken(std::size_t row, int column) const;

  RowSource m_source;
  int m_count = 0;
};

}  // namespace template_editor::ui
