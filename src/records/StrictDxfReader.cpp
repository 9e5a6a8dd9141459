#include "records/StrictDxfReader.h"

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

Acad::ErrorStatus StrictDxfReader::giveUp() {
  if (taken_) filer_->pushBackItem();
  filer_->setError(Acad::eInvalidDxfCode, L"\nKR_Trama erro ao ler DXF.");
  return filer_->filerStatus();
}
