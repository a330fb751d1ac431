#pragma once
// An ordered, 1-based collection whose entries may carry a string key. Keys compare without regard to letter case, and
// a key is found in constant time. Entries are shared, so that an entry stays valid while somebody still uses it; a
// null entry is no entry and must not be added.
//
// Removing only marks the place; the marked places are closed up when a position is next asked for or a walk begins, so
// that neither a row of replacements nor a walk by position costs the square of the entries. Reading is therefore for
// one thread. A collection that was moved from is to be assigned, cleared or destroyed.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Failure.h"
#include "rich_text/Encoding.h"

namespace templates {

template <typename Entry>
class KeyedCollection {
 public:
  using Pointer = std::shared_ptr<Entry>;

 private:
  struct Slot {
    Pointer Value;    ///< null when removed
    std::string Key;  ///< folded; stays after the removal, until the place is closed up
  };

 public:
  std::size_t Count() const { return m_slots.size() - m_removed; }
  bool Empty() const { return Count() == 0; }

  /// The entry at a 1-based position; fails with 9 outside the collection.
  const Pointer& Item(std::size_t position) const {
    CloseUp();
    if (position < 1 || position > m_slots.size()) throw OutOfRange();
    return m_slots[position - 1].Value;
  }

  /// The entry under a key; fails with 5 when there is none.
  const Pointer& Item(std::string_view key) const {
    const Cell* cell = TakenCell(key);
    if (cell == nullptr) throw NoSuchKey(key);
    return m_slots[cell->Place].Value;
  }

  /// The entry under a key, or null.
  Pointer Find(std::string_view key) const {
    const Cell* cell = TakenCell(key);
    return cell == nullptr ? nullptr : m_slots[cell->Place].Value;
  }

  /// Appends an entry without a key.
  void Add(Pointer entry) {
    m_slots.push_back({std::move(entry), {}});
    m_version = NextVersion();
  }

  /// Appends an entry under a key; fails with 5 when the key is taken.
  void Add(Pointer entry, std::string_view key) {
    if (!AddIfAbsent(std::move(entry), key))
      throw platform::Failure(platform::Failure::InvalidArgument, "the key \"" + std::string(key) + "\" is taken");
  }

  /// Appends an entry under a key unless the key is taken; tells whether it did.
  bool AddIfAbsent(Pointer entry, std::string_view key) {
    FoldedKey folded(key);
    MakeRoom();
    Cell& cell = CellOf(folded);
    if (IsTaken(cell)) return false;
    Occupy(cell, std::move(entry), std::move(folded));
    return true;
  }

  /// Appends an entry under a key; an entry that had the key is removed.
  void AddReplacing(Pointer entry, std::string_view key) {
    FoldedKey folded(key);
    MakeRoom();
    Cell& cell = CellOf(folded);
    if (IsTaken(cell)) Vacate(cell);
    Occupy(cell, std::move(entry), std::move(folded));
  }

  /// Removes the entry under a key; fails with 5 when there is none.
  void Remove(std::string_view key) {
    const Cell* cell = TakenCell(key);
    if (cell == nullptr) throw NoSuchKey(key);
    Vacate(*cell);
  }

  void Clear() { *this = KeyedCollection(); }

  /// A number that no two different contents share, so that who keeps something made of the entries sees whether it
  /// still holds. What the entries say is not in it.
  std::uint64_t Version() const { return m_version; }

  /// Walks the entries in order: for (const auto& entry : collection) gives each Pointer. The collection must not
  /// change meanwhile; looking entries up is allowed.
  class Iterator {
   public:
    explicit Iterator(const Slot* slot) : m_slot(slot) {}
    const Pointer& operator*() const { return m_slot->Value; }
    Iterator& operator++() {
      ++m_slot;
      return *this;
    }
    bool operator==(const Iterator&) const = default;

   private:
    const Slot* m_slot;
  };
  Iterator begin() const {
    CloseUp();  // now, so that asking for a position during the walk moves nothing
    return Iterator(m_slots.data());
  }
  Iterator end() const {
    CloseUp();
    return Iterator(m_slots.data() + m_slots.size());
  }

 private:
  static constexpr std::size_t NoPlace = static_cast<std::size_t>(-1);

