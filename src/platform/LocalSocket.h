#pragma once
// The socket of the instance channel, as both ends address it.

#include <string>

#include "platform/FileDescriptor.h"

namespace platform {

/// A non-blocking local socket; closed for none.
FileDescriptor MakeLocalSocket();

/// Binds or connects to the socket file of the folder, however long its path is. False with errno set on failure.
bool BindIn(int socket, const std::string& folder);
bool ConnectIn(int socket, const std::string& folder);

/// Whether the process at the other end of a connected socket runs as this user.
bool PeerIsThisUser(int socket);

/// Removes the socket file of the folder; only its first instance may do so.
void RemoveSocketIn(const std::string& folder);

}  // namespace platform
