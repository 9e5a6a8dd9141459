#include "host/db/AcDbMemoryDxfFiler.h"

#include <cwchar>

ACRX_CONS_DEFINE_MEMBERS(AcDbMemoryDxfFiler, AcDbDxfFiler, 0)

AcDbDxfValueKind acdbDxfValueKind(int code) {
  using K = AcDbDxfValueKind;
  struct Band {
    int first, last;
    K kind;
  };
  static constexpr Band kBands[] = {
      {0, 4, K::kText},       {5, 5, K::kHandle},       {6, 9, K::kText},       {10, 17, K::kPoint},
      {18, 59, K::kReal},     {60, 79, K::kInt16},      {90, 99, K::kInt32},    {100, 104, K::kText},
      {105, 105, K::kHandle}, {110, 112, K::kPoint},    {113, 149, K::kReal},   {160, 169, K::kInt64},
      {170, 179, K::kInt16},  {210, 219, K::kPoint},    {220, 239, K::kReal},   {270, 299, K::kInt16},
      {300, 309, K::kText},   {310, 319, K::kBinary},   {320, 329, K::kHandle}, {330, 369, K::kObjectId},
      {370, 389, K::kInt16},  {390, 399, K::kObjectId}, {400, 409, K::kInt16},  {410, 419, K::kText},
      {420, 429, K::kInt32},  {430, 439, K::kText},     {440, 459, K::kInt32},  {460, 469, K::kReal},
      {470, 479, K::kText},   {480, 481, K::kHandle},   {999, 1003, K::kText},  {1004, 1004, K::kBinary},
      {1005, 1009, K::kText}, {1010, 1013, K::kPoint},  {1014, 1059, K::kReal}, {1060, 1070, K::kInt16},
      {1071, 1071, K::kInt32}};
  for (const Band& band : kBands) {
    if (code >= band.first && code <= band.last) return band.kind;
  }
  return K::kNone;
}

namespace {

struct ToResBuf {
  resbuf& item;
  void operator()(std::monostate) const {}
  // The filer keeps the text, the chain only looks at it.
  void operator()(const std::wstring& text) const { item.resval.rstring = const_cast<wchar_t*>(text.c_str()); }
  void operator()(Adesk::Int64 value) const {
    switch (acdbDxfValueKind(item.restype)) {
      case AcDbDxfValueKind::kInt16:
        item.resval.rint = short(value);
        break;
      case AcDbDxfValueKind::kInt64:
        item.resval.mnInt64 = value;
        break;
      default:
        item.resval.rlong = Adesk::Int32(value);
    }
  }
  void operator()(double value) const { item.resval.rreal = value; }
  void operator()(const AcGePoint3d& p) const {
    item.resval.rpoint[0] = p.x;
    item.resval.rpoint[1] = p.y;
    item.resval.rpoint[2] = p.z;
  }
  void operator()(const std::vector<char>& bytes) const {
    item.resval.rbinary.clen = short(bytes.size());
    item.resval.rbinary.buf = const_cast<char*>(bytes.data());
  }
  void operator()(const AcDbHandle& handle) const { item.resval.mnInt64 = Adesk::Int64(handle.value()); }
  void operator()(const AcDbObjectId& id) const {
    item.resval.rlname[0] = id.asOldId();
    item.resval.rlname[1] = 0;
  }
};

}  // namespace

