#pragma once

#include <vector>

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
  /// The record's own chain, and one taken over as it is, for readers and writers of files.
  const resbuf* chain() const { return chain_; }
  void setChainAsRead(resbuf* chain);
  void setMergeStyleAsRead(AcDb::DuplicateRecordCloning style) { mergeStyle_ = style; }
  AcDb::DuplicateRecordCloning mergeStyleAsRead() const { return mergeStyle_; }
  /// The references that a DWG has behind the record's bytes, with their codes (2 to 5).
  struct Reference {
    Adesk::UInt8 code = 4;
    AcDbObjectId id;
  };
  std::vector<Reference>& referencesAsRead() { return references_; }
  const std::vector<Reference>& references() const { return references_; }
  AcDb::DuplicateRecordCloning mergeStyle() const;
  void setMergeStyle(AcDb::DuplicateRecordCloning style);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  resbuf* chain_ = nullptr;
  std::vector<Reference> references_;
  AcDb::DuplicateRecordCloning mergeStyle_ = AcDb::kDrcIgnore;
};
