#include "editor/FileOnDisk.h"

#include "platform/SafeSave.h"

namespace editor {
namespace {

using platform::FileDifference;
using platform::PromptAnswer;

constexpr int MostWrites = 8;

std::string Quoted(const std::string& path) {
  return '"' + path + '"';
}

}  // namespace

std::optional<std::string> FileOnDisk::Open(const std::string& path) {
  platform::FileIdentity identity;
  platform::FileContent content = platform::ReadIdentified(path, identity);
  if (!content.Ok()) {
    Tell("Could not read " + path);
    return std::nullopt;
  }
  rich_text::DecodedText decoded = rich_text::DecodeText(std::move(content.Bytes));
  m_encoding = decoded.Encoding;
  m_hasMark = decoded.HasMark;
  m_path = path;
  m_known = identity;
  m_told.reset();
  if (const std::string copy = platform::CopyLeftOf(path); !copy.empty())
    Tell("A save of " + Quoted(path) + " was broken off.  What the file held before it is in " + Quoted(copy) + ".");
  return std::move(decoded.Text);
}

PromptAnswer FileOnDisk::Ask(const std::string& text, PromptAnswer byDefault) {
  m_isAsking = true;
  const PromptAnswer answer = m_prompts.Show({.Text = text,
                                              .Buttons = platform::PromptButtons::YesNo,
                                              .Icon = platform::PromptIcon::Question,
                                              .Default = byDefault});
  m_isAsking = false;
  return answer;
}

/// Always false, the result of what has failed.
bool FileOnDisk::Tell(const std::string& text) {
  m_isAsking = true;
  m_prompts.Show({.Text = text, .Icon = platform::PromptIcon::Critical});
  m_isAsking = false;
  return false;
}

// Saving.

std::optional<std::string> FileOnDisk::Encode(const std::string& path, const std::string& text,
                                              rich_text::TextEncoding& encoding) {
  std::optional<std::string> bytes = rich_text::EncodeText({text, encoding, m_hasMark});
  if (bytes) return bytes;
  const PromptAnswer answer = Ask(Quoted(path) +
                                      " is encoded in Windows-1252, which cannot hold every character that the text "
                                      "has now.  Save it in UTF-8 instead?",
                                  PromptAnswer::No);
  if (answer != PromptAnswer::Yes) return std::nullopt;
  encoding = rich_text::TextEncoding::Utf8;
  return rich_text::EncodeText({text, encoding, m_hasMark});
}

void FileOnDisk::Adopt(const std::string& path, const platform::FileIdentity& known, rich_text::TextEncoding encoding,
                       bool hasMark) {
  m_path = path;
  m_known = known;
  m_encoding = encoding;
  m_hasMark = hasMark;
}

bool FileOnDisk::Save(const std::string& path, const std::string& text) {
  rich_text::TextEncoding encoding = m_encoding;
  const std::optional<std::string> bytes = Encode(path, text, encoding);
  if (!bytes || !Write(path, *bytes)) return false;
  m_encoding = encoding;
  return true;
}

bool FileOnDisk::MayReplace(const std::string& path, const platform::FileLook& look) {
  const bool isGone = look.Difference == FileDifference::Missing;
  if (look.Difference == FileDifference::None || (isGone && KnowsOf(look.Seen))) return true;
  m_told = look.Seen;
  const PromptAnswer answer =
      isGone ? Ask(Quoted(path) + " has been deleted or moved by another program.  Save it again?", PromptAnswer::Yes)
             : Ask(Quoted(path) + " has been changed by another program.  Overwrite it with the text of this window?",
                   PromptAnswer::No);
  return answer == PromptAnswer::Yes;
}

// A file under another name is one that the user has just chosen, so it may be replaced as it stands now.
bool FileOnDisk::Write(const std::string& path, const std::string& bytes) {
  platform::FileIdentity known = path == m_path ? m_known : platform::LookAt(path, {}).Seen;
  platform::SaveResult saved;
  for (int tries = 0; tries < MostWrites; ++tries) {
    const platform::FileLook look = platform::LookAt(path, known);
    if (!MayReplace(path, look)) return false;
    known = look.Seen;
    saved = platform::SafeSave(path, bytes, &known);
    if (!saved.Changed) break;
  }
  if (!saved.Ok()) return Tell("Could not save " + path + "\n\n" + saved.Error);
  m_path = path;
  m_known = saved.Written;
  m_told.reset();
  return true;
}

// Other programs.

FileOnDisk::Verdict FileOnDisk::LookForChanges(bool saved) {
  if (m_path.empty() || m_isAsking) return Verdict::Nothing;
  const platform::FileLook look = platform::LookAt(m_path, m_known);
  if (look.Difference == FileDifference::None) {
    m_known = look.Seen;
    m_told.reset();
    return Verdict::Nothing;
  }
  if (KnowsOf(look.Seen)) return Verdict::Nothing;
  m_told = look.Seen;
  if (look.Difference == FileDifference::Missing) {
    const PromptAnswer answer =
        Ask(Quoted(m_path) + " has been deleted or moved by another program.  Save it again?", PromptAnswer::Yes);
    return answer == PromptAnswer::Yes ? Verdict::SaveAgain : Verdict::Keep;
  }
  const std::string question =
      saved ? "  Reload it?" : "  Reload it?  Your own changes, not saved yet, then come back with Undo.";
  const PromptAnswer answer = Ask(Quoted(m_path) + " has been changed by another program." + question,
                                  saved ? PromptAnswer::Yes : PromptAnswer::No);
  return answer == PromptAnswer::Yes ? Verdict::Reload : Verdict::Keep;
}

}  // namespace editor
