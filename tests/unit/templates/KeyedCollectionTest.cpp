#include "templates/KeyedCollection.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/laws/Dice.h"
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
  laws::Dice dice(7);
  const std::vector<std::string> keys = {"a", "A", "b", "ü", "Ü", "word", "WORD", "Word "};
  KeyedCollection<int> collection;
  PlainCollection plain;
  for (int step = 0; step < 20000; ++step) {
    const std::string key = dice.Pick(keys);
    const auto entry = std::make_shared<int>(step);
    const std::size_t action = dice.Below(8);
    if (action == 0) collection.Add(entry), plain.Entries.push_back({step, ""});
    int code = 0, expected = 0;
    if (action == 1 || action == 2) code = CodeOf([&] { collection.Add(entry, key); }), expected = plain.Add(step, key);
    if (action == 3) collection.AddReplacing(entry, key), plain.Remove(key), plain.Add(step, key);
    if (action == 4 || action == 5) code = CodeOf([&] { collection.Remove(key); }), expected = plain.Remove(key);
    if (action == 6 && plain.Entries.size() > 20) collection.Clear(), plain.Entries.clear();
    ASSERT_EQ(code, expected);

    const auto found = plain.Find(key);
    const auto item = collection.Find(key);
    ASSERT_EQ(item ? *item : -1, found == plain.Entries.end() ? -1 : found->Value);
    ASSERT_EQ(CodeOf([&] { collection.Item(key); }), item ? 0 : 5);
    ASSERT_EQ(collection.Count(), plain.Entries.size());
    for (const std::size_t outside : {std::size_t{0}, plain.Entries.size() + 1})
      ASSERT_EQ(CodeOf([&] { collection.Item(outside); }), 9);
    std::size_t walked = 0;
    for (const auto& each : collection) {
      ASSERT_EQ(*each, plain.Entries.at(walked++).Value);
      ASSERT_EQ(collection.Item(walked), each) << "a look-up moves nothing under a walk";
    }
    ASSERT_EQ(walked, plain.Entries.size());
  }
}

}  // namespace
