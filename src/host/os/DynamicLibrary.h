#pragma once

#include <string>

/// A loaded library.
using HMODULE = struct KrLoadedLibrary*;

/// A function of unknown type, to be cast to its own.
using FARPROC = void (*)();

/// Loads a shared library by its path, resolved as os::resolvePath does. A bare file name is sought in the program's
/// folder, then beside the host's own library, then where the system looks. Null on failure.
HMODULE LoadLibraryW(const wchar_t* path);

/// The function of that name; null when the library has none, and for a null library.
FARPROC GetProcAddress(HMODULE library, const char* name);

/// Lets go of a library. Nonzero on success; 0 for null.
int FreeLibrary(HMODULE library);

namespace os {

/// Why the last LoadLibraryW failed, as the system words it; empty when it didn't.
const std::string& lastLoadError();

}  // namespace os
