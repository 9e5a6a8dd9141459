#pragma once

#include "host/db/AcDbObject.h"

/// A chain of values as an object.
class AcDbXrecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbXrecord);
  AcDbXrecord() = default;
  ~AcDbXrecord() override;

  /// A copy of the chain that acutRelRb frees; null when the record is empty.
  Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* database = nullptr) const;
  /// Takes a copy. eInvalidResBuf for codes that aren't group codes (0 to 999).
  Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* database = nullptr);
  AcDb::DuplicateRecordCloning mergeStyle() const;
  void setMergeStyle(AcDb::DuplicateRecordCloning style);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  resbuf* chain_ = nullptr;
  AcDb::DuplicateRecordCloning mergeStyle_ = AcDb::kDrcIgnore;
};
