#include "Drawings.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "Budget.h"
#include "frame/Module.h"
#include "host/io/DrawingAudit.h"
#include "host/io/DrawingFile.h"

namespace fuzz {

void startModule() {
  static const bool started = [] {
    ::setenv("KRTRAMA_BRICSV17", KR_INSTALL_FOLDER, 1);
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    return true;
  }();
  static_cast<void>(started);
}

void fail(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

void fail(const std::string& what, const krio::Report& report) {
  for (const krio::Finding& finding : report.findings) {
    std::fprintf(stderr, "%d: %s (handle %llX, place %lld)\n", int(finding.severity), finding.what.c_str(),
                 static_cast<unsigned long long>(finding.handle), static_cast<long long>(finding.place));
  }
  fail(what);
}

bool hasError(const krio::Report& report) {
  return std::any_of(report.findings.begin(), report.findings.end(),
                     [](const krio::Finding& finding) { return finding.severity == krio::Severity::Error; });
}

void Looker::onPolyline(const AcGePoint3d* vertices, std::size_t count, bool) {
  for (std::size_t i = 0; i < count; ++i) sum_ += vertices[i].x + vertices[i].y + vertices[i].z;
}

void Looker::onArc(const gi::ArcCall& arc) {
  sum_ += arc.center.x + arc.u.x + arc.v.x + arc.sweep;
}

void Looker::onText(const gi::TextCall& text) {
  sum_ += text.position.x + double(text.text.size());
}

namespace {

/// A database that is the working one while it is looked at.
class Working {
 public:
  explicit Working(AcDbDatabase& database) : before_(acdbHostApplicationServices()->workingDatabase()) {
    acdbHostApplicationServices()->setWorkingDatabase(&database);
  }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;
  ~Working() { acdbHostApplicationServices()->setWorkingDatabase(before_); }

 private:
  AcDbDatabase* before_;
};

/// How many parts within parts an entity draws: blocks that show blocks soon make millions.
class Nesting {
 public:
  double partsOf(const AcDbObject& object) {
    if (const auto* const insert = AcDbBlockReference::cast(&object)) {
      const auto* const array = AcDbMInsertBlock::cast(insert);
      const double times =
          array == nullptr ? 1.0 : std::max(1.0, double(array->arrayData().rows) * array->arrayData().columns);
      return times * (1 + partsOf(insert->data().block));
    }
    const auto* const dimension = AcDbDimension::cast(&object);
    return dimension == nullptr ? 0 : 1 + partsOf(dimension->data().block);
  }

 private:
  double partsOf(AcDbObjectId block) {
    const auto* const record = block.isResident() ? AcDbBlockTableRecord::cast(block.stub()->object) : nullptr;
    if (record == nullptr) return 0;
    // One within itself counts as more than can be drawn.
    constexpr double kEndless = 1e18;
    const auto [known, isNew] = parts_.try_emplace(block.stub(), kEndless);
    if (!isNew) return known->second;
    double sum = 0;
    for (const AcDbStub* const each : record->entities()) {
      if (each->object != nullptr) sum += partsOf(*each->object);
    }
    return parts_[block.stub()] = std::min(sum, kEndless);
  }
  std::map<const AcDbStub*, double> parts_;
};

/// Draws every entity and takes its extents. Those of very many parts take minutes under the sanitizers; that their
/// number is bounded tests of their own hold. False where it has so many.
bool drawAll(AcDbDatabase& database) {
  constexpr double kMostParts = 20000;
  double parts = 0;
  Nesting nesting;
  Looker looker;
  looker.setDatabase(&database);
  std::vector<AcDbObjectId> ids;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    if (stub.object != nullptr && !stub.has(AcDbStub::kErased)) ids.push_back(stub.object->objectId());
  }
  for (const AcDbObjectId id : ids) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) continue;
    parts += nesting.partsOf(*entity);
    if (parts > kMostParts) {
      entity->close();
      return false;
    }
    looker.drawWhole(*entity);
    AcDbExtents extents;
    entity->getGeomExtents(extents);
    entity->close();
  }
  return true;
}

std::vector<std::byte> written(const Format& format, AcDbDatabase& database, bool& could) {
  std::vector<std::byte> bytes;
  krio::Report report;
  const Acad::ErrorStatus status = format.write(database, bytes, report);
  could = status == Acad::eOk;
  if (!could && !hasError(report)) fail("a drawing couldn't be written, and nothing tells why", report);
  return bytes;
}

