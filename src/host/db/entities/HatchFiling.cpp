// Hatches in the exchange format.
#include <algorithm>

#include "host/db/entities/AcDbHatch.h"
#include "host/db/entities/EntityTools.h"

namespace {

using Edge = AcDbHatch::Edge;
using EdgeKind = AcDbHatch::EdgeKind;
using Path = AcDbHatch::Path;

void writeEdge(AcDbDxfFiler& filer, const Edge& edge) {
  filer.writeItem(72, Adesk::Int16(edge.kind));
  if (edge.kind == EdgeKind::kSpline) {
    filer.writeItem(94, edge.degree);
    filer.writeItem(73, Adesk::Int16(edge.rational));
    filer.writeItem(74, Adesk::Int16(edge.periodic));
    filer.writeItem(95, Adesk::Int32(edge.knots.size()));
    filer.writeItem(96, Adesk::Int32(edge.points.size()));
    for (const double knot : edge.knots) filer.writeItem(40, knot);
    for (std::size_t i = 0; i < edge.points.size(); ++i) {
      filer.writeItem(10, edge.points[i]);
      if (edge.rational && i < edge.weights.size()) filer.writeItem(42, edge.weights[i]);
    }
    return;
  }
  filer.writeItem(10, edge.start);
  if (edge.kind != EdgeKind::kArc) filer.writeItem(11, edge.end);
  if (edge.kind == EdgeKind::kLine) return;
  filer.writeItem(40, edge.radius);
  filer.writeItem(50, edge.startAngle);
  filer.writeItem(51, edge.endAngle);
  filer.writeItem(73, Adesk::Int16(edge.counterClockwise));
}

void writePath(AcDbDxfFiler& filer, const Path& path) {
  filer.writeItem(92, path.flags);
  if (path.isPolyline()) {
    filer.writeItem(72, Adesk::Int16(path.hasBulges));
    filer.writeItem(73, Adesk::Int16(path.closed));
    filer.writeItem(93, Adesk::Int32(path.vertices.size()));
    for (std::size_t i = 0; i < path.vertices.size(); ++i) {
      filer.writeItem(10, path.vertices[i]);
      if (path.hasBulges) filer.writeItem(42, i < path.bulges.size() ? path.bulges[i] : 0.0);
    }
  } else {
    filer.writeItem(93, Adesk::Int32(path.edges.size()));
    for (const Edge& edge : path.edges) writeEdge(filer, edge);
  }
  filer.writeItem(97, Adesk::Int32(path.boundaryObjects.size()));
  for (const AcDbSoftPointerId& id : path.boundaryObjects) filer.writeItem(330, AcDbObjectId(id));
}

void writePatternLine(AcDbDxfFiler& filer, const AcDbHatch::PatternLine& line) {
  filer.writeItem(53, line.angle);
  filer.writeItem(43, line.origin.x);
  filer.writeItem(44, line.origin.y);
  filer.writeItem(45, line.offset.x);
  filer.writeItem(46, line.offset.y);
  filer.writeItem(79, Adesk::Int16(line.dashes.size()));
  for (const double dash : line.dashes) filer.writeItem(49, dash);
}

/// Takes groups in the order in which they come: codes have other meanings in the paths than around them.
class HatchReader {
 public:
  explicit HatchReader(AcDbHatch::Data& data) : d_(data) {
    d_.paths.clear();
    d_.patternLines.clear();
    d_.seeds.clear();
  }

  void take(const resbuf& group) {
    switch (place_) {
      case Place::kHead:
        takeHead(group);
        break;
      case Place::kPaths:
        takePaths(group);
        break;
      case Place::kTail:
        takeTail(group);
        break;
    }
  }

 private:
  enum class Place { kHead, kPaths, kTail };

  static AcGePoint2d flat(const resbuf& group) { return {group.resval.rpoint[0], group.resval.rpoint[1]}; }

  void takeHead(const resbuf& group) {
    const ads_u_val& value = group.resval;
    switch (int(group.restype)) {
      case 10:
        d_.elevation = value.rpoint[2];
        break;
      case 210:
        d_.normal = entities::vectorOf(group);
        break;
      case 2:
        d_.patternName = entities::textOf(group);
        break;
      case 70:
        d_.solid = value.rint != 0;
        break;
      case 71:
        d_.associative = value.rint != 0;
        break;
      case 91:
        place_ = value.rlong > 0 ? Place::kPaths : Place::kTail;
        break;
      default:
        break;
    }
  }

