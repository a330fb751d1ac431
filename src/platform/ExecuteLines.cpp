#include "platform/ExecuteLines.h"

#include "rich_text/Encoding.h"

namespace platform {

void ExecuteLines::Add(std::string_view bytes) {
  if (m_spoilt) return;
  m_bytes.erase(0, m_start);
  m_scanned -= m_start;
  m_start = 0;
  m_bytes.append(bytes);
}

std::optional<std::string> ExecuteLines::Next() {
  if (m_spoilt) return std::nullopt;
  const std::size_t end = m_bytes.find('\n', m_scanned);
  const std::size_t length = std::min(end, m_bytes.size()) - m_start;
  std::string line = end == std::string::npos ? "" : m_bytes.substr(m_start, length);
  if (length > Longest || line.find('\0') != std::string::npos || !rich_text::IsValidUtf8(line)) {
    m_spoilt = true;
    m_bytes = {};
    return std::nullopt;
  }
  m_scanned = end == std::string::npos ? m_bytes.size() : end + 1;
  if (end == std::string::npos) return std::nullopt;
  m_start = end + 1;
  return line;
}

}  // namespace platform
