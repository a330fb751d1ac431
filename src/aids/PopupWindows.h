#pragma once
// The two pop-up windows as their rules see them: the completion list and the tooltip, one of each for all documents.
// Each remembers the document that opened it, its owner, and asks it for the text area; a window without an owner is
// not on screen. The windows never own their owner, and an owner that goes unloads them before.
//
// Rows are 1-based, 0 means none. Offsets are bytes of the owner's text.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/TextControl.h"

namespace aids {

/// The document that a pop-up serves.
class PopupOwner {
 public:
  virtual ~PopupOwner() = default;
  virtual platform::TextControl& TextArea() = 0;
  /// A row of the list was double-clicked.
  virtual void RowDoubleClicked() = 0;
};

/// What both windows can do.
class PopupWindow {
 public:
  virtual ~PopupWindow() = default;
  virtual PopupOwner* OwnerWin() const = 0;
  virtual void SetOwnerWin(PopupOwner* owner) = 0;
  /// Takes the window off the screen and forgets its owner.
  virtual void Unload() = 0;
};

class ListWindow : public PopupWindow {
 public:
  /// Fills and sizes the list with the first `Number` of the texts, each with its icon number (an image 1 to 7, none
  /// for any other); no row is selected. The texts are given back in row order.
  virtual void Populate(std::vector<std::string>& Population, const std::vector<std::int32_t>& Images,
                        std::int16_t Number) = 0;
  /// Shows the list under the place in the text.
  virtual void ShowAt(std::size_t offset) = 0;

  virtual int RowCount() const = 0;
  virtual int SelectedRow() const = 0;
  /// Selects a row, 0 for none, and makes it visible.
  virtual void SelectRow(int row) = 0;
  /// Selects a row and scrolls so that it is the top one where the list allows it.
  virtual void SelectTopRow(int row) = 0;
  // Heights in pixels.
  virtual float ListHeight() const = 0;
  virtual float RowHeight() const = 0;
};

class TipWindow : public PopupWindow {
 public:
  /// Shows the text below the line of `end`, beginning under `start`: the word and its delimiter stand between the two.
  virtual void ShowAt(std::size_t start, std::size_t end, const std::string& tipText) = 0;
};

}  // namespace aids
