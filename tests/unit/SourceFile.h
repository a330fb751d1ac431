#pragma once
// Files of the source tree that tests read.

#include <gtest/gtest.h>

#include <string>

#include "platform/Files.h"

namespace tests {

/// The bytes of a file below the root of the tree, which must be there.
inline std::string SourceFile(const std::string& path) {
  platform::FileContent content = platform::ReadFile(QUILLMARK_SOURCE_DIR "/" + path);
  EXPECT_EQ(content.Error, "") << path;
  return std::move(content.Bytes);
}

}  // namespace tests
