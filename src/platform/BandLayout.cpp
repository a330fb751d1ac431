#include "platform/BandLayout.h"

#include <algorithm>

namespace platform {
namespace {

template <typename Items>
auto FindNamed(Items& items, std::string_view name) -> decltype(items.data()) {
  const auto found = std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.Name == name; });
  return found == items.end() ? nullptr : &*found;
}

}  // namespace

const ToolDesign* BarDesign::Tool(std::string_view name) const {
  return FindNamed(Tools, name);
}

const BandDesign* BarDesign::Band(std::string_view name) const {
  return FindNamed(Bands, name);
}

BandLayout::BandLayout(const BarDesign& design) : m_design(&design) {
  int position = 0;
  for (const BandDesign& band : design.Bands) {
    BandState state;
    state.Name = band.Name;
    state.Place.Row = band.Row;
    if (band.Kind == BandKind::Toolbar || band.Kind == BandKind::Tabs) state.Place.Position = position++;
    for (const BandEntry& entry : band.Tools) state.Tools.emplace_back(entry.Name);
    m_bands.push_back(std::move(state));
  }
}

const BandState* BandLayout::Find(std::string_view band) const {
  return FindNamed(m_bands, band);
}

BandState* BandLayout::Mutable(std::string_view band) {
  return FindNamed(m_bands, band);
}

bool BandLayout::MayRearrange(std::string_view band) const {
  const BandDesign* design = m_design->Band(band);
  return design && !design->FilledAtRunTime && design->Kind != BandKind::Tabs;
}

// Whether opening the menus of the first band can lead to the second. The arrangement has no circle, so this ends.
bool BandLayout::Reaches(std::string_view fromBand, std::string_view toBand) const {
  if (fromBand == toBand) return true;
  const BandState* band = Find(fromBand);
  return band && std::any_of(band->Tools.begin(), band->Tools.end(), [&](const std::string& name) {
           const ToolDesign* tool = m_design->Tool(name);
           return tool && !tool->SubBand.empty() && Reaches(tool->SubBand, toBand);
         });
}

bool BandLayout::MayStand(const BandState& band, std::string_view name) const {
  if (!MayRearrange(band.Name)) return false;
  if (name == Separator) return true;
  const ToolDesign* tool = m_design->Tool(name);
  if (!tool || std::find(band.Tools.begin(), band.Tools.end(), name) != band.Tools.end()) return false;
  return tool->SubBand.empty() || !Reaches(tool->SubBand, band.Name);
}

bool BandLayout::Insert(std::string_view band, std::size_t index, std::string_view tool) {
  BandState* state = Mutable(band);
  if (!state || !MayStand(*state, tool)) return false;
  const std::size_t at = std::min(index, state->Tools.size());
  state->Tools.insert(state->Tools.begin() + static_cast<std::ptrdiff_t>(at), std::string(tool));
  return true;
}

bool BandLayout::Remove(std::string_view band, std::size_t index) {
  BandState* state = Mutable(band);
  if (!state || !MayRearrange(band) || index >= state->Tools.size()) return false;
  state->Tools.erase(state->Tools.begin() + static_cast<std::ptrdiff_t>(index));
  return true;
}

bool BandLayout::Move(std::string_view from, std::size_t index, std::string_view to, std::size_t toIndex) {
  const BandState* source = Find(from);
  if (!source || index >= source->Tools.size()) return false;
  const std::string tool = source->Tools[index];
  if (!Remove(from, index)) return false;
  const bool closesUp = from == to && toIndex > index;
  if (Insert(to, closesUp ? toIndex - 1 : toIndex, tool)) return true;
  Insert(from, index, tool);
  return false;
}

void BandLayout::Show(std::string_view band, bool shown) {
  if (BandState* state = Mutable(band)) state->Place.Shown = shown;
}

void BandLayout::Place(std::string_view band, const BandPlace& place) {
  if (BandState* state = Mutable(band)) state->Place = place;
}

// A menu that moved elsewhere meanwhile could now open from itself, so the tools are put in one by one.
void BandLayout::CopyBand(const BandLayout& from, std::string_view band) {
  BandState* state = Mutable(band);
  const BandState* source = from.Find(band);
  if (!state || !source) return;
  state->Place = source->Place;
  SetTools(band, source->Tools);
}

void BandLayout::SetTools(std::string_view band, const std::vector<std::string>& tools) {
  BandState* state = Mutable(band);
  if (!state || !MayRearrange(band)) return;
  state->Tools.clear();
  for (const std::string& tool : tools) Insert(band, state->Tools.size(), tool);
}

}  // namespace platform
