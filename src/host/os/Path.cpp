#include "host/os/Path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "host/os/Text.h"

namespace {

namespace fs = std::filesystem;

bool exists(const std::string& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type() != fs::file_type::not_found && !error;
}

// The name in `folder` that equals `name` but for case; `name` itself when there is none.
std::string actualName(const std::string& folder, const std::string& name) {
  const std::wstring wanted = os::toWide(name);
  std::string best;
  std::error_code error;
  for (fs::directory_iterator each(folder.empty() ? "." : folder, error), end; !error && each != end;
       each.increment(error)) {
    std::string candidate = each->path().filename().string();
    if (os::compareNoCase(os::toWide(candidate), wanted) != 0) continue;
    if (best.empty() || candidate < best) best = std::move(candidate);
  }
  return best.empty() ? name : best;
}

}  // namespace

namespace os {

std::string resolvePath(std::wstring_view path) {
  std::string wanted = toUtf8(path);
  for (char& each : wanted) {
    if (each == '\\') each = '/';
  }
  if (exists(wanted)) return wanted;

  std::string resolved;
  std::size_t place = 0;
  while (place < wanted.size()) {
    const std::size_t end = std::min(wanted.find('/', place), wanted.size());
    const std::string name = wanted.substr(place, end - place);
    const bool isPlain = name.empty() || name == "." || name == "..";
    resolved += isPlain || exists(resolved + name) ? name : actualName(resolved, name);
    if (end < wanted.size()) resolved += '/';
    place = end + 1;
  }
  return resolved;
}

std::string programFolder() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path().string();
}

}  // namespace os
