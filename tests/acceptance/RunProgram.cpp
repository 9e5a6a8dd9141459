#include "RunProgram.h"

#include <stdlib.h>
#include <sys/wait.h>

#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void store(const fs::path& path, const std::string& contents) {
  std::ofstream file(path, std::ios::binary);
  file << contents;
}

constexpr int kSignalled = 128;

}  // namespace

TestFolder::TestFolder() {
  std::string name = (fs::temp_directory_path() / "kr-acceptance-XXXXXX").string();
  folder_ = mkdtemp(name.data());
}

TestFolder::~TestFolder() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

std::string TestFolder::write(const std::string& name, const std::string& contents) const {
  store(folder_ / name, contents);
  return path(name);
}

std::string TestFolder::read(const std::string& name) const {
  return contentsOf(folder_ / name);
}

std::size_t TestFolder::count() const {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
}

Outcome runShell(const std::string& command, const std::string& input) {
  const TestFolder folder;
  store(folder.path("in"), input);
  const std::string line = "kr() { '" KR_BINARY_DIR "/bin/kr' \"$@\"; }; ( " + command + " ) < '" + folder.path("in") +
                           "' > '" + folder.path("out") + "' 2> '" + folder.path("err") + "'";
  const int status = std::system(line.c_str());
  Outcome run;
  run.code = WIFEXITED(status) ? WEXITSTATUS(status) : kSignalled + WTERMSIG(status);
  run.out = folder.read("out");
  run.err = folder.read("err");
  return run;
}
