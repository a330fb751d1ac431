#include "tests/support/MemoryTextControl.h"

#include "tests/support/TextControlContract.h"

namespace tests {
namespace {

struct MemoryFactory {
  static std::unique_ptr<platform::TextControl> Make() { return std::make_unique<MemoryTextControl>(); }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, TextControlContract, MemoryFactory);

}  // namespace
}  // namespace tests
