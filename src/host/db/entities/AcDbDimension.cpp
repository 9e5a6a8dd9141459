#include "host/db/entities/AcDbDimension.h"

#include <cmath>

#include "host/db/AcDbBlockTable.h"
#include "host/db/StructFiling.h"
#include "host/db/acdbOpen.h"
#include "host/db/entities/DimensionPicture.h"
#include "host/db/entities/DrawnExtents.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/MTextCodes.h"
#include "host/ed/acut.h"
#include "host/gi/gi.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)
ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, 0, 0, 0, DIMENSION, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbDimension, 0, 0, 0, DIMENSION, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbOrdinateDimension, AcDbDimension, 0, 0, 0, DIMENSION, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimension, AcDbDimension, 0, 0, 0, DIMENSION, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbDiametricDimension, AcDbDimension, 0, 0, 0, DIMENSION, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDb3PointAngularDimension, AcDbDimension, 0, 0, 0, DIMENSION, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDb2LineAngularDimension, AcDbDimension, 0, 0, 0, DIMENSION, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbDimension, AcDbEntity, data_)

// --- What all have
// -------------------------------------------------------------------------------------------------------------

ACHAR* AcDbDimension::dimensionText() const {
  assertReadEnabled();
  return dbtext::newText(data_.text);
}

Acad::ErrorStatus AcDbDimension::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

AcGePoint3d AcDbDimension::textPosition() const {
  assertReadEnabled();
  return entities::fromPlane({data_.textPosition.x, data_.textPosition.y, data_.elevation}, data_.normal);
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& point) {
  assertWriteEnabled();
  const AcGePoint3d flat = entities::toPlane(point, data_.normal);
  data_.textPosition.set(flat.x, flat.y);
  return useSetTextPosition();
}

