#include "templates/LoadMessages.h"

#include <algorithm>

#include "rich_text/Encoding.h"

namespace templates {
namespace {

/// The longest piece of a line that a message box shows, in bytes: a file that is no template may be one huge line.
constexpr std::size_t LongestLine = 500;

std::string Shown(const std::string& line) {
  if (line.size() <= LongestLine) return line;
  std::size_t end = 0;
  while (end < LongestLine) end += rich_text::CharacterBytes(line[end]);
  return line.substr(0, end) + " ...";
}

std::string MessageText(const LoadProblem& problem) {
  std::string text = problem.Kind == LoadProblem::Sort::Unrecognized ? "Unrezognized Line:" : "Invalid Line:";
  text += "\n\n" + Shown(problem.Line);
  if (problem.Kind == LoadProblem::Sort::BadValue)
    text += "\n\n" + problem.Reason + "\n\nLine " + std::to_string(problem.LineNumber) + " of " + problem.File;
  return text;
}

}  // namespace

bool PromptMessages::Report(const LoadProblem& problem) {
  platform::MessageBox box;
  box.Text = MessageText(problem);
  box.Title = "Error Loading Template";
  box.Buttons = problem.MayCancel ? platform::PromptButtons::OkCancel : platform::PromptButtons::Ok;
  box.Icon = platform::PromptIcon::Exclamation;
  return m_prompts.Show(box) == platform::PromptAnswer::Ok;
}

bool CollectedMessages::Report(const LoadProblem& problem) {
  Problems.push_back(problem);
  return true;
}

}  // namespace templates