Acad::ErrorStatus AcDbMemoryDxfFiler::readResBuf(resbuf* item) {
  *item = resbuf{};
  if (status_ != Acad::eOk) return status_;
  if (atEOF()) return status_ = Acad::eEndOfFile;
  const Group& group = groups_[position_++];
  item->restype = short(group.code);
  std::visit(ToResBuf{*item}, group.value);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMemoryDxfFiler::pushBackItem() {
  if (position_ == 0) return Acad::eInvalidInput;
  --position_;
  return Acad::eOk;
}

bool AcDbMemoryDxfFiler::atEndOfObject() {
  return atEOF() || groups_[position_].code == AcDb::kDxfStart;
}

bool AcDbMemoryDxfFiler::atExtendedData() {
  return !atEOF() && groups_[position_].code >= AcDb::kDxfXdAsciiString;
}

bool AcDbMemoryDxfFiler::atSubclassData(const ACHAR* name) {
  if (atEOF() || groups_[position_].code != AcDb::kDxfSubclass) return false;
  const auto* const marker = std::get_if<std::wstring>(&groups_[position_].value);
  if (marker == nullptr || *marker != name) return false;
  ++position_;
  return true;
}

void AcDbMemoryDxfFiler::rewindFiler() {
  position_ = 0;
}

template <class T>
Acad::ErrorStatus AcDbMemoryDxfFiler::put(AcDb::DxfCode code, T&& value) {
  if (status_ != Acad::eOk) return status_;
  Group group;
  group.code = code;
  group.value = std::forward<T>(value);
  groups_.push_back(std::move(group));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMemoryDxfFiler::writeResBuf(const resbuf& item) {
  const auto code = AcDb::DxfCode(item.restype);
  const ads_u_val& value = item.resval;
  switch (acdbDxfValueKind(item.restype)) {
    case AcDbDxfValueKind::kText:
      return writeString(code, value.rstring);
    case AcDbDxfValueKind::kPoint:
      return put(code, AcGePoint3d(value.rpoint[0], value.rpoint[1], value.rpoint[2]));
    case AcDbDxfValueKind::kReal:
      return put(code, value.rreal);
    case AcDbDxfValueKind::kInt16:
      return put(code, Adesk::Int64(value.rint));
    case AcDbDxfValueKind::kInt32:
      return put(code, Adesk::Int64(value.rlong));
    case AcDbDxfValueKind::kInt64:
      return put(code, value.mnInt64);
    case AcDbDxfValueKind::kBinary:
      return writeBChunk(code, value.rbinary);
    case AcDbDxfValueKind::kHandle:
      return put(code, AcDbHandle(Adesk::UInt64(value.mnInt64)));
    case AcDbDxfValueKind::kObjectId:
      return put(code, AcDbObjectId().setFromOldId(value.rlname[0]));
    default:
      return Acad::eInvalidDxfCode;
  }
}

Acad::ErrorStatus AcDbMemoryDxfFiler::writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) {
  return put(code, id);
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeInt8(AcDb::DxfCode code, Adesk::Int8 value) {
  return put(code, Adesk::Int64(value));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeString(AcDb::DxfCode code, const ACHAR* text) {
  return put(code, std::wstring(text != nullptr ? text : L""));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeBChunk(AcDb::DxfCode code, const ads_binary& chunk) {
  return put(code, std::vector<char>(chunk.buf, chunk.buf + chunk.clen));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle) {
  return put(code, handle);
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeInt32(AcDb::DxfCode code, Adesk::Int32 value) {
  return put(code, Adesk::Int64(value));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeInt16(AcDb::DxfCode code, Adesk::Int16 value) {
  return put(code, Adesk::Int64(value));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeUInt8(AcDb::DxfCode code, Adesk::UInt8 value) {
  return put(code, Adesk::Int64(value));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeUInt16(AcDb::DxfCode code, Adesk::UInt16 value) {
  return put(code, Adesk::Int64(value));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeUInt32(AcDb::DxfCode code, Adesk::UInt32 value) {
  return put(code, Adesk::Int64(value));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeInt64(AcDb::DxfCode code, Adesk::Int64 value) {
  return put(code, value);
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeBoolean(AcDb::DxfCode code, Adesk::Boolean value) {
  return put(code, Adesk::Int64(value != 0));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeDouble(AcDb::DxfCode code, double value, int) {
  return put(code, value);
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writePoint2d(AcDb::DxfCode code, const AcGePoint2d& value, int) {
  return put(code, AcGePoint3d(value.x, value.y, 0));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writePoint3d(AcDb::DxfCode code, const AcGePoint3d& value, int) {
  return put(code, value);
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeVector2d(AcDb::DxfCode code, const AcGeVector2d& value, int) {
  return put(code, AcGePoint3d(value.x, value.y, 0));
}
Acad::ErrorStatus AcDbMemoryDxfFiler::writeVector3d(AcDb::DxfCode code, const AcGeVector3d& value, int) {
  return put(code, AcGePoint3d(value.x, value.y, value.z));
}
