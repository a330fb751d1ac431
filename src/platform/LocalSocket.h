#pragma once
// The socket of the instance channel, as both ends address it.

#include <string>

#include "platform/InstanceChannel.h"

namespace platform {

/// A non-blocking local socket; closed for none.
FileDescriptor MakeLocalSocket();

/// Binds or connects to the socket file of the folder, however long its path is. False with errno set on failure.
bool BindIn(int socket, const std::string& folder);
bool ConnectIn(int socket, const std::string& folder);

/// Removes the socket file of the folder; only its first instance may do so.
void RemoveSocketIn(const std::string& folder);

}  // namespace platform
