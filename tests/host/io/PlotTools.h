#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "host/io/plot/PlotSheet.h"

/// Other programs' eyes on the pages plotted.
namespace plottools {

/// A folder that goes when the test ends.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "plotXXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  std::string file(const std::string& name) const { return path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
  }

 private:
  std::string path_;
};

/// What a command prints. The test fails when the command does.
inline std::string run(const std::string& command) {
  std::string text;
  std::FILE* pipe = popen(command.c_str(), "r");
  std::array<char, 65536> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) text.append(buffer.data(), count);
  const int status = pclose(pipe);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << command;
  return text;
}

struct Picture {
  int width = 0, height = 0;
  std::string rgb;

  int dark(int x, int y) const {
    const std::size_t at =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 3;
    return 255 - static_cast<unsigned char>(rgb.at(at));
  }
  std::array<int, 3> at(int x, int y) const {
    const std::size_t from =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 3;
    const auto part = [&](std::size_t i) { return static_cast<int>(static_cast<unsigned char>(rgb.at(from + i))); };
    return {part(0), part(1), part(2)};
  }
  /// Left, top, right, bottom of what isn't white; right and bottom lie beyond the last dot.
  std::array<int, 4> ink() const {
    std::array<int, 4> box{width, height, 0, 0};
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        if (dark(x, y) < 128) continue;
        box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x + 1), std::max(box[3], y + 1)};
      }
    }
    return box;
  }
};

inline Picture readPpm(const std::string& ppm) {
  Picture picture;
  std::istringstream in(ppm);
  std::string magic;
  int greatest = 0;
  in >> magic >> picture.width >> picture.height >> greatest;
  in.get();
  EXPECT_EQ(magic, "P6");
  picture.rgb = ppm.substr(static_cast<std::size_t>(std::max<std::streamoff>(in.tellg(), 0)));
  return picture;
}

inline Picture readPng(const std::string& path) {
  return readPpm(run("python3 " KR_SOURCE_DIR "/tests/host/io/picture.py '" + path + "'"));
}

/// A PDF's first page at so many dots an inch, drawn by another program.
inline Picture drawPdf(const std::string& path, int dpi) {
  return readPpm(run("pdftoppm -r " + std::to_string(dpi) + " -singlefile '" + path + "'"));
}

}  // namespace plottools
