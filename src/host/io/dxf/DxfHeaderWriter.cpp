#include <algorithm>

#include "host/db/db.h"
#include "host/io/dxf/DxfHeader.h"

namespace krio::dxf {

namespace {

constexpr int kNameCode = 9;
constexpr int kMaintenanceRelease = 6;

std::wstring recordName(AcDbObjectId id) {
  if (!id.isResident()) return {};
  const auto* const record = AcDbSymbolTableRecord::cast(id.stub()->object);
  return record != nullptr ? record->nameText() : std::wstring();
}

/// The key of an object in the dictionary that owns it.
std::wstring keyOf(AcDbObjectId id) {
  if (!id.isResident() || id.stub()->owner == nullptr) return {};
  const auto* const dictionary = AcDbDictionary::cast(id.stub()->owner->object);
  if (dictionary == nullptr) return {};
  for (const AcDbDictionary::Entry& entry : dictionary->entries()) {
    if (entry.second == id) return entry.first;
  }
  return {};
}

class HeaderWriter {
 public:
  HeaderWriter(Sink& sink, AcDbDatabase& database) : sink_(sink), database_(database), header_(database.header()) {}

  void write() {
    sink_.start("SECTION");
    sink_.raw(2, "HEADER");
    sink_.raw(kNameCode, "$ACADVER");
    sink_.raw(1, "AC1015");
    sink_.raw(kNameCode, "$ACADMAINTVER");
    sink_.int16(70, kMaintenanceRelease);
    sink_.raw(kNameCode, "$DWGCODEPAGE");
    sink_.raw(3, sink_.page().name());
    for (const AcDbHeader::Index index : inOrder()) writeVariable(index);
    sink_.start("ENDSEC");
  }

 private:
  static std::vector<AcDbHeader::Index> inOrder() {
    std::vector<AcDbHeader::Index> indices;
    for (int i = 0; i < AcDbHeader::kNumVars; ++i) {
      if (AcDbHeader::info(AcDbHeader::Index(i)).dxfCode != 0) indices.push_back(AcDbHeader::Index(i));
    }
    std::sort(indices.begin(), indices.end(), [](AcDbHeader::Index a, AcDbHeader::Index b) {
      return AcDbHeader::info(a).dxfPlace < AcDbHeader::info(b).dxfPlace;
    });
    return indices;
  }

  void writeVariable(AcDbHeader::Index index) {
    const AcDbHeader::Info& info = AcDbHeader::info(index);
    sink_.raw(kNameCode, std::string("$") + info.name);
    const int code = info.dxfCode;
    switch (info.type) {
      case AcDbHeader::kBit:
      case AcDbHeader::kShort:
      case AcDbHeader::kLong:
      case AcDbHeader::kColor:
        sink_.int16(code, header_.whole(index));
        break;
      case AcDbHeader::kReal:
        if (code == AcDb::kDxfAngle) {
          sink_.angle(code, header_.real(index));
        } else {
          sink_.real(code, header_.real(index));
        }
        break;
      case AcDbHeader::kText:
        sink_.text(code, header_.text(index));
        break;
      case AcDbHeader::kId:
        writeName(index, code);
        break;
      case AcDbHeader::kHandle:
        sink_.handle(code, database_.handseed().value());
        break;
      case AcDbHeader::kPoint3d:
        sink_.point(code, header_.point(index));
        break;
      case AcDbHeader::kPoint2d:
        sink_.point(code, AcGePoint2d(header_.point(index).x, header_.point(index).y));
        break;
      case AcDbHeader::kTime:
        writeTime(index, code);
        break;
    }
    constexpr int kById = 3;
    if (index == AcDbHeader::kCEPSNTYPE && header_.whole(index) == kById) {
      sink_.raw(kNameCode, "$CPSNID");
      sink_.handle(390, header_.id(AcDbHeader::kCPSNID).handle().value());
    }
  }

  void writeName(AcDbHeader::Index index, int code) {
    std::wstring name = index == AcDbHeader::kCMLSTYLE ? keyOf(header_.id(index)) : recordName(header_.id(index));
    // Blocks of arrow heads lose the underscore that they begin with.
    if (code == 1 && name.starts_with(L"_")) name.erase(0, 1);
    if (index == AcDbHeader::kCMLSTYLE && name.empty()) name = L"Standard";
    sink_.text(code, name);
  }

  void writeTime(AcDbHeader::Index index, int code) {
    constexpr double kMillisecondsPerDay = 86400000.0;
    const AcDbHeader::Time time = header_.time(index);
    const double days = time.day + time.milliseconds / kMillisecondsPerDay;
    sink_.real(code, days);
    // The drawing knows universal times only: a local time would depend on where it is written.
    if (index == AcDbHeader::kTDCREATE) sink_.raw(kNameCode, "$TDUCREATE");
    if (index == AcDbHeader::kTDUPDATE) sink_.raw(kNameCode, "$TDUUPDATE");
    if (index == AcDbHeader::kTDCREATE || index == AcDbHeader::kTDUPDATE) sink_.real(code, days);
  }

  Sink& sink_;
  AcDbDatabase& database_;
  const AcDbHeader& header_;
};

}  // namespace

void writeHeader(Sink& sink, AcDbDatabase& database) {
  HeaderWriter(sink, database).write();
}

}  // namespace krio::dxf
