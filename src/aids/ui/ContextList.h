#pragma once
// The completion list: a row of words, each with a small icon, in a window under the caret. It takes no part in the
// keyboard; its rules stand in aids::Popups.
//
// Rows are 1-based. It opens with a list of tens of thousands of rows as fast as with a few: rows are of one height,
// drawn when they are seen, and only the texts that may be the widest are measured.

#include <QListView>

#include "aids/ListRules.h"
#include "aids/ui/PopupFrame.h"

namespace aids::ui {

class WordModel;

class ContextList final : public PopupFrame, public ListWindow {
  Q_OBJECT

 public:
  /// `frame` is the window that the list belongs to and never takes the keyboard from.
  explicit ContextList(QWidget* frame);

  PopupOwner* OwnerWin() const override { return Owner(); }
  void SetOwnerWin(PopupOwner* owner) override { Serve(owner); }
  void Unload() override;

  void Populate(std::vector<std::string>& Population, const std::vector<std::int32_t>& Images,
                std::int16_t Number) override;
  void ShowAt(std::size_t offset) override { ShowUnder(offset); }
  int RowCount() const override;
  int SelectedRow() const override;
  void SelectRow(int row) override;
  void SelectTopRow(int row) override;
  float ListHeight() const override { return static_cast<float>(CList->height()); }
  float RowHeight() const override { return static_cast<float>(m_size.RowHeight); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  Box BoxAt(const CaretPoint& caret) const override;
  void FitTo(int available) override;

 private:
  QListView* CList;
  WordModel* m_words;
  ListSize m_size;
};

}  // namespace aids::ui
