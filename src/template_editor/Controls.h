#pragma once
// The controls of the template editor that do something, by their names.

#include <string_view>

namespace template_editor {

enum class TextField {
  TemplateName,
  DefaultExt,
  DelimetersBox,
  hdfFile,
  SaveExecute,
  ColName,
  ColHex,
  colWordName,
  colEndWord,
  ActWordName,
  DelimBox,
  ToolTipBox,
  wlstName,
  txtWord,
  txtSynonym,
  VersionText,
  AuthorBox,
  DateBox,
  Comments,
};

enum class Button {
  colAdd,
  colRemove,
  colChange,
  ColBrowse,
  AddColWord,
  RemoveColWord,
  ChangeColWord,
  ActAdd,
  ActRemove,
  ActChange,
  ClearButton,
  DelimAdd,
  DelimRemove,
  DelimChange,
  wlstAdd,
  wlstRemove,
  wlstChange,
  btnNew,
  btnDelete,
};

enum class List { ColourList, ColWordList, ActWordList, DelimetersList, WordList, lstAss };

std::string_view NameOf(TextField field);
std::string_view NameOf(Button button);
std::string_view NameOf(List list);

}  // namespace template_editor
