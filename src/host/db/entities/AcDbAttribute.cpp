#include "host/db/entities/AcDbAttribute.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbText, 0, 0, 0, ATTRIB, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, 0, 0, 0, ATTDEF, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbAttribute, AcDbText, attribute_)
KR_DB_FILE_STRUCT(AcDbAttributeDefinition, AcDbText, attribute_)

namespace {

void writeGroups(AcDbDxfFiler& filer, const AcDbText& text, const AcDbAttributeData& data, bool withPrompt) {
  filer.writeSubclass(withPrompt ? L"AcDbAttributeDefinition" : L"AcDbAttribute");
  if (withPrompt) filer.writeItem(3, data.prompt.c_str());
  filer.writeItem(2, data.tag.c_str());
  filer.writeItem(70, Adesk::Int16(data.flags));
  if (data.fieldLength != 0) filer.writeItem(73, data.fieldLength);
  if (text.data().vertical != AcDb::kTextBase) filer.writeItem(74, text.data().vertical);
}

Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, AcDbText& text, AcDbAttributeData& data, const ACHAR* marker) {
  return entities::readSubclass(filer, marker, [&](const resbuf& group) {
    if (group.restype == 2) data.tag = entities::textOf(group);
    if (group.restype == 3) data.prompt = entities::textOf(group);
    if (group.restype == 70) data.flags = Adesk::UInt8(group.resval.rint);
    if (group.restype == 73) data.fieldLength = group.resval.rint;
    if (group.restype == 74) text.dataAsRead().vertical = group.resval.rint;
  });
}

}  // namespace

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style)
    : AcDbText(position, text, style) {
  setTag(tag);
}

Acad::ErrorStatus AcDbAttribute::setInvisible(Adesk::Boolean on) {
  assertWriteEnabled();
  const int others = attribute_.flags & ~AcDbAttributeData::kInvisible;
  attribute_.flags = Adesk::UInt8(on ? others | AcDbAttributeData::kInvisible : others);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbAttribute::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  writeTextGroups(filer);
  writeGroups(*filer, *this, attribute_, false);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbAttribute::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbText::dxfInFields(filer); es != Acad::eOk) return es;
  return readGroups(filer, *this, attribute_, L"AcDbAttribute");
}

Adesk::Boolean AcDbAttribute::subWorldDraw(AcGiWorldDraw* draw) {
  return isInvisible() ? Adesk::kTrue : AcDbText::subWorldDraw(draw);
}

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                                                 const ACHAR* prompt, AcDbObjectId style)
    : AcDbText(position, text, style) {
  setTag(tag);
  setPrompt(prompt);
}

Acad::ErrorStatus AcDbAttributeDefinition::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  writeTextGroups(filer);
  writeGroups(*filer, *this, attribute_, true);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbAttributeDefinition::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbText::dxfInFields(filer); es != Acad::eOk) return es;
  return readGroups(filer, *this, attribute_, L"AcDbAttributeDefinition");
}

Adesk::Boolean AcDbAttributeDefinition::subWorldDraw(AcGiWorldDraw* draw) {
  if (isConstant()) return AcDbText::subWorldDraw(draw);
  AcDbText tag;
  tag.setData(data());
  tag.setTextString(attribute_.tag.c_str());
  return tag.worldDraw(draw);
}
