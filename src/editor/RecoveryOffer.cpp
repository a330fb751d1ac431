#include "editor/RecoveryOffer.h"

#include <array>
#include <ctime>
#include <list>
#include <utility>

#include "platform/Files.h"

namespace editor {
namespace {

std::string LocalTime(std::int64_t milliseconds) {
  const auto seconds = static_cast<std::time_t>(milliseconds / 1000);
  std::tm parts{};
  std::array<char, 64> text{};
  if (::localtime_r(&seconds, &parts) == nullptr) return "?";
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts);
  return text.data();
}

bool IsTextOfFile(const JournalContent& content) {
  if (content.Head.Path.empty() || !content.Complete) return false;
  const auto bytes = rich_text::EncodeText({content.Text, content.Head.Encoding, content.Head.HasMark});
  const platform::FileContent file = platform::ReadFile(content.Head.Path);
  return bytes && file.Ok() && file.Bytes == *bytes;
}

std::string_view FileSentence(const JournalContent& content, platform::FileDifference base) {
  if (content.Head.Path.empty()) return "It was never saved in a file.";
  if (base == platform::FileDifference::Missing) return "The file on disk is no longer there.";
  return base == platform::FileDifference::Changed ? "The file on disk has been changed since."
                                                   : "The file on disk has not been changed since.";
}

void TellProblems(const std::vector<std::string>& problems, platform::Prompts& prompts) {
  if (problems.empty()) return;
  std::string text = "Some of the files in which unsaved text is kept cannot be read.  They were left as they are:\n";
  for (const std::string& problem : problems) text += "\n" + problem;
  prompts.Show({.Text = text, .Icon = platform::PromptIcon::Exclamation});
}

/// Reads what there is to ask about, and clears away what the files have already.
std::list<DeadJournal> Worthwhile(RecoveryStore& store, std::vector<std::string>& problems) {
  std::list<DeadJournal> journals;
  for (DeadJournal& journal : store.TakeDead(problems)) {
    const JournalContent content = journal.Read();
    if (!content.Readable)
      problems.push_back(journal.Path() + ": it is damaged or no journal");
    else if (IsTextOfFile(content))
      journal.Remove();
    else
      journals.push_back(std::move(journal));
  }
  return journals;
}

}  // namespace

std::string RecoveryQuestion(const JournalContent& content, platform::FileDifference base, std::size_t number,
                             std::size_t count) {
  const std::string document = content.Head.Path.empty() ? "an \"Untitled\" document" : "\"" + content.Head.Path + "\"";
  std::string text = "Quillmark ended before the changes to " + document + " were saved.";
  if (count > 1) text += "  (" + std::to_string(number) + " of " + std::to_string(count) + ")";
  text += "\n\nLast changed: " + LocalTime(content.LastChanged) + "\n";
  text += FileSentence(content, base);
  if (!content.Complete)
    text += "\nOnly the beginning of the text could be kept.";
  else if (content.Damaged)
    text += "\nWhat was changed last could not be kept.";
  return text +
         "\n\nDo you want to restore the unsaved text?  Yes opens it, No deletes it for good, "
         "Cancel keeps it until the next start.";
}

void OfferRecovery(RecoveryStore& store, platform::Prompts& prompts, const RestoreDocument& restore) {
  std::vector<std::string> problems;
  std::list<DeadJournal> journals = Worthwhile(store, problems);
  std::size_t number = 0;
  for (DeadJournal& journal : journals) {
    const JournalContent content = journal.Read();
    const platform::FileDifference base = platform::LookAt(content.Head.Path, content.Head.Base).Difference;
    const auto answer = prompts.Show({.Text = RecoveryQuestion(content, base, ++number, journals.size()),
                                      .Buttons = platform::PromptButtons::YesNoCancel,
                                      .Icon = platform::PromptIcon::Question,
                                      .Default = platform::PromptAnswer::Yes});
    const bool goes =
        answer == platform::PromptAnswer::No || (answer == platform::PromptAnswer::Yes && restore(content));
    if (goes) journal.Remove();
  }
  TellProblems(problems, prompts);
}

}  // namespace editor
