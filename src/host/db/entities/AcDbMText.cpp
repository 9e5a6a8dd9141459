#include "host/db/entities/AcDbMText.h"

#include <algorithm>
#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/entities/AcDbText.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/MTextCodes.h"
#include "host/db/entities/TextStyling.h"
#include "host/ed/acut.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbMText, AcDbEntity, 0, 0, 0, MTEXT, ObjectDBX Classes)

namespace {

// Distance of baselines at factor 1, in heights.
constexpr double kLineDistance = 5.0 / 3.0;
constexpr double kLeastSpacing = 0.25;
constexpr double kMostSpacing = 4.0;

// Long contents are written in parts: this many characters in group 3, the last part in group 1.
constexpr std::size_t kPartLength = 250;
constexpr int kMorePart = 3;

// Columns and rows of the attachment points.
int columnOf(AcDbMText::AttachmentPoint attachment) {
  return (attachment - 1) % 3;
}

int rowOf(AcDbMText::AttachmentPoint attachment) {
  return (attachment - 1) / 3;
}

}  // namespace

#define KR_MTEXT_FIELD(Type, Argument, getter, setter, field) \
  Type AcDbMText::getter() const {                            \
    assertReadEnabled();                                      \
    return field;                                             \
  }                                                           \
  Acad::ErrorStatus AcDbMText::setter(Argument value) {       \
    assertWriteEnabled();                                     \
    field = value;                                            \
    return Acad::eOk;                                         \
  }
KR_MTEXT_FIELD(AcGePoint3d, const AcGePoint3d&, location, setLocation, m_location)
KR_MTEXT_FIELD(AcDbObjectId, AcDbObjectId, textStyle, setTextStyle, m_style)
KR_MTEXT_FIELD(AcDbMText::AttachmentPoint, AttachmentPoint, attachment, setAttachment, m_attachment)
KR_MTEXT_FIELD(AcDbMText::FlowDirection, FlowDirection, flowDirection, setFlowDirection, m_flow)
#undef KR_MTEXT_FIELD

AcGeVector3d AcDbMText::normal() const {
  assertReadEnabled();
  return m_normal;
}

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_normal = normal / normal.length();
  return Acad::eOk;
}

