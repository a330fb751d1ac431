// A small stock list: reads lines such as "bolt 120 0.15", adds them up and
// prints what has to be ordered. Without a file it uses a list of its own.
#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <numeric>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#define LOW_STOCK 25

namespace inventory {

/* One article. The price is kept in cents, so that sums stay exact. */
struct Item {
  std::string Name;
  std::uint32_t Count = 0;
  std::int64_t Cents = 0;

  [[nodiscard]] std::int64_t Value() const { return Cents * Count; }
  [[nodiscard]] bool IsLow() const { return Count < LOW_STOCK; }
};

class Store {
 public:
  void Add(const Item& item) {
    auto [place, isNew] = m_items.try_emplace(item.Name, item);
    if (!isNew) place->second.Count += item.Count;
  }

  template <typename Predicate>
  [[nodiscard]] std::vector<Item> Select(Predicate wanted) const {
    std::vector<Item> result;
    for (const auto& [name, item] : m_items) {
      if (wanted(item)) result.push_back(item);
    }
    return result;
  }

 private:
  std::map<std::string, Item> m_items;
};

// Nothing for an empty line or a comment; a broken line is an error.
std::optional<Item> ParseLine(const std::string& line) {
  if (line.empty() || line.front() == '#') return std::nullopt;
  std::istringstream fields(line);
  Item item;
  double price = 0.0;
  if (!(fields >> item.Name >> item.Count >> price) || price < 0) {
    throw std::invalid_argument("cannot read the line: " + line);
  }
  item.Cents = static_cast<std::int64_t>(price * 100 + 0.5);
  return item;
}

Store ReadStore(std::istream& input) {
  Store store;
  for (std::string line; std::getline(input, line);) {
    if (const auto item = ParseLine(line)) store.Add(*item);
  }
  return store;
}

}  // namespace inventory

int main(int argc, char* argv[]) {
  using namespace inventory;
  try {
    std::istringstream sample("bolt 120 0.15\nnut 18 0.09\n# comment\nwasher 400 0.02\nnut 4 0.09\n");
    std::ifstream file;
    if (argc > 1) {
      file.open(argv[1]);
      if (!file) throw std::runtime_error("cannot open the file");
    }
    const Store store = ReadStore(argc > 1 ? static_cast<std::istream&>(file) : sample);

    auto all = store.Select([](const Item&) { return true; });
    std::sort(all.begin(), all.end(), [](const Item& a, const Item& b) { return a.Value() > b.Value(); });
    for (const Item& item : all) {
      std::cout << std::left << std::setw(10) << item.Name << std::right << std::setw(6) << item.Count << '\t'
                << (item.IsLow() ? "order more" : "ok") << '\n';
    }
    const std::int64_t total = std::accumulate(all.begin(), all.end(), std::int64_t{0},
                                               [](std::int64_t sum, const Item& item) { return sum + item.Value(); });
    std::cout << "Total: " << total / 100 << '.' << std::setfill('0') << std::setw(2) << total % 100 << '\n';
  } catch (const std::exception& error) {
    std::cerr << "inventory: " << error.what() << std::endl;
    return 1;
  }
  return 0;
}
