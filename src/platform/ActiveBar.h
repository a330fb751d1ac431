#pragma once
// The frame's menus and toolbars: bands with tools on them. A tool's name is the same tool wherever it stands: one
// state, one command, one shortcut; only its caption may differ from band to band.
//
// Texts are UTF-8; captions carry their access key behind "&". A name that is not known is passed over by everything
// that sets, and gives the empty answer to everything that asks. Designs are tables that live as long as the program.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class BandKind { MenuBar, Menu, Toolbar, Tabs, Popup };

/// What a click on a tool may do: run its command, open the band named in SubBand, or either.
struct ToolDesign {
  std::string_view Name;
  std::string_view Caption = {};      ///< "" hides the tool until it has one
  std::string_view Description = {};  ///< for the status bar and tips
  std::string_view Shortcut = {};     ///< "Ctrl+S", or several separated by ", "; "" for none
  std::string_view Icon = {};         ///< the name of its drawing, "" for none
  std::string_view SubBand = {};      ///< the menu that opens from it, "" for none
  bool HasCommand = true;             ///< false for a tool that only opens its menu
  bool Checkable = false;
  int Id = 0;
};

/// A tool on a band. Caption "" is the tool's own.
struct BandEntry {
  std::string_view Name;
  std::string_view Caption = {};
};

struct BandDesign {
  std::string_view Name;
  std::string_view Caption = {};
  BandKind Kind = BandKind::Menu;
  int Row = 0;  ///< of a toolbar or tab strip, from the top; those of one row stand in the table's order
  bool FilledAtRunTime = false;  ///< the program fills it, so that the user cannot rearrange it
  std::vector<BandEntry> Tools = {};
};

struct BarDesign {
  std::vector<ToolDesign> Tools;
  std::vector<BandDesign> Bands;

  const ToolDesign* Tool(std::string_view name) const;  ///< null when there is none
  const BandDesign* Band(std::string_view name) const;
};

/// The name of every separator.
inline constexpr std::string_view Separator = "miSeparator";
/// The menu that opens with a right click on a toolbar.
inline constexpr std::string_view CustomiseBand = "SysCustomize";

/// A tool that the program makes while it runs; it is not part of a saved layout.
struct DynamicTool {
  std::string Name;
  int Id = 0;
  std::string Caption = {};
  std::string Description = {};
  std::string Tip = {};  ///< "" for the description
  std::uint64_t Key =
      0;  ///< what the tool stands for: stays the same while tools are renamed and renumbered; 0: nothing
  bool Checked = false;
  std::string Icon = {};
};

struct ToolState {
  int Id = 0;
  std::uint64_t Key = 0;  ///< of a dynamic tool
  std::string Caption;
  std::string Description;
  bool Enabled = false;
  bool Checked = false;
};

/// What the bar tells the frame.
struct ActiveBarEvents {
  std::function<void(const std::string& tool)> ToolClick;
  std::function<void(const std::string& tool)> ToolClose;  ///< the close button of a tab, or the middle button
  std::function<void(const std::string& band)> BandOpen;   ///< a menu is about to show
  std::function<void(const std::string& path)> FileDropped;
  std::function<void(const std::string& band)> ResetBand;  ///< the user wants the band as it was designed
  std::function<void()> Released;                          ///< the bar gives the keyboard back
};

class ActiveBar {
 public:
  virtual ~ActiveBar() = default;

  /// The state of a tool; all empty and disabled for an unknown one.
  virtual ToolState Tool(std::string_view name) const = 0;
  virtual void SetCaption(std::string_view tool, std::string_view caption) = 0;
  virtual void SetDescription(std::string_view tool, std::string_view description) = 0;
  virtual void Enable(std::string_view tool, bool enabled) = 0;
  virtual void Check(std::string_view tool, bool checked) = 0;

  /// The tools of a band, in order.
  virtual std::vector<std::string> ToolsOf(std::string_view band) const = 0;
  virtual void ClearBand(std::string_view band) = 0;
  /// Puts a designed tool or a separator at the end of a band; nothing when it stands there already.
  virtual void AddTool(std::string_view band, std::string_view tool) = 0;
  /// Makes a tool, or gives the one of that name a new state, and puts it at the end of a band.
  virtual void AddTool(std::string_view band, const DynamicTool& tool) = 0;
  /// Shows what has been cleared and added.
  virtual void RecalcLayout() = 0;

  virtual bool BandShown(std::string_view band) const = 0;
  virtual void ShowBand(std::string_view band, bool shown) = 0;

  /// The arrangement of bands and designed tools, in a format that notices damage.
  virtual std::string SaveLayout() const = 0;
  /// Takes such an arrangement over; false, and nothing has changed, when it is damaged or foreign.
  virtual bool LoadLayout(std::string_view layout) = 0;
  /// Takes over one band of it.
  virtual bool LoadBand(std::string_view layout, std::string_view band) = 0;
};

}  // namespace platform
