#pragma once
// A small piece of a colour; where there is none, an empty field that is crossed out.

#include <QIcon>
#include <QWidget>
#include <optional>

#include "rich_text/StyledText.h"

namespace template_editor::ui {

/// Nothing stands for no colour.
using MaybeColour = std::optional<rich_text::ColourValue>;

/// The swatch as the icon of a row, sharp at any size.
QIcon SwatchIcon(MaybeColour colour);

/// The swatch as a field of a page.
class SwatchBox : public QWidget {
 public:
  explicit SwatchBox(QWidget* parent);
  void SetColour(MaybeColour colour);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  MaybeColour m_colour;
};

}  // namespace template_editor::ui
