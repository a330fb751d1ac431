#include "editor/Recovery.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace editor {
namespace {

constexpr std::size_t SliceBytes = 256 * 1024;         // copied in well under a millisecond
constexpr std::size_t MostWaiting = 8 * 1024 * 1024;   // slices wait for the disk rather than fill the memory
constexpr std::size_t CompactAbove = 4 * 1024 * 1024;  // a journal of a short text may be this much longer than it
constexpr int SliceTick = 4, PublishTick = 200, WatchTick = 1000;  // milliseconds
constexpr int FirstRest = 10'000, LongestRest = 300'000;           // milliseconds between attempts after a failure

std::int64_t Now() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

}  // namespace

Recovery::Recovery(RecoveryStore* store, platform::TextControl& control, std::unique_ptr<platform::Timer> timer,
                   platform::Prompts& prompts, Describe describe)
    : m_store(store),
      m_control(control),
      m_timer(std::move(timer)),
      m_prompts(prompts),
      m_describe(std::move(describe)),
      m_rest(FirstRest) {
  m_timer->ThatTime = [this] { Tick(); };
}

Recovery::~Recovery() {
  for (const std::optional<Stream>* stream : {&m_main, &m_next})
    if (*stream) m_store->Writer().Leave((*stream)->File);
}

void Recovery::Settled(const platform::FileIdentity& base) {
  m_base = base;
  Drop();
}

void Recovery::Closed() {
  Drop();
}

void Recovery::Drop() {
  for (std::optional<Stream>* stream : {&m_main, &m_next}) {
    if (*stream) m_store->Writer().Remove((*stream)->File);
    stream->reset();
  }
  m_failed = m_resting = false;
  m_rest = FirstRest;
  m_timer->SetInterval(0);
}

// Writing.

JournalHead Recovery::Head() const {
  JournalHead head = m_describe();
  head.Base = m_base;
  head.Started = m_lastChanged;
  return head;
}

Recovery::Stream Recovery::Begin() {
  Stream stream;
  stream.File = m_store->Writer().Create(m_name);
  std::string bytes;
  stream.Encoder.Head(bytes, Head());
  Write(stream, bytes);
  return stream;
}

void Recovery::Write(Stream& stream, const std::string& bytes) {
  if (stream.Whole) stream.Bytes += bytes.size();
  m_store->Writer().Append(stream.File, bytes);
}

void Recovery::WriteChange(Stream& stream, const platform::TextChange& change, const std::string& inserted) {
  std::string bytes;
  stream.Encoder.Change(bytes, change.Start, change.Removed.size(), inserted, m_lastChanged);
  Write(stream, bytes);
  if (stream.Whole) return;
  const CopiedPart part = PartInCopy(stream.Copied, change.Start, change.Removed.size());
  stream.Copied += (part.Applies ? inserted.size() : 0) - part.Removed;
}

void Recovery::CopySlice(Stream& stream) {
  // A change that the control has made and not told yet would be copied and then told.
  if (m_control.Length() != m_length) return;
  const std::size_t end = std::min(stream.Copied + SliceBytes, m_length);
  std::string bytes;
  stream.Encoder.Slice(bytes, m_control.TextRange(stream.Copied, end));
  stream.Copied = end;
  if (end == m_length) stream.Encoder.Whole(bytes, m_control.SelStart());
  Write(stream, bytes);
  stream.Whole = end == m_length;
  if (stream.Whole && m_next) m_store->Writer().Publish(stream.File);
}

void Recovery::BeginMain() {
  m_name = RecoveryStore::NewName();
  m_length = m_control.Length();
  m_main = Begin();
}

void Recovery::LostFile() {
  if (m_store == nullptr || m_main) return;
  m_lastChanged = Now();
  BeginMain();
  m_store->Writer().Publish(m_main->File);
  CopySlice(*m_main);
  m_timer->SetInterval(m_main->Whole ? WatchTick : SliceTick);
}

void Recovery::Changed(const platform::TextChange& change, bool byProgram) {
  if (m_store == nullptr || (!m_main && byProgram)) return;
  m_lastChanged = Now();
  const bool begins = !m_main;
  if (begins) {
    BeginMain();
    m_store->Writer().Publish(m_main->File);
  } else {
    m_length += change.Inserted - change.Removed.size();
  }
  const std::string inserted = m_control.TextRange(change.Start, change.Start + change.Inserted);
  for (std::optional<Stream>* stream : {&m_main, &m_next})
    if (*stream) WriteChange(**stream, change, inserted);
  if (begins) CopySlice(*m_main);
  if (m_timer->Interval() == 0) m_timer->SetInterval(m_main->Whole ? WatchTick : SliceTick);
}

void Recovery::HeadChanged() {
  const JournalHead head = Head();
  for (std::optional<Stream>* stream : {&m_main, &m_next}) {
    if (!*stream) continue;
    std::string bytes;
    (*stream)->Encoder.Head(bytes, head);
    Write(**stream, bytes);
  }
}

bool Recovery::Restored(const JournalContent& content) {
  if (m_store == nullptr) return false;
  Drop();
  m_base = content.Head.Base;
  m_lastChanged = content.LastChanged;
  BeginMain();
  while (!m_main->Whole) CopySlice(*m_main);
  m_store->Writer().Publish(m_main->File);  // whole, as the journal that it came from is there until then
  m_store->Writer().Flush();
  m_timer->SetInterval(WatchTick);
  const RecoveryWriter::FileStatus status = m_store->Writer().Status(m_main->File);
  return status.Published && status.Waiting == 0 && status.Error.empty();
}

// Looking after what is written.

void Recovery::Tick() {
  std::string error;
  m_resting = false;
  if (m_next) LookAfterNext(error);
  if (!m_next && error.empty()) LookAfterMain(error);
  Stream& copied = m_next ? *m_next : *m_main;
  if (!m_resting && !copied.Whole && m_store->Writer().Status(copied.File).Waiting < MostWaiting) CopySlice(copied);
  m_timer->SetInterval(NextTick());
  if (!error.empty()) m_store->TellOnce(m_prompts, error);
}

void Recovery::Fail(std::string& error, const std::string& reason) {
  error = reason;
  m_resting = true;
}

void Recovery::LookAfterNext(std::string& error) {
  const RecoveryWriter::FileStatus status = m_store->Writer().Status(m_next->File);
  if (status.Published) {
    m_store->Writer().Leave(m_main->File);
    m_main = std::exchange(m_next, std::nullopt);
    m_failed = false;
    m_rest = FirstRest;
  } else if (!status.Error.empty()) {
    m_store->Writer().Remove(m_next->File);
    m_next.reset();
    m_rest = std::min(2 * m_rest, LongestRest);
    Fail(error, status.Error);
  }
}

void Recovery::LookAfterMain(std::string& error) {
  const RecoveryWriter::FileStatus status = m_store->Writer().Status(m_main->File);
  if (!status.Error.empty() && !std::exchange(m_failed, true)) return Fail(error, status.Error);
  if (m_failed || (m_main->Whole && m_main->Bytes > m_length + CompactAbove)) m_next = Begin();
}

int Recovery::NextTick() const {
  if (m_resting) return m_rest;
  if (m_next) return m_next->Whole ? PublishTick : SliceTick;
  if (!m_main->Whole) return SliceTick;
  return m_store->Writer().Status(m_main->File).Waiting > 0 ? WatchTick : 0;
}

}  // namespace editor
