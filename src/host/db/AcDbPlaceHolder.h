#pragma once

#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbField.h"

/// An object without data that stands for something known by its place, as the plot style Normal.
class AcDbPlaceHolder : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbPlaceHolder);
  AcDbPlaceHolder() = default;
};

/// A value of a drawing's variable that is kept as an object.
class AcDbDictionaryVar : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDictionaryVar);
  struct Data {
    Adesk::UInt8 schema = 0;
    std::wstring value;
    KR_DB_TIE(schema, value)
  };
  AcDbDictionaryVar() = default;
  KR_DB_DATA(Data)
  KR_DB_TEXT(value, setValue, data_.value)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  Data data_;
};

/// A dictionary that answers a name that it doesn't have with its default entry.
class AcDbDictionaryWithDefault : public AcDbDictionary {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDictionaryWithDefault);
  AcDbDictionaryWithDefault() = default;
  KR_DB_ID(defaultId, setDefaultId, default_)
  void setDefaultIdAsRead(AcDbObjectId id) { default_ = id; }
  /// As the plain dictionary's, and the default entry for an unknown name; eKeyNotFound when there is none.
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  AcDbHardPointerId default_;
};
