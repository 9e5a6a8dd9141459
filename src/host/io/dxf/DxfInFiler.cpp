#include "host/io/dxf/DxfInFiler.h"

#include <algorithm>
#include <cwchar>
#include <limits>

#include "host/db/AcDbDatabase.h"
#include "host/io/dxf/DxfAngle.h"
#include "host/io/dxf/DxfCodes.h"
#include "host/io/dxf/DxfNumber.h"
#include "host/io/dxf/DxfText.h"

namespace krio::dxf {

void InFiler::beginObject(bool keepsAngles, bool withoutMarkers) {
  withoutMarkers_ = withoutMarkers;
  keepsAngles_ = keepsAngles;
  resetFilerStatus();
  start_ = scanner_.nextPlace();
  last_ = start_;
}

int InFiler::peekCode() {
  if (!scanner_.next()) return kNoCode;
  scanner_.pushBack();
  return scanner_.code();
}

bool InFiler::atExtendedData() {
  return peekCode() >= kFirstExtendedCode;
}

bool InFiler::atSubclassData(const ACHAR* name) {
  if (withoutMarkers_) {
    rewindFiler();
    return true;
  }
  if (!scanner_.next()) return false;
  const std::string_view value = scanner_.value();
  const std::wstring_view wanted(name);
  const bool is = scanner_.code() == AcDb::kDxfSubclass &&
                  std::equal(value.begin(), value.end(), wanted.begin(), wanted.end(),
                             [](char a, wchar_t b) { return wchar_t(static_cast<unsigned char>(a)) == b; });
  if (!is) {
    scanner_.pushBack();
    return false;
  }
  last_ = scanner_.place();
  return true;
}

void InFiler::rewindFiler() {
  scanner_.seek(start_);
  last_ = start_;
}

Acad::ErrorStatus InFiler::pushBackItem() {
  scanner_.seek(last_);
  return Acad::eOk;
}

void InFiler::refuse(const char* what) {
  if (!in_.fault(what)) status_ = Acad::eInvalidResBuf;
}

Acad::ErrorStatus InFiler::readResBuf(resbuf* item) {
  *item = resbuf{};
  if (status_ != Acad::eOk) return status_;
  if (!scanner_.next() || scanner_.code() <= 0) {
    if (scanner_.code() == 0) scanner_.pushBack();
    return status_ = Acad::eEndOfFile;
  }
  last_ = scanner_.place();
  item->restype = short(scanner_.code());
  return readValue(*item) ? Acad::eOk : status_;
}

bool InFiler::readReal(int code, std::string_view value, double& real) const {
  return isAngle(code) && !keepsAngles_ ? parseDegrees(value, real) : parseReal(value, real);
}

bool InFiler::readCoordinates(resbuf& item) {
  const int code = scanner_.code();
  if (!parseReal(scanner_.value(), item.resval.rpoint[0])) return false;
  for (int i = 1; i < 3; ++i) {
    if (!scanner_.next()) return true;
    if (scanner_.code() != code + 10 * i) {
      scanner_.pushBack();
      return true;
    }
    if (!parseReal(scanner_.value(), item.resval.rpoint[i])) return false;
  }
  return true;
}

bool InFiler::readValue(resbuf& item) {
  const std::string_view value = scanner_.value();
  ads_u_val& to = item.resval;
  std::int64_t whole = 0;
  switch (kindOf(item.restype)) {
    case Kind::kPoint:
      if (!readCoordinates(item)) refuse("a coordinate is no number");
      break;
    case Kind::kReal:
      if (!readReal(item.restype, value, to.rreal)) refuse("a real value is no number");
      break;
    case Kind::kInt16: {
      Adesk::Int16 narrow = 0;
      if (!parseInteger(value, narrow)) refuse("a 16-bit value is no such number");
      to.rint = narrow;
      break;
    }
    case Kind::kInt32: {
      Adesk::Int32 narrow = 0;
      if (!parseInteger(value, narrow)) refuse("a 32-bit value is no such number");
      to.rlong = narrow;
      break;
    }
    case Kind::kInt64:
      if (!parseInteger(value, whole)) refuse("a 64-bit value is no such number");
      to.mnInt64 = whole;
      break;
    case Kind::kBinary:
      chunk_.clear();
      if (!decodeHex(value, chunk_) || chunk_.size() > std::size_t(std::numeric_limits<short>::max())) {
        refuse("a binary value isn't hexadecimal");
        chunk_.clear();
      }
      to.rbinary.clen = short(chunk_.size());
      to.rbinary.buf = chunk_.data();
      break;
    case Kind::kObjectId: {
      std::uint64_t handle = 0;
      if (!parseHandle(value, handle)) refuse("a reference is no handle");
      to.rlname[0] = in_.reference(handle).asOldId();
      break;
    }
    default:
      decodeText(page_, value, text_);
      to.rstring = text_.data();
  }
  return status_ == Acad::eOk;
}

}  // namespace krio::dxf
