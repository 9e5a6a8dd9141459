#include "host/companion/side/SideFunctions.h"
#include "host/db/db.h"

namespace {

// The viewport number of paper space itself; those above it are viewports entered from there.
constexpr int kPaperViewport = 1;

const ACHAR* currentSpace(int cvport, int tilemode) {
  return tilemode != 0 || cvport > kPaperViewport ? ACDB_MODEL_SPACE : ACDB_PAPER_SPACE;
}

Acad::ErrorStatus openSpace(AcDbDatabase& database, const ACHAR* name, AcDbBlockTableRecord*& space) {
  AcDbBlockTable* table = nullptr;
  const Acad::ErrorStatus opened = database.getBlockTable(table, AcDb::kForRead);
  if (opened != Acad::eOk) return opened;
  const Acad::ErrorStatus found = table->getAt(name, space, AcDb::kForWrite);
  table->close();
  return found;
}

}  // namespace

int krAppendEntity(AcDbEntity* entity, AcDbDatabase* db, int cvport, int tilemode, AcDbObjectId& id) {
  if (entity == nullptr || db == nullptr) return 0;
  AcDbBlockTableRecord* space = nullptr;
  if (openSpace(*db, currentSpace(cvport, tilemode), space) != Acad::eOk) return 0;
  AcDbObjectId appended;
  const Acad::ErrorStatus result = space->appendAcDbEntity(appended, entity);
  space->close();
  if (result != Acad::eOk) return 0;
  id = appended;
  return 1;
}