  /// One cell of the hash table: a key's place in m_slots.
  struct Cell {
    std::size_t Hash = 0;
    std::size_t Place = NoPlace;
  };

  struct FoldedKey {
    explicit FoldedKey(std::string_view key)
        : Text(rich_text::LowerCase(key)), Hash(std::hash<std::string_view>{}(Text)) {}
    std::string Text;
    std::size_t Hash;
  };

  bool IsTaken(const Cell& cell) const { return cell.Place != NoPlace && m_slots[cell.Place].Value != nullptr; }

  /// The cell of a key, or the free one where it belongs. The table's size is a power of two, and half of it is free.
  Cell& CellOf(const FoldedKey& key) const {
    const std::size_t mask = m_cells.size() - 1;
    for (std::size_t i = key.Hash & mask;; i = (i + 1) & mask) {
      Cell& cell = m_cells[i];
      if (cell.Place == NoPlace || (cell.Hash == key.Hash && m_slots[cell.Place].Key == key.Text)) return cell;
    }
  }

  /// The cell of a key that has an entry, or null.
  const Cell* TakenCell(std::string_view key) const {
    if (m_cells.empty()) return nullptr;
    const Cell& cell = CellOf(FoldedKey(key));
    return IsTaken(cell) ? &cell : nullptr;
  }

  void Occupy(Cell& cell, Pointer entry, FoldedKey&& key) {
    if (cell.Place == NoPlace) ++m_cellsInUse;
    cell = {key.Hash, m_slots.size()};
    m_slots.push_back({std::move(entry), std::move(key.Text)});
    m_version = NextVersion();
  }

  void Vacate(const Cell& cell) {
    m_slots[cell.Place].Value = nullptr;
    ++m_removed;
    m_version = NextVersion();
  }

  /// Before a key is added: keeps half of the table free, and removed entries fewer than the rest.
  void MakeRoom() {
    if (m_removed > Count() + 64) CloseUp();
    if (2 * (m_cellsInUse + 1) > m_cells.size()) Rehash(std::max<std::size_t>(8, 2 * m_cells.size()), m_cells);
  }

  void Rehash(std::size_t size, const std::vector<Cell>& cells) const {
    std::vector<Cell> larger(size);
    for (const Cell& cell : cells) {
      if (cell.Place == NoPlace) continue;
      std::size_t i = cell.Hash & (size - 1);
      while (larger[i].Place != NoPlace) i = (i + 1) & (size - 1);
      larger[i] = cell;
    }
    m_cells = std::move(larger);
  }

  void CloseUp() const {
    if (m_removed == 0) return;
    std::vector<std::size_t> newPlaces(m_slots.size(), NoPlace);
    std::size_t kept = 0;
    for (std::size_t place = 0; place < m_slots.size(); ++place) {
      if (!m_slots[place].Value) continue;
      newPlaces[place] = kept;
      if (kept != place) m_slots[kept] = std::move(m_slots[place]);
      ++kept;
    }
    m_slots.resize(kept);
    m_removed = 0;
    std::vector<Cell> cells = std::move(m_cells);
    m_cellsInUse = 0;
    for (Cell& cell : cells) {
      if (cell.Place != NoPlace) cell.Place = newPlaces[cell.Place];
      if (cell.Place != NoPlace) ++m_cellsInUse;
    }
    Rehash(cells.size(), cells);
  }

  static std::uint64_t NextVersion() {
    static std::uint64_t last = 0;
    return ++last;
  }
  static platform::Failure OutOfRange() { return {platform::Failure::OutOfRange, "a position outside the collection"}; }
  static platform::Failure NoSuchKey(std::string_view key) {
    return {platform::Failure::InvalidArgument, "no entry has the key \"" + std::string(key) + "\""};
  }

  mutable std::vector<Slot> m_slots;
  mutable std::vector<Cell> m_cells;     ///< a power of two of them, or none
  mutable std::size_t m_cellsInUse = 0;  ///< those with a place, also that of a removed entry
  mutable std::size_t m_removed = 0;     ///< the slots without an entry
  std::uint64_t m_version = 0;           ///< 0 for every collection that has always been empty
};

}  // namespace templates
