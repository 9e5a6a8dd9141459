#include "host/io/dxf/DxfOutFiler.h"

#include <cwchar>

#include "host/io/dxf/DxfCodes.h"

namespace krio::dxf {

namespace {

std::wstring_view viewOf(const ACHAR* text) {
  return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

}  // namespace

void OutFiler::beginObject(bool keepsAngles) {
  keepsAngles_ = keepsAngles;
  resetFilerStatus();
}

bool OutFiler::takes(AcDb::DxfCode code) const {
  return status_ == Acad::eOk && kindOf(code) != Kind::kNone;
}

Acad::ErrorStatus OutFiler::readResBuf(resbuf* item) {
  *item = resbuf{};
  return Acad::eNotApplicable;
}

Acad::ErrorStatus OutFiler::whole(AcDb::DxfCode code, std::int64_t value) {
  if (!takes(code)) return status_;
  if (kindOf(code) == Kind::kInt16) {
    sink_.int16(code, int(value));
  } else {
    sink_.int32(code, value);
  }
  return Acad::eOk;
}

void OutFiler::real(int code, double value) {
  if (isAngle(code) && !keepsAngles_) {
    sink_.angle(code, value);
  } else {
    sink_.real(code, value);
  }
}

Acad::ErrorStatus OutFiler::writeString(AcDb::DxfCode code, const ACHAR* text) {
  if (takes(code)) sink_.text(code, viewOf(text));
  return status_;
}

Acad::ErrorStatus OutFiler::writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) {
  if (takes(code)) sink_.handle(code, id.handle().value());
  return status_;
}

Acad::ErrorStatus OutFiler::writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle) {
  if (takes(code)) sink_.handle(code, handle.value());
  return status_;
}

Acad::ErrorStatus OutFiler::writeBChunk(AcDb::DxfCode code, const ads_binary& chunk) {
  if (!takes(code)) return status_;
  const auto length = std::size_t(chunk.clen > 0 ? chunk.clen : 0);
  if (length == 0) {
    sink_.raw(code, {});
  } else {
    sink_.binary(code, {reinterpret_cast<const std::byte*>(chunk.buf), length});
  }
  return status_;
}

Acad::ErrorStatus OutFiler::writeDouble(AcDb::DxfCode code, double value, int) {
  if (takes(code)) real(code, value);
  return status_;
}

Acad::ErrorStatus OutFiler::writePoint2d(AcDb::DxfCode code, const AcGePoint2d& p, int) {
  if (!takes(code)) return status_;
  real(code, p.x);
  real(code + 10, p.y);
  return status_;
}

Acad::ErrorStatus OutFiler::writePoint3d(AcDb::DxfCode code, const AcGePoint3d& p, int) {
  if (!takes(code)) return status_;
  real(code, p.x);
  real(code + 10, p.y);
  real(code + 20, p.z);
  return status_;
}

Acad::ErrorStatus OutFiler::writeVector2d(AcDb::DxfCode code, const AcGeVector2d& v, int precision) {
  return writePoint2d(code, {v.x, v.y}, precision);
}

Acad::ErrorStatus OutFiler::writeVector3d(AcDb::DxfCode code, const AcGeVector3d& v, int precision) {
  return writePoint3d(code, {v.x, v.y, v.z}, precision);
}

Acad::ErrorStatus OutFiler::writeResBuf(const resbuf& item) {
  const auto code = AcDb::DxfCode(item.restype);
  const ads_u_val& value = item.resval;
  switch (kindOf(code)) {
    case Kind::kText:
    case Kind::kHandle:  // in a chain a handle is its digits
      return writeString(code, value.rstring);
    case Kind::kPoint:
      return writePoint3d(code, {value.rpoint[0], value.rpoint[1], value.rpoint[2]});
    case Kind::kReal:
      return writeDouble(code, value.rreal);
    case Kind::kInt16:
      return whole(code, value.rint);
    case Kind::kInt32:
      return whole(code, value.rlong);
    case Kind::kInt64:
      return whole(code, value.mnInt64);
    case Kind::kBinary:
      return writeBChunk(code, value.rbinary);
    case Kind::kObjectId:
      return writeObjectId(code, AcDbObjectId().setFromOldId(value.rlname[0]));
    case Kind::kNone:
      break;
  }
  return Acad::eInvalidDxfCode;
}

}  // namespace krio::dxf