/// Where two files begin to differ, with what stands there.
std::string difference(const std::vector<std::byte>& first, const std::vector<std::byte>& second) {
  constexpr std::size_t kShown = 60;
  const auto place = std::size_t(std::ranges::mismatch(first, second).in1 - first.begin());
  const auto around = [&](const std::vector<std::byte>& bytes) {
    std::string text;
    for (std::size_t i = place - std::min(place, kShown); i < std::min(bytes.size(), place + kShown); ++i) {
      const char c = char(bytes[i]);
      text += c == '\n' ? '|' : c < ' ' ? '.' : c;
    }
    return text;
  };
  return "at " + std::to_string(place) + "\n" + around(first) + "\n" + around(second);
}

std::vector<std::byte> readAndWrite(const Format& format, const std::vector<std::byte>& bytes,
                                    const AcDbDatabase* original = nullptr) {
  const auto database = std::make_unique<AcDbDatabase>(false);
  krio::Report report;
  if (format.read(bytes, *database, report, {}) != Acad::eOk) fail("what was written isn't read", report);
  if (original != nullptr && !krio::holdsEntitiesOf(*original, *database, report))
    fail("a drawing that was written has lost an entity", report);
  bool could = false;
  std::vector<std::byte> again = written(format, *database, could);
  if (!could) fail("what was written and read isn't written again");
  return again;
}

/// A value that was mended can make an object acceptable to its class, which then reads it: such a drawing settles
/// after some rounds.
void writeAndReadAgain(const Format& format, AcDbDatabase& database) {
  constexpr int kRounds = 3;
  bool could = false;
  std::vector<std::byte> first = written(format, database, could);
  if (!could) return;
  std::vector<std::byte> second = readAndWrite(format, first, &database);
  for (int i = 1; i < kRounds && second != first; ++i) {
    first = std::move(second);
    second = readAndWrite(format, first);
  }
  if (second != first) fail("a drawing that was only opened is saved as other bytes: " + difference(first, second));
}

/// How many entities each block of the table has that has any, by the handle of its record. A damaged file can hold
/// records of blocks that belong to no table; an exchange file has no place for these, and for a name that no table
/// holds its reader makes an empty block.
std::map<std::uint64_t, std::size_t> entitiesOfBlocks(const AcDbDatabase& database) {
  std::map<std::uint64_t, std::size_t> counts;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased)) continue;
    const auto* const block = AcDbBlockTableRecord::cast(stub.object);
    if (block == nullptr || stub.owner != database.blockTableId().stub()) continue;
    counts[stub.handle] = std::size_t(std::ranges::count_if(block->entities(), [](const AcDbStub* each) {
      return each->object != nullptr && !each->has(AcDbStub::kErased);
    }));
  }
  std::erase_if(counts, [](const auto& each) { return each.second == 0; });
  return counts;
}

void writeOtherwise(const Format& other, AcDbDatabase& database) {
  bool could = false;
  const std::vector<std::byte> bytes = written(other, database, could);
  if (!could) return;
  const auto again = std::make_unique<AcDbDatabase>(false);
  krio::Report report;
  if (other.read(bytes, *again, report, {}) != Acad::eOk)
    fail("what was written in the other format isn't read", report);
  if (!krio::holdsEntitiesOf(database, *again, report) || entitiesOfBlocks(database) != entitiesOfBlocks(*again))
    fail("a drawing in the other format has other entities", report);
}

/// An audit that mends leaves a drawing in which it has nothing more to mend, and that can be saved.
void mendAndWrite(const Format& format, AcDbDatabase& database) {
  krio::auditDrawing(database, true);
  for (const krio::AuditFinding& finding : krio::auditDrawing(database, true)) {
    if (finding.fixed) fail("an audit mends twice: " + std::to_string(finding.number) + " " + finding.what);
  }
  bool could = false;
  const std::vector<std::byte> bytes = written(format, database, could);
  if (could) readAndWrite(format, bytes, &database);
}

bool tryReading(const Format& format, const Format& other, std::span<const std::byte> bytes, bool recover) {
  const auto database = std::make_unique<AcDbDatabase>(false);
  krio::Report report;
  const Acad::ErrorStatus status = [&] {
    const Budget budget(bytes.size());
    return format.read(bytes, *database, report, {recover});
  }();
  if (status != Acad::eOk) {
    if (!hasError(report)) fail("bytes were refused, and nothing tells why", report);
    return false;
  }
  if (database->numOpenObjects() != 0) fail("objects stayed open", report);
  const Working working(*database);
  const bool isDrawn = drawAll(*database);
  writeAndReadAgain(format, *database);
  writeOtherwise(other, *database);
  // An audit takes the extents of everything.
  if (isDrawn) mendAndWrite(format, *database);
  return true;
}

}  // namespace

void tryDrawing(const Format& format, const Format& other, std::span<const std::byte> bytes) {
  if (!tryReading(format, other, bytes, false)) tryReading(format, other, bytes, true);
}

}  // namespace fuzz
