#pragma once

#include <vector>

#include "host/db/AcDbField.h"
#include "host/db/AcDbObject.h"

/// Entities that are picked together.
class AcDbGroup : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbGroup);
  struct Data {
    std::wstring description;
    Adesk::Int16 unnamed = 0;
    Adesk::Int16 selectable = 1;
    std::vector<AcDbHardPointerId> entities;
    KR_DB_TIE(description, unnamed, selectable, entities)
  };
  AcDbGroup() = default;
  explicit AcDbGroup(const ACHAR* description, bool selectable = true);
  KR_DB_DATA(Data)

  KR_DB_TEXT(descriptionConst, setDescription, data_.description)
  KR_DB_GET(bool, isSelectable, data_.selectable != 0)
  void setSelectable(bool on);
  KR_DB_GET(bool, isAnonymous, data_.unnamed != 0)
  Acad::ErrorStatus setAnonymous();
  /// eDuplicateKey, eKeyNotFound.
  Acad::ErrorStatus append(AcDbObjectId id);
  Acad::ErrorStatus remove(AcDbObjectId id);
  bool has(AcDbObjectId id) const;
  KR_DB_GET(Adesk::UInt32, numEntities, Adesk::UInt32(data_.entities.size()))
  /// The ids, erased entities included; how many there are.
  Adesk::UInt32 allEntityIds(AcDbObjectIdArray& ids) const;
  void clear();

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  Data data_;
};
