#include "host/db/entities/AcDbText.h"

#include <cmath>

#include "host/db/FieldFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/TextStyling.h"
#include "host/ed/acut.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, 0, 0, 0, TEXT, ObjectDBX Classes)

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation) {
  place(data_.position, position);
  data_.style = style;
  data_.rotation = rotation;
  setTextString(text);
  if (height > 0.0) data_.height = height;
}

#define KR_TEXT_FIELD(Type, getter, setter, field) \
  Type AcDbText::getter() const {                  \
    assertReadEnabled();                           \
    return field;                                  \
  }                                                \
  Acad::ErrorStatus AcDbText::setter(Type value) { \
    assertWriteEnabled();                          \
    field = value;                                 \
    return Acad::eOk;                              \
  }
KR_TEXT_FIELD(double, thickness, setThickness, data_.thickness)
KR_TEXT_FIELD(double, oblique, setOblique, data_.oblique)
KR_TEXT_FIELD(double, rotation, setRotation, data_.rotation)
KR_TEXT_FIELD(AcDbObjectId, textStyle, setTextStyle, data_.style)
#undef KR_TEXT_FIELD

AcGePoint3d AcDbText::inWorld(const AcGePoint2d& p) const {
  return entities::fromPlane({p.x, p.y, data_.elevation}, data_.normal);
}

void AcDbText::place(AcGePoint2d& field, const AcGePoint3d& point) {
  const AcGePoint3d p = entities::toPlane(point, data_.normal);
  field.set(p.x, p.y);
  data_.elevation = p.z;
}

AcGePoint3d AcDbText::position() const {
  assertReadEnabled();
  return inWorld(data_.position);
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& point) {
  assertWriteEnabled();
  place(data_.position, point);
  return Acad::eOk;
}

AcGePoint3d AcDbText::alignmentPoint() const {
  assertReadEnabled();
  return inWorld(data_.alignment);
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point) {
  assertWriteEnabled();
  place(data_.alignment, point);
  return Acad::eOk;
}

bool AcDbText::isMirroredInX() const {
  assertReadEnabled();
  return (data_.generation & kBackward) != 0;
}

Acad::ErrorStatus AcDbText::mirrorInX(bool on) {
  assertWriteEnabled();
  data_.generation = Adesk::Int16(on ? data_.generation | kBackward : data_.generation & ~kBackward);
  return Acad::eOk;
}

bool AcDbText::isMirroredInY() const {
  assertReadEnabled();
  return (data_.generation & kUpsideDown) != 0;
}

Acad::ErrorStatus AcDbText::mirrorInY(bool on) {
  assertWriteEnabled();
  data_.generation = Adesk::Int16(on ? data_.generation | kUpsideDown : data_.generation & ~kUpsideDown);
  return Acad::eOk;
}

AcDb::TextHorzMode AcDbText::horizontalMode() const {
  assertReadEnabled();
  return AcDb::TextHorzMode(data_.horizontal);
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
  assertWriteEnabled();
  data_.horizontal = Adesk::Int16(mode);
  return Acad::eOk;
}

AcDb::TextVertMode AcDbText::verticalMode() const {
  assertReadEnabled();
  return AcDb::TextVertMode(data_.vertical);
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
  assertWriteEnabled();
  data_.vertical = Adesk::Int16(mode);
  return Acad::eOk;
}

bool AcDbText::isDefaultAlignment() const {
  assertReadEnabled();
  return data_.horizontal == AcDb::kTextLeft && data_.vertical == AcDb::kTextBase;
}

AcGeVector3d AcDbText::normal() const {
  assertReadEnabled();
  return data_.normal;
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  const AcGePoint3d at = inWorld(data_.position);
  const AcGePoint3d aligned = inWorld(data_.alignment);
  data_.normal = normal / normal.length();
  place(data_.alignment, aligned);
  place(data_.position, at);
  return Acad::eOk;
}

