#include "tools/help_pages/Fragments.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <vector>

#include "editor/ColourPass.h"
#include "editor/ColouredOutput.h"
#include "platform/FileParsing.h"
#include "shell/CommandTable.h"
#include "shell/HelpTopics.h"
#include "shell/TemplateList.h"
#include "shell/ToolTable.h"
#include "templates/Loader.h"

namespace help_pages {
namespace {

using platform::BandDesign;
using platform::BandEntry;
using platform::ToolDesign;

const ToolDesign& ToolNamed(std::string_view name) {
  const ToolDesign* tool = shell::DesignedBar().Tool(name);
  if (!tool) throw std::runtime_error("there is no tool " + std::string(name));
  return *tool;
}

/// Recent files have their caption from the file.
std::string CaptionOf(const ToolDesign& tool) {
  return tool.Caption.empty() ? "Recent file " + std::string(tool.Name.substr(tool.Name.size() - 1))
                              : Plain(tool.Caption);
}

std::string IconOf(const ToolDesign& tool) {
  if (tool.Icon.empty()) return "";
  return "<img src=\"icon:" + std::string(tool.Icon) +
         "\" width=\"16\" height=\"16\" style=\"vertical-align: middle\"> ";
}

std::vector<const BandDesign*> BandsWith(std::string_view tool) {
  std::vector<const BandDesign*> bands;
  for (const BandDesign& band : shell::DesignedBar().Bands)
    if (std::any_of(band.Tools.begin(), band.Tools.end(), [&](const BandEntry& entry) { return entry.Name == tool; }))
      bands.push_back(&band);
  return bands;
}

std::string ConditionOf(std::string_view tool) {
  for (const shell::CommandRule& rule : shell::CommandRules()) {
    if (rule.Name != tool || rule.IsPrefix) continue;
    if (rule.Condition == shell::CommandCondition::DocumentActive) return "Needs a document in front.";
    if (rule.Condition == shell::CommandCondition::ChildActive) return "Needs a window in front.";
  }
  return "";
}

std::string Link(const std::string& address, const std::string& text) {
  return "<a href=\"" + address + "\">" + text + "</a>";
}

std::string Row(std::initializer_list<std::string> cells) {
  std::string row = "<tr>";
  for (const std::string& cell : cells) row += "<td>" + cell + "</td>";
  return row + "</tr>\n";
}

std::string Table(std::initializer_list<const char*> heads, const std::string& rows) {
  std::string table = "<table class=\"list\">\n<tr>";
  for (const char* head : heads) table += "<th>" + std::string(head) + "</th>";
  return table + "</tr>\n" + rows + "</table>\n";
}

std::string Keyword(std::string_view name, std::string_view id, const std::string& place) {
  return "<keyword name=\"" + Escaped(name) + "\" id=\"" + std::string(id) + "\" ref=\"" + place + "\"/>\n";
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string html;
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        if (c != '\r') html += c;
    }
  }
  return html;
}

std::string Plain(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

std::string Box(std::string_view html) {
  return "<table class=\"code\"><tr><td><pre>" + std::string(html) + "</pre></td></tr></table>\n";
}

std::string CommandHeading(std::string_view name) {
  const ToolDesign& tool = ToolNamed(name);
  std::string facts;
  for (const BandDesign* band : BandsWith(name)) facts += (facts.empty() ? "" : ", ") + Escaped(band->Caption);
  if (facts.empty()) facts = "Customise menu";
  if (!tool.Shortcut.empty()) facts += " &nbsp;·&nbsp; <b>" + Escaped(tool.Shortcut) + "</b>";
  if (const std::string condition = ConditionOf(name); !condition.empty()) facts += " &nbsp;·&nbsp; " + condition;
  return "<h2 id=\"" + std::string(name) + "\">" + IconOf(tool) + Escaped(CaptionOf(tool)) +
         "</h2>\n<p class=\"facts\">" + facts + "<br>" + Escaped(tool.Description) + "</p>\n";
}

std::string BandTable(std::string_view name, const CommandPlace& place) {
  const BandDesign* band = shell::DesignedBar().Band(name);
  if (!band) throw std::runtime_error("there is no band " + std::string(name));
  std::string rows;
  for (const BandEntry& entry : band->Tools) {
    if (entry.Name == platform::Separator) continue;
    const ToolDesign& tool = ToolNamed(entry.Name);
    const std::string caption = Escaped(CaptionOf(tool));
    rows += Row({IconOf(tool) + (tool.HasCommand ? Link(place(tool.Name), caption) : caption),
                 tool.HasCommand ? Escaped(tool.Description) : "a menu of its own", Escaped(tool.Shortcut)});
  }
  return Table({"Command", "What it does", "Shortcut"}, rows);
}

std::string ShortcutTable(const CommandPlace& place) {
  std::string rows;
  for (const ToolDesign& tool : shell::DesignedBar().Tools)
    if (!tool.Shortcut.empty())
      rows += Row({"<b>" + Escaped(tool.Shortcut) + "</b>", Link(place(tool.Name), Escaped(CaptionOf(tool))),
                   Escaped(tool.Description)});
  return Table({"Keys", "Command", "What it does"}, rows);
}

std::string WindowTable() {
  std::string rows;
  for (const shell::HelpTopic& topic : shell::HelpTopics())
    rows += Row({Link(std::string(topic.Page), Escaped(topic.Keyword))});
  return Table({"Window"}, rows);
}

std::string TemplateTable(const std::string& folder) {
  std::string rows;
  for (const templates::Template& record : shell::ReadTemplateList(folder))
    rows += Row({Escaped(record.Name), Escaped(record.Extension), Escaped(platform::FileNameOf(record.FileName))});
  return Table({"Template", "Extensions", "File"}, rows);
}

std::string Coloured(const std::string& name, std::string_view definition, std::string_view text) {
  templates::TemplateFields fields;
  templates::CollectedMessages messages;
  std::string helpFile;
  templates::LoadTemplateText(definition, name, fields, {}, messages, helpFile);
  for (const templates::LoadProblem& problem : messages.Problems)
    throw std::runtime_error(problem.File + ":" + std::to_string(problem.LineNumber) + ": " + problem.Reason);
  const std::vector<editor::PassRun> runs = editor::ColourPass(fields).Whole(text);
  std::string html;
  editor::WriteColouredHtml({text, runs, fields.Colours}, "", true, [&](std::string_view piece) {
    html += piece;
    return true;
  });
  return "<table class=\"paper\"><tr><td>" + html + "</td></tr></table>\n";
}

std::string Keywords(const CommandPlace& place) {
  std::string keywords;
  for (const ToolDesign& tool : shell::DesignedBar().Tools)
    if (tool.HasCommand) keywords += Keyword(CaptionOf(tool) + " command", tool.Name, place(tool.Name));
  std::set<std::string_view> listed;
  for (const shell::HelpTopic& topic : shell::HelpTopics())
    if (listed.insert(topic.Keyword).second) keywords += Keyword(topic.Keyword, topic.Window, std::string(topic.Page));
  return keywords;
}

}  // namespace help_pages
