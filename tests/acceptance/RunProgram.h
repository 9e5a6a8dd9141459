#pragma once

#include <filesystem>
#include <string>

/// What a run of the built program left.
struct Outcome {
  int code = -1;  ///< the exit code, or 128 and the signal that ended it
  std::string out;
  std::string err;
};

/// Runs a command of the shell in which `kr` is the built program, with `input` as its standard input, in the folder of
/// the test. Standard output and standard error are gathered apart.
Outcome runShell(const std::string& command, const std::string& input = {});

/// A folder of this test's own, empty at first, gone at the end.
class TestFolder {
 public:
  TestFolder();
  ~TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  /// The path of a file in it.
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  /// Writes a file into it and gives its path.
  std::string write(const std::string& name, const std::string& contents) const;
  /// What a file in it holds; empty when it isn't there.
  std::string read(const std::string& name) const;
  bool has(const std::string& name) const { return std::filesystem::exists(folder_ / name); }
  /// How many files it holds.
  std::size_t count() const;

 private:
  std::filesystem::path folder_;
};
