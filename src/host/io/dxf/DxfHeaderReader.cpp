#include <algorithm>
#include <array>
#include <cmath>

#include "host/db/HandleLimit.h"
#include "host/db/db.h"
#include "host/io/dxf/DxfHeader.h"

namespace krio::dxf {

namespace {

constexpr double kMillisecondsPerDay = 86400000.0;

#define KR_DXF_CODE(get, set, value, code) code,
constexpr std::array kDimRealCodes{KR_DB_DIM_REALS(KR_DXF_CODE)};
constexpr std::array kDimIntCodes{KR_DB_DIM_INTS(KR_DXF_CODE)};
#undef KR_DXF_CODE

template <class Codes>
int indexOf(const Codes& codes, int code) {
  const auto found = std::find(codes.begin(), codes.end(), code);
  return found != codes.end() ? int(found - codes.begin()) : -1;
}

}  // namespace

int dimRealIndex(int code) {
  return indexOf(kDimRealCodes, code);
}

int dimIntIndex(int code) {
  return indexOf(kDimIntCodes, code);
}

void HeaderReader::read() {
  while (in_.nextField()) {
    if (in_.code() != 9) continue;
    const std::string_view name = in_.value();
    if (!in_.nextField()) return;
    if (in_.code() == 9) {
      in_.scanner().pushBack();
      continue;
    }
    if (name.size() > 1 && name[0] == '$') readVariable(name.substr(1));
  }
}

void HeaderReader::readVariable(std::string_view name) {
  if (readOther(name)) return;
  const AcDbHeader::Index index = AcDbHeader::find(name);
  if (index == AcDbHeader::kNumVars) return;
  switch (AcDbHeader::info(index).type) {
    case AcDbHeader::kBit:
      header_.setWhole(index, in_.flag() ? 1 : 0);
      break;
    case AcDbHeader::kShort:
    case AcDbHeader::kColor:
      header_.setWhole(index, in_.whole<Adesk::Int16>());
      break;
    case AcDbHeader::kLong:
      header_.setWhole(index, in_.whole());
      break;
    case AcDbHeader::kReal:
      header_.setReal(index, in_.code() == AcDb::kDxfAngle ? in_.angle() : in_.real());
      break;
    case AcDbHeader::kText:
      header_.setText(index, in_.text());
      break;
    case AcDbHeader::kPoint3d:
      header_.setPoint(index, in_.point());
      break;
    case AcDbHeader::kPoint2d: {
      const AcGePoint2d p = in_.point2d();
      header_.setPoint(index, AcGePoint3d(p.x, p.y, 0));
      break;
    }
    case AcDbHeader::kTime:
      if (!hasUniversalTimes_) readTime(index);
      break;
    case AcDbHeader::kHandle: {
      const std::uint64_t seed = in_.handle();
      if (seed > kMaxHandle + 1) in_.warn("HANDSEED is beyond all handles; the next one is reckoned from those in use");
      if (seed <= kMaxHandle + 1) drawing_.db().setHandseedAsRead(seed);
      break;
    }
    case AcDbHeader::kId:
      names_[index] = in_.text();
      break;
  }
}

bool HeaderReader::readOther(std::string_view name) {
  if (name == "DWGCODEPAGE") {
    readCodePage();
  } else if (name == "ACADVER") {
    // From AC1021 on files are in UTF-8, whatever code page they tell.
    if (in_.value() >= "AC1021" && in_.value().starts_with("AC")) in_.setPage(CodePage::named("UTF-8"));
    if (in_.value() != "AC1015") in_.note("the file is of version " + std::string(in_.value()));
  } else if (name == "TDUCREATE") {
    hasUniversalTimes_ = true;
    readTime(AcDbHeader::kTDCREATE);
  } else if (name == "TDUUPDATE") {
    readTime(AcDbHeader::kTDUPDATE);
  } else if (name == "CPSNID") {
    header_.setId(AcDbHeader::kCPSNID, in_.reference());
  } else if (name == "TDINDWG" || name == "TDUSRTIMER") {
    readTime(AcDbHeader::find(name));
  } else {
    return false;
  }
  return true;
}

void HeaderReader::readCodePage() {
  if (in_.page().name() == "UTF-8") return;
  in_.setPage(CodePage::named(in_.value()));
}

void HeaderReader::readTime(AcDbHeader::Index index) {
  constexpr double kMaxDay = 1.0e9;
  const double days = in_.real();
  if (!(days >= 0 && days < kMaxDay)) return;
  double whole = std::floor(days);
  double milliseconds = std::round((days - whole) * kMillisecondsPerDay);
  if (milliseconds >= kMillisecondsPerDay) {
    whole += 1;
    milliseconds = 0;
  }
  header_.setTime(index, {Adesk::Int32(whole), Adesk::Int32(milliseconds)});
}

AcDbStub* HeaderReader::blockNamed(const std::wstring& name) const {
  if (name.empty()) return nullptr;
  const AcDbObjectId blocks = drawing_.roots().blockTable;
  // The header names the blocks of arrow heads without the underscore that they begin with.
  AcDbStub* const arrow = drawing_.recordNamed(blocks, L"_" + name);
  return arrow != nullptr ? arrow : drawing_.recordNamed(blocks, name);
}

AcDbStub* HeaderReader::named(AcDbHeader::Index index, const std::wstring& name) const {
  const AcDbDatabase::Roots& roots = drawing_.roots();
  switch (index) {
    case AcDbHeader::kCLAYER:
      return drawing_.recordNamed(roots.layerTable, name);
    case AcDbHeader::kCELTYPE:
      return drawing_.recordNamed(roots.linetypeTable, name);
    case AcDbHeader::kTEXTSTYLE:
    case AcDbHeader::kDIMTXSTY:
      return drawing_.recordNamed(roots.textStyleTable, name);
    case AcDbHeader::kDIMSTYLE:
      return drawing_.recordNamed(roots.dimStyleTable, name);
    case AcDbHeader::kDIMLDRBLK:
    case AcDbHeader::kDIMBLK:
    case AcDbHeader::kDIMBLK1:
    case AcDbHeader::kDIMBLK2:
      return blockNamed(name);
    case AcDbHeader::kUCSNAME:
    case AcDbHeader::kUCSORTHOREF:
    case AcDbHeader::kUCSBASE:
    case AcDbHeader::kPUCSNAME:
    case AcDbHeader::kPUCSORTHOREF:
    case AcDbHeader::kPUCSBASE:
      return drawing_.recordNamed(roots.ucsTable, name);
    default:
      return nullptr;
  }
}

void HeaderReader::finish() {
  const AcDbDatabase::Roots& roots = drawing_.roots();
  const auto setDefault = [&](AcDbHeader::Index index, AcDbObjectId id) {
    if (header_.id(index).isNull()) header_.setId(index, id);
  };
  for (const auto& [index, name] : names_) header_.setId(index, AcDbObjectId(named(index, name)));
  setDefault(AcDbHeader::kCLAYER, roots.layerZero);
  setDefault(AcDbHeader::kCELTYPE, roots.byLayer);
  setDefault(AcDbHeader::kTEXTSTYLE, roots.standardTextStyle);
  setDefault(AcDbHeader::kDIMTXSTY, roots.standardTextStyle);
  setDefault(AcDbHeader::kDIMSTYLE, roots.standardDimStyle);
}

void HeaderReader::finishStyles() {
  const auto name = names_.find(AcDbHeader::kCMLSTYLE);
  const AcDbObjectPointer<AcDbDictionary> styles(drawing_.db().mLStyleDictionaryId(), AcDb::kForRead);
  AcDbObjectId style;
  if (styles.openStatus() == Acad::eOk) styles->getAt(name != names_.end() ? name->second.c_str() : L"Standard", style);
  header_.setId(AcDbHeader::kCMLSTYLE, style);
}

}  // namespace krio::dxf
