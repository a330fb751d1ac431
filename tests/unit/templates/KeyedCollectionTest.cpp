#include "templates/KeyedCollection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>

#include "tests/support/FailureCode.h"

namespace {

using templates::KeyedCollection;
using tests::CodeOf;

/// The same collection as a plain list, searched from its start.
struct PlainCollection {
  struct Entry {
    int Value;
    std::string Key;
  };
  std::vector<Entry> Entries;

  auto Find(const std::string& key) {
    return std::find_if(Entries.begin(), Entries.end(), [&](const Entry& entry) {
      return !entry.Key.empty() && rich_text::LowerCase(entry.Key) == rich_text::LowerCase(key);
    });
  }
  int Add(int value, const std::string& key) {
    if (Find(key) != Entries.end()) return 5;
    Entries.push_back({value, key});
    return 0;
  }
  int Remove(const std::string& key) {
    const auto found = Find(key);
    if (found == Entries.end()) return 5;
    Entries.erase(found);
    return 0;
  }
};

TEST(KeyedCollection, BehavesLikeAPlainList) {
  std::mt19937 random(7);
  const std::vector<std::string> keys = {"a", "A", "b", "ü", "Ü", "word", "WORD", "Word "};
  KeyedCollection<int> collection;
  PlainCollection plain;
  for (int step = 0; step < 20000; ++step) {
    const std::string& key = keys[random() % keys.size()];
    auto entry = std::make_shared<int>(step);
    switch (random() % 8) {
      case 0:
        collection.Add(entry);
        plain.Entries.push_back({step, ""});
        break;
      case 1:
      case 2:
        ASSERT_EQ(CodeOf([&] { collection.Add(entry, key); }), plain.Add(step, key));
        break;
      case 3:
        collection.AddReplacing(entry, key);
        plain.Remove(key);
        plain.Add(step, key);
        break;
      case 4:
      case 5:
        ASSERT_EQ(CodeOf([&] { collection.Remove(key); }), plain.Remove(key));
        break;
      case 6: {
        const auto found = plain.Find(key);
        const auto item = collection.Find(key);
        ASSERT_EQ(item ? *item : -1, found == plain.Entries.end() ? -1 : found->Value);
        ASSERT_EQ(CodeOf([&] { collection.Item(key); }), item ? 0 : 5);
        break;
      }
      default:
        if (plain.Entries.size() > 20) collection.Clear(), plain.Entries.clear();
    }
    ASSERT_EQ(collection.Count(), plain.Entries.size());
    if (step % 3 == 0) {
      std::size_t place = random() % (plain.Entries.size() + 2);
      if (place >= 1 && place <= plain.Entries.size())
        ASSERT_EQ(*collection.Item(place), plain.Entries[place - 1].Value);
      else
        ASSERT_EQ(CodeOf([&] { collection.Item(place); }), 9);
    }
    std::size_t walked = 0;
    for (const auto& each : collection) {
      ASSERT_EQ(*each, plain.Entries.at(walked++).Value);
      ASSERT_EQ(collection.Item(walked), each) << "a look-up moves nothing under a walk";
    }
    ASSERT_EQ(walked, plain.Entries.size());
  }
}

}  // namespace
