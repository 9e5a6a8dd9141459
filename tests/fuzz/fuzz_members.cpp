// A member reads any bytes as its fields, and any groups: it refuses them or is a member that can be drawn, shown in
// every view, audited, pictured and written, and what it writes reads back as the same bytes.
//
// Input: a byte that picks the class, and with its highest bit the groups of DXF instead of fields; then these.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "../object/EveryClass.h"
#include "Budget.h"
#include "Drawings.h"
#include "StreamFiler.h"
#include "host/gi/Recorder.h"
#include "host/io/ProxyGraphics.h"
#include "object/FiledNumbers.h"

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr unsigned kAsGroups = 0x80;

std::vector<AcDbObjectId> idsOf(const AcDbDatabase& database) {
  return {AcDbObjectId::kNull, database.layerZero(), database.modelSpaceId(), database.layerTableId()};
}

/// Lines in pairs: code and value.
std::vector<AcDbMemoryDxfFiler::Group> groupsOf(std::string_view text) {
  std::vector<AcDbMemoryDxfFiler::Group> groups;
  const auto nextLine = [&] {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
  };
  const auto number = [&](const std::string& line) { return std::strtod(line.c_str(), nullptr); };
  while (!text.empty()) {
    AcDbMemoryDxfFiler::Group group;
    group.code = std::atoi(nextLine().c_str()) % 1072;
    const std::string value = nextLine();
    switch (acdbDxfValueKind(group.code)) {
      case AcDbDxfValueKind::kText:
        group.value = std::wstring(value.begin(), value.end());
        break;
      case AcDbDxfValueKind::kReal:
        group.value = number(value);
        break;
      case AcDbDxfValueKind::kPoint:
        group.value = AcGePoint3d(number(value), number(nextLine()), number(nextLine()));
        break;
      case AcDbDxfValueKind::kInt16:
      case AcDbDxfValueKind::kInt32:
      case AcDbDxfValueKind::kInt64:
        group.value = Adesk::Int64(std::strtoll(value.c_str(), nullptr, 10));
        break;
      case AcDbDxfValueKind::kBinary:
        group.value = std::vector<char>(value.begin(), value.end());
        break;
      case AcDbDxfValueKind::kHandle:
        group.value = AcDbHandle(std::strtoull(value.c_str(), nullptr, 16));
        break;
      default:
        group.value = AcDbObjectId();
    }
    groups.push_back(std::move(group));
  }
  return groups;
}

/// What a member files, and where in it the real numbers stand.
struct Fields {
  std::vector<std::uint8_t> bytes;
  std::vector<std::size_t> reals;
  bool operator==(const Fields& other) const { return bytes == other.bytes; }
};

Fields fieldsOf(const KrObject& member) {
  fuzz::StreamFiler filer;
  member.dwgOutFields(&filer);
  return {filer.bytes(), filer.reals()};
}

/// Whether a member has numbers so large that they have no digits left behind the point: what is reckoned with these is
/// rounding alone.
bool isBeyondRounding(const Fields& fields) {
  constexpr double kDigitsEnd = 1e15;
  return std::ranges::any_of(fields.reals, [&](std::size_t place) {
    double value = 0;
    std::memcpy(&value, &fields.bytes[place], sizeof(double));
    return std::fabs(value) > kDigitsEnd;
  });
}

/// Whether two hold the same but for what rounding leaves, measured by their largest number.
bool areNear(const Fields& a, const Fields& b) {
  constexpr double kNear = 1e-12;
  if (a.bytes.size() != b.bytes.size() || a.reals != b.reals) return false;
  std::vector<std::uint8_t> bytes[] = {a.bytes, b.bytes};
  double largest = 0;
  double difference = 0;
  for (const std::size_t place : a.reals) {
    double value[2];
    for (int i = 0; i < 2; ++i) {
      std::memcpy(&value[i], &bytes[i][place], sizeof(double));
      std::memset(&bytes[i][place], 0, sizeof(double));
      largest = std::max(largest, std::fabs(value[i]));
    }
    difference = std::max(difference, std::fabs(value[1] - value[0]));
  }
  return bytes[0] == bytes[1] && difference <= kNear * largest;
}

