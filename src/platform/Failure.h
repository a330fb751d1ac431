#pragma once
// The one exception of failures that carry a number, as the callers that tell failures apart by number expect.

#include <stdexcept>
#include <string>

namespace platform {

class Failure : public std::runtime_error {
 public:
  static constexpr int InvalidArgument = 5;  ///< a keyed collection does not hold the key, or holds it already
  static constexpr int OutOfRange = 9;       ///< an index outside a list

  Failure(int code, const std::string& reason) : std::runtime_error(reason), m_code(code) {}

  int Code() const { return m_code; }

 private:
  int m_code;
};

}  // namespace platform