Acad::ErrorStatus AcDbDimension::useSetTextPosition() {
  assertWriteEnabled();
  data_.flags &= Adesk::UInt8(~kTextAtDefault);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::useDefaultTextPosition() {
  assertWriteEnabled();
  data_.flags |= kTextAtDefault;
  return Acad::eOk;
}

namespace {

/// The angle of less than a half turn between the directions from the centre, or, when the arc's point lies beyond
/// them, what is left of the whole.
double angleTowards(const AcGePoint3d& center, const AcGePoint3d& first, const AcGePoint3d& second,
                    const AcGePoint3d& arc, const AcGeVector3d& normal) {
  const double a = entities::angleInPlane(first - center, normal);
  const double sweep = entities::wrapped(entities::angleInPlane(second - center, normal) - a);
  const double at = entities::wrapped(entities::angleInPlane(arc - center, normal) - a);
  return at <= sweep ? sweep : kAcGeTwoPi - sweep;
}

}  // namespace

Acad::ErrorStatus AcDbDimension::measurement(double& value) const {
  assertReadEnabled();
  const Data& d = data_;
  switch (kind()) {
    case kRotated:
      value = std::fabs((d.point14 - d.point13).dotProduct(entities::directionAt(d.rotation, d.normal)));
      return Acad::eOk;
    case kAligned:
      value = d.point13.distanceTo(d.point14);
      return Acad::eOk;
    case kOrdinate: {
      const AcGeVector3d along = entities::directionAt(-d.horizontalRotation, d.normal);
      const AcGeVector3d axis = (d.ordinateFlags & 1) != 0 ? along : d.normal.crossProduct(along);
      value = std::fabs((d.point13 - d.point10).dotProduct(axis));
      return Acad::eOk;
    }
    case kRadial:
    case kDiametric:
      value = d.point10.distanceTo(d.point15);
      return Acad::eOk;
    case kAngular3Point:
      value = angleTowards(d.point15, d.point13, d.point14, d.point10, d.normal);
      return Acad::eOk;
    case kAngular2Line: {
      AcGePoint3d center;
      if (!AcGeLine3d(d.point13, d.point14).intersectWith(AcGeLine3d(d.point15, d.point10), center)) {
        return Acad::eDegenerateGeometry;
      }
      const auto farther = [&](const AcGePoint3d& p, const AcGePoint3d& q) {
        return center.distanceTo(p) > center.distanceTo(q) ? p : q;
      };
      const AcGePoint3d arc = entities::fromPlane({d.point16.x, d.point16.y, d.elevation}, d.normal);
      value = angleTowards(center, farther(d.point13, d.point14), farther(d.point15, d.point10), arc, d.normal);
      return Acad::eOk;
    }
  }
  return Acad::eNotApplicable;
}

std::wstring AcDbDimension::shownText() const {
  assertReadEnabled();
  const std::wstring& text = data_.text;
  if (text == L" ") return {};
  const std::size_t place = text.find(L"<>");
  if (!text.empty() && place == std::wstring::npos) return entities::plainMText(text);
  const entities::DimensionLook look(data_.style, database());
  double value = 0.0;
  std::wstring measured;
  if (measurement(value) == Acad::eOk) {
    const bool isAngle = kind() == kAngular2Line || kind() == kAngular3Point;
    measured = isAngle ? look.angleText(value) : look.lengthText(value);
    if (kind() == kRadial) measured.insert(0, L"R");
    if (kind() == kDiametric) measured.insert(0, L"%%c");
  }
  if (text.empty()) return measured;
  return entities::plainMText(text.substr(0, place)) + measured + entities::plainMText(text.substr(place + 2));
}

// --- Picture
// ----------------------------------------------------------------------------------------------------------------

namespace {

/// Draws the plain picture of a dimension without block.
class PlainPicture {
 public:
  PlainPicture(const AcDbDimension& dimension, AcGiWorldDraw& draw)
      : dimension_(dimension), d_(dimension.data()), draw_(draw), look_(d_.style, dimension.database()) {}

  void make() {
    switch (dimension_.kind()) {
      case AcDbDimension::kRotated:
        linear(entities::directionAt(d_.rotation, d_.normal));
        break;
      case AcDbDimension::kAligned:
        linear(d_.point14 - d_.point13);
        break;
      case AcDbDimension::kOrdinate:
        line(d_.point13, d_.point14);
        text(d_.point14, d_.point14 - d_.point13);
        break;
      case AcDbDimension::kRadial:
        line(d_.point10, d_.point15);
        arrow(d_.point15, d_.point10 - d_.point15);
        text(middle(d_.point10, d_.point15), d_.point15 - d_.point10);
        break;
      case AcDbDimension::kDiametric:
        line(d_.point10, d_.point15);
        arrow(d_.point15, d_.point10 - d_.point15);
        arrow(d_.point10, d_.point15 - d_.point10);
        text(middle(d_.point10, d_.point15), d_.point15 - d_.point10);
        break;
      case AcDbDimension::kAngular3Point:
        angular(d_.point15, d_.point13, d_.point14, d_.point10);
        break;
      case AcDbDimension::kAngular2Line: {
        AcGePoint3d center;
        if (!AcGeLine3d(d_.point13, d_.point14).intersectWith(AcGeLine3d(d_.point15, d_.point10), center)) break;
        angular(center, d_.point14, d_.point10,
                entities::fromPlane({d_.point16.x, d_.point16.y, d_.elevation}, d_.normal));
        break;
      }
    }
  }

 private:
  static AcGePoint3d middle(const AcGePoint3d& a, const AcGePoint3d& b) { return a + (b - a) / 2.0; }
  void line(const AcGePoint3d& a, const AcGePoint3d& b) {
    const AcGePoint3d ends[] = {a, b};
    draw_.geometry().polyline(2, ends);
  }
  void arrow(const AcGePoint3d& tip, const AcGeVector3d& direction) {
    entities::drawArrowHead(draw_, tip, direction, d_.normal, look_.arrowSize);
  }
  /// Above a line through `at`, unless the user put the text elsewhere; never upside down.
  void text(const AcGePoint3d& at, const AcGeVector3d& along) {
    const double length = along.length();
    AcGeVector3d direction = length > 0.0 ? along / length : entities::directionAt(0.0, d_.normal);
    const AcGeVector3d flat = AcGeMatrix3d::worldToPlane(d_.normal) * direction;
    if (flat.x < 0.0 || (flat.x == 0.0 && flat.y < 0.0)) direction = -direction;
    if (d_.textRotation != 0.0) direction = entities::directionAt(d_.textRotation, d_.normal);
    const AcGeVector3d up = d_.normal.crossProduct(direction);
    const bool placed = !dimension_.isUsingDefaultTextPosition();
    const AcGePoint3d center = placed ? dimension_.textPosition() : at + up * (look_.gap + look_.textHeight / 2.0);
    entities::drawCenteredText(draw_, center, direction, d_.normal, dimension_.shownText(), look_);
  }
  void extensionLine(const AcGePoint3d& from, const AcGePoint3d& to) {
    const AcGeVector3d along = to - from;
    const double length = along.length();
    if (!(length > look_.lineOffset)) return;
    line(from + along * (look_.lineOffset / length), to + along * (look_.lineExtension / length));
  }
  void linear(const AcGeVector3d& direction) {
    if (direction.lengthSqrd() == 0.0) return;
    const AcGeVector3d along = direction.normal();
    // The extension lines meet the dimension line squarely, or at the slant told.
    const AcGeVector3d outward =
        d_.oblique != 0.0 ? entities::directionAt(d_.oblique, d_.normal) : d_.normal.crossProduct(along);
    const AcGeVector3d across = d_.normal.crossProduct(along);
    const double reach = outward.dotProduct(across);
    if (reach == 0.0) return;
    const auto foot = [&](const AcGePoint3d& p) { return p + outward * ((d_.point10 - p).dotProduct(across) / reach); };
    const AcGePoint3d a = foot(d_.point13);
    const AcGePoint3d b = foot(d_.point14);
    extensionLine(d_.point13, a);
    extensionLine(d_.point14, b);
    line(a, b);
    arrow(a, b - a);
    arrow(b, a - b);
    text(middle(a, b), b - a);
  }
  void angular(const AcGePoint3d& center, const AcGePoint3d& first, const AcGePoint3d& second, const AcGePoint3d& on) {
    const double radius = center.distanceTo(on);
    const double start = entities::angleInPlane(first - center, d_.normal);
    const double end = entities::angleInPlane(second - center, d_.normal);
    double from = start;
    double sweep = entities::wrapped(end - start);
    if (entities::wrapped(entities::angleInPlane(on - center, d_.normal) - start) > sweep) {
      from = end;
      sweep = kAcGeTwoPi - sweep;
    }
    draw_.geometry().circularArc(center, radius, d_.normal, entities::directionAt(from, d_.normal), sweep);
    const auto at = [&](double angle) { return center + entities::directionAt(angle, d_.normal) * radius; };
    extensionLine(first, at(start));
    extensionLine(second, at(end));
    const double half = from + sweep / 2.0;
    text(at(half), entities::directionAt(half - kAcGePi / 2.0, d_.normal));
  }

  const AcDbDimension& dimension_;
  const AcDbDimension::Data& d_;
  AcGiWorldDraw& draw_;
  entities::DimensionLook look_;
};

}  // namespace

Adesk::Boolean AcDbDimension::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcDbObjectPointer<AcDbBlockTableRecord> block(data_.block, AcDb::kForRead);
  if (block.openStatus() != Acad::eOk || block->isEmpty()) {
    PlainPicture picture(*this, *draw);
    picture.make();
    return Adesk::kTrue;
  }
  for (AcDbStub* const stub : block->entities()) {
    if (stub->has(AcDbStub::kErased)) continue;
    const AcDbObjectPointer<AcDbEntity> entity(stub, AcDb::kForRead);
    if (entity.openStatus() == Acad::eOk) draw->geometry().draw(entity.object());
  }
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbDimension::subGetGeomExtents(AcDbExtents& extents) const {
  return entities::drawnExtents(*this, extents);
}

std::vector<AcGePoint3d*> AcDbDimension::points() {
  Data& d = data_;
  switch (kind()) {
    case kRotated:
    case kAligned:
    case kOrdinate:
      return {&d.point13, &d.point14, &d.point10};
    case kRadial:
    case kDiametric:
      return {&d.point10, &d.point15};
    default:
      return {&d.point13, &d.point14, &d.point15, &d.point10};
  }
}

Acad::ErrorStatus AcDbDimension::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  const AcGePoint3d text = xform * textPosition();
  const AcGePoint3d p12 =
      xform * entities::fromPlane({data_.point12.x, data_.point12.y, data_.elevation}, data_.normal);
  const AcGePoint3d p16 =
      xform * entities::fromPlane({data_.point16.x, data_.point16.y, data_.elevation}, data_.normal);
  const AcGeVector3d along = xform * entities::directionAt(data_.rotation, data_.normal);
  const AcGeVector3d slant = xform * entities::directionAt(data_.oblique, data_.normal);
  for (AcGePoint3d* const point : points()) point->transformBy(xform);
  data_.normal = (xform * data_.normal).normal();
  const auto flat = [&](const AcGePoint3d& p) { return entities::toPlane(p, data_.normal); };
  data_.textPosition.set(flat(text).x, flat(text).y);
  data_.point12.set(flat(p12).x, flat(p12).y);
  data_.point16.set(flat(p16).x, flat(p16).y);
  data_.elevation = flat(text).z;
  data_.rotation = entities::angleInPlane(along, data_.normal);
  if (data_.oblique != 0.0) data_.oblique = entities::angleInPlane(slant, data_.normal);
  data_.leaderLength *= xform.scale();
  data_.measurement *= kind() == kAngular2Line || kind() == kAngular3Point ? 1.0 : xform.scale();
  data_.block = AcDbObjectId();
  return Acad::eOk;
}

