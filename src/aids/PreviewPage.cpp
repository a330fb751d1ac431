#include "aids/PreviewPage.h"

#include <algorithm>

namespace aids {
namespace {

constexpr std::string_view Head[] = {
    "<html><head><title>Quillmark Generated JavaScript Preview</title>",
    "<script language='Javascript'>",
    "<!--",
    "function execute(){ScriptExec.location.replace('javascript:parent.'+frmExec.Command.value+';');};",
    "//-->",
    "</script></head><body>",
};

constexpr std::string_view Foot =
    "<hr><p> Results:</p><iframe name=ScriptExec width='100%'></iframe><form name='frmExec' "
    "onSubmit='javascript:execute();return false;'><p>Execute JavaScript: <input type='text' size='100' "
    "name='Command'><input name='Exec' type='submit' value='Execute'></p></form></body></html>";

bool IsWholePage(std::string_view text) {
  constexpr std::string_view tag = "<html>";
  const auto same = [](char c, char wanted) { return (c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c) == wanted; };
  return text.size() >= tag.size() &&
         std::equal(tag.begin(), tag.end(), text.begin(), [&](char wanted, char c) { return same(c, wanted); });
}

}  // namespace

std::string PreviewPage(std::string_view text) {
  if (IsWholePage(text)) return std::string(text);
  std::string page;
  const auto line = [&page](std::string_view content) { page.append(content) += "\r\n"; };
  for (const std::string_view content : Head) line(content);
  const bool isMarkup = text.substr(0, 1) == "<";
  if (!isMarkup) line("<script language='Javascript'>"), line("<!--");
  line(text);
  if (!isMarkup) line("//-->"), line("</script>");
  line(Foot);
  return page;
}

std::string PreviewFile(const std::string& programFolder) {
  return programFolder + "/~Preview.html";
}

}  // namespace aids
