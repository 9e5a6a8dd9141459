// What can be read of a drawing with members of which a part is gone.

#include <gmock/gmock.h>

#include "files/Trips.h"
#include "host/io/dwg/Container.h"

namespace {

using namespace trips;

/// A file with members, and where in it each object lies.
struct Whole {
  Bytes bytes;
  std::map<std::uint64_t, std::string> objects;
  std::map<std::uint64_t, std::pair<std::size_t, std::size_t>> places;  ///< first byte, first byte behind

  static const Whole& get() {
    static const Whole made;
    return made;
  }

 private:
  Whole() {
    MemberDrawing drawing;
    bytes = saved(*drawing.database(), Form::kDwg);
    objects = dwgtools::digest(*drawing.database());
    krio::Report report;
    krio::dwg::FaultPolicy policy(report, false);
    krio::dwg::Container container({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, policy);
    EXPECT_TRUE(container.read());
    constexpr std::size_t kChecksum = 2;
    for (const krio::dwg::MapEntry& entry : container.map()) {
      const auto object = container.objectAt(entry.address);
      places[entry.handle] = {entry.address, entry.address + object->size + kChecksum};
    }
  }
};

/// A drawing to be read, the working one for its life.
struct WorkingDrawing {
  WorkingDrawing() { acdbHostApplicationServices()->setWorkingDatabase(database.get()); }
  ~WorkingDrawing() { acdbHostApplicationServices()->setWorkingDatabase(before); }
  WorkingDrawing(const WorkingDrawing&) = delete;
  WorkingDrawing& operator=(const WorkingDrawing&) = delete;
  AcDbDatabase* before = acdbHostApplicationServices()->workingDatabase();
  std::unique_ptr<AcDbDatabase> database = std::make_unique<AcDbDatabase>(false);
};

/// Recovers the bytes, of which those from `first` to `last` are gone, and expects each member that lies elsewhere, the
/// same as it was. Gives how many came.
int expectTheOthers(const Bytes& bytes, std::size_t first, std::size_t last) {
  const Whole& whole = Whole::get();
  const WorkingDrawing recovered;
  AcDbDatabase& database = *recovered.database;
  krio::Report report;
  EXPECT_EQ(krio::readDwg(bytes, database, report, {true}), Acad::eOk) << textOf(report);
  EXPECT_FALSE(report.clean());
  const auto found = dwgtools::digest(database);
  int members = 0;
  for (const auto& [handle, place] : whole.places) {
    const auto text = whole.objects.find(handle);
    if (text == whole.objects.end() || !text->second.starts_with("Kr")) continue;
    if (place.first < last && place.second > first) continue;
    const auto came = found.find(handle);
    EXPECT_TRUE(came != found.end()) << std::hex << handle;
    if (came == found.end()) continue;
    EXPECT_TRUE(came->second == text->second) << std::hex << handle << " " << text->second.substr(0, 8);
    ++members;
  }
  return members;
}

}  // namespace

TEST(DrawingCutOff, GivesEachMemberThatLiesInThePartThatIsThere) {
  const Bytes& whole = Whole::get().bytes;
  int before = 0;
  int atHalf = 0;
  for (int tenth = 3; tenth <= 9; ++tenth) {
    SCOPED_TRACE(tenth);
    const std::size_t size = whole.size() * std::size_t(tenth) / 10;
    const int came = expectTheOthers({whole.begin(), whole.begin() + std::ptrdiff_t(size)}, size, whole.size());
    EXPECT_GE(came, before);
    before = came;
    if (tenth == 5) atHalf = came;
  }
  EXPECT_GT(atHalf, 40);
  EXPECT_GT(before, 130);
}

TEST(DrawingWithAHole, GivesEachMemberThatLiesOutsideOfIt) {
  const Whole& whole = Whole::get();
  for (const double middle : {0.3, 0.5, 0.7}) {
    SCOPED_TRACE(middle);
    Bytes bytes = whole.bytes;
    const auto first = std::size_t(middle * double(bytes.size()));
    constexpr std::size_t kGone = 4096;
    std::fill_n(bytes.begin() + std::ptrdiff_t(first), kGone, std::byte(0));
    EXPECT_GT(expectTheOthers(bytes, first, first + kGone), 100);
  }
}

TEST(DrawingWithoutItsMap, GivesEveryMember) {
  const Whole& whole = Whole::get();
  Bytes bytes = whole.bytes;
  // The map's first page stands behind the last object.
  std::size_t behind = 0;
  for (const auto& [handle, place] : whole.places) behind = std::max(behind, place.second);
  constexpr std::size_t kPageHead = 8;
  std::fill_n(bytes.begin() + std::ptrdiff_t(behind), kPageHead, std::byte(0xFF));
  EXPECT_EQ(expectTheOthers(bytes, behind, behind + kPageHead), 27 * 6);
}
