#pragma once

#include <string>
#include <string_view>

namespace os {

/// The path of a file in the form the file system takes. Backslashes count as separators, and each component that
/// doesn't stand there as written is sought without regard to case (the first in byte order is taken). Components that
/// don't exist are kept as written, so that a file to be made can be named.
std::string resolvePath(std::wstring_view path);

/// The folder of the running program, without a separator at the end.
std::string programFolder();

}  // namespace os
