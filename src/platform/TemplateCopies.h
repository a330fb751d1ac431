#pragma once
// The user's copies of the installed templates: made at the first start, renewed when another version is installed, and
// left alone for good once the user has changed or removed them.
//
// What was installed when a copy was made stands beside the copies in CopiesRecord, one file a line: the hash of its
// bytes, its size, its time, its name. Without that record what differs from the installed file counts as the user's.

#include <string>

namespace platform {

inline constexpr const char* CopiesRecord = "Installed.txt";

/// Brings the copies in the folder `own`, which is made, in step with the templates and help definition files in
/// `installed`. A file that cannot be copied is left out: the program works with the templates that there are.
void RenewCopies(const std::string& own, const std::string& installed);

}  // namespace platform
