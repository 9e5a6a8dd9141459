#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/io/dwg/CodePages.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dwg/FileFiler.h"

/// Drawings for the tests of files: samples of other programs, and what tells whether two drawings are the same.
namespace dwgtools {

using Bytes = std::vector<std::byte>;

/// The folder of sample drawings: KR_SAMPLES, or ../shared/samples beside the source tree. Empty when there is none.
inline std::filesystem::path samples() {
  const char* const given = std::getenv("KR_SAMPLES");
  const std::filesystem::path folder = given != nullptr ? given : KR_SOURCE_DIR "/../shared/samples";
  return std::filesystem::is_directory(folder / "dwg") ? folder / "dwg" : std::filesystem::path();
}

/// All sample drawings, in order.
inline std::vector<std::filesystem::path> sampleFiles() {
  std::vector<std::filesystem::path> files;
  if (samples().empty()) return files;
  for (const auto& entry : std::filesystem::directory_iterator(samples())) {
    if (entry.path().extension() == ".dwg") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

inline Bytes bytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(file)), {});
  const auto* const first = reinterpret_cast<const std::byte*>(text.data());
  return {first, first + text.size()};
}

inline std::string textOf(const krio::Report& report) {
  std::string text;
  for (const auto& finding : report.findings) {
    text += finding.severity == krio::Severity::Error     ? "error: "
            : finding.severity == krio::Severity::Warning ? "warning: "
                                                          : "note: ";
    text += finding.what + " (handle " + std::to_string(finding.handle) + ", place " + std::to_string(finding.place) +
            ")\n";
  }
  return text;
}

/// A drawing read from bytes, with what the reader said.
struct Opened {
  explicit Opened(const Bytes& bytes, bool recover = false) : database(new AcDbDatabase(false)) {
    status = krio::readDwg(bytes, *database, report, {recover});
  }
  std::unique_ptr<AcDbDatabase> database;
  krio::Report report;
  Acad::ErrorStatus status = Acad::eOk;
};

/// The bytes of a drawing; a test fails that gets none.
inline Bytes saved(AcDbDatabase& database) {
  Bytes bytes;
  krio::Report report;
  EXPECT_EQ(krio::writeDwg(database, bytes, report), Acad::eOk) << textOf(report);
  EXPECT_TRUE(report.clean()) << textOf(report);
  return bytes;
}

/// Files objects with all that they have, ids by their handles.
class DigestFiler : public krio::dwg::FileFiler {
 public:
  explicit DigestFiler(krio::dwg::Encoder& encoder) : FileFiler(encoder) {}
  bool framesObjects() const override { return false; }
};

/// What each object files of itself, by handle: class, fields, owner, references.
inline std::map<std::uint64_t, std::string> digest(AcDbDatabase& database) {
  std::map<std::uint64_t, std::string> result;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased)) continue;
    krio::dwg::BitWriter bits;
    krio::dwg::Encoder encoder(bits, krio::dwg::codePageOf(krio::dwg::kWesternCodePage));
    DigestFiler filer(encoder);
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, AcDbObjectId(const_cast<AcDbStub*>(&stub)), AcDb::kForRead) != Acad::eOk) continue;
    object->dwgOutFields(&filer);
    std::string text;
    for (const wchar_t* c = object->isA()->name(); *c != L'\0'; ++c) text += char(*c);
    object->close();
    encoder.flushRefs();
    const auto bytes = bits.bytes();
    text.append(bytes.begin(), bytes.end());
    result[stub.handle] = text;
  }
  return result;
}

/// Fails for each object that isn't the same in both.
inline void expectSame(AcDbDatabase& a, AcDbDatabase& b) {
  const auto before = digest(a);
  const auto after = digest(b);
  for (const auto& [handle, text] : before) {
    const auto found = after.find(handle);
    EXPECT_TRUE(found != after.end() && found->second == text) << std::hex << handle << " " << text.substr(0, 24);
  }
  EXPECT_EQ(before.size(), after.size());
}

/// How many objects of each class there are.
inline std::map<std::string, int> census(AcDbDatabase& database) {
  std::map<std::string, int> counts;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased)) continue;
    std::string name;
    for (const wchar_t* c = stub.object->isA()->name(); *c != L'\0'; ++c) name += char(*c);
    ++counts[name];
  }
  return counts;
}

}  // namespace dwgtools
