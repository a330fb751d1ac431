#pragma once
// The law of files: one that is opened and saved without an edit is the same file, byte for byte.

#include <gtest/gtest.h>

#include <string>

#include "editor/Document.h"
#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"
#include "tests/support/TemporaryFolder.h"

namespace tests {

/// Plays the law on `count` random files with what is hard about them: marks, NULs, broken characters, every kind of
/// line end, and what looks like rich text.
inline void ExpectUntouchedFilesStay(editor::Document& document, const TemporaryFolder& folder, int count) {
  using namespace std::string_literals;
  static const std::vector<std::string> pieces =
      Split("\r\n|\n|\r|"s + '\0' +
            "|\xEF\xBB\xBF|\xC3\xA9|\xE2\x82\xAC|\xF0\x9F\x98\x80|\xC3|\xE2\x82|\x80|\xFF|\xED\xA0\x80|\xC0\x80|\x1A|"
            "\x7F|\\par |{|}|if |\t|/*");
  laws::Dice dice(7);
  for (int file = 0; file < count; ++file) {
    std::string bytes = dice.Chance(12) ? "\xEF\xBB\xBF" : "";
    const bool isAnyByte = dice.Chance(33);
    for (std::size_t size = dice.Below(48); size > 0; --size)
      bytes += isAnyByte ? std::string(1, static_cast<char>(dice.Below(256))) : dice.Pick(pieces);
    const std::string path = folder.Write("file.txt", bytes);
    document.OpenFile(path);
    EXPECT_TRUE(document.State().Saved);
    EXPECT_TRUE(document.SaveFile(path));
    ASSERT_EQ(folder.Read("file.txt"), bytes) << "file " << file;
  }
}

}  // namespace tests
