#pragma once
// The folders of the user that runs the program, as the environment names them.

#include <string>

namespace platform {

/// The value of an environment variable; "" where it is not set.
std::string Environment(const char* name);

/// Where the user's files of a kind are kept, without a final separator: $XDG_DATA_HOME, $XDG_STATE_HOME and
/// $XDG_CONFIG_HOME, or the usual folders below $HOME. Only absolute paths count; "" where there is none.
std::string DataHome();
std::string StateHome();
std::string ConfigHome();

}  // namespace platform
