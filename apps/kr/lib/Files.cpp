#include "Files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "Suggest.h"
#include "host/os/ReplaceFile.h"

namespace kr {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kChunk = std::size_t{1} << 16;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

std::string reason() {
  return std::strerror(errno);
}

bool readAll(std::FILE* file, std::string& contents) {
  std::array<char, kChunk> buffer;
  std::size_t got = 0;
  while ((got = std::fread(buffer.data(), 1, buffer.size(), file)) > 0) {
    contents.append(buffer.data(), got);
    if (contents.size() > kLargestInput) {
      errno = EFBIG;
      return false;
    }
  }
  return std::ferror(file) == 0;
}

// Devices and pipes are written as they stand: to replace one by a file would destroy it.
bool isStream(const std::string& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  return fs::is_character_file(status) || fs::is_fifo(status) || fs::is_socket(status) || fs::is_block_file(status);
}

bool writeStream(std::FILE* file, std::string_view contents) {
  return std::fwrite(contents.data(), 1, contents.size(), file) == contents.size() && std::fflush(file) == 0;
}

bool writeWhole(const std::string& path, std::string_view contents, const os::ReplaceOptions& options, Report& report) {
  if (path == kStandardStream) {
    if (writeStream(stdout, contents)) return true;
    report.error(Exit::kOutputConflict, "can't write standard output: " + reason());
    return false;
  }
  if (isStream(path)) {
    const File file(std::fopen(path.c_str(), "wb"));
    if (file != nullptr && writeStream(file.get(), contents)) return true;
    report.error(Exit::kOutputConflict, "can't write " + inQuotes(path) + ": " + reason());
    return false;
  }
  const os::ReplaceResult result = os::replaceFile(path, contents, options);
  if (result) return true;
  report.error(Exit::kOutputConflict, result.message);
  return false;
}

}  // namespace

bool readInput(const std::string& path, std::string& contents, Report& report) {
  contents.clear();
  if (path == kStandardStream) {
    if (readAll(stdin, contents)) return true;
    report.error(Exit::kBadInput, "can't read standard input: " + reason());
    return false;
  }
  const File file(std::fopen(path.c_str(), "rb"));
  if (file != nullptr && readAll(file.get(), contents)) return true;
  report.error(Exit::kBadInput, "can't read " + inQuotes(path) + ": " + reason());
  return false;
}

bool checkOutput(const std::string& path, const std::string& input, bool overwrite, Report& report) {
  if (path == kStandardStream || isStream(path)) return true;
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) {
    report.error(Exit::kOutputConflict, inQuotes(path) + " is a folder: name a file");
    return false;
  }
  if (fs::equivalent(path, input, ignored)) {
    report.error(Exit::kOutputConflict, inQuotes(path) + " is the input: an output must be another file");
    return false;
  }
  if (fs::exists(path, ignored) && !overwrite) {
    report.error(Exit::kOutputConflict, inQuotes(path) + " exists: --overwrite replaces it");
    return false;
  }
  if (os::canReplaceFile(path)) return true;
  report.error(Exit::kOutputConflict, "can't write " + inQuotes(path) + ": its folder doesn't exist or takes no file");
  return false;
}

bool writeOutput(const std::string& path, std::string_view contents, bool overwrite, Report& report) {
  return writeWhole(path, contents, {.overwrite = overwrite}, report);
}

bool writeDrawingOutput(const std::string& path, std::string_view contents, bool overwrite, Report& report) {
  return writeWhole(path, contents, {.overwrite = overwrite, .keepBackup = true}, report);
}

}  // namespace kr
