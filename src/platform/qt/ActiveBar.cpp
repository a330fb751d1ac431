#include "platform/qt/ActiveBar.h"

#include <QDragEnterEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "platform/qt/CustomiseDialog.h"
#include "platform/qt/DroppedFiles.h"
#include "platform/qt/MenuKeys.h"
#include "platform/qt/TabStrip.h"
#include "platform/qt/Text.h"

namespace platform::qt {
namespace {

// Names of the tools that the bar itself puts on its customising menu.
constexpr std::string_view ShowBandTool = "SysShow";
constexpr std::string_view CustomiseTool = "SysCustomise";

BandDesign CustomisingBand() {
  return {.Name = CustomiseBand, .Caption = "Customise", .Kind = BandKind::Popup, .FilledAtRunTime = true, .Tools = {}};
}

}  // namespace

ActiveBar::ActiveBar(QMainWindow& window, const BarDesign& design, ActiveBarEvents events)
    : m_window(window),
      m_design(design),
      m_events(std::move(events)),
      m_actions(window, design, [this](const std::string& tool) {
        if (tool == CustomiseTool) return Customise();
        if (tool.starts_with(ShowBandTool)) {
          const std::string band = tool.substr(ShowBandTool.size());
          return ShowBand(band, !BandShown(band));
        }
        if (m_events.ToolClick) m_events.ToolClick(tool);
      }) {
  m_menuStyle->setParent(&window);
  static const BandDesign customising = CustomisingBand();
  m_bands.reserve(design.Bands.size() + 1);
  for (const BandDesign& band : design.Bands) MakeBand(band);
  MakeBand(customising);
  for (const ToolDesign& tool : design.Tools)
    if (!tool.SubBand.empty()) m_actions.Find(tool.Name)->setMenu(Menu(tool.SubBand));
  Apply(BandLayout(design));
  RecalcLayout();
}

ActiveBar::~ActiveBar() {
  delete m_dialog;
}

// Bands.

void ActiveBar::MakeBand(const BandDesign& design) {
  Band& band = m_bands.emplace_back();
  band.Design = &design;
  switch (design.Kind) {
    case BandKind::MenuBar:
      band.Surface = m_window.menuBar();
      break;
    case BandKind::Menu:
    case BandKind::Popup:
      band.Surface = band.Menu = MakeMenu(design.Name, design.Caption);
      break;
    case BandKind::Toolbar:
    case BandKind::Tabs:
      MakeToolbar(band);
      break;
  }
  if (!band.Menu) {
    band.Surface->installEventFilter(this);
    band.Surface->setAcceptDrops(true);
    band.Surface->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(band.Surface, &QWidget::customContextMenuRequested, this,
            [this, surface = band.Surface](const QPoint& at) { OfferCustomising(surface->mapToGlobal(at)); });
  }
}

QMenu* ActiveBar::MakeMenu(std::string_view band, std::string_view caption) {
  auto* menu = new QMenu(&m_window);
  menu->setObjectName(Text(band));
  menu->setAccessibleName(Text(caption));
  new MenuKeys(*menu);
  menu->setStyle(m_menuStyle);
  connect(menu, &QMenu::aboutToShow, this, [this, band] { Opening(band); });
  return menu;
}

void ActiveBar::MakeToolbar(Band& band) {
  band.Bar = new QToolBar(Text(band.Design->Caption), &m_window);
  band.Bar->setObjectName(Text(band.Design->Name));
  band.Bar->setAccessibleName(Text(band.Design->Caption));
  band.Surface = band.Bar;
  if (band.Design->Kind == BandKind::Tabs) MakeTabs(band);
}

void ActiveBar::MakeTabs(Band& band) {
  band.Tabs = new TabStrip(band.Bar);
  band.Bar->setAllowedAreas(Qt::TopToolBarArea | Qt::BottomToolBarArea);
  band.Bar->setFloatable(false);
  band.Bar->addWidget(band.Tabs);
  connect(band.Tabs, &TabStrip::Chosen, this, [this](const std::string& tool) {
    if (QAction* action = m_actions.Find(tool)) action->trigger();
  });
  connect(band.Tabs, &TabStrip::CloseAsked, this, [this](const std::string& tool) {
    if (m_events.ToolClose) m_events.ToolClose(tool);
  });
}

ActiveBar::Band* ActiveBar::Find(std::string_view name) {
  const auto found =
      std::find_if(m_bands.begin(), m_bands.end(), [&](const Band& b) { return b.Design->Name == name; });
  return found == m_bands.end() ? nullptr : &*found;
}

const ActiveBar::Band* ActiveBar::Find(std::string_view name) const {
  return const_cast<ActiveBar*>(this)->Find(name);
}

QMenu* ActiveBar::Menu(std::string_view name) const {
  const Band* band = Find(name);
  return band ? band->Menu : nullptr;
}

void ActiveBar::Opening(std::string_view name) {
  if (name == CustomiseBand) ListBars();
  if (m_events.BandOpen) m_events.BandOpen(std::string(name));
  RecalcLayout();
}

// Tools.

void ActiveBar::Enable(std::string_view tool, bool enabled) {
  if (QAction* action = m_actions.Find(tool)) action->setEnabled(enabled);
}

void ActiveBar::Check(std::string_view tool, bool checked) {
  QAction* action = m_actions.Find(tool);
  if (!action) return;
  if (checked) action->setCheckable(true);
  action->setChecked(checked);
}

std::vector<std::string> ActiveBar::ToolsOf(std::string_view name) const {
  const Band* band = Find(name);
  return band ? band->Tools : std::vector<std::string>();
}

void ActiveBar::ClearBand(std::string_view name) {
  Band* band = Find(name);
  if (!band) return;
  const std::vector<std::string> tools = std::exchange(band->Tools, {});
  for (const std::string& tool : tools) Forget(tool);
  band->Stale = true;
}

// A tool that the program made goes with the last band that it stands on.
void ActiveBar::Forget(const std::string& tool) {
  for (const Band& band : m_bands)
    if (std::find(band.Tools.begin(), band.Tools.end(), tool) != band.Tools.end()) return;
  m_actions.RemoveDynamic(tool);
}

void ActiveBar::AddTool(std::string_view name, std::string_view tool) {
  Band* band = Find(name);
  if (!band || (tool != Separator && !m_actions.Find(tool))) return;
  if (tool != Separator && std::find(band->Tools.begin(), band->Tools.end(), tool) != band->Tools.end()) return;
  band->Tools.emplace_back(tool);
  band->Stale = true;
}

void ActiveBar::AddTool(std::string_view band, const DynamicTool& tool) {
  if (!Find(band)) return;
  m_actions.SetDynamic(tool);
  AddTool(band, tool.Name);
  Find(band)->Stale = true;
}

void ActiveBar::RecalcLayout() {
  for (Band& band : m_bands)
    if (band.Stale) Fill(band);
}

// Puts the tools of a band on its surface.
void ActiveBar::Fill(Band& band) {
  band.Stale = false;
  if (band.Tabs) return FillTabs(band);
  for (QAction* action : band.Surface->actions()) {
    band.Surface->removeAction(action);
    if (action->isSeparator()) delete action;
  }
  for (const std::string& tool : band.Tools) {
    if (tool == Separator) {
      auto* line = new QAction(band.Surface);
      line->setSeparator(true);
      band.Surface->addAction(line);
      continue;
    }
    QAction* action = ActionOn(band, tool);
    band.Surface->addAction(action);
    ShapeButton(band, tool, action);
  }
}

QAction* ActiveBar::ActionOn(const Band& band, std::string_view tool) {
  const auto entry = std::find_if(band.Design->Tools.begin(), band.Design->Tools.end(),
                                  [&](const BandEntry& candidate) { return candidate.Name == tool; });
  const bool isDesigned = entry != band.Design->Tools.end();
  const std::string_view caption = isDesigned ? entry->Caption : "";
  const bool isFurther = band.Design->Kind == BandKind::Popup || (band.Menu && !isDesigned);
  return isFurther ? m_actions.OnFurtherMenu(tool, caption, band.Design->Name) : m_actions.OnBand(tool, caption);
}

// A tool with a menu is a button that opens it, or one with an arrow beside it when it also has a command.
void ActiveBar::ShapeButton(Band& band, std::string_view tool, QAction* action) {
  if (!band.Bar) return;
  auto* button = qobject_cast<QToolButton*>(band.Bar->widgetForAction(action));
  if (!button) return;
  button->setObjectName(Text(tool) + QStringLiteral("Button"));
  const ToolDesign* design = m_design.Tool(tool);
  if (design && !design->SubBand.empty())
    button->setPopupMode(design->HasCommand ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup);
}

void ActiveBar::FillTabs(Band& band) {
  std::vector<Tab> tabs;
  for (const std::string& name : band.Tools) {
    const DynamicTool* tool = m_actions.Dynamic(name);
    const QAction* action = m_actions.Find(name);
    if (tool) tabs.push_back({name, tool->Key, action->text(), action->toolTip(), action->isChecked()});
  }
  band.Tabs->SetTabs(tabs);
}

// What the toolbars hear from the mouse.

bool ActiveBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::DragEnter) {
    auto* drag = static_cast<QDragEnterEvent*>(event);
    if (drag->mimeData()->hasUrls()) drag->acceptProposedAction();
    return true;
  }
  if (event->type() == QEvent::Drop) {
    auto* drop = static_cast<QDropEvent*>(event);
    drop->acceptProposedAction();
    for (const std::string& path : DroppedFiles(drop->mimeData()))
      if (m_events.FileDropped) m_events.FileDropped(path);
    return true;
  }
  return QObject::eventFilter(watched, event);
}

void ActiveBar::OfferCustomising(const QPoint& at) {
  Menu(CustomiseBand)->popup(at);
}

void ActiveBar::ListBars() {
  ClearBand(CustomiseBand);
  for (const Band& band : m_bands) {
    if (!band.Bar) continue;
    DynamicTool tool;
    tool.Name = std::string(ShowBandTool) + std::string(band.Design->Name);
    tool.Caption = band.Design->Caption;
    tool.Checked = BandShown(band.Design->Name);
    AddTool(CustomiseBand, tool);
  }
  AddTool(CustomiseBand, Separator);
  DynamicTool customise;
  customise.Name = CustomiseTool;
  customise.Caption = "&Customise...";
  AddTool(CustomiseBand, customise);
}

void ActiveBar::Customise() {
  if (!m_dialog) {
    m_dialog = new CustomiseDialog(*this, m_window);
    connect(m_dialog, &QDialog::finished, this, [this] {
      if (m_events.Released) m_events.Released();
    });
  }
  m_dialog->show();
  m_dialog->raise();
  m_dialog->activateWindow();
}

}  // namespace platform::qt
