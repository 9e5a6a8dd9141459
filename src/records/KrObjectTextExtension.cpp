#include "records/KrObjectTextExtension.h"

ACRX_CONS_DEFINE_MEMBERS(KrObjectTextExtension, KrObjectExtension, 1)

const ACHAR* KrObjectTextExtension::text() const {
  assertReadEnabled();
  return text_ != nullptr ? text_->c_str() : nullptr;
}

double KrObjectTextExtension::textAngle() const {
  assertReadEnabled();
  return textAngle_;
}

double KrObjectTextExtension::textHeight() const {
  assertReadEnabled();
  return textHeight_;
}

AcDbObjectId KrObjectTextExtension::textStyleId() const {
  assertReadEnabled();
  return textStyleId_;
}

AcDbObjectId KrObjectTextExtension::layerId() const {
  assertReadEnabled();
  return layerId_;
}

AcGeVector3d KrObjectTextExtension::vecOffset() const {
  assertReadEnabled();
  return vecOffset_;
}

int KrObjectTextExtension::isRelativeOriented() const {
  assertReadEnabled();
  return hasFlag(kRelativeOriented) ? 1 : 0;
}

void KrObjectTextExtension::setText(const ACHAR* text) {
  assertWriteEnabled();
  text_ = text != nullptr ? std::make_shared<const std::wstring>(text) : nullptr;
}

void KrObjectTextExtension::setTextAngle(double angle) {
  assertWriteEnabled();
  textAngle_ = angle;
}

void KrObjectTextExtension::setTextHeight(double height) {
  assertWriteEnabled();
  textHeight_ = height;
}

void KrObjectTextExtension::setTextStyle(const AcDbObjectId& style) {
  assertWriteEnabled();
  textStyleId_ = style;
}

void KrObjectTextExtension::setLayer(const AcDbObjectId& layer) {
  assertWriteEnabled();
  layerId_ = layer;
}

void KrObjectTextExtension::setVecOffset(const AcGeVector3d& offset) {
  assertWriteEnabled();
  vecOffset_ = offset;
}

void KrObjectTextExtension::setIsRelativeOriented(int relative) {
  assertWriteEnabled();
  modifyOptionFlags(kRelativeOriented, relative != 0 ? kRelativeOriented : 0U);
}

void KrObjectTextExtension::modifyOptionFlags(std::uint32_t clear, std::uint32_t set) {
  optionFlags_ = (optionFlags_ & ~clear) | set;
}

Acad::ErrorStatus KrObjectTextExtension::dwgOutFieldsExtension(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = KrObjectExtension::dwgOutFieldsExtension(filer); es != Acad::eOk) return es;
  filer->writeUInt32(kFieldsVersion);
  filer->writeString(text_ != nullptr ? text_->c_str() : L"");
  filer->writeUInt32(optionFlags_);
  filer->writeVector3d(vecOffset_);
  filer->writeHardPointerId(AcDbHardPointerId(textStyleId_));
  filer->writeHardPointerId(AcDbHardPointerId(layerId_));
  filer->writeDouble(textHeight_);
  filer->writeDouble(textAngle_);
  return filer->filerStatus();
}

Acad::ErrorStatus KrObjectTextExtension::dwgInFieldsExtension(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = KrObjectExtension::dwgInFieldsExtension(filer); es != Acad::eOk) return es;
  Adesk::UInt32 version = 0;
  filer->readUInt32(&version);
  if (version > kFieldsVersion) return Acad::eNotApplicable;
  if (version == 0) return Acad::eOk;
  ACHAR* text = nullptr;
  filer->readString(&text);
  // A text of no letters is filed for none, too.
  text_ = text != nullptr && text[0] != L'\0' ? std::make_shared<const std::wstring>(text) : nullptr;
  acutDelString(text);
  filer->readUInt32(&optionFlags_);
  filer->readVector3d(&vecOffset_);
  AcDbHardPointerId style;
  AcDbHardPointerId layer;
  filer->readHardPointerId(&style);
  filer->readHardPointerId(&layer);
  textStyleId_ = style;
  layerId_ = layer;
  filer->readDouble(&textHeight_);
  filer->readDouble(&textAngle_);
  return filer->filerStatus();
}
