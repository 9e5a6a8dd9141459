#pragma once

#include <memory>

#include "host/db/db.h"
#include "support/Database.h"
#include "support/Layers.h"

/// A drawing to put members in: the working database for the life of the object, with the layers that members expect.
class Drawing {
 public:
  Drawing() : database_(std::make_unique<AcDbDatabase>()) {
    before_ = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(database_.get());
    for (const wchar_t* name : {L"L-HIDDEN", L"EIXO", L"KR_HIDE_FACE", L"PERFIL"})
      krCriaLayer(name, 7, L"continuous", 0, 0, 0, 0);
  }
  ~Drawing() {
    database_.reset();
    acdbHostApplicationServices()->setWorkingDatabase(before_);
  }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  AcDbDatabase* database() { return database_.get(); }

  AcDbObjectId layer(const wchar_t* name) const {
    AcDbObjectId id;
    getLayerIdFromString(name, id);
    return id;
  }

  void freeze(const wchar_t* name, bool frozen) {
    AcDbLayerTableRecord* record = nullptr;
    if (acdbOpenObject(record, layer(name), AcDb::kForWrite) != Acad::eOk) return;
    record->setIsFrozen(frozen);
    record->close();
  }

  /// Puts an entity in model space and closes it.
  AcDbObjectId append(AcDbEntity* entity) {
    AcDbBlockTable* table = nullptr;
    AcDbBlockTableRecord* space = nullptr;
    AcDbObjectId id;
    database_->getBlockTable(table, AcDb::kForRead);
    table->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite);
    table->close();
    space->appendAcDbEntity(id, entity);
    space->close();
    entity->close();
    return id;
  }

 private:
  std::unique_ptr<AcDbDatabase> database_;
  AcDbDatabase* before_ = nullptr;
};
