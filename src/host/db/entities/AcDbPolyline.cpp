#include "host/db/entities/AcDbPolyline.h"

#include <algorithm>
#include <cmath>

#include "host/db/FieldFiling.h"
#include "host/db/entities/AcDbArc.h"
#include "host/db/entities/AcDbLine.h"
#include "host/db/entities/EntityTools.h"
#include "host/ed/acut.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, 0, 0, 0, LWPOLYLINE, ObjectDBX Classes)

namespace {

// Bits of group 70.
constexpr int kClosedFlag = 1;
constexpr int kPlinegenFlag = 128;

// A wide arc is drawn as a filled band of this many straight steps to a full turn.
constexpr double kStepsPerTurn = 64.0;

}  // namespace

unsigned int AcDbPolyline::numVerts() const {
  assertReadEnabled();
  return static_cast<unsigned int>(count());
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const {
  assertReadEnabled();
  if (index >= count()) return Acad::eInvalidIndex;
  point = inSpace(data_.points[index], AcGeMatrix3d::planeToWorld(data_.normal));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const {
  assertReadEnabled();
  if (index >= count()) return Acad::eInvalidIndex;
  point = data_.points[index];
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
  assertReadEnabled();
  if (index >= count()) return Acad::eInvalidIndex;
  bulge = bulgeAt(index);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
  assertReadEnabled();
  if (index >= count()) return Acad::eInvalidIndex;
  startWidth = widthsAt(index).x;
  endWidth = widthsAt(index).y;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point) {
  if (index >= count()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  data_.points[index] = point;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
  if (index >= count()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  if (bulge == 0.0 && data_.bulges.empty()) return Acad::eOk;
  data_.bulges.resize(count(), 0.0);
  data_.bulges[index] = bulge;
  return Acad::eOk;
}

void AcDbPolyline::makeWidths() {
  data_.widths.resize(count(), AcGePoint2d(data_.constantWidth, data_.constantWidth));
  data_.constantWidth = 0.0;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth) {
  if (index >= count()) return Acad::eInvalidIndex;
  if (!(startWidth >= 0.0 && endWidth >= 0.0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  const AcGePoint2d now = widthsAt(index);
  if (now.x == startWidth && now.y == endWidth) return Acad::eOk;
  makeWidths();
  data_.widths[index].set(startWidth, endWidth);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth) {
  if (index > count()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  double constant = 0.0;
  if (getConstantWidth(constant) != Acad::eOk) constant = 0.0;
  const AcGePoint2d widths(startWidth < 0.0 ? constant : startWidth, endWidth < 0.0 ? constant : endWidth);
  const bool listWidths = !data_.widths.empty() || widths.x != data_.constantWidth || widths.y != data_.constantWidth;
  if (listWidths) makeWidths();
  if (bulge != 0.0) data_.bulges.resize(count(), 0.0);
  data_.points.insert(data_.points.begin() + index, point);
  if (listWidths) data_.widths.insert(data_.widths.begin() + index, widths);
  if (bulge != 0.0 || !data_.bulges.empty()) data_.bulges.insert(data_.bulges.begin() + index, bulge);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
  if (index >= count()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  data_.points.erase(data_.points.begin() + index);
  if (index < data_.bulges.size()) data_.bulges.erase(data_.bulges.begin() + index);
  if (index < data_.widths.size()) data_.widths.erase(data_.widths.begin() + index);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::reset(bool reuse, unsigned int numVertices) {
  assertWriteEnabled();
  const std::size_t kept = reuse ? std::min<std::size_t>(numVertices, count()) : 0;
  data_.points.resize(kept);
  data_.bulges.resize(std::min(kept, data_.bulges.size()));
  data_.widths.resize(std::min(kept, data_.widths.size()));
  return Acad::eOk;
}

std::size_t AcDbPolyline::segmentCount() const {
  if (count() < 2) return 0;
  return isClosed() ? count() : count() - 1;
}

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const {
  assertReadEnabled();
  if (count() == 1) return kPoint;
  if (index >= segmentCount()) return kEmpty;
  if (data_.points[index] == behind(index)) return kCoincident;
  return bulgeAt(index) == 0.0 ? kLine : kArc;
}

CurvePiece AcDbPolyline::pieceAt(std::size_t i, const AcGeMatrix3d& frame) const {
  return CurvePiece::byBulge(inSpace(data_.points[i], frame), inSpace(behind(i), frame), bulgeAt(i), data_.normal);
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const {
  if (segType(index) != kLine) return Acad::eInvalidInput;
  line = pieceAt(index, AcGeMatrix3d::planeToWorld(data_.normal)).segment();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const {
  if (segType(index) != kArc) return Acad::eInvalidInput;
  arc = pieceAt(index, AcGeMatrix3d::planeToWorld(data_.normal)).arc();
  return Acad::eOk;
}

bool AcDbPolyline::hasBulges() const {
  assertReadEnabled();
  return std::any_of(data_.bulges.begin(), data_.bulges.end(), [](double bulge) { return bulge != 0.0; });
}

bool AcDbPolyline::hasWidth() const {
  assertReadEnabled();
  if (data_.widths.empty()) return data_.constantWidth != 0.0;
  return std::any_of(data_.widths.begin(), data_.widths.end(),
                     [](const AcGePoint2d& widths) { return widths.x != 0.0 || widths.y != 0.0; });
}

Adesk::Boolean AcDbPolyline::isClosed() const {
  assertReadEnabled();
  return (data_.flags & kClosed) != 0;
}

void AcDbPolyline::setClosed(Adesk::Boolean closed) {
  assertWriteEnabled();
  data_.flags = Adesk::Int16(closed ? data_.flags | kClosed : data_.flags & ~kClosed);
}

bool AcDbPolyline::hasPlinegen() const {
  assertReadEnabled();
  return (data_.flags & kPlinegen) != 0;
}

void AcDbPolyline::setPlinegen(bool on) {
  assertWriteEnabled();
  data_.flags = Adesk::Int16(on ? data_.flags | kPlinegen : data_.flags & ~kPlinegen);
}

double AcDbPolyline::elevation() const {
  assertReadEnabled();
  return data_.elevation;
}

Acad::ErrorStatus AcDbPolyline::setElevation(double elevation) {
  assertWriteEnabled();
  data_.elevation = elevation;
  return Acad::eOk;
}

double AcDbPolyline::thickness() const {
  assertReadEnabled();
  return data_.thickness;
}

Acad::ErrorStatus AcDbPolyline::setThickness(double thickness) {
  assertWriteEnabled();
  data_.thickness = thickness;
  return Acad::eOk;
}

AcGeVector3d AcDbPolyline::normal() const {
  assertReadEnabled();
  return data_.normal;
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const {
  assertReadEnabled();
  const double first = data_.widths.empty() ? data_.constantWidth : data_.widths.front().x;
  const bool constant = std::all_of(data_.widths.begin(), data_.widths.end(),
                                    [first](const AcGePoint2d& w) { return w.x == first && w.y == first; });
  if (!constant) return Acad::eInvalidInput;
  width = first;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width) {
  if (!(width >= 0.0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.widths.clear();
  data_.constantWidth = width;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(AcGePoint3d::kOrigin + data_.normal * data_.elevation, data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

void AcDbPolyline::getEcs(AcGeMatrix3d& ecs) const {
  assertReadEnabled();
  ecs.setToPlaneToWorld(data_.normal);
}

CurvePieces AcDbPolyline::pieces() const {
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  CurvePieces chain;
  const std::size_t segments = segmentCount();
  chain.reserve(segments);
  for (std::size_t i = 0; i < segments; ++i) chain.push_back(pieceAt(i, frame));
  if (chain.empty() && count() == 1) {
    const AcGePoint3d p = inSpace(data_.points[0], frame);
    chain.emplace_back(AcGeLineSeg3d(p, p));
  }
  return chain;
}

Acad::ErrorStatus AcDbPolyline::getArea(double& area) const {
  assertReadEnabled();
  double twice = 0.0;
  const std::size_t segments = segmentCount();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  for (std::size_t i = 0; i < count(); ++i) {
    const AcGePoint2d a = data_.points[i];
    const AcGePoint2d b = behind(i);
    twice += a.x * b.y - a.y * b.x;
    if (i < segments) twice += pieceAt(i, frame).segmentAreaTwice(data_.normal);
  }
  area = std::fabs(twice) / 2.0;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::reverseCurve() {
  assertWriteEnabled();
  const std::size_t size = count();
  if (size < 2) return Acad::eOk;
  std::reverse(data_.points.begin(), data_.points.end());
  // A segment's bulge and widths stand with the vertex at its start, which is its end after the turn.
  const auto turned = [size](std::size_t i) { return (2 * size - 2 - i) % size; };
  const std::vector<double> bulges = data_.bulges;
  const std::vector<AcGePoint2d> widths = data_.widths;
  for (std::size_t i = 0; i < bulges.size(); ++i) data_.bulges[i] = -bulges[turned(i)];
  for (std::size_t i = 0; i < widths.size(); ++i) data_.widths[i].set(widths[turned(i)].y, widths[turned(i)].x);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  return status == Acad::eOk ? fields::write(filer, data_) : status;
}

Acad::ErrorStatus AcDbPolyline::dwgInFields(AcDbDwgFiler* filer) {
  Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  if (status == Acad::eOk) status = fields::read(filer, data_);
  // Bulges and widths go with the points, or there are none.
  if (!data_.bulges.empty()) data_.bulges.resize(count(), 0.0);
  if (!data_.widths.empty()) data_.widths.resize(count());
  return status;
}

Acad::ErrorStatus AcDbPolyline::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  double constant = 0.0;
  const bool sameWidths = getConstantWidth(constant) == Acad::eOk;
  filer->writeSubclass(L"AcDbPolyline");
  filer->writeInt32(AcDb::kDxfInt32, static_cast<Adesk::Int32>(count()));
  filer->writeInt16(AcDb::kDxfInt16,
                    static_cast<Adesk::Int16>((isClosed() ? kClosedFlag : 0) | (hasPlinegen() ? kPlinegenFlag : 0)));
  if (sameWidths) filer->writeItem(AcDb::kDxfReal + 3, constant);
  if (data_.elevation != 0.0) filer->writeDouble(AcDb::kDxfElevation, data_.elevation);
  if (data_.thickness != 0.0) filer->writeDouble(AcDb::kDxfThickness, data_.thickness);
  for (std::size_t i = 0; i < count(); ++i) {
    filer->writeItem(AcDb::kDxfXCoord, data_.points[i]);
    if (!sameWidths) {
      filer->writeItem(AcDb::kDxfReal, widthsAt(i).x);
      filer->writeItem(AcDb::kDxfReal + 1, widthsAt(i).y);
    }
    if (bulgeAt(i) != 0.0) filer->writeItem(AcDb::kDxfReal + 2, bulgeAt(i));
  }
  if (data_.normal != AcGeVector3d::kZAxis) filer->writeItem(AcDb::kDxfNormalX, data_.normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  data_ = Data();
  status = entities::readSubclass(filer, L"AcDbPolyline", [&](const resbuf& group) {
    const double real = group.resval.rreal;
    const unsigned int last = static_cast<unsigned int>(count()) - 1;
    switch (group.restype) {
      case AcDb::kDxfInt16:
        setClosed((group.resval.rint & kClosedFlag) != 0);
        setPlinegen((group.resval.rint & kPlinegenFlag) != 0);
        break;
      case AcDb::kDxfReal + 3:
        data_.constantWidth = real;
        break;
      case AcDb::kDxfElevation:
        data_.elevation = real;
        break;
      case AcDb::kDxfThickness:
        data_.thickness = real;
        break;
      case AcDb::kDxfXCoord:
        addVertexAt(last + 1, {group.resval.rpoint[0], group.resval.rpoint[1]});
        break;
      case AcDb::kDxfReal:
        if (count() != 0) setWidthsAt(last, real, widthsAt(last).y);
        break;
      case AcDb::kDxfReal + 1:
        if (count() != 0) setWidthsAt(last, widthsAt(last).x, real);
        break;
      case AcDb::kDxfReal + 2:
        setBulgeAt(last, real);
        break;
      case AcDb::kDxfNormalX:
        data_.normal = entities::vectorOf(group);
        break;
      default:
        break;
    }
  });
  return status;
}

void AcDbPolyline::drawWide(AcGiWorldDraw* draw, std::size_t i, const AcGeMatrix3d& frame) const {
  const CurvePiece piece = pieceAt(i, frame);
  const double sweep = piece.isArc() ? piece.arc().endAng() - piece.arc().startAng() : 0.0;
  const int steps = std::max(1, int(std::ceil(sweep / kAcGeTwoPi * kStepsPerTurn)));
  std::vector<AcGePoint3d> band;
  std::vector<AcGePoint3d> otherSide;
  for (int step = 0; step <= steps; ++step) {
    const double part = double(step) / steps;
    const AcGeVector3d along = piece.stepAt(part);
    if (along.lengthSqrd() == 0.0) return;
    const double half = (widthsAt(i).x * (1.0 - part) + widthsAt(i).y * part) / 2.0;
    const AcGeVector3d aside = data_.normal.crossProduct(along / along.length()) * half;
    band.push_back(piece.pointAt(part) + aside);
    otherSide.push_back(piece.pointAt(part) - aside);
  }
  band.insert(band.end(), otherSide.rbegin(), otherSide.rend());
  draw->subEntityTraits().setFillType(kAcGiFillAlways);
  draw->geometry().polygon(static_cast<Adesk::UInt32>(band.size()), band.data());
}

Adesk::Boolean AcDbPolyline::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  AcGiWorldGeometry& geometry = draw->geometry();
  std::vector<AcGePoint3d> run;
  const auto flush = [&] {
    if (run.size() > 1) geometry.polyline(static_cast<Adesk::UInt32>(run.size()), run.data());
    run.clear();
  };
  for (std::size_t i = 0; i < segmentCount(); ++i) {
    if (widthsAt(i).x != 0.0 || widthsAt(i).y != 0.0) {
      flush();
      drawWide(draw, i, frame);
      continue;
    }
    const CurvePiece piece = pieceAt(i, frame);
    if (piece.isArc()) {
      flush();
      const AcGeCircArc3d& arc = piece.arc();
      geometry.circularArc(arc.center(), arc.radius(), arc.normal(), arc.startPoint() - arc.center(),
                           arc.endAng() - arc.startAng());
      continue;
    }
    if (run.empty()) run.push_back(piece.startPoint());
    run.push_back(piece.endPoint());
  }
  flush();
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbPolyline::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  const AcGeVector3d normal = (xform * data_.normal).normal();
  const AcGeMatrix3d moved = AcGeMatrix3d::worldToPlane(normal) * xform * AcGeMatrix3d::planeToWorld(data_.normal);
  const double factor = xform.scale();
  const double turn = xform.det() < 0.0 ? -1.0 : 1.0;
  const AcGePoint3d lifted = moved * AcGePoint3d(0.0, 0.0, data_.elevation);
  for (AcGePoint2d& vertex : data_.points) {
    const AcGePoint3d p = moved * AcGePoint3d(vertex.x, vertex.y, data_.elevation);
    vertex.set(p.x, p.y);
  }
  for (double& bulge : data_.bulges) bulge *= turn;
  for (AcGePoint2d& widths : data_.widths) widths *= factor;
  data_.constantWidth *= factor;
  data_.elevation = lifted.z;
  data_.thickness *= factor;
  data_.normal = normal;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subExplode(AcDbVoidPtrArray& entities) const {
  assertReadEnabled();
  for (const CurvePiece& piece : pieces()) {
    AcDbEntity* part = nullptr;
    if (piece.isArc()) {
      const AcGeCircArc3d& arc = piece.arc();
      // Arcs keep the polyline's normal, so a clockwise one runs from its end to its start.
      const bool turned = arc.normal().dotProduct(data_.normal) < 0.0;
      const AcGeVector3d start = (turned ? arc.endPoint() : arc.startPoint()) - arc.center();
      const AcGeVector3d end = (turned ? arc.startPoint() : arc.endPoint()) - arc.center();
      part = new AcDbArc(arc.center(), data_.normal, arc.radius(), entities::angleInPlane(start, data_.normal),
                         entities::angleInPlane(end, data_.normal));
    } else {
      auto* const line = new AcDbLine(piece.startPoint(), piece.endPoint());
      line->setNormal(data_.normal);
      part = line;
    }
    part->setPropertiesFrom(this);
    entities.append(part);
  }
  return Acad::eOk;
}

void AcDbPolyline::subList() const {
  assertReadEnabled();
  AcDbCurve::subList();
  acutPrintf(L"\n                    %s", isClosed() ? L"Closed" : L"Open");
  double constant = 0.0;
  if (getConstantWidth(constant) == Acad::eOk) entities::listLength(L"    Constant width", constant);
  double area = 0.0;
  double end = 0.0;
  double length = 0.0;
  getArea(area);
  entities::listLength(L"              area", area);
  if (getEndParam(end) == Acad::eOk && getDistAtParam(end, length) == Acad::eOk) {
    entities::listLength(isClosed() ? L"         perimeter" : L"            length", length);
  }
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  for (std::size_t i = 0; i < count(); ++i) {
    entities::listPoint(L"          at point", inSpace(data_.points[i], frame));
    if (bulgeAt(i) != 0.0) entities::listLength(L"             bulge", bulgeAt(i));
  }
}

Acad::ErrorStatus AcDbPolyline::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  for (const AcGePoint2d& vertex : data_.points) points.append(inSpace(vertex, frame));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  for (int i = 0; i < indices.length(); ++i) {
    if (indices[i] < 0 || std::size_t(indices[i]) >= count()) return Acad::eInvalidIndex;
  }
  assertWriteEnabled();
  const AcGeVector3d step = AcGeMatrix3d::worldToPlane(data_.normal) * offset;
  for (int i = 0; i < indices.length(); ++i) data_.points[std::size_t(indices[i])] += AcGeVector2d(step.x, step.y);
  // Moving them all lifts the polyline with them; one alone has to stay in the plane.
  if (std::size_t(indices.length()) == count()) data_.elevation += step.z;
  return Acad::eOk;
}