  void takePaths(const resbuf& group) {
    const ads_u_val& value = group.resval;
    const int code = group.restype;
    if (code == 92) {
      d_.paths.emplace_back().flags = value.rlong;
      return;
    }
    if (code == 75 || code == 76) {
      place_ = Place::kTail;
      takeTail(group);
      return;
    }
    if (d_.paths.empty()) return;
    Path& path = d_.paths.back();
    if (code == 330) {
      path.boundaryObjects.emplace_back(AcDbObjectId().setFromOldId(value.rlname[0]));
    } else if (path.isPolyline()) {
      takeVertex(path, group);
    } else if (code == 72) {
      Edge& edge = path.edges.emplace_back();
      edge.kind = EdgeKind(std::clamp<int>(value.rint, 1, 4));
    } else if (!path.edges.empty()) {
      takeEdge(path.edges.back(), group);
    }
  }

  static void takeVertex(Path& path, const resbuf& group) {
    if (group.restype == 72) path.hasBulges = group.resval.rint != 0;
    if (group.restype == 73) path.closed = group.resval.rint != 0;
    if (group.restype == 10) {
      path.vertices.push_back(flat(group));
      if (path.hasBulges) path.bulges.push_back(0.0);
    }
    if (group.restype == 42 && !path.bulges.empty()) path.bulges.back() = group.resval.rreal;
  }

  static void takeEdge(Edge& edge, const resbuf& group) {
    const ads_u_val& value = group.resval;
    const bool spline = edge.kind == EdgeKind::kSpline;
    switch (int(group.restype)) {
      case 10:
        if (!spline) {
          edge.start = flat(group);
          break;
        }
        edge.points.push_back(flat(group));
        if (edge.rational) edge.weights.push_back(1.0);
        break;
      case 11:
        edge.end = flat(group);
        break;
      case 40:
        if (spline) {
          edge.knots.push_back(value.rreal);
        } else {
          edge.radius = value.rreal;
        }
        break;
      case 42:
        if (!edge.weights.empty()) edge.weights.back() = value.rreal;
        break;
      case 50:
        edge.startAngle = value.rreal;
        break;
      case 51:
        edge.endAngle = value.rreal;
        break;
      case 73:
        (spline ? edge.rational : edge.counterClockwise) = value.rint != 0;
        break;
      case 74:
        edge.periodic = value.rint != 0;
        break;
      case 94:
        edge.degree = value.rlong;
        break;
      default:
        break;
    }
  }

  void takeTail(const resbuf& group) {
    const ads_u_val& value = group.resval;
    const int code = group.restype;
    if (code == 53) d_.patternLines.emplace_back().angle = value.rreal;
    if (!d_.patternLines.empty()) {
      AcDbHatch::PatternLine& line = d_.patternLines.back();
      if (code == 43) line.origin.x = value.rreal;
      if (code == 44) line.origin.y = value.rreal;
      if (code == 45) line.offset.x = value.rreal;
      if (code == 46) line.offset.y = value.rreal;
      if (code == 49) line.dashes.push_back(value.rreal);
    }
    if (code == 75) d_.style = value.rint;
    if (code == 76) d_.patternType = value.rint;
    if (code == 52) d_.patternAngle = value.rreal;
    if (code == 41) d_.patternScale = value.rreal;
    if (code == 77) d_.patternDouble = value.rint != 0;
    if (code == 47) d_.pixelSize = value.rreal;
    if (code == 10) d_.seeds.push_back(flat(group));
  }

  AcDbHatch::Data& d_;
  Place place_ = Place::kHead;
};

}  // namespace

Acad::ErrorStatus AcDbHatch::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbHatch");
  filer->writeItem(10, AcGePoint3d(0.0, 0.0, data_.elevation));
  filer->writeItem(210, data_.normal);
  filer->writeItem(2, data_.patternName.c_str());
  filer->writeItem(70, Adesk::Int16(data_.solid));
  filer->writeItem(71, Adesk::Int16(data_.associative));
  filer->writeItem(91, Adesk::Int32(data_.paths.size()));
  for (const Path& path : data_.paths) writePath(*filer, path);
  filer->writeItem(75, data_.style);
  filer->writeItem(76, data_.patternType);
  if (!data_.solid) {
    filer->writeItem(52, data_.patternAngle);
    filer->writeItem(41, data_.patternScale);
    filer->writeItem(77, Adesk::Int16(data_.patternDouble));
    filer->writeItem(78, Adesk::Int16(data_.patternLines.size()));
    for (const PatternLine& line : data_.patternLines) writePatternLine(*filer, line);
  }
  const bool derived = std::any_of(data_.paths.begin(), data_.paths.end(),
                                   [](const Path& path) { return (path.flags & kDerived) != 0; });
  if (derived) filer->writeItem(47, data_.pixelSize);
  filer->writeItem(98, Adesk::Int32(data_.seeds.size()));
  for (const AcGePoint2d& seed : data_.seeds) filer->writeItem(10, seed);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbHatch::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  HatchReader reader(data_);
  return entities::readSubclass(filer, L"AcDbHatch", [&](const resbuf& group) { reader.take(group); });
}
