#pragma once
// The files opened last, at most three, oldest first, with what their menu entries show. A file that is opened again
// keeps its place.

#include <string>
#include <vector>

namespace shell {

class History {
 public:
  static constexpr std::size_t Most = 3;
  static constexpr int CaptionLength = 30;  ///< characters of a path in another folder than the newest file's

  /// The entry of the tool "History" + its place, counted from 1.
  struct Entry {
    std::string Path;
    std::string Caption;      ///< "&1 " and the file's name, or its shortened path
    std::string Description;  ///< the full path
  };

  /// Puts a path at the end, in place of the oldest when there are three; "" and a path that is there change nothing.
  void AddToHistory(const std::string& path);

  /// What the menu shows, and what the settings keep: the oldest first.
  const std::vector<Entry>& Entries() const { return m_entries; }
  std::vector<std::string> Paths() const;

 private:
  std::vector<Entry> m_entries;
};

}  // namespace shell
