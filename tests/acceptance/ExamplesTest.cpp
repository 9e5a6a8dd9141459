// The examples are drawn without a complaint, and the documents that are made of them are what the program makes now.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "RunProgram.h"

namespace {

namespace fs = std::filesystem;

const fs::path kSource = KR_SOURCE_DIR;

std::string inQuotes(const fs::path& path) {
  return "'" + path.string() + "'";
}

int pagesOf(const fs::path& pdf) {
  const Outcome run = runShell("pdfinfo " + inQuotes(pdf));
  const std::string key = "Pages:";
  const std::size_t at = run.out.find(key);
  return at == std::string::npos ? 0 : std::atoi(run.out.c_str() + at + key.size());
}

TEST(Examples, AreAllDrawnWithoutAComplaint) {
  const TestFolder folder;
  int drawn = 0;
  for (const fs::directory_entry& file : fs::directory_iterator(kSource / "examples")) {
    if (file.path().extension() != ".json") continue;
    SCOPED_TRACE(file.path().filename());
    const fs::path pdf = folder.path(file.path().stem().string() + ".pdf");
    const Outcome run = runShell("kr build " + inQuotes(file.path()) + " " + inQuotes(pdf));
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "");
    EXPECT_GT(pagesOf(pdf), 0);
    ++drawn;
  }
  EXPECT_GE(drawn, 8);
}

/// A page as a picture in shades of grey.
struct Page {
  int width = 0;
  int height = 0;
  std::string shades;
};

std::vector<Page> pagesIn(const fs::path& pdf, const TestFolder& folder, const std::string& name) {
  const Outcome run = runShell("pdftoppm -r 50 -gray " + inQuotes(pdf) + " " + inQuotes(folder.path(name)));
  EXPECT_EQ(run.code, 0) << run.err;
  std::vector<std::string> files;
  for (const fs::directory_entry& file : fs::directory_iterator(fs::path(folder.path(name)).parent_path())) {
    const std::string found = file.path().filename().string();
    if (found.rfind(name + "-", 0) == 0 && file.path().extension() == ".pgm") files.push_back(found);
  }
  std::sort(files.begin(), files.end());
  std::vector<Page> pages;
  for (const std::string& file : files) {
    const std::string contents = folder.read(file);
    std::istringstream head(contents);
    std::string magic;
    int most = 0;
    Page page;
    head >> magic >> page.width >> page.height >> most;
    const auto size = static_cast<std::size_t>(page.width) * static_cast<std::size_t>(page.height);
    if (magic != "P5" || contents.size() < size) continue;
    page.shades = contents.substr(contents.size() - size);
    pages.push_back(std::move(page));
  }
  return pages;
}

/// How many dots of two pictures differ by more than another version of a library draws them by.
std::ptrdiff_t differentDots(const Page& a, const Page& b) {
  constexpr int kMuch = 128;
  std::ptrdiff_t count = 0;
  for (std::size_t i = 0; i < a.shades.size(); ++i) {
    const int of = static_cast<unsigned char>(a.shades[i]);
    const int other = static_cast<unsigned char>(b.shades[i]);
    if (std::abs(of - other) > kMuch) ++count;
  }
  return count;
}

void expectMadeOf(const std::string& document, const std::string& example) {
  SCOPED_TRACE(document);
  const TestFolder folder;
  const fs::path made = folder.path("made.pdf");
  const Outcome run = runShell("kr build " + inQuotes(kSource / "examples" / example) + " " + inQuotes(made));
  ASSERT_EQ(run.code, 0) << run.err;
  const std::vector<Page> want = pagesIn(made, folder, "now");
  const std::vector<Page> got = pagesIn(kSource / "docs" / document, folder, "then");
  ASSERT_FALSE(want.empty());
  ASSERT_EQ(got.size(), want.size()) << "scripts/pictures makes it anew";
  for (std::size_t i = 0; i < want.size(); ++i) {
    ASSERT_EQ(got[i].width, want[i].width);
    ASSERT_EQ(got[i].height, want[i].height);
    EXPECT_LE(differentDots(got[i], want[i]), 20) << "page " << i + 1 << ": scripts/pictures makes it anew";
  }
}

TEST(Documents, AreWhatTheProgramMakesNow) {
  // It would date their title blocks.
  unsetenv("SOURCE_DATE_EPOCH");
  expectMadeOf("modifiers.pdf", "modifiers.json");
  expectMadeOf("catalogue.pdf", "catalogue.json");
}

}  // namespace
