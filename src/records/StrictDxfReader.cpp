#include "records/StrictDxfReader.h"

#include <algorithm>
#include <cstring>

bool StrictDxfReader::take(int code) {
  if (ended_) return false;
  taken_ = filer_->readItem(&item_) == Acad::eOk;
  ended_ = !taken_ || item_.restype != code;
  return !ended_;
}

bool StrictDxfReader::require(bool acceptable) {
  ended_ = ended_ || !acceptable;
  return !ended_;
}

bool StrictDxfReader::real(double& value) {
  constexpr int kReal = 40;
  if (!take(kReal)) return false;
  value = item_.resval.rreal;
  return true;
}

bool StrictDxfReader::int16(std::int16_t& value, int code) {
  if (!take(code)) return false;
  value = item_.resval.rint;
  return true;
}

bool StrictDxfReader::int32(std::int32_t& value, int code) {
  if (!take(code)) return false;
  value = item_.resval.rlong;
  return true;
}

bool StrictDxfReader::point(AcGePoint3d& value, int code) {
  if (!take(code)) return false;
  value.set(item_.resval.rpoint[0], item_.resval.rpoint[1], item_.resval.rpoint[2]);
  return true;
}

bool StrictDxfReader::text(const ACHAR*& value) {
  constexpr int kText = 1;
  if (!take(kText)) return false;
  value = item_.resval.rstring;
  return true;
}

bool StrictDxfReader::bytes(void* value, std::size_t size) {
  constexpr int kChunk = 310;
  if (!take(kChunk)) return false;
  const ads_binary& chunk = item_.resval.rbinary;
  const std::size_t given = chunk.clen > 0 ? std::min(size, static_cast<std::size_t>(chunk.clen)) : 0;
  std::memset(value, 0, size);
  if (given > 0) std::memcpy(value, chunk.buf, given);
  return true;
}

Acad::ErrorStatus StrictDxfReader::giveUp() {
  if (taken_) filer_->pushBackItem();
  filer_->setError(Acad::eInvalidDxfCode, L"\nKR_Trama erro ao ler DXF.");
  return filer_->filerStatus();
}
