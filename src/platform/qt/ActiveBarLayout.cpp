// Where the bands stand: the arrangement read off the screen, and put on it.

#include <QLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>
#include <tuple>

#include "platform/qt/ActiveBar.h"
#include "platform/qt/CustomiseDialog.h"

namespace platform::qt {
namespace {

constexpr Qt::ToolBarArea Areas[] = {Qt::TopToolBarArea, Qt::BottomToolBarArea, Qt::LeftToolBarArea,
                                     Qt::RightToolBarArea};

// The window's toolbars, side by side, line by line, and along each line; hidden and floating ones included.
std::vector<QToolBar*> BarsInOrder(const QMainWindow& window) {
  std::vector<QToolBar*> bars;
  int index = 0;
  while (QLayoutItem* item = window.layout()->itemAt(index++))
    if (auto* bar = qobject_cast<QToolBar*>(item->widget())) bars.push_back(bar);
  return bars;
}

DockSide SideOf(Qt::ToolBarArea area) {
  const auto* found = std::find(std::begin(Areas), std::end(Areas), area);
  return found == std::end(Areas) ? DockSide::Top : static_cast<DockSide>(found - std::begin(Areas));
}

Qt::ToolBarArea AreaFor(const QToolBar& bar, DockSide side) {
  const Qt::ToolBarArea area = side == DockSide::Floating ? Qt::TopToolBarArea : Areas[static_cast<int>(side)];
  return bar.isAreaAllowed(area) ? area : Qt::TopToolBarArea;
}

}  // namespace

bool ActiveBar::BandShown(std::string_view name) const {
  const Band* band = Find(name);
  if (!band) return false;
  return band->Menu || !band->Surface->isHidden();
}

void ActiveBar::ShowBand(std::string_view name, bool shown) {
  const Band* band = Find(name);
  if (band && !band->Menu) band->Surface->setVisible(shown);
}

BandLayout ActiveBar::Layout() const {
  BandLayout layout(m_design);
  for (const Band& band : m_bands) {
    layout.Show(band.Design->Name, BandShown(band.Design->Name));
    layout.SetTools(band.Design->Name, band.Tools);
  }
  std::map<Qt::ToolBarArea, BandPlace> last;
  for (QToolBar* bar : BarsInOrder(m_window)) {
    const std::string name = bar->objectName().toStdString();
    const Qt::ToolBarArea area = m_window.toolBarArea(bar);
    const auto [before, first] = last.try_emplace(area);
    BandPlace place = before->second;
    if (!first) ++place.Position;
    if (!first && m_window.toolBarBreak(bar)) ++place.Row;
    before->second = place;
    place.Side = bar->isFloating() ? DockSide::Floating : SideOf(area);
    if (bar->isFloating()) std::tie(place.X, place.Y) = std::pair(bar->x(), bar->y());
    place.Shown = BandShown(name);
    layout.Place(name, place);
  }
  return layout;
}

void ActiveBar::Apply(const BandLayout& layout) {
  for (const BandState& state : layout.Bands()) {
    Band* band = Find(state.Name);
    if (!band) continue;
    if (!band->Menu && !band->Bar) ShowBand(state.Name, state.Place.Shown);
    if (band->Design->FilledAtRunTime || band->Tools == state.Tools) continue;
    band->Tools = state.Tools;
    Fill(*band);
  }
  PlaceBars(layout);
  if (m_dialog) m_dialog->Refresh();
}

void ActiveBar::PlaceBars(const BandLayout& layout) {
  std::vector<std::pair<BandPlace, QToolBar*>> bars;
  bool moved = false;
  const BandLayout now = Layout();
  for (const Band& band : m_bands) {
    const BandState* state = band.Bar ? layout.Find(band.Design->Name) : nullptr;
    if (!state) continue;
    bars.emplace_back(state->Place, band.Bar);
    moved =
        moved || m_window.toolBarArea(band.Bar) == Qt::NoToolBarArea || now.Find(state->Name)->Place != state->Place;
  }
  if (!moved) return;
  std::stable_sort(bars.begin(), bars.end(), [](const auto& a, const auto& b) {
    return std::tie(a.first.Row, a.first.Position) < std::tie(b.first.Row, b.first.Position);
  });
  for (const auto& [place, bar] : bars) {
    m_window.removeToolBarBreak(bar);
    m_window.removeToolBar(bar);
  }
  std::map<Qt::ToolBarArea, int> rows;
  for (const auto& [place, bar] : bars) {
    const Qt::ToolBarArea area = AreaFor(*bar, place.Side);
    const auto [row, first] = rows.try_emplace(area, place.Row);
    if (!first && row->second != place.Row) m_window.addToolBarBreak(area);
    row->second = place.Row;
    m_window.addToolBar(area, bar);
    if (place.Side == DockSide::Floating && bar->isFloatable()) Float(*bar, place);
    bar->setVisible(place.Shown);
  }
}

// The toolkit floats a toolbar only under the mouse; this is what it does then.
void ActiveBar::Float(QToolBar& bar, const BandPlace& place) {
  bar.hide();
  bar.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
  bar.move(place.X, place.Y);
  Q_EMIT bar.topLevelChanged(true);
}

bool ActiveBar::LoadLayout(std::string_view text) {
  const std::optional<BandLayout> layout = BandLayout::Decode(m_design, text);
  if (layout) Apply(*layout);
  return layout.has_value();
}

bool ActiveBar::LoadBand(std::string_view text, std::string_view band) {
  const std::optional<BandLayout> layout = BandLayout::Decode(m_design, text);
  if (!layout) return false;
  BandLayout changed = Layout();
  changed.CopyBand(*layout, band);
  Apply(changed);
  return true;
}

}  // namespace platform::qt
