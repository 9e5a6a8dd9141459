// Drawings of other programs from one form to the other and back.

#include <gmock/gmock.h>

#include <cstring>
#include <sstream>

#include "files/Trips.h"

namespace {

using namespace trips;

std::vector<std::filesystem::path> files(const char* extension) {
  std::vector<std::filesystem::path> all;
  if (dwgtools::samples().empty()) return all;
  for (const auto& entry : std::filesystem::directory_iterator(dwgtools::samples()))
    if (entry.path().extension() == extension) all.push_back(entry.path());
  std::ranges::sort(all);
  return all;
}

/// Classes of which one form holds what the other has no place for. Of these the DXF's groups count.
bool fitsOneFormBetter(const std::string& text) {
  const char* const classes[] = {
      "AcDbLeader",               // its origin
      "AcDbLinetypeTableRecord",  // the scale of a shape in a dash that has none
      "AcDbMText",                // how large the writing program found the text to be
      "AcDbViewport",             // its record among the viewport headers; its number
      "AcDbXrecord"               // whether extended data end the record's values or follow them
  };
  // The order of the two spaces among the blocks.
  if (text.starts_with("AcDbBlockTable") && !text.starts_with("AcDbBlockTableRecord")) return true;
  return std::ranges::any_of(classes, [&](const char* name) { return text.starts_with(name); });
}

/// Handles that a drawing of either form has in one only: the viewport headers have no form in a DXF.
bool isOfDwgAlone(const std::string& text) {
  return text.starts_with("AcDbVXTable");
}

/// A viewport's groups without its place in the order of activity and its number, where the sheet was never shown:
/// both are 0 then in a DXF, and a DWG has none of them.
std::string withoutNumber(std::string record) {
  for (const char* const group : {"\n 68\n     ", "\n 69\n     "}) {
    const std::size_t at = record.find(group);
    if (at != std::string::npos) record[at + std::strlen(group)] = '0';
  }
  return record;
}

/// Every object of `before` is in `after`, field by field; what no class takes goes by its bits or groups.
void expectKept(Opened& before, Opened& after) {
  const auto first = dwgtools::digest(before.database());
  const auto second = dwgtools::digest(after.database());
  const auto groupsBefore = records(saved(before.database(), Form::kDxf));
  const auto groupsAfter = records(saved(after.database(), Form::kDxf));
  int lost = 0;
  int added = 0;
  for (const auto& [handle, text] : first) {
    const auto found = second.find(handle);
    if (isOfDwgAlone(text) && ++lost != 0) continue;
    ASSERT_NE(found, second.end()) << std::hex << handle << " " << text.substr(0, 24);
    if (text.starts_with("AcDbProxy")) continue;
    if (found->second == text) continue;
    std::ostringstream key;
    key << std::uppercase << std::hex << handle;
    EXPECT_TRUE(fitsOneFormBetter(text)) << key.str() << " " << text.substr(0, 24);
    std::string record = groupsBefore.at(key.str());
    std::string again = groupsAfter.at(key.str());
    if (record.find("\n 69\n     0\n") != std::string::npos) {
      record = withoutNumber(record);
      again = withoutNumber(again);
    }
    EXPECT_EQ(again, record) << text.substr(0, 24);
  }
  for (const auto& [handle, text] : second) added += isOfDwgAlone(text) ? 1 : 0;
  EXPECT_EQ(first.size() - std::size_t(lost), second.size() - std::size_t(added));
}

/// What no class takes: its data, its references by handle, its picture.
struct Kept {
  std::vector<std::byte> bits, graphics;
  unsigned bitCount = 0;
  std::vector<std::pair<int, std::string>> groups;
  std::vector<std::pair<unsigned, std::uint64_t>> references;
  bool operator==(const Kept&) const = default;
};

Kept keptOf(const AcDbProxyData& data, std::span<const std::byte> graphics) {
  Kept kept{data.bits, {graphics.begin(), graphics.end()}, data.bitCount, {}, {}};
  for (const auto group : data.groups) kept.groups.emplace_back(group.code, std::string(group.value));
  for (const auto& reference : data.references)
    kept.references.emplace_back(reference.code, reference.id.handle().value());
  return kept;
}

std::map<std::uint64_t, Kept> proxiesOf(AcDbDatabase& database) {
  std::map<std::uint64_t, Kept> all;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased)) continue;
    if (const auto* const entity = AcDbProxyEntity::cast(stub.object))
      all[stub.handle] = keptOf(entity->data(), entity->fileGraphics());
    if (const auto* const object = AcDbProxyObject::cast(stub.object)) all[stub.handle] = keptOf(object->data(), {});
  }
  return all;
}

void expectSameProxies(AcDbDatabase& before, AcDbDatabase& after) {
  const auto first = proxiesOf(before);
  const auto second = proxiesOf(after);
  EXPECT_EQ(first.size(), second.size());
  for (const auto& [handle, kept] : first) {
    const auto found = second.find(handle);
    EXPECT_TRUE(found != second.end() && found->second == kept) << std::hex << handle;
  }
}

class SampleTrip : public testing::TestWithParam<std::filesystem::path> {};

std::string nameOf(const testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.stem().string() + "_" + info.param.extension().string().substr(1);
  for (char& c : name)
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  return name;
}

std::vector<std::filesystem::path> allFiles() {
  std::vector<std::filesystem::path> all = files(".dwg");
  for (const auto& file : files(".dxf")) all.push_back(file);
  return all;
}

}  // namespace

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SampleTrip);
INSTANTIATE_TEST_SUITE_P(Files, SampleTrip, testing::ValuesIn(allFiles()), nameOf);

TEST_P(SampleTrip, ToTheOtherFormKeepsEveryObject) {
  const Bytes original = dwgtools::bytesOf(GetParam());
  const Form there = krio::isDwg(original) ? Form::kDxf : Form::kDwg;
  Opened first(original);
  const Bytes file = saved(first.database(), there);
  Opened second(file);
  expectKept(first, second);
  expectSameProxies(first.database(), second.database());
}

TEST_P(SampleTrip, ToTheOtherFormAndBackKeepsEveryObject) {
  const Bytes original = dwgtools::bytesOf(GetParam());
  const bool isDwg = krio::isDwg(original);
  Opened first(original);
  Opened second(saved(first.database(), isDwg ? Form::kDxf : Form::kDwg));
  const Bytes back = saved(second.database(), isDwg ? Form::kDwg : Form::kDxf);
  Opened third(back);
  expectKept(first, third);
  expectSameProxies(first.database(), third.database());
  EXPECT_TRUE(saved(third.database(), isDwg ? Form::kDwg : Form::kDxf) == back);
}

TEST(SampleTrips, CoverTheFilesThatAreThere) {
  if (dwgtools::samples().empty()) GTEST_SKIP() << "no sample drawings here";
  EXPECT_EQ(files(".dwg").size(), 12U);
  EXPECT_EQ(files(".dxf").size(), 7U);
}