void tryEverything(KrObject& member) {
  gi::Recorder recorder;
  recorder.drawWhole(member);
  std::vector<std::byte> picture;
  krio::encodeProxyGraphics(member, picture);
  AcDbMemoryDxfFiler groups;
  member.dxfOutFields(&groups);
  AcDbExtents extents;
  member.getGeomExtents(extents);
  for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso}) member.Gera_KrVector(view);
  AcDbAuditInfo audit(true);
  member.audit(&audit);
  member.getPeso();
  member.getAreaPintura();
}

/// `regenerates` becomes true for a member whose list gives no place: it is drawn anew whenever it is read.
Fields readAndWrite(const everyclass::Sample& type, const Fields& fields, const AcDbDatabase& database,
                    bool& regenerates) {
  const std::unique_ptr<KrObject> member = type.empty();
  fuzz::StreamFiler filer(fields.bytes, idsOf(database));
  if (member->dwgInFields(&filer) != Acad::eOk) fuzz::fail("a member doesn't read what it wrote");
  AcGePoint3d p[4];
  member->GetExtremePoints(p, 0, 0);
  regenerates = regenerates || (p[2] - p[0]).isZeroLength();
  return fieldsOf(*member);
}

/// Measures near the largest that are read make lists beyond it, which aren't read again.
bool canBeRead(const KrObject& member) {
  KrGeratriz outline;
  member.GetSecao(outline);
  bool finite = isFinite(member);
  for (int i = 0; i < outline.numNodes(); ++i)
    finite = finite && isFinite(outline.GetNo(i).vertex) && isFinite(outline.GetNo(i).bulge);
  return finite;
}

/// A member without length or outline gets a list, and then an outline, when it is read: it settles after some rounds.
/// One that is drawn anew at each reading does but for the last bits of what is reckoned anew, and where these bits are
/// all that there is it needn't.
void writeAndReadAgain(const everyclass::Sample& type, const KrObject& member, const AcDbDatabase& database) {
  constexpr int kRounds = 8;
  if (!canBeRead(member)) return;
  bool regenerates = false;
  Fields first = fieldsOf(member);
  Fields second = readAndWrite(type, first, database, regenerates);
  for (int i = 1; i < kRounds && second != first; ++i) {
    first = std::move(second);
    second = readAndWrite(type, first, database, regenerates);
  }
  if (second == first || (regenerates && (isBeyondRounding(first) || areNear(first, second)))) return;
  const auto place = std::ranges::mismatch(first.bytes, second.bytes).in1 - first.bytes.begin();
  fuzz::fail("a member reads other than it wrote, from byte " + std::to_string(place) + " of " +
             std::to_string(first.bytes.size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::startModule();
  static const std::vector<everyclass::Sample> types = everyclass::samples();
  static AcDbDatabase database;
  if (size == 0) return 0;
  acdbHostApplicationServices()->setWorkingDatabase(&database);
  const everyclass::Sample& type = types[(data[0] & ~kAsGroups) % types.size()];
  const Bytes fields(data + 1, size - 1);
  const std::unique_ptr<KrObject> member = type.empty();
  Acad::ErrorStatus status = Acad::eOk;
  if ((data[0] & kAsGroups) != 0) {
    AcDbMemoryDxfFiler filer(groupsOf({reinterpret_cast<const char*>(fields.data()), fields.size()}));
    const Budget budget(size);
    status = member->dxfInFields(&filer);
  } else {
    fuzz::StreamFiler filer(fields, idsOf(database));
    const Budget budget(size);
    status = member->dwgInFields(&filer);
  }
  if (status == Acad::eOk) {
    writeAndReadAgain(type, *member, database);
    tryEverything(*member);
    writeAndReadAgain(type, *member, database);
  }
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  return 0;
}