AcGeVector3d AcDbMText::direction() const {
  assertReadEnabled();
  return m_direction;
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction) {
  const AcGeVector3d flat = direction.orthoProject(m_normal);
  if (flat.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_direction = flat / flat.length();
  return Acad::eOk;
}

double AcDbMText::rotation() const {
  assertReadEnabled();
  return entities::angleInPlane(m_direction, m_normal);
}

Acad::ErrorStatus AcDbMText::setRotation(double angle) {
  return setDirection(entities::directionAt(angle, m_normal));
}

double AcDbMText::width() const {
  assertReadEnabled();
  return m_width;
}

Acad::ErrorStatus AcDbMText::setWidth(double width) {
  if (!(width >= 0.0) || !std::isfinite(width)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_width = width;
  return Acad::eOk;
}

double AcDbMText::textHeight() const {
  assertReadEnabled();
  return m_height;
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height) {
  if (!(height > 0.0) || !std::isfinite(height)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_height = height;
  return Acad::eOk;
}

double AcDbMText::lineSpacingFactor() const {
  assertReadEnabled();
  return m_spacing;
}

Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor) {
  if (!(factor >= kLeastSpacing && factor <= kMostSpacing)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_spacing = factor;
  return Acad::eOk;
}

ACHAR* AcDbMText::contents() const {
  assertReadEnabled();
  ACHAR* copy = nullptr;
  acutNewString(m_contents.c_str(), copy);
  return copy;
}

const ACHAR* AcDbMText::contentsRaw() const {
  assertReadEnabled();
  return m_contents.c_str();
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text) {
  if (text == nullptr) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_contents = text;
  return Acad::eOk;
}

std::wstring AcDbMText::plainText() const {
  assertReadEnabled();
  return entities::plainMText(m_contents);
}

AcGiTextStyle AcDbMText::giStyle() const {
  return entities::styleFor(m_style, m_height, 1.0, 0.0);
}

AcGeMatrix3d AcDbMText::frame() const {
  AcGeMatrix3d result;
  return result.setCoordSystem(m_location, m_direction, m_normal.crossProduct(m_direction), m_normal);
}

std::vector<AcDbMText::Line> AcDbMText::lines() const {
  const AcGiTextStyle style = giStyle();
  const auto widthOf = [&style](const std::wstring& text) {
    AcGePoint2d low;
    AcGePoint2d high;
    entities::textBox(style, text, low, high);
    return high.x;
  };
  std::vector<Line> set;
  const std::wstring text = plainText();
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(L'\n', start), text.size());
    std::wstring line;
    for (std::size_t word = start; word <= end;) {
      const std::size_t space = std::min(text.find(L' ', word), end);
      const std::wstring longer = line + (word == start ? L"" : L" ") + text.substr(word, space - word);
      if (m_width > 0.0 && !line.empty() && widthOf(longer) > m_width) {
        set.push_back({line, widthOf(line), {}});
        line = text.substr(word, space - word);
      } else {
        line = longer;
      }
      word = space + 1;
    }
    set.push_back({line, widthOf(line), {}});
    start = end + 1;
  }
  const double step = m_height * kLineDistance * m_spacing;
  const double total = m_height + step * double(set.size() - 1);
  const double top = rowOf(m_attachment) == 0 ? 0.0 : (rowOf(m_attachment) == 1 ? total / 2.0 : total);
  for (std::size_t i = 0; i < set.size(); ++i) {
    const double shift = set[i].width * 0.5 * columnOf(m_attachment);
    set[i].start.set(-shift, top - m_height - step * double(i));
  }
  return set;
}

double AcDbMText::actualWidth() const {
  double width = 0.0;
  for (const Line& line : lines()) width = std::max(width, line.width);
  return width;
}

double AcDbMText::actualHeight() const {
  return m_height + m_height * kLineDistance * m_spacing * double(lines().size() - 1);
}

Acad::ErrorStatus AcDbMText::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(m_location, m_normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbEntity::dwgOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writePoint3d(m_location);
  filer->writeVector3d(m_normal);
  filer->writeVector3d(m_direction);
  filer->writeString(m_contents.c_str());
  filer->writeHardPointerId(m_style);
  for (const double value : {m_width, m_height, m_spacing}) filer->writeDouble(value);
  filer->writeInt16(static_cast<Adesk::Int16>(m_attachment));
  filer->writeInt16(static_cast<Adesk::Int16>(m_flow));
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbEntity::dwgInFields(filer);
  if (status != Acad::eOk) return status;
  ACHAR* text = nullptr;
  Adesk::Int16 attachment = kTopLeft;
  Adesk::Int16 flow = kLtoR;
  filer->readPoint3d(&m_location);
  filer->readVector3d(&m_normal);
  filer->readVector3d(&m_direction);
  filer->readString(&text);
  filer->readHardPointerId(&m_style);
  for (double* value : {&m_width, &m_height, &m_spacing}) filer->readDouble(value);
  filer->readInt16(&attachment);
  filer->readInt16(&flow);
  if (text != nullptr) m_contents = text;
  acutDelString(text);
  m_attachment = static_cast<AttachmentPoint>(std::clamp<int>(attachment, kTopLeft, kBottomRight));
  m_flow = static_cast<FlowDirection>(flow);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbEntity::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeSubclass(L"AcDbMText");
  filer->writeItem(AcDb::kDxfXCoord, m_location);
  filer->writeDouble(AcDb::kDxfReal, m_height);
  filer->writeItem(AcDb::kDxfReal + 1, m_width);
  filer->writeItem(AcDb::kDxfInt16 + 1, static_cast<Adesk::Int16>(m_attachment));
  filer->writeItem(AcDb::kDxfInt16 + 2, static_cast<Adesk::Int16>(m_flow));
  std::size_t start = 0;
  for (; m_contents.size() - start > kPartLength; start += kPartLength) {
    filer->writeItem(kMorePart, m_contents.substr(start, kPartLength).c_str());
  }
  filer->writeString(AcDb::kDxfText, m_contents.substr(start).c_str());
  filer->writeString(AcDb::kDxfTextStyleName, entities::styleName(m_style).c_str());
  if (m_normal != AcGeVector3d::kZAxis) filer->writeItem(AcDb::kDxfNormalX, m_normal);
  filer->writeItem(AcDb::kDxfXCoord + 1, m_direction);
  filer->writeItem(AcDb::kDxfReal + 4, m_spacing);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbEntity::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  m_contents.clear();
  AcGeVector3d direction = m_direction;
  status = entities::readSubclass(filer, L"AcDbMText", [&](const resbuf& group) {
    const double real = group.resval.rreal;
    const int whole = group.resval.rint;
    switch (group.restype) {
      case AcDb::kDxfText:
      case kMorePart:
        m_contents += entities::textOf(group);
        break;
      case AcDb::kDxfTextStyleName:
        m_style = entities::styleNamed(filer->database(), entities::textOf(group));
        break;
      case AcDb::kDxfXCoord:
        m_location = entities::pointOf(group);
        break;
      case AcDb::kDxfXCoord + 1:
        direction = entities::vectorOf(group);
        break;
      case AcDb::kDxfNormalX:
        setNormal(entities::vectorOf(group));
        break;
      case AcDb::kDxfReal:
        setTextHeight(real);
        break;
      case AcDb::kDxfReal + 1:
        setWidth(real);
        break;
      case AcDb::kDxfReal + 4:
        setLineSpacingFactor(real);
        break;
      case AcDb::kDxfInt16 + 1:
        m_attachment = static_cast<AttachmentPoint>(std::clamp<int>(whole, kTopLeft, kBottomRight));
        break;
      case AcDb::kDxfInt16 + 2:
        m_flow = static_cast<FlowDirection>(whole);
        break;
      case AcDb::kDxfAngle:
        direction = entities::directionAt(real, m_normal);
        break;
      default:
        break;
    }
  });
  if (setDirection(direction) != Acad::eOk) m_direction = m_normal.perpVector();
  return status;
}

Adesk::Boolean AcDbMText::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGiTextStyle style = giStyle();
  const AcGeMatrix3d toWorld = frame();
  for (const Line& line : lines()) {
    if (line.text.empty()) continue;
    const AcGePoint3d start = toWorld * AcGePoint3d(line.start.x, line.start.y, 0.0);
    draw->geometry().text(start, m_normal, m_direction, line.text.c_str(), -1, Adesk::kFalse, style);
  }
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbMText::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  const double factor = xform.scale();
  m_location.transformBy(xform);
  m_direction = (xform * m_direction).normal();
  m_normal = (xform * m_normal).normal();
  m_height *= factor;
  m_width *= factor;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetGeomExtents(AcDbExtents& extents) const {
  assertReadEnabled();
  const AcGeMatrix3d toWorld = frame();
  AcDbExtents box;
  for (const Line& line : lines()) {
    AcGePoint2d low;
    AcGePoint2d high;
    entities::textBox(giStyle(), line.text, low, high);
    entities::addBox(box, toWorld, low + line.start.asVector(), high + line.start.asVector());
  }
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subExplode(AcDbVoidPtrArray& entities) const {
  assertReadEnabled();
  const AcGeMatrix3d toWorld = frame();
  for (const Line& line : lines()) {
    if (line.text.empty()) continue;
    const AcGePoint3d start = toWorld * AcGePoint3d(line.start.x, line.start.y, 0.0);
    auto* const text = new AcDbText(start, line.text.c_str(), m_style, m_height, rotation());
    text->setNormal(m_normal);
    text->setPropertiesFrom(this);
    entities.append(static_cast<AcDbEntity*>(text));
  }
  return Acad::eOk;
}

void AcDbMText::subList() const {
  assertReadEnabled();
  AcDbEntity::subList();
  entities::listPoint(L"                 Location:", m_location);
  entities::listLength(L"                    Width:", m_width);
  entities::listPoint(L"                   Normal:", m_normal.asPoint());
  entities::listAngle(L"                 Rotation:", rotation());
  acutPrintf(L"\n               Text style: \"%s\"", entities::styleName(m_style).c_str());
  entities::listLength(L"              Text height:", m_height);
  acutPrintf(L"\n                 Contents: %s", m_contents.c_str());
}

Acad::ErrorStatus AcDbMText::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker, const AcGePoint3d&,
                                               const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray& snapPoints,
                                               AcDbIntArray&) const {
  assertReadEnabled();
  if (mode == AcDb::kOsModeIns || mode == AcDb::kOsModeNode) snapPoints.append(m_location);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  points.append(m_location);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  if (indices.length() == 0) return Acad::eOk;
  assertWriteEnabled();
  m_location += offset;
  return Acad::eOk;
}
