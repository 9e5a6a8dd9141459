#include "host/db/entities/AcDbHatch.h"

#include <algorithm>
#include <cmath>

#include "host/db/StructFiling.h"
#include "host/db/entities/DrawnExtents.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/HatchPicture.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbHatch, AcDbEntity, 0, 0, 0, HATCH, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbHatch, AcDbEntity, data_)

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType type, const ACHAR* name) {
  if (name == nullptr || *name == L'\0') return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.patternType = Adesk::Int16(type);
  data_.patternName = name;
  data_.solid = data_.patternName == L"SOLID";
  if (data_.solid) data_.patternLines.clear();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setHatchStyle(HatchStyle style) {
  assertWriteEnabled();
  data_.style = Adesk::Int16(style);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getLoopTypeAt(int index, Adesk::Int32& type) const {
  assertReadEnabled();
  if (index < 0 || index >= int(data_.paths.size())) return Acad::eInvalidIndex;
  type = data_.paths[std::size_t(index)].flags;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 type, const AcGePoint2dArray& vertices,
                                        const AcGeDoubleArray& bulges) {
  if (vertices.length() < 2) return Acad::eInvalidInput;
  if (bulges.length() != 0 && bulges.length() != vertices.length()) return Acad::eInvalidInput;
  assertWriteEnabled();
  Path path;
  path.flags = type | kPolyline;
  path.hasBulges = bulges.length() != 0;
  for (int i = 0; i < vertices.length(); ++i) path.vertices.push_back(vertices[i]);
  for (int i = 0; i < bulges.length(); ++i) path.bulges.push_back(bulges[i]);
  data_.paths.push_back(std::move(path));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::removeLoopAt(int index) {
  if (index < 0 || index >= int(data_.paths.size())) return Acad::eInvalidIndex;
  assertWriteEnabled();
  data_.paths.erase(data_.paths.begin() + index);
  return Acad::eOk;
}

std::vector<AcGePoint2d> AcDbHatch::outlineOf(const Path& path) const {
  return entities::hatchOutline(path);
}

Acad::ErrorStatus AcDbHatch::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(AcGePoint3d::kOrigin + data_.normal * data_.elevation, data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

Adesk::Boolean AcDbHatch::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  std::vector<std::vector<AcGePoint2d>> outlines;
  for (const Path& path : data_.paths) outlines.push_back(entities::hatchOutline(path));
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  const auto inSpace = [&](const AcGePoint2d& p) { return frame * AcGePoint3d(p.x, p.y, data_.elevation); };
  if (data_.solid) {
    std::vector<AcGePoint3d> polygon;
    for (const std::vector<AcGePoint2d>& area : entities::hatchAreas(outlines)) {
      polygon.clear();
      for (const AcGePoint2d& p : area) polygon.push_back(inSpace(p));
      draw->subEntityTraits().setFillType(kAcGiFillAlways);
      draw->geometry().polygon(Adesk::UInt32(polygon.size()), polygon.data());
    }
    return Adesk::kTrue;
  }
  entities::HatchStroker strokes(outlines);
  for (const PatternLine& line : data_.patternLines) {
    strokes.draw(line, [&](const AcGePoint2d& a, const AcGePoint2d& b) {
      const AcGePoint3d ends[] = {inSpace(a), inSpace(b)};
      draw->geometry().polyline(2, ends);
    });
  }
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbHatch::subGetGeomExtents(AcDbExtents& extents) const {
  AcDbExtents box;
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  for (const Path& path : data_.paths) {
    for (const AcGePoint2d& p : entities::hatchOutline(path)) {
      box.addPoint(frame * AcGePoint3d(p.x, p.y, data_.elevation));
    }
  }
  if (box.isEmpty()) return Acad::eNullExtents;
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  const AcGeVector3d normal = (xform * data_.normal).normal();
  const AcGeMatrix3d moved = AcGeMatrix3d::worldToPlane(normal) * xform * AcGeMatrix3d::planeToWorld(data_.normal);
  const double elevation = data_.elevation;
  const double factor = xform.scale();
  const bool mirrored = xform.det() < 0.0;
  const auto point = [&](AcGePoint2d& p) {
    const AcGePoint3d q = moved * AcGePoint3d(p.x, p.y, elevation);
    p.set(q.x, q.y);
  };
  const auto vector = [&](double x, double y) { return moved * AcGeVector3d(x, y, 0.0); };
  const double turn = std::atan2(vector(1.0, 0.0).y, vector(1.0, 0.0).x);
  const auto angle = [&](double a) { return mirrored ? turn - a : turn + a; };
  for (Path& path : data_.paths) {
    for (AcGePoint2d& vertex : path.vertices) point(vertex);
    if (mirrored) {
      for (double& bulge : path.bulges) bulge = -bulge;
    }
    for (Edge& edge : path.edges) {
      point(edge.start);
      for (AcGePoint2d& p : edge.points) point(p);
      if (edge.kind == EdgeKind::kEllipse) {
        const AcGeVector3d axis = vector(edge.end.x, edge.end.y);
        edge.end.set(axis.x, axis.y);
      } else {
        point(edge.end);
      }
      if (edge.kind == EdgeKind::kArc) {
        edge.radius *= factor;
        // The angles of a clockwise arc are told against the axis: its image runs the other way.
        const double sign = edge.counterClockwise ? 1.0 : -1.0;
        edge.startAngle = mirrored ? edge.startAngle - sign * turn : edge.startAngle + sign * turn;
        edge.endAngle = mirrored ? edge.endAngle - sign * turn : edge.endAngle + sign * turn;
      }
      if (mirrored && (edge.kind == EdgeKind::kArc || edge.kind == EdgeKind::kEllipse)) {
        edge.counterClockwise = !edge.counterClockwise;
      }
    }
  }
  for (PatternLine& line : data_.patternLines) {
    point(line.origin);
    const AcGeVector3d offset = vector(line.offset.x, line.offset.y);
    line.offset = AcGeVector2d(offset.x, offset.y);
    line.angle = angle(line.angle);
    for (double& dash : line.dashes) dash *= factor;
  }
  for (AcGePoint2d& seed : data_.seeds) point(seed);
  data_.patternAngle = angle(data_.patternAngle);
  data_.patternScale *= factor;
  data_.elevation = (moved * AcGePoint3d(0.0, 0.0, elevation)).z;
  data_.normal = normal;
  return Acad::eOk;
}