void AcDbDimension::subList() const {
  AcDbEntity::subList();
  acutPrintf(L"\n                    dimension text: %s", shownText().c_str());
}

Acad::ErrorStatus AcDbDimension::subGetGripPoints(AcGePoint3dArray& grips, AcDbIntArray&, AcDbIntArray&) const {
  for (const AcGePoint3d* const point : const_cast<AcDbDimension*>(this)->points()) grips.append(*point);
  grips.append(textPosition());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  const std::vector<AcGePoint3d*> all = points();
  for (int i = 0; i < indices.length(); ++i) {
    if (indices[i] < 0 || indices[i] > int(all.size())) return Acad::eInvalidIndex;
  }
  for (int i = 0; i < indices.length(); ++i) {
    if (indices[i] == int(all.size())) {
      setTextPosition(textPosition() + offset);
    } else {
      *all[std::size_t(indices[i])] += offset;
    }
  }
  data_.block = AcDbObjectId();
  return Acad::eOk;
}

// --- Kinds
// ------------------------------------------------------------------------------------------------------------------

AcDbAlignedDimension::AcDbAlignedDimension(const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                                           const AcGePoint3d& dimLine, const ACHAR* text, AcDbObjectId style) {
  data_.point13 = xLine1;
  data_.point14 = xLine2;
  data_.point10 = dimLine;
  data_.text = dbtext::orEmpty(text);
  data_.style = style;
}

