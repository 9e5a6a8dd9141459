#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

/// The input of a fuzz target as a file, for readers that take a path. One file per process, written over each time and
/// removed at the end.
class InputFile {
 public:
  explicit InputFile(const char* subject)
      : path_(std::filesystem::temp_directory_path() /
              ("fuzz-" + std::string(subject) + "-" + std::to_string(::getpid()))) {}
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  std::wstring write(const std::uint8_t* data, std::size_t size) const {
    std::ofstream file(path_, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    file.close();
    if (!file) std::abort();
    return path_.wstring();
  }

 private:
  std::filesystem::path path_;
};
