#include "host/db/AcDbDxfFiler.h"

#include <cstdarg>

#include "host/os/Format.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDxfFiler, AcRxObject)

Acad::ErrorStatus AcDbDxfFiler::dwgVersion(AcDb::AcDbDwgVersion& version,
                                           AcDb::MaintenanceReleaseVersion& maint) const {
  version = AcDb::kDHL_CURRENT;
  maint = AcDb::kMReleaseCurrent;
  return Acad::eOk;
}

void AcDbDxfFiler::resetFilerStatus() {
  status_ = Acad::eOk;
  message_.clear();
}

Acad::ErrorStatus AcDbDxfFiler::setError(Acad::ErrorStatus status, const ACHAR* format, ...) {
  message_.clear();
  std::va_list arguments;
  va_start(arguments, format);
  if (format != nullptr) os::formatWide(message_, format, arguments);
  va_end(arguments);
  setFilerStatus(status);
  return status;
}

void AcDbDxfFiler::setError(const ACHAR* format, ...) {
  message_.clear();
  std::va_list arguments;
  va_start(arguments, format);
  if (format != nullptr) os::formatWide(message_, format, arguments);
  va_end(arguments);
  if (filerStatus() == Acad::eOk) setFilerStatus(Acad::eInvalidInput);
}

Acad::ErrorStatus AcDbDxfFiler::writeItem(AcDbDxfGroup g, const void* bytes, Adesk::UIntPtr length) {
  // A chunk's length is a short: more than that isn't one group.
  constexpr Adesk::UIntPtr kMaxChunk = 32767;
  if (length > kMaxChunk) return Acad::eInvalidInput;
  ads_binary chunk;
  chunk.clen = short(length);
  chunk.buf = const_cast<char*>(static_cast<const char*>(bytes));
  return writeBChunk(g.code, chunk);
}
