#include "editor/SplitPass.h"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <thread>

namespace editor {
namespace {

// A thread costs as much as some ten thousand bytes, and a shorter text is passed over at once anyhow.
constexpr std::size_t LeastPartBytes = 512 * 1024;
constexpr std::size_t MostParts = 8;

// A part that begins inside a comment or a string is met within a few lines, or hardly ever.
constexpr std::size_t PlacesKept = 2000;

// For one run in so many bytes there is room from the start.
constexpr std::size_t BytesARun = 40;

constexpr std::chrono::milliseconds ReportEvery{5};

std::size_t PartsThatPay(std::size_t bytes) {
  const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
  return std::clamp<std::size_t>(bytes / LeastPartBytes, 1, std::min(processors, MostParts));
}

bool Same(const UnitPosition& a, const UnitPosition& b) {
  return a.Offset == b.Offset && a.Unit == b.Unit && a.BehindSpace == b.BehindSpace;
}

}  // namespace

SplitPass::SplitPass(const PassTables& tables, std::string_view text, const ColourPass::Progress& progress,
                     std::size_t parts)
    : m_tables(tables),
      m_text(text),
      m_progress(progress),
      m_parts(parts == 0 ? PartsThatPay(text.size()) : parts),
      m_pass(tables, text, m_report) {}

std::vector<PassRun> SplitPass::Run() {
  m_runs.reserve(m_text.size() / BytesARun);
  StartParts();
  Join({.End = m_ends.front()});
  for (std::size_t i = 1; i < m_ends.size() && !m_over && !m_stopped; ++i) {
    std::future<Part>& result = m_results[i - 1];
    if (!result.valid()) {
      Join({.End = m_ends[i]});
    } else if (Await(result)) {
      Join(result.get());
    }
  }
  m_stopped = true;  // what the others still do is of no use
  return std::move(m_runs);
}

std::size_t SplitPass::LineStart(std::size_t offset) const {
  const std::size_t lineEnd = m_text.find('\n', offset);
  return lineEnd == std::string_view::npos ? m_text.size() : lineEnd + 1;
}

void SplitPass::StartParts() {
  for (std::size_t i = 1; i < m_parts; ++i) {
    const std::size_t end = LineStart(m_text.size() / m_parts * i);
    if (end < m_text.size() && (m_ends.empty() || end > m_ends.back())) m_ends.push_back(end);
  }
  m_ends.push_back(m_text.size());
  for (std::size_t i = 1; i < m_ends.size(); ++i) {
    std::future<Part>& result = m_results.emplace_back();
    try {
      result = std::async(std::launch::async, &SplitPass::PassOver, this, m_ends[i - 1], m_ends[i]);
    } catch (const std::system_error&) {
      // without another thread the pass goes over all parts itself
    }
  }
}

SplitPass::Part SplitPass::PassOver(std::size_t start, std::size_t end) const {
  const ColourPass::Progress goesOn = [this](std::size_t) { return !m_stopped; };
  WholePass pass(m_tables, m_text, goesOn);
  Part part{.End = end, .Reached = {start}};
  part.Runs.reserve((end - start) / BytesARun);
  do {
    if (part.Places.size() < PlacesKept) part.Places.push_back(part.Reached);
  } while (pass.Next(part.Reached, end, part.Runs) && !pass.Over());
  part.Over = pass.Over();
  return part;
}

void SplitPass::Join(const Part& part) {
  std::size_t met = 0;
  do {
    while (met < part.Places.size() && part.Places[met].Offset < m_place.Offset) ++met;
    for (std::size_t i = met; i < part.Places.size() && part.Places[i].Offset == m_place.Offset; ++i)
      if (Same(part.Places[i], m_place)) return Adopt(part, i);
  } while (m_pass.Next(m_place, part.End, m_runs) && !m_pass.Over());
  m_over = m_pass.Over();
}

void SplitPass::Adopt(const Part& part, std::size_t runsBefore) {
  m_runs.insert(m_runs.end(), part.Runs.begin() + static_cast<std::ptrdiff_t>(runsBefore), part.Runs.end());
  m_place = part.Reached;
  m_over = part.Over;
}

bool SplitPass::Await(const std::future<Part>& part) {
  while (part.wait_for(ReportEvery) != std::future_status::ready)
    if (!Report(m_reported)) return false;
  return true;
}

// The parts come along about alike.
bool SplitPass::Report(std::size_t done) {
  const std::size_t ofAll = done < m_ends.front() ? std::min(done * m_ends.size(), m_text.size()) : done;
  m_reported = std::max(m_reported, ofAll);
  if (m_progress && !m_progress(m_reported)) m_stopped = true;
  return !m_stopped;
}

}  // namespace editor