double AcDbText::height() const {
  assertReadEnabled();
  return data_.height;
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
  if (!(height > 0.0) || !std::isfinite(height)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.height = height;
  return Acad::eOk;
}

double AcDbText::widthFactor() const {
  assertReadEnabled();
  return data_.widthFactor;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
  if (!(factor > 0.0) || !std::isfinite(factor)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.widthFactor = factor;
  return Acad::eOk;
}

ACHAR* AcDbText::textString() const {
  assertReadEnabled();
  ACHAR* copy = nullptr;
  acutNewString(data_.text.c_str(), copy);
  return copy;
}

const ACHAR* AcDbText::textStringConst() const {
  assertReadEnabled();
  return data_.text.c_str();
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
  if (text == nullptr) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.text = text;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(inWorld(data_.position), data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

AcGiTextStyle AcDbText::giStyle() const {
  AcGiTextStyle style = entities::styleFor(data_.style, data_.height, data_.widthFactor, data_.oblique);
  style.setBackward((data_.generation & kBackward) != 0);
  style.setUpsideDown((data_.generation & kUpsideDown) != 0);
  return style;
}

AcGeMatrix3d AcDbText::frame() const {
  const AcGeVector3d along = entities::directionAt(data_.rotation, data_.normal);
  AcGeMatrix3d result;
  return result.setCoordSystem(inWorld(data_.position), along, data_.normal.crossProduct(along), data_.normal);
}

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*) {
  if (isDefaultAlignment()) return Acad::eOk;
  assertWriteEnabled();
  AcGePoint2d low;
  AcGePoint2d high;
  if (data_.horizontal == AcDb::kTextAlign || data_.horizontal == AcDb::kTextFit) {
    // Both points carry the baseline; the text is made to reach from one to the other.
    const AcGeVector3d span = inWorld(data_.alignment) - inWorld(data_.position);
    if (span.orthoProject(data_.normal).length() == 0.0) return Acad::eDegenerateGeometry;
    data_.rotation = entities::angleInPlane(span, data_.normal);
    entities::textBox(giStyle(), data_.text, low, high);
    if (high.x <= 0.0) return Acad::eOk;
    const double factor = span.length() / high.x;
    (data_.horizontal == AcDb::kTextAlign ? data_.height : data_.widthFactor) *= factor;
    return Acad::eOk;
  }
  entities::textBox(giStyle(), data_.text, low, high);
  AcGeVector2d anchor;
  if (data_.horizontal == AcDb::kTextCenter || data_.horizontal == AcDb::kTextMid) anchor.x = high.x / 2.0;
  if (data_.horizontal == AcDb::kTextRight) anchor.x = high.x;
  if (data_.horizontal == AcDb::kTextMid) anchor.y = (low.y + high.y) / 2.0;
  if (data_.vertical == AcDb::kTextVertMid) anchor.y = data_.height / 2.0;
  if (data_.vertical == AcDb::kTextTop) anchor.y = data_.height;
  if (data_.vertical == AcDb::kTextBottom) anchor.y = std::fmin(low.y, 0.0);
  place(data_.position, inWorld(data_.alignment) - frame() * AcGeVector3d(anchor.x, anchor.y, 0.0));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subClose() {
  if (isWriteEnabled() && isModified() && !isErased() && !isUndoing()) adjustAlignment();
  return AcDbEntity::subClose();
}

Acad::ErrorStatus AcDbText::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus status = AcDbEntity::dwgOutFields(filer);
  return status == Acad::eOk ? fields::write(filer, data_) : status;
}

Acad::ErrorStatus AcDbText::dwgInFields(AcDbDwgFiler* filer) {
  const Acad::ErrorStatus status = AcDbEntity::dwgInFields(filer);
  return status == Acad::eOk ? fields::read(filer, data_) : status;
}

void AcDbText::writeTextGroups(AcDbDxfFiler* filer) const {
  filer->writeSubclass(L"AcDbText");
  if (data_.thickness != 0.0) filer->writeDouble(AcDb::kDxfThickness, data_.thickness);
  filer->writeItem(AcDb::kDxfXCoord, AcGePoint3d(data_.position.x, data_.position.y, data_.elevation));
  filer->writeDouble(AcDb::kDxfReal, data_.height);
  filer->writeString(AcDb::kDxfText, data_.text.c_str());
  if (data_.rotation != 0.0) filer->writeDouble(AcDb::kDxfAngle, data_.rotation);
  if (data_.widthFactor != 1.0) filer->writeItem(AcDb::kDxfReal + 1, data_.widthFactor);
  if (data_.oblique != 0.0) filer->writeItem(AcDb::kDxfAngle + 1, data_.oblique);
  filer->writeString(AcDb::kDxfTextStyleName, entities::styleName(data_.style).c_str());
  if (data_.generation != 0) filer->writeInt16(AcDb::kDxfTxtStyleFlags, data_.generation);
  if (data_.horizontal != AcDb::kTextLeft) filer->writeInt16(AcDb::kDxfLinetypeAlign, data_.horizontal);
  if (!isDefaultAlignment())
    filer->writeItem(AcDb::kDxfXCoord + 1, AcGePoint3d(data_.alignment.x, data_.alignment.y, data_.elevation));
  if (data_.normal != AcGeVector3d::kZAxis) filer->writeItem(AcDb::kDxfNormalX, data_.normal);
}

Acad::ErrorStatus AcDbText::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus status = AcDbEntity::dxfOutFields(filer); status != Acad::eOk) return status;
  writeTextGroups(filer);
  filer->writeSubclass(L"AcDbText");
  if (data_.vertical != AcDb::kTextBase) filer->writeInt16(AcDb::kDxfLinetypePDC, data_.vertical);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbEntity::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  AcGePoint3d position;
  AcGePoint3d alignment;
  const auto take = [&](const resbuf& group) {
    const double real = group.resval.rreal;
    const int flags = group.resval.rint;
    switch (group.restype) {
      case AcDb::kDxfText:
        data_.text = entities::textOf(group);
        break;
      case AcDb::kDxfTextStyleName:
        data_.style = entities::styleNamed(filer->database(), entities::textOf(group));
        break;
      case AcDb::kDxfXCoord:
        position = entities::pointOf(group);
        break;
      case AcDb::kDxfXCoord + 1:
        alignment = entities::pointOf(group);
        break;
      case AcDb::kDxfThickness:
        data_.thickness = real;
        break;
      case AcDb::kDxfReal:
        setHeight(real);
        break;
      case AcDb::kDxfReal + 1:
        setWidthFactor(real);
        break;
      case AcDb::kDxfAngle:
        data_.rotation = real;
        break;
      case AcDb::kDxfAngle + 1:
        data_.oblique = real;
        break;
      case AcDb::kDxfTxtStyleFlags:
        data_.generation = Adesk::Int16(flags);
        break;
      case AcDb::kDxfLinetypeAlign:
        if (flags >= AcDb::kTextLeft && flags <= AcDb::kTextFit) data_.horizontal = Adesk::Int16(flags);
        break;
      case AcDb::kDxfLinetypePDC:
        if (flags >= AcDb::kTextBase && flags <= AcDb::kTextTop) data_.vertical = Adesk::Int16(flags);
        break;
      case AcDb::kDxfNormalX:
        data_.normal = entities::vectorOf(group);
        break;
      default:
        break;
    }
  };
  status = entities::readSubclass(filer, L"AcDbText", take);
  // Texts of some programs lack the second part.
  if (status == Acad::eOk && entities::readSubclass(filer, L"AcDbText", take) != Acad::eBadDxfSequence) {
    status = filer->filerStatus();
  }
  data_.position.set(position.x, position.y);
  data_.alignment.set(alignment.x, alignment.y);
  data_.elevation = position.z;
  return status;
}

Adesk::Boolean AcDbText::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  if (data_.text.empty()) return Adesk::kTrue;
  draw->geometry().text(inWorld(data_.position), data_.normal, entities::directionAt(data_.rotation, data_.normal),
                        data_.text.c_str(), -1, Adesk::kFalse, giStyle());
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbText::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  AcGeVector3d along = xform * entities::directionAt(data_.rotation, data_.normal);
  const double factor = xform.scale();
  const AcGePoint3d at = xform * inWorld(data_.position);
  const AcGePoint3d aligned = xform * inWorld(data_.alignment);
  data_.normal = (xform * data_.normal).normal();
  place(data_.alignment, aligned);
  place(data_.position, at);
  if (xform.det() < 0.0) {
    // A mirrored text is one written upside down, or backward from the other side: the one that reads left to right.
    const AcGeVector3d flat = AcGeMatrix3d::worldToPlane(data_.normal) * along;
    if (flat.x < 0.0) {
      along = -along;
      data_.generation ^= kBackward;
    } else {
      data_.generation ^= kUpsideDown;
    }
  }
  data_.rotation = entities::angleInPlane(along, data_.normal);
  data_.height *= factor;
  data_.thickness *= factor;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetGeomExtents(AcDbExtents& extents) const {
  assertReadEnabled();
  AcGePoint2d low;
  AcGePoint2d high;
  entities::textBox(giStyle(), data_.text, low, high);
  AcDbExtents box;
  entities::addBox(box, frame(), low, high);
  extents = box;
  return Acad::eOk;
}

void AcDbText::subList() const {
  assertReadEnabled();
  AcDbEntity::subList();
  acutPrintf(L"\n                    Style = \"%s\"", entities::styleName(data_.style).c_str());
  acutPrintf(L"\n                    text %s", data_.text.c_str());
  entities::listPoint(L"             start point,", inWorld(data_.position));
  entities::listLength(L"            height", data_.height);
  entities::listAngle(L"    rotation angle", data_.rotation);
  entities::listLength(L"    width scale factor", data_.widthFactor);
  entities::listAngle(L"    obliquing angle", data_.oblique);
}

Acad::ErrorStatus AcDbText::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker, const AcGePoint3d&,
                                              const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray& snapPoints,
                                              AcDbIntArray&) const {
  assertReadEnabled();
  if (mode == AcDb::kOsModeIns || mode == AcDb::kOsModeNode) {
    snapPoints.append(isDefaultAlignment() ? inWorld(data_.position) : inWorld(data_.alignment));
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  points.append(inWorld(data_.position));
  if (!isDefaultAlignment()) points.append(inWorld(data_.alignment));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  if (indices.length() == 0) return Acad::eOk;
  assertWriteEnabled();
  const AcGePoint3d aligned = inWorld(data_.alignment) + offset;
  const AcGePoint3d at = inWorld(data_.position) + offset;
  place(data_.alignment, aligned);
  place(data_.position, at);
  return Acad::eOk;
}
