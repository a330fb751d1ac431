#pragma once
// A toolbar layout's text as somebody would forge it: any body under the right length and checksum.

#include <cstdint>
#include <cstdio>
#include <string>

namespace tests {

inline std::string Sealed(const std::string& body) {
  std::uint32_t sum = ~0U;
  for (const char c : body) {
    std::uint32_t rest = (sum ^ static_cast<unsigned char>(c)) & 0xFF;
    for (int i = 0; i < 8; ++i) rest = rest & 1 ? (rest >> 1) ^ 0xEDB88320U : rest >> 1;
    sum = (sum >> 8) ^ rest;
  }
  char seal[40];
  std::snprintf(seal, sizeof seal, "%zu %08x\n", body.size(), static_cast<unsigned>(~sum));
  return "Quillmark toolbar layout 1\n" + std::string(seal) + body;
}

}  // namespace tests
