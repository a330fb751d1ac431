// Where the fuzzing engine calls.

#include <cstddef>
#include <cstdint>

#include "tests/fuzz/Fuzzer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