AcDbRotatedDimension::AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                                           const AcGePoint3d& dimLine, const ACHAR* text, AcDbObjectId style) {
  data_.rotation = rotation;
  data_.point13 = xLine1;
  data_.point14 = xLine2;
  data_.point10 = dimLine;
  data_.text = dbtext::orEmpty(text);
  data_.style = style;
}

AcDbOrdinateDimension::AcDbOrdinateDimension(Adesk::Boolean useXAxis, const AcGePoint3d& defining,
                                             const AcGePoint3d& leaderEnd, const ACHAR* text, AcDbObjectId style) {
  data_.ordinateFlags = useXAxis ? 1 : 0;
  data_.point13 = defining;
  data_.point14 = leaderEnd;
  data_.text = dbtext::orEmpty(text);
  data_.style = style;
}

Acad::ErrorStatus AcDbOrdinateDimension::useXAxis() {
  assertWriteEnabled();
  data_.ordinateFlags |= 1;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbOrdinateDimension::useYAxis() {
  assertWriteEnabled();
  data_.ordinateFlags &= 0xFE;
  return Acad::eOk;
}

AcGePoint3d AcDb2LineAngularDimension::arcPoint() const {
  assertReadEnabled();
  return entities::fromPlane({data_.point16.x, data_.point16.y, data_.elevation}, data_.normal);
}
