#include "host/db/entities/AcDbPolyline.h"

#include <algorithm>
#include <cmath>

#include "host/db/AcDbDwgFiler.h"
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

// What an absurd count in a broken stream may make us reserve ahead.
constexpr int kMostReserved = 1 << 16;

}  // namespace

unsigned int AcDbPolyline::numVerts() const {
  assertReadEnabled();
  return static_cast<unsigned int>(m_vertices.size());
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const {
  assertReadEnabled();
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  point = inSpace(m_vertices[index].point, AcGeMatrix3d::planeToWorld(m_normal));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const {
  assertReadEnabled();
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  point = m_vertices[index].point;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
  assertReadEnabled();
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  bulge = m_vertices[index].bulge;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
  assertReadEnabled();
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  startWidth = m_vertices[index].startWidth;
  endWidth = m_vertices[index].endWidth;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point) {
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  m_vertices[index].point = point;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  m_vertices[index].bulge = bulge;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth) {
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  if (!(startWidth >= 0.0 && endWidth >= 0.0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_vertices[index].startWidth = startWidth;
  m_vertices[index].endWidth = endWidth;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth) {
  if (index > m_vertices.size()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  double constant = 0.0;
  if (getConstantWidth(constant) != Acad::eOk) constant = 0.0;
  const Vertex vertex{point, bulge, startWidth < 0.0 ? constant : startWidth, endWidth < 0.0 ? constant : endWidth};
  m_vertices.insert(m_vertices.begin() + index, vertex);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
  if (index >= m_vertices.size()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  m_vertices.erase(m_vertices.begin() + index);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::reset(bool reuse, unsigned int numVertices) {
  assertWriteEnabled();
  const std::size_t kept = reuse ? std::min<std::size_t>(numVertices, m_vertices.size()) : 0;
  m_vertices.resize(kept);
  return Acad::eOk;
}

std::size_t AcDbPolyline::segmentCount() const {
  if (m_vertices.size() < 2) return 0;
  return m_closed ? m_vertices.size() : m_vertices.size() - 1;
}

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const {
  assertReadEnabled();
  if (m_vertices.size() == 1) return kPoint;
  if (index >= segmentCount()) return kEmpty;
  if (m_vertices[index].point == behind(index).point) return kCoincident;
  return m_vertices[index].bulge == 0.0 ? kLine : kArc;
}

CurvePiece AcDbPolyline::pieceAt(std::size_t i, const AcGeMatrix3d& frame) const {
  return CurvePiece::byBulge(inSpace(m_vertices[i].point, frame), inSpace(behind(i).point, frame), m_vertices[i].bulge,
                             m_normal);
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const {
  if (segType(index) != kLine) return Acad::eInvalidInput;
  line = pieceAt(index, AcGeMatrix3d::planeToWorld(m_normal)).segment();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const {
  if (segType(index) != kArc) return Acad::eInvalidInput;
  arc = pieceAt(index, AcGeMatrix3d::planeToWorld(m_normal)).arc();
  return Acad::eOk;
}

bool AcDbPolyline::hasBulges() const {
  assertReadEnabled();
  return std::any_of(m_vertices.begin(), m_vertices.end(), [](const Vertex& v) { return v.bulge != 0.0; });
}

bool AcDbPolyline::hasWidth() const {
  assertReadEnabled();
  return std::any_of(m_vertices.begin(), m_vertices.end(),
                     [](const Vertex& v) { return v.startWidth != 0.0 || v.endWidth != 0.0; });
}

Adesk::Boolean AcDbPolyline::isClosed() const {
  assertReadEnabled();
  return m_closed;
}

void AcDbPolyline::setClosed(Adesk::Boolean closed) {
  assertWriteEnabled();
  m_closed = closed != Adesk::kFalse;
}

bool AcDbPolyline::hasPlinegen() const {
  assertReadEnabled();
  return m_plinegen;
}

void AcDbPolyline::setPlinegen(bool on) {
  assertWriteEnabled();
  m_plinegen = on;
}

double AcDbPolyline::elevation() const {
  assertReadEnabled();
  return m_elevation;
}

Acad::ErrorStatus AcDbPolyline::setElevation(double elevation) {
  assertWriteEnabled();
  m_elevation = elevation;
  return Acad::eOk;
}

double AcDbPolyline::thickness() const {
  assertReadEnabled();
  return m_thickness;
}

Acad::ErrorStatus AcDbPolyline::setThickness(double thickness) {
  assertWriteEnabled();
  m_thickness = thickness;
  return Acad::eOk;
}

AcGeVector3d AcDbPolyline::normal() const {
  assertReadEnabled();
  return m_normal;
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const {
  assertReadEnabled();
  const double first = m_vertices.empty() ? 0.0 : m_vertices.front().startWidth;
  const bool constant = std::all_of(m_vertices.begin(), m_vertices.end(),
                                    [first](const Vertex& v) { return v.startWidth == first && v.endWidth == first; });
  if (!constant) return Acad::eInvalidInput;
  width = first;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width) {
  if (!(width >= 0.0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  for (Vertex& vertex : m_vertices) vertex.startWidth = vertex.endWidth = width;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(AcGePoint3d::kOrigin + m_normal * m_elevation, m_normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

void AcDbPolyline::getEcs(AcGeMatrix3d& ecs) const {
  assertReadEnabled();
  ecs.setToPlaneToWorld(m_normal);
}

CurvePieces AcDbPolyline::pieces() const {
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(m_normal);
  CurvePieces chain;
  const std::size_t count = segmentCount();
  chain.reserve(count);
  for (std::size_t i = 0; i < count; ++i) chain.push_back(pieceAt(i, frame));
  if (chain.empty() && m_vertices.size() == 1) {
    const AcGePoint3d p = inSpace(m_vertices[0].point, frame);
    chain.emplace_back(AcGeLineSeg3d(p, p));
  }
  return chain;
}

Acad::ErrorStatus AcDbPolyline::getArea(double& area) const {
  assertReadEnabled();
  double twice = 0.0;
  const std::size_t segments = segmentCount();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(m_normal);
  for (std::size_t i = 0; i < m_vertices.size(); ++i) {
    const AcGePoint2d a = m_vertices[i].point;
    const AcGePoint2d b = behind(i).point;
    twice += a.x * b.y - a.y * b.x;
    if (i < segments) twice += pieceAt(i, frame).segmentAreaTwice(m_normal);
  }
  area = std::fabs(twice) / 2.0;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::reverseCurve() {
  assertWriteEnabled();
  if (m_vertices.size() < 2) return Acad::eOk;
  // A segment's bulge and widths stand with the vertex at its start, which is its end after the turn.
  std::vector<Vertex> turned(m_vertices.rbegin(), m_vertices.rend());
  const std::size_t count = turned.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Vertex& source = m_vertices[(2 * count - 2 - i) % count];
    turned[i].bulge = -source.bulge;
    turned[i].startWidth = source.endWidth;
    turned[i].endWidth = source.startWidth;
  }
  m_vertices = std::move(turned);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeInt16(static_cast<Adesk::Int16>((m_closed ? kClosedFlag : 0) | (m_plinegen ? kPlinegenFlag : 0)));
  filer->writeDouble(m_elevation);
  filer->writeDouble(m_thickness);
  filer->writeVector3d(m_normal);
  filer->writeInt32(static_cast<Adesk::Int32>(m_vertices.size()));
  for (const Vertex& vertex : m_vertices) {
    filer->writePoint2d(vertex.point);
    filer->writeDouble(vertex.bulge);
    filer->writeDouble(vertex.startWidth);
    filer->writeDouble(vertex.endWidth);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  if (status != Acad::eOk) return status;
  Adesk::Int16 flags = 0;
  Adesk::Int32 count = 0;
  filer->readInt16(&flags);
  filer->readDouble(&m_elevation);
  filer->readDouble(&m_thickness);
  filer->readVector3d(&m_normal);
  filer->readInt32(&count);
  m_closed = (flags & kClosedFlag) != 0;
  m_plinegen = (flags & kPlinegenFlag) != 0;
  m_vertices.clear();
  m_vertices.reserve(static_cast<std::size_t>(std::clamp(count, 0, kMostReserved)));
  for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
    Vertex vertex;
    filer->readPoint2d(&vertex.point);
    filer->readDouble(&vertex.bulge);
    filer->readDouble(&vertex.startWidth);
    filer->readDouble(&vertex.endWidth);
    m_vertices.push_back(vertex);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  double constant = 0.0;
  const bool sameWidths = getConstantWidth(constant) == Acad::eOk;
  filer->writeSubclass(L"AcDbPolyline");
  filer->writeInt32(AcDb::kDxfInt32, static_cast<Adesk::Int32>(m_vertices.size()));
  filer->writeInt16(AcDb::kDxfInt16,
                    static_cast<Adesk::Int16>((m_closed ? kClosedFlag : 0) | (m_plinegen ? kPlinegenFlag : 0)));
  if (sameWidths) filer->writeItem(AcDb::kDxfReal + 3, constant);
  if (m_elevation != 0.0) filer->writeDouble(AcDb::kDxfElevation, m_elevation);
  if (m_thickness != 0.0) filer->writeDouble(AcDb::kDxfThickness, m_thickness);
  for (const Vertex& vertex : m_vertices) {
    filer->writeItem(AcDb::kDxfXCoord, vertex.point);
    if (!sameWidths) {
      filer->writeItem(AcDb::kDxfReal, vertex.startWidth);
      filer->writeItem(AcDb::kDxfReal + 1, vertex.endWidth);
    }
    if (vertex.bulge != 0.0) filer->writeItem(AcDb::kDxfReal + 2, vertex.bulge);
  }
  if (m_normal != AcGeVector3d::kZAxis) filer->writeItem(AcDb::kDxfNormalX, m_normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  m_vertices.clear();
  double constant = 0.0;
  status = entities::readSubclass(filer, L"AcDbPolyline", [&](const resbuf& group) {
    const double real = group.resval.rreal;
    Vertex* const last = m_vertices.empty() ? nullptr : &m_vertices.back();
    switch (group.restype) {
      case AcDb::kDxfInt16:
        m_closed = (group.resval.rint & kClosedFlag) != 0;
        m_plinegen = (group.resval.rint & kPlinegenFlag) != 0;
        break;
      case AcDb::kDxfReal + 3:
        constant = real;
        break;
      case AcDb::kDxfElevation:
        m_elevation = real;
        break;
      case AcDb::kDxfThickness:
        m_thickness = real;
        break;
      case AcDb::kDxfXCoord:
        m_vertices.push_back({{group.resval.rpoint[0], group.resval.rpoint[1]}, 0.0, constant, constant});
        break;
      case AcDb::kDxfReal:
        if (last != nullptr) last->startWidth = real;
        break;
      case AcDb::kDxfReal + 1:
        if (last != nullptr) last->endWidth = real;
        break;
      case AcDb::kDxfReal + 2:
        if (last != nullptr) last->bulge = real;
        break;
      case AcDb::kDxfNormalX:
        setNormal(entities::vectorOf(group));
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
    const double half = (m_vertices[i].startWidth * (1.0 - part) + m_vertices[i].endWidth * part) / 2.0;
    const AcGeVector3d aside = m_normal.crossProduct(along / along.length()) * half;
    band.push_back(piece.pointAt(part) + aside);
    otherSide.push_back(piece.pointAt(part) - aside);
  }
  band.insert(band.end(), otherSide.rbegin(), otherSide.rend());
  draw->subEntityTraits().setFillType(kAcGiFillAlways);
  draw->geometry().polygon(static_cast<Adesk::UInt32>(band.size()), band.data());
}

Adesk::Boolean AcDbPolyline::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(m_normal);
  AcGiWorldGeometry& geometry = draw->geometry();
  std::vector<AcGePoint3d> run;
  const auto flush = [&] {
    if (run.size() > 1) geometry.polyline(static_cast<Adesk::UInt32>(run.size()), run.data());
    run.clear();
  };
  for (std::size_t i = 0; i < segmentCount(); ++i) {
    const Vertex& vertex = m_vertices[i];
    if (vertex.startWidth != 0.0 || vertex.endWidth != 0.0) {
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
  const AcGeVector3d normal = (xform * m_normal).normal();
  const AcGeMatrix3d moved = AcGeMatrix3d::worldToPlane(normal) * xform * AcGeMatrix3d::planeToWorld(m_normal);
  const double factor = xform.scale();
  const double turn = xform.det() < 0.0 ? -1.0 : 1.0;
  const AcGePoint3d lifted = moved * AcGePoint3d(0.0, 0.0, m_elevation);
  for (Vertex& vertex : m_vertices) {
    const AcGePoint3d p = moved * AcGePoint3d(vertex.point.x, vertex.point.y, m_elevation);
    vertex = {{p.x, p.y}, vertex.bulge * turn, vertex.startWidth * factor, vertex.endWidth * factor};
  }
  m_elevation = lifted.z;
  m_thickness *= factor;
  m_normal = normal;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subExplode(AcDbVoidPtrArray& entities) const {
  assertReadEnabled();
  for (const CurvePiece& piece : pieces()) {
    AcDbEntity* part = nullptr;
    if (piece.isArc()) {
      const AcGeCircArc3d& arc = piece.arc();
      // Arcs keep the polyline's normal, so a clockwise one runs from its end to its start.
      const bool turned = arc.normal().dotProduct(m_normal) < 0.0;
      const AcGeVector3d start = (turned ? arc.endPoint() : arc.startPoint()) - arc.center();
      const AcGeVector3d end = (turned ? arc.startPoint() : arc.endPoint()) - arc.center();
      part = new AcDbArc(arc.center(), m_normal, arc.radius(), entities::angleInPlane(start, m_normal),
                         entities::angleInPlane(end, m_normal));
    } else {
      auto* const line = new AcDbLine(piece.startPoint(), piece.endPoint());
      line->setNormal(m_normal);
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
  acutPrintf(L"\n                    %s", m_closed ? L"Closed" : L"Open");
  double constant = 0.0;
  if (getConstantWidth(constant) == Acad::eOk) entities::listLength(L"    Constant width", constant);
  double area = 0.0;
  double end = 0.0;
  double length = 0.0;
  getArea(area);
  entities::listLength(L"              area", area);
  if (getEndParam(end) == Acad::eOk && getDistAtParam(end, length) == Acad::eOk) {
    entities::listLength(m_closed ? L"         perimeter" : L"            length", length);
  }
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(m_normal);
  for (const Vertex& vertex : m_vertices) {
    entities::listPoint(L"          at point", inSpace(vertex.point, frame));
    if (vertex.bulge != 0.0) entities::listLength(L"             bulge", vertex.bulge);
  }
}

Acad::ErrorStatus AcDbPolyline::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(m_normal);
  for (const Vertex& vertex : m_vertices) points.append(inSpace(vertex.point, frame));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  for (int i = 0; i < indices.length(); ++i) {
    if (indices[i] < 0 || std::size_t(indices[i]) >= m_vertices.size()) return Acad::eInvalidIndex;
  }
  assertWriteEnabled();
  const AcGeVector3d step = AcGeMatrix3d::worldToPlane(m_normal) * offset;
  for (int i = 0; i < indices.length(); ++i) m_vertices[std::size_t(indices[i])].point += AcGeVector2d(step.x, step.y);
  // Moving them all lifts the polyline with them; one alone has to stay in the plane.
  if (std::size_t(indices.length()) == m_vertices.size()) m_elevation += step.z;
  return Acad::eOk;
}
