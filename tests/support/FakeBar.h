#pragma once
// A bar without a window: it keeps states and bands, and its layout is a BandLayout.

#include <map>
#include <string>
#include <vector>

#include "platform/BandLayout.h"

namespace tests {

class FakeBar : public platform::ActiveBar {
 public:
  explicit FakeBar(const platform::BarDesign& design) : Layout(design), m_design(design) {}

  platform::BandLayout Layout;
  std::map<std::string, platform::ToolState, std::less<>> Tools;
  std::map<std::string, std::vector<std::string>, std::less<>>
      Added;  ///< what was put on bands since they were cleared

  platform::ToolState Tool(std::string_view name) const override {
    const auto found = Tools.find(name);
    return found == Tools.end() ? platform::ToolState() : found->second;
  }
  void SetCaption(std::string_view tool, std::string_view text) override { Tools[std::string(tool)].Caption = text; }
  void SetDescription(std::string_view tool, std::string_view text) override {
    Tools[std::string(tool)].Description = text;
  }
  void Enable(std::string_view tool, bool enabled) override { Tools[std::string(tool)].Enabled = enabled; }
  void Check(std::string_view tool, bool checked) override { Tools[std::string(tool)].Checked = checked; }

  std::vector<std::string> ToolsOf(std::string_view band) const override {
    const auto found = Added.find(band);
    return found == Added.end() ? std::vector<std::string>() : found->second;
  }
  void ClearBand(std::string_view band) override { Added[std::string(band)].clear(); }
  void AddTool(std::string_view band, std::string_view tool) override { Added[std::string(band)].emplace_back(tool); }
  void AddTool(std::string_view band, const platform::DynamicTool& tool) override {
    Added[std::string(band)].push_back(tool.Name);
    Tools[tool.Name] = {tool.Id, tool.Key, tool.Caption, tool.Description, true, tool.Checked};
  }
  void RecalcLayout() override {}

  bool BandShown(std::string_view band) const override { return Layout.Find(band)->Place.Shown; }
  void ShowBand(std::string_view band, bool shown) override { Layout.Show(band, shown); }
  std::string SaveLayout() const override { return Layout.Encode(); }
  bool LoadLayout(std::string_view text) override {
    const auto read = platform::BandLayout::Decode(m_design, text);
    if (read) Layout = *read;
    return read.has_value();
  }
  bool LoadBand(std::string_view text, std::string_view band) override {
    const auto read = platform::BandLayout::Decode(m_design, text);
    if (read) Layout.CopyBand(*read, band);
    return read.has_value();
  }

 private:
  const platform::BarDesign& m_design;
};

}  // namespace tests
