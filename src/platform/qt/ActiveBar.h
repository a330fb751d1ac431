#pragma once
// The menus and toolbars of a main window: the menu bar, menus, toolbars that the user can move, hide and show, a strip
// of tabs, and pop-up menus. A right click on a toolbar opens the menu "SysCustomize", from which the user reaches the
// window where tools are rearranged.
//
// The main window owns all widgets and outlives the bar; so does the design.

#include <QPointer>

#include "platform/BandLayout.h"
#include "platform/qt/MenuStyle.h"
#include "platform/qt/ToolActions.h"

class QMainWindow;
class QMenu;
class QToolBar;

namespace platform::qt {

class CustomiseDialog;
class TabStrip;

class ActiveBar final : public QObject, public platform::ActiveBar {
  Q_OBJECT

 public:
  ActiveBar(QMainWindow& window, const BarDesign& design, ActiveBarEvents events);
  ~ActiveBar() override;

  ToolState Tool(std::string_view name) const override { return m_actions.State(name); }
  void SetCaption(std::string_view tool, std::string_view caption) override { m_actions.SetCaption(tool, caption); }
  void SetDescription(std::string_view tool, std::string_view text) override { m_actions.SetDescription(tool, text); }
  void Enable(std::string_view tool, bool enabled) override;
  void Check(std::string_view tool, bool checked) override;

  std::vector<std::string> ToolsOf(std::string_view band) const override;
  void ClearBand(std::string_view band) override;
  void AddTool(std::string_view band, std::string_view tool) override;
  void AddTool(std::string_view band, const DynamicTool& tool) override;
  void RecalcLayout() override;

  bool BandShown(std::string_view band) const override;
  void ShowBand(std::string_view band, bool shown) override;

  std::string SaveLayout() const override { return Layout().Encode(); }
  bool LoadLayout(std::string_view layout) override;
  bool LoadBand(std::string_view layout, std::string_view band) override;

  /// The arrangement as it is on the screen.
  BandLayout Layout() const;
  /// Arranges bands and tools; what the program filled in is left to it.
  void Apply(const BandLayout& layout);

  /// The menu of a band, null when it has none.
  QMenu* Menu(std::string_view band) const;
  /// Opens the window where tools are rearranged, or brings it to the front.
  void Customise();
  const BarDesign& Design() const { return m_design; }
  const ActiveBarEvents& Events() const { return m_events; }
  const ToolActions& Actions() const { return m_actions; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Band {
    const BandDesign* Design = nullptr;
    QWidget* Surface = nullptr;  ///< the menu bar, menu or toolbar that holds the actions
    QMenu* Menu = nullptr;
    QToolBar* Bar = nullptr;
    TabStrip* Tabs = nullptr;
    std::vector<std::string> Tools;
    bool Stale = true;  ///< the surface does not show the tools yet
  };

  void MakeBand(const BandDesign& design);
  QMenu* MakeMenu(std::string_view band, std::string_view caption);
  void MakeToolbar(Band& band);
  void MakeTabs(Band& band);
  Band* Find(std::string_view band);
  const Band* Find(std::string_view band) const;
  void Opening(std::string_view band);
  void Fill(Band& band);
  QAction* ActionOn(const Band& band, std::string_view tool);
  void FillTabs(Band& band);
  void ShapeButton(Band& band, std::string_view tool, QAction* action);
  void Forget(const std::string& tool);
  void PlaceBars(const BandLayout& layout);
  void Float(QToolBar& bar, const BandPlace& place);
  void OfferCustomising(const QPoint& at);
  void ListBars();

  QMainWindow& m_window;
  const BarDesign& m_design;
  ActiveBarEvents m_events;
  ToolActions m_actions;
  QStyle* m_menuStyle = new MenuStyle;
  std::vector<Band> m_bands;
  QPointer<CustomiseDialog> m_dialog;
};

}  // namespace platform::qt
