#include "host/db/entities/AcDbText.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/TextStyling.h"
#include "host/ed/acut.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, 0, 0, 0, TEXT, ObjectDBX Classes)

namespace {

// Bits of group 71.
constexpr int kBackward = 2;
constexpr int kUpsideDown = 4;

}  // namespace

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation)
    : m_position(position), m_style(style), m_rotation(rotation) {
  setTextString(text);
  if (height > 0.0) m_height = height;
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
KR_TEXT_FIELD(double, thickness, setThickness, m_thickness)
KR_TEXT_FIELD(double, oblique, setOblique, m_oblique)
KR_TEXT_FIELD(double, rotation, setRotation, m_rotation)
KR_TEXT_FIELD(AcDbObjectId, textStyle, setTextStyle, m_style)
KR_TEXT_FIELD(bool, isMirroredInX, mirrorInX, m_mirroredInX)
KR_TEXT_FIELD(bool, isMirroredInY, mirrorInY, m_mirroredInY)
KR_TEXT_FIELD(AcDb::TextHorzMode, horizontalMode, setHorizontalMode, m_horizontal)
KR_TEXT_FIELD(AcDb::TextVertMode, verticalMode, setVerticalMode, m_vertical)
#undef KR_TEXT_FIELD

AcGePoint3d AcDbText::position() const {
  assertReadEnabled();
  return m_position;
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& point) {
  assertWriteEnabled();
  m_position = point;
  return Acad::eOk;
}

AcGePoint3d AcDbText::alignmentPoint() const {
  assertReadEnabled();
  return m_alignment;
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point) {
  assertWriteEnabled();
  m_alignment = point;
  return Acad::eOk;
}

bool AcDbText::isDefaultAlignment() const {
  assertReadEnabled();
  return m_horizontal == AcDb::kTextLeft && m_vertical == AcDb::kTextBase;
}

AcGeVector3d AcDbText::normal() const {
  assertReadEnabled();
  return m_normal;
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_normal = normal / normal.length();
  return Acad::eOk;
}

double AcDbText::height() const {
  assertReadEnabled();
  return m_height;
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
  if (!(height > 0.0) || !std::isfinite(height)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_height = height;
  return Acad::eOk;
}

double AcDbText::widthFactor() const {
  assertReadEnabled();
  return m_widthFactor;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
  if (!(factor > 0.0) || !std::isfinite(factor)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_widthFactor = factor;
  return Acad::eOk;
}

ACHAR* AcDbText::textString() const {
  assertReadEnabled();
  ACHAR* copy = nullptr;
  acutNewString(m_text.c_str(), copy);
  return copy;
}

const ACHAR* AcDbText::textStringConst() const {
  assertReadEnabled();
  return m_text.c_str();
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
  if (text == nullptr) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_text = text;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(m_position, m_normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

AcGiTextStyle AcDbText::giStyle() const {
  AcGiTextStyle style = entities::styleFor(m_style, m_height, m_widthFactor, m_oblique);
  style.setBackward(m_mirroredInX);
  style.setUpsideDown(m_mirroredInY);
  return style;
}

AcGeMatrix3d AcDbText::frame() const {
  const AcGeVector3d along = entities::directionAt(m_rotation, m_normal);
  AcGeMatrix3d result;
  return result.setCoordSystem(m_position, along, m_normal.crossProduct(along), m_normal);
}

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*) {
  if (isDefaultAlignment()) return Acad::eOk;
  assertWriteEnabled();
  AcGePoint2d low;
  AcGePoint2d high;
  if (m_horizontal == AcDb::kTextAlign || m_horizontal == AcDb::kTextFit) {
    // Both points carry the baseline; the text is made to reach from one to the other.
    const AcGeVector3d span = m_alignment - m_position;
    if (span.orthoProject(m_normal).length() == 0.0) return Acad::eDegenerateGeometry;
    m_rotation = entities::angleInPlane(span, m_normal);
    entities::textBox(giStyle(), m_text, low, high);
    if (high.x <= 0.0) return Acad::eOk;
    const double factor = span.length() / high.x;
    (m_horizontal == AcDb::kTextAlign ? m_height : m_widthFactor) *= factor;
    return Acad::eOk;
  }
  entities::textBox(giStyle(), m_text, low, high);
  AcGeVector2d anchor;
  if (m_horizontal == AcDb::kTextCenter || m_horizontal == AcDb::kTextMid) anchor.x = high.x / 2.0;
  if (m_horizontal == AcDb::kTextRight) anchor.x = high.x;
  if (m_horizontal == AcDb::kTextMid) anchor.y = (low.y + high.y) / 2.0;
  if (m_vertical == AcDb::kTextVertMid) anchor.y = m_height / 2.0;
  if (m_vertical == AcDb::kTextTop) anchor.y = m_height;
  if (m_vertical == AcDb::kTextBottom) anchor.y = std::fmin(low.y, 0.0);
  m_position = m_alignment - frame() * AcGeVector3d(anchor.x, anchor.y, 0.0);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subClose() {
  if (isWriteEnabled() && isModified() && !isErased() && !isUndoing()) adjustAlignment();
  return AcDbEntity::subClose();
}

Acad::ErrorStatus AcDbText::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbEntity::dwgOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writePoint3d(m_position);
  filer->writePoint3d(m_alignment);
  filer->writeVector3d(m_normal);
  filer->writeString(m_text.c_str());
  filer->writeHardPointerId(m_style);
  for (const double value : {m_height, m_rotation, m_oblique, m_widthFactor, m_thickness}) filer->writeDouble(value);
  filer->writeInt16(static_cast<Adesk::Int16>(m_horizontal));
  filer->writeInt16(static_cast<Adesk::Int16>(m_vertical));
  filer->writeBool(m_mirroredInX);
  filer->writeBool(m_mirroredInY);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbEntity::dwgInFields(filer);
  if (status != Acad::eOk) return status;
  ACHAR* text = nullptr;
  Adesk::Int16 horizontal = 0;
  Adesk::Int16 vertical = 0;
  filer->readPoint3d(&m_position);
  filer->readPoint3d(&m_alignment);
  filer->readVector3d(&m_normal);
  filer->readString(&text);
  filer->readHardPointerId(&m_style);
  for (double* value : {&m_height, &m_rotation, &m_oblique, &m_widthFactor, &m_thickness}) filer->readDouble(value);
  filer->readInt16(&horizontal);
  filer->readInt16(&vertical);
  filer->readBool(&m_mirroredInX);
  filer->readBool(&m_mirroredInY);
  if (text != nullptr) m_text = text;
  acutDelString(text);
  m_horizontal = static_cast<AcDb::TextHorzMode>(horizontal);
  m_vertical = static_cast<AcDb::TextVertMode>(vertical);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbEntity::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(m_normal);
  const int generation = (m_mirroredInX ? kBackward : 0) | (m_mirroredInY ? kUpsideDown : 0);
  filer->writeSubclass(L"AcDbText");
  if (m_thickness != 0.0) filer->writeDouble(AcDb::kDxfThickness, m_thickness);
  filer->writeItem(AcDb::kDxfXCoord, toPlane * m_position);
  filer->writeDouble(AcDb::kDxfReal, m_height);
  filer->writeString(AcDb::kDxfText, m_text.c_str());
  if (m_rotation != 0.0) filer->writeDouble(AcDb::kDxfAngle, m_rotation);
  if (m_widthFactor != 1.0) filer->writeItem(AcDb::kDxfReal + 1, m_widthFactor);
  if (m_oblique != 0.0) filer->writeItem(AcDb::kDxfAngle + 1, m_oblique);
  filer->writeString(AcDb::kDxfTextStyleName, entities::styleName(m_style).c_str());
  if (generation != 0) filer->writeInt16(AcDb::kDxfTxtStyleFlags, static_cast<Adesk::Int16>(generation));
  if (m_horizontal != AcDb::kTextLeft)
    filer->writeInt16(AcDb::kDxfLinetypeAlign, static_cast<Adesk::Int16>(m_horizontal));
  if (!isDefaultAlignment()) filer->writeItem(AcDb::kDxfXCoord + 1, toPlane * m_alignment);
  if (m_normal != AcGeVector3d::kZAxis) filer->writeItem(AcDb::kDxfNormalX, m_normal);
  filer->writeSubclass(L"AcDbText");
  if (m_vertical != AcDb::kTextBase) filer->writeInt16(AcDb::kDxfLinetypePDC, static_cast<Adesk::Int16>(m_vertical));
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
        m_text = entities::textOf(group);
        break;
      case AcDb::kDxfTextStyleName:
        m_style = entities::styleNamed(filer->database(), entities::textOf(group));
        break;
      case AcDb::kDxfXCoord:
        position = entities::pointOf(group);
        break;
      case AcDb::kDxfXCoord + 1:
        alignment = entities::pointOf(group);
        break;
      case AcDb::kDxfThickness:
        m_thickness = real;
        break;
      case AcDb::kDxfReal:
        setHeight(real);
        break;
      case AcDb::kDxfReal + 1:
        setWidthFactor(real);
        break;
      case AcDb::kDxfAngle:
        m_rotation = real;
        break;
      case AcDb::kDxfAngle + 1:
        m_oblique = real;
        break;
      case AcDb::kDxfTxtStyleFlags:
        m_mirroredInX = (flags & kBackward) != 0;
        m_mirroredInY = (flags & kUpsideDown) != 0;
        break;
      case AcDb::kDxfLinetypeAlign:
        if (flags >= AcDb::kTextLeft && flags <= AcDb::kTextFit) m_horizontal = static_cast<AcDb::TextHorzMode>(flags);
        break;
      case AcDb::kDxfLinetypePDC:
        if (flags >= AcDb::kTextBase && flags <= AcDb::kTextTop) m_vertical = static_cast<AcDb::TextVertMode>(flags);
        break;
      case AcDb::kDxfNormalX:
        setNormal(entities::vectorOf(group));
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
  const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(m_normal);
  m_position = toWorld * position;
  m_alignment = toWorld * alignment;
  return status;
}

Adesk::Boolean AcDbText::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  if (m_text.empty()) return Adesk::kTrue;
  draw->geometry().text(m_position, m_normal, entities::directionAt(m_rotation, m_normal), m_text.c_str(), -1,
                        Adesk::kFalse, giStyle());
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbText::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  AcGeVector3d along = xform * entities::directionAt(m_rotation, m_normal);
  const double factor = xform.scale();
  m_position.transformBy(xform);
  m_alignment.transformBy(xform);
  m_normal = (xform * m_normal).normal();
  if (xform.det() < 0.0) {
    // A mirrored text is one written upside down, or backward from the other side: the one that reads left to right.
    const AcGeVector3d flat = AcGeMatrix3d::worldToPlane(m_normal) * along;
    if (flat.x < 0.0) {
      along = -along;
      m_mirroredInX = !m_mirroredInX;
    } else {
      m_mirroredInY = !m_mirroredInY;
    }
  }
  m_rotation = entities::angleInPlane(along, m_normal);
  m_height *= factor;
  m_thickness *= factor;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetGeomExtents(AcDbExtents& extents) const {
  assertReadEnabled();
  AcGePoint2d low;
  AcGePoint2d high;
  entities::textBox(giStyle(), m_text, low, high);
  AcDbExtents box;
  entities::addBox(box, frame(), low, high);
  extents = box;
  return Acad::eOk;
}

void AcDbText::subList() const {
  assertReadEnabled();
  AcDbEntity::subList();
  acutPrintf(L"\n                    Style = \"%s\"", entities::styleName(m_style).c_str());
  acutPrintf(L"\n                    text %s", m_text.c_str());
  entities::listPoint(L"             start point,", m_position);
  entities::listLength(L"            height", m_height);
  entities::listAngle(L"    rotation angle", m_rotation);
  entities::listLength(L"    width scale factor", m_widthFactor);
  entities::listAngle(L"    obliquing angle", m_oblique);
}

Acad::ErrorStatus AcDbText::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker, const AcGePoint3d&,
                                              const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray& snapPoints,
                                              AcDbIntArray&) const {
  assertReadEnabled();
  if (mode == AcDb::kOsModeIns || mode == AcDb::kOsModeNode) {
    snapPoints.append(isDefaultAlignment() ? m_position : m_alignment);
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  points.append(m_position);
  if (!isDefaultAlignment()) points.append(m_alignment);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  if (indices.length() == 0) return Acad::eOk;
  assertWriteEnabled();
  m_position += offset;
  m_alignment += offset;
  return Acad::eOk;
}
