#include "records/ListFiling.h"

#include "host/db/db.h"

namespace ListFiling {

void writeCount(AcDbDwgFiler* filer, int count) {
  filer->writeInt32(count);
}

void writeCount(AcDbDxfFiler* filer, int count) {
  filer->writeItem(AcDb::kDxfInt32, static_cast<Adesk::Int32>(count));
}

int readCount(AcDbDwgFiler* filer) {
  Adesk::Int32 count = 0;
  filer->readInt32(&count);
  return count;
}

Acad::ErrorStatus readCount(AcDbDxfFiler* filer, int& count) {
  resbuf item{};
  if (const Acad::ErrorStatus es = filer->readItem(&item); es != Acad::eOk) return es;
  if (item.restype != AcDb::kDxfInt32) {
    filer->pushBackItem();
    return Acad::eInvalidResBuf;
  }
  count = item.resval.rlong;
  return Acad::eOk;
}

Acad::ErrorStatus status(AcDbDwgFiler* filer) {
  return filer->filerStatus();
}

Acad::ErrorStatus status(AcDbDxfFiler* filer) {
  return filer->filerStatus();
}

}  // namespace ListFiling
