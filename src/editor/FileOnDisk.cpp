#include "editor/FileOnDisk.h"

#include <future>

#include "platform/SafeSave.h"

namespace editor {
namespace {

using platform::FileDifference;
using platform::PromptAnswer;

constexpr int MostWrites = 8;
constexpr std::size_t LargeFile = 4'000'000;  // bytes; a smaller one is read while a thread would start

std::string Quoted(const std::string& path) {
  return '"' + path + '"';
}

/// What was read of a file.
struct Contents {
  bool Ok = false;
  platform::FileIdentity Identity;
  rich_text::DecodedText Decoded;
};

Contents Read(const std::string& path) {
  Contents contents;
  platform::FileContent file = platform::ReadIdentified(path, contents.Identity);
  contents.Ok = file.Ok();
  contents.Decoded = rich_text::DecodeText(std::move(file.Bytes));
  return contents;
}

// Most of the time for a large file goes into memory that is touched for the first time, here for its bytes and in the
// control for the text and its colours: two processors do that side by side.
Contents Read(const std::string& path, const FileOnDisk::MakeRoom& makeRoom) {
  const std::size_t size = makeRoom ? platform::FileSize(path) : 0;
  if (size < LargeFile) return Read(path);
  constexpr auto AnotherThreadIfThereIsOne = std::launch::async | std::launch::deferred;
  std::future<Contents> contents = std::async(AnotherThreadIfThereIsOne, [&path] { return Read(path); });
  makeRoom(size);
  return contents.get();
}

}  // namespace

std::optional<std::string> FileOnDisk::Open(const std::string& path, const MakeRoom& makeRoom) {
  auto [isRead, identity, decoded] = Read(path, makeRoom);
  if (!isRead) {
    Tell("Could not read " + path);
    return std::nullopt;
  }
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

PromptAnswer FileOnDisk::AskToSaveAgain(const std::string& path) {
  return Ask(Quoted(path) + " has been deleted or moved by another program.  Save it again?", PromptAnswer::Yes);
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
      isGone ? AskToSaveAgain(path)
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
  if (look.Difference == FileDifference::Missing)
    return AskToSaveAgain(m_path) == PromptAnswer::Yes ? Verdict::SaveAgain : Verdict::Keep;
  const std::string question =
      saved ? "  Reload it?" : "  Reload it?  Your own changes, not saved yet, then come back with Undo.";
  const PromptAnswer answer = Ask(Quoted(m_path) + " has been changed by another program." + question,
                                  saved ? PromptAnswer::Yes : PromptAnswer::No);
  return answer == PromptAnswer::Yes ? Verdict::Reload : Verdict::Keep;
}

}  // namespace editor
