#include "host/os/DynamicLibrary.h"

#include <dlfcn.h>

#include <filesystem>

#include "host/os/Path.h"
#include "host/os/Text.h"

namespace {

std::string& loadError() {
  static auto* const text = new std::string;
  return *text;
}

void* openLibrary(const std::string& path) {
  return ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

std::string hostFolder() {
  Dl_info info{};
  if (::dladdr(reinterpret_cast<const void*>(&LoadLibraryW), &info) == 0 || info.dli_fname == nullptr) return {};
  return std::filesystem::path(info.dli_fname).parent_path().string();
}

void* openBareName(const std::string& name) {
  for (const std::string& folder : {os::programFolder(), hostFolder()}) {
    const std::string path = folder + "/" + name;
    std::error_code error;
    // Only what is there is tried, so that a broken library is reported and not passed over.
    if (!folder.empty() && std::filesystem::exists(path, error)) return openLibrary(path);
  }
  return openLibrary(name);
}

}  // namespace

HMODULE LoadLibraryW(const wchar_t* path) {
  const bool isBareName = std::wstring_view(path).find_first_of(L"/\\") == std::wstring_view::npos;
  void* handle = isBareName ? openBareName(os::toUtf8(path)) : openLibrary(os::resolvePath(path));
  loadError().clear();
  if (handle == nullptr) {
    const char* reason = ::dlerror();
    loadError() = reason != nullptr ? reason : "unknown reason";
  }
  return static_cast<HMODULE>(handle);
}

FARPROC GetProcAddress(HMODULE library, const char* name) {
  if (library == nullptr) return nullptr;
  return reinterpret_cast<FARPROC>(::dlsym(library, name));
}

int FreeLibrary(HMODULE library) {
  return library != nullptr && ::dlclose(library) == 0 ? 1 : 0;
}

namespace os {

const std::string& lastLoadError() {
  return loadError();
}

}  // namespace os
