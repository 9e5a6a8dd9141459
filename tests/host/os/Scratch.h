#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// A folder of a test's own, removed at its end.
class Scratch {
 public:
  Scratch() {
    std::string form = (std::filesystem::temp_directory_path() / "krtest-XXXXXX").string();
    path_ = ::mkdtemp(form.data());
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch() { std::filesystem::remove_all(path_); }

  std::string path(const std::string& name = {}) const { return name.empty() ? path_ : path_ + "/" + name; }

  void write(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << bytes;
  }
  std::string read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& each : std::filesystem::directory_iterator(path_))
      found.push_back(each.path().filename().string());
    return found;
  }

 private:
  std::string path_;
};
