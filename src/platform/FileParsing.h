#pragma once
// Taking paths apart and showing them. Both "\" and "/" separate; a display form uses the one that its path uses last.
// Paths are UTF-8 (any bytes pass through unharmed); lengths are characters. Only FullPathName looks at the disk.

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// The text after the last "." of the whole path, folders included; "" when there is none.
std::string FileExtension(std::string_view path);

/// The text after the last separator; the whole path when there is none.
std::string FileNameOf(std::string_view path);

/// The file name, cut before its last ".".
std::string FileTitle(std::string_view path);

/// The text up to and including the last separator; "" when there is none.
std::string FolderOf(std::string_view path);

/// The path itself when it has at most `maximum` characters; else its last folders and its name behind "...", with the
/// first characters of the folder that did not fit. A long file name stands whole, whatever the maximum.
std::string ShortenPath(std::string_view path, int maximum);

/// The absolute path of what exists on disk, a relative one taken from the absolute folder `from`; "" when nothing is
/// there. "." and ".." are resolved, symbolic links stay. A path with "\" in its names is tried as it stands first.
std::string FullPathName(std::string_view path, std::string_view from);

}  // namespace platform
