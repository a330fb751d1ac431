#include "template_editor/Controls.h"

#include <array>

namespace template_editor {
namespace {

constexpr std::array<std::string_view, 19> FieldNames = {
    "TemplateName", "DefaultExt",  "DelimetersBox", "hdfFile",  "SaveExecute", "ColName",  "ColHex",
    "colWordName",  "colEndWord",  "ActWordName",   "DelimBox", "ToolTipBox",  "wlstName", "txtWord",
    "txtSynonym",   "VersionText", "AuthorBox",     "DateBox",  "Comments"};

constexpr std::array<std::string_view, 19> ButtonNames = {
    "colAdd",  "colRemove",  "colChange",  "ColBrowse",   "AddColWord", "RemoveColWord", "ChangeColWord",
    "ActAdd",  "ActRemove",  "ActChange",  "ClearButton", "DelimAdd",   "DelimRemove",   "DelimChange",
    "wlstAdd", "wlstRemove", "wlstChange", "btnNew",      "btnDelete"};

constexpr std::array<std::string_view, 6> ListNames = {"ColourList",     "ColWordList", "ActWordList",
                                                       "DelimetersList", "WordList",    "lstAss"};

static_assert(FieldNames.size() == static_cast<std::size_t>(TextField::Comments) + 1);
static_assert(ButtonNames.size() == static_cast<std::size_t>(Button::btnDelete) + 1);
static_assert(ListNames.size() == static_cast<std::size_t>(List::lstAss) + 1);

}  // namespace

std::string_view NameOf(TextField field) {
  return FieldNames[static_cast<std::size_t>(field)];
}

std::string_view NameOf(Button button) {
  return ButtonNames[static_cast<std::size_t>(button)];
}

std::string_view NameOf(List list) {
  return ListNames[static_cast<std::size_t>(list)];
}

}  // namespace template_editor
