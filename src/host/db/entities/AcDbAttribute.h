#pragma once

#include "host/db/AcDbField.h"
#include "host/db/entities/AcDbText.h"

/// What attributes and their definitions have beyond a text.
struct AcDbAttributeData {
  /// Bits of the flags, as in group 70.
  enum Flag : Adesk::UInt8 { kInvisible = 1, kConstant = 2, kVerify = 4, kPreset = 8 };
  std::wstring tag;
  Adesk::Int16 fieldLength = 0;
  Adesk::UInt8 flags = 0;
  std::wstring prompt;  ///< of definitions only
  KR_DB_TIE(tag, fieldLength, flags, prompt)
};

/// A text that belongs to an insert under a tag.
class AcDbAttribute : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttribute);
  AcDbAttribute() = default;
  AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                AcDbObjectId style = AcDbObjectId::kNull);
  const AcDbAttributeData& attributeData() const { return attribute_; }
  AcDbAttributeData& attributeDataAsRead() { return attribute_; }

  KR_DB_TEXT(tagConst, setTag, attribute_.tag)
  KR_DB_FIELD(Adesk::Int16, fieldLength, setFieldLength, attribute_.fieldLength)
  KR_DB_GET(bool, isInvisible, (attribute_.flags & AcDbAttributeData::kInvisible) != 0)
  Acad::ErrorStatus setInvisible(Adesk::Boolean on);
  KR_DB_GET(bool, isConstant, (attribute_.flags & AcDbAttributeData::kConstant) != 0)
  KR_DB_GET(bool, isVerifiable, (attribute_.flags & AcDbAttributeData::kVerify) != 0)
  KR_DB_GET(bool, isPreset, (attribute_.flags & AcDbAttributeData::kPreset) != 0)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;

 private:
  AcDbAttributeData attribute_;
};

/// Stands in a block for the attribute that each insert of it is to have.
class AcDbAttributeDefinition : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
  AcDbAttributeDefinition() = default;
  AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, const ACHAR* prompt,
                          AcDbObjectId style = AcDbObjectId::kNull);
  const AcDbAttributeData& attributeData() const { return attribute_; }
  AcDbAttributeData& attributeDataAsRead() { return attribute_; }

  KR_DB_TEXT(tagConst, setTag, attribute_.tag)
  KR_DB_TEXT(promptConst, setPrompt, attribute_.prompt)
  KR_DB_FIELD(Adesk::Int16, fieldLength, setFieldLength, attribute_.fieldLength)
  KR_DB_GET(bool, isInvisible, (attribute_.flags & AcDbAttributeData::kInvisible) != 0)
  KR_DB_GET(bool, isConstant, (attribute_.flags & AcDbAttributeData::kConstant) != 0)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  /// Shows its tag. In an insert it isn't drawn unless it is constant.
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;

 private:
  AcDbAttributeData attribute_;
};
