// Tries a fuzzer on every file of the named folders, so that what was found once is tried for ever, and on pieces of
// them that are disturbed at random. The last file or seed printed is the one that broke it; QUILLMARK_LAW_SEED=…
// QUILLMARK_LAW_RUNS=1 replays a seed.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "tests/fuzz/Fuzzer.h"
#include "tests/laws/Dice.h"

namespace {

using Texts = std::vector<std::string>;

Texts TryFilesOf(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  Texts texts;
  for (const auto& path : paths) {
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    std::ifstream file(path, std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    fuzz::Try(texts.back());
  }
  return texts;
}

/// A piece of one of the texts, most often its beginning, with pieces of others in it, and bytes gone or changed.
std::string Disturbed(laws::Dice& dice, const Texts& texts) {
  const auto piece = [&](int atStart, std::size_t longest) {
    const std::string text = dice.Pick(texts);
    return text.substr(dice.Chance(atStart) ? 0 : dice.Below(text.size() + 1), dice.Below(longest + 1));
  };
  std::string bytes = piece(70, 3000);
  for (std::size_t changes = 1 + dice.Below(8); changes > 0; --changes) {
    const std::size_t at = dice.Below(bytes.size() + 1);
    if (dice.Chance(50))
      bytes.insert(at, piece(0, 20));
    else if (dice.Chance(50))
      bytes.erase(at, dice.Below(9));
    else if (at < bytes.size())
      bytes[at] = static_cast<char>(dice.Below(256));
  }
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<Texts> folders;
  for (int i = 1; i < argc; ++i)
    if (std::filesystem::is_directory(argv[i])) folders.push_back(TryFilesOf(argv[i]));
  if (folders.empty()) return 1;
  for (std::uint64_t seed = laws::FirstSeed(); seed < laws::FirstSeed() + laws::Runs(3000); ++seed) {
    std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
    std::fflush(stdout);
    laws::Dice dice(seed);
    fuzz::Try(Disturbed(dice, dice.Pick(folders)));
  }
  return 0;
}
