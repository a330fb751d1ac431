#pragma once
// What a fuzzer is: a function over any bytes that ends the program when they show a fault.

#include <cstdlib>
#include <string>

namespace fuzz {

/// Each fuzzer defines its own.
void Try(const std::string& bytes);

/// Ends the program where something does not hold that must.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace fuzz
