#include "host/db/entities/AcDbMText.h"

#include <algorithm>
#include <cmath>

#include "host/db/FieldFiling.h"
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
KR_MTEXT_FIELD(AcGePoint3d, const AcGePoint3d&, location, setLocation, data_.location)
KR_MTEXT_FIELD(AcDbObjectId, AcDbObjectId, textStyle, setTextStyle, data_.style)
#undef KR_MTEXT_FIELD

AcDbMText::AttachmentPoint AcDbMText::attachment() const {
  assertReadEnabled();
  // A file may hold any number.
  return AttachmentPoint(std::clamp<int>(data_.attachment, kTopLeft, kBottomRight));
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment) {
  assertWriteEnabled();
  data_.attachment = Adesk::Int16(attachment);
  return Acad::eOk;
}

AcDbMText::FlowDirection AcDbMText::flowDirection() const {
  assertReadEnabled();
  return FlowDirection(data_.flow);
}

Acad::ErrorStatus AcDbMText::setFlowDirection(FlowDirection direction) {
  assertWriteEnabled();
  data_.flow = Adesk::Int16(direction);
  return Acad::eOk;
}

AcGeVector3d AcDbMText::normal() const {
  assertReadEnabled();
  return data_.normal;
}

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

AcGeVector3d AcDbMText::direction() const {
  assertReadEnabled();
  return data_.direction;
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction) {
  const AcGeVector3d flat = direction.orthoProject(data_.normal);
  if (flat.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.direction = flat / flat.length();
  return Acad::eOk;
}

double AcDbMText::rotation() const {
  assertReadEnabled();
  return entities::angleInPlane(data_.direction, data_.normal);
}

Acad::ErrorStatus AcDbMText::setRotation(double angle) {
  return setDirection(entities::directionAt(angle, data_.normal));
}

double AcDbMText::width() const {
  assertReadEnabled();
  return data_.width;
}

Acad::ErrorStatus AcDbMText::setWidth(double width) {
  if (!(width >= 0.0) || !std::isfinite(width)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.width = width;
  return Acad::eOk;
}

double AcDbMText::textHeight() const {
  assertReadEnabled();
  return data_.height;
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height) {
  if (!(height > 0.0) || !std::isfinite(height)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.height = height;
  return Acad::eOk;
}

double AcDbMText::lineSpacingFactor() const {
  assertReadEnabled();
  return data_.spacing;
}

Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor) {
  if (!(factor >= kLeastSpacing && factor <= kMostSpacing)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.spacing = factor;
  return Acad::eOk;
}

ACHAR* AcDbMText::contents() const {
  assertReadEnabled();
  ACHAR* copy = nullptr;
  acutNewString(data_.contents.c_str(), copy);
  return copy;
}

const ACHAR* AcDbMText::contentsRaw() const {
  assertReadEnabled();
  return data_.contents.c_str();
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text) {
  if (text == nullptr) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.contents = text;
  return Acad::eOk;
}

std::wstring AcDbMText::plainText() const {
  assertReadEnabled();
  return entities::plainMText(data_.contents);
}

AcGiTextStyle AcDbMText::giStyle() const {
  return entities::styleFor(data_.style, data_.height, 1.0, 0.0);
}

AcGeMatrix3d AcDbMText::frame() const {
  AcGeMatrix3d result;
  return result.setCoordSystem(data_.location, data_.direction, data_.normal.crossProduct(data_.direction),
                               data_.normal);
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
      if (data_.width > 0.0 && !line.empty() && widthOf(longer) > data_.width) {
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
  const double step = data_.height * kLineDistance * data_.spacing;
  const double total = data_.height + step * double(set.size() - 1);
  const double top = rowOf(attachment()) == 0 ? 0.0 : (rowOf(attachment()) == 1 ? total / 2.0 : total);
  for (std::size_t i = 0; i < set.size(); ++i) {
    const double shift = set[i].width * 0.5 * columnOf(attachment());
    set[i].start.set(-shift, top - data_.height - step * double(i));
  }
  return set;
}

double AcDbMText::actualWidth() const {
  double width = 0.0;
  for (const Line& line : lines()) width = std::max(width, line.width);
  return width;
}

double AcDbMText::actualHeight() const {
  return data_.height + data_.height * kLineDistance * data_.spacing * double(lines().size() - 1);
}

Acad::ErrorStatus AcDbMText::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(data_.location, data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus status = AcDbEntity::dwgOutFields(filer);
  return status == Acad::eOk ? fields::write(filer, data_) : status;
}

Acad::ErrorStatus AcDbMText::dwgInFields(AcDbDwgFiler* filer) {
  const Acad::ErrorStatus status = AcDbEntity::dwgInFields(filer);
  return status == Acad::eOk ? fields::read(filer, data_) : status;
}

Acad::ErrorStatus AcDbMText::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbEntity::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeSubclass(L"AcDbMText");
  filer->writeItem(AcDb::kDxfXCoord, data_.location);
  filer->writeDouble(AcDb::kDxfReal, data_.height);
  filer->writeItem(AcDb::kDxfReal + 1, data_.width);
  filer->writeItem(AcDb::kDxfInt16 + 1, data_.attachment);
  filer->writeItem(AcDb::kDxfInt16 + 2, data_.flow);
  std::size_t start = 0;
  for (; data_.contents.size() - start > kPartLength; start += kPartLength) {
    filer->writeItem(kMorePart, data_.contents.substr(start, kPartLength).c_str());
  }
  filer->writeString(AcDb::kDxfText, data_.contents.substr(start).c_str());
  filer->writeString(AcDb::kDxfTextStyleName, entities::styleName(data_.style).c_str());
  if (data_.normal != AcGeVector3d::kZAxis) filer->writeItem(AcDb::kDxfNormalX, data_.normal);
  filer->writeItem(AcDb::kDxfXCoord + 1, data_.direction);
  if (data_.extentsWidth != 0 || data_.extentsHeight != 0) {
    filer->writeItem(AcDb::kDxfReal + 2, data_.extentsWidth);
    filer->writeItem(AcDb::kDxfReal + 3, data_.extentsHeight);
  }
  filer->writeItem(AcDb::kDxfInt16 + 3, data_.spacingStyle);
  filer->writeItem(AcDb::kDxfReal + 4, data_.spacing);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbMText::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbEntity::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  data_.contents.clear();
  AcGeVector3d direction = data_.direction;
  status = entities::readSubclass(filer, L"AcDbMText", [&](const resbuf& group) {
    const double real = group.resval.rreal;
    const int whole = group.resval.rint;
    switch (group.restype) {
      case AcDb::kDxfText:
      case kMorePart:
        data_.contents += entities::textOf(group);
        break;
      case AcDb::kDxfTextStyleName:
        data_.style = entities::styleNamed(filer->database(), entities::textOf(group));
        break;
      case AcDb::kDxfXCoord:
        data_.location = entities::pointOf(group);
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
      case AcDb::kDxfInt16 + 3:
        data_.spacingStyle = Adesk::Int16(whole);
        break;
      case AcDb::kDxfReal + 2:
        data_.extentsWidth = real;
        break;
      case AcDb::kDxfReal + 3:
        data_.extentsHeight = real;
        break;
      case AcDb::kDxfInt16 + 1:
        data_.attachment = Adesk::Int16(whole);
        break;
      case AcDb::kDxfInt16 + 2:
        data_.flow = Adesk::Int16(whole);
        break;
      case AcDb::kDxfAngle:
        direction = entities::directionAt(real, data_.normal);
        break;
      default:
        break;
    }
  });
  if (setDirection(direction) != Acad::eOk) data_.direction = data_.normal.perpVector();
  return status;
}

Adesk::Boolean AcDbMText::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGiTextStyle style = giStyle();
  const AcGeMatrix3d toWorld = frame();
  for (const Line& line : lines()) {
    if (line.text.empty()) continue;
    const AcGePoint3d start = toWorld * AcGePoint3d(line.start.x, line.start.y, 0.0);
    draw->geometry().text(start, data_.normal, data_.direction, line.text.c_str(), -1, Adesk::kFalse, style);
  }
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbMText::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  const double factor = xform.scale();
  data_.location.transformBy(xform);
  data_.direction = (xform * data_.direction).normal();
  data_.normal = (xform * data_.normal).normal();
  data_.height *= factor;
  data_.width *= factor;
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
    auto* const text = new AcDbText(start, line.text.c_str(), data_.style, data_.height, rotation());
    text->setNormal(data_.normal);
    text->setPropertiesFrom(this);
    entities.append(static_cast<AcDbEntity*>(text));
  }
  return Acad::eOk;
}

void AcDbMText::subList() const {
  assertReadEnabled();
  AcDbEntity::subList();
  entities::listPoint(L"                 Location:", data_.location);
  entities::listLength(L"                    Width:", data_.width);
  entities::listPoint(L"                   Normal:", data_.normal.asPoint());
  entities::listAngle(L"                 Rotation:", rotation());
  acutPrintf(L"\n               Text style: \"%s\"", entities::styleName(data_.style).c_str());
  entities::listLength(L"              Text height:", data_.height);
  acutPrintf(L"\n                 Contents: %s", data_.contents.c_str());
}

Acad::ErrorStatus AcDbMText::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker, const AcGePoint3d&,
                                               const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray& snapPoints,
                                               AcDbIntArray&) const {
  assertReadEnabled();
  if (mode == AcDb::kOsModeIns || mode == AcDb::kOsModeNode) snapPoints.append(data_.location);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  points.append(data_.location);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  if (indices.length() == 0) return Acad::eOk;
  assertWriteEnabled();
  data_.location += offset;
  return Acad::eOk;
}
