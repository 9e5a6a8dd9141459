// Parts of a member: each drawn element has the graphics marker of its place in the list plus one, and is an edge of
// that number with two vertices.

#include <algorithm>
#include <memory>

#include "object/KrObject.h"

namespace {

/// The host's answer to a path that doesn't apply.
constexpr auto kPathDoesNotApply = static_cast<Acad::ErrorStatus>(230);

/// An arc with one end in the last quarter of the circle and one in the first runs over the X axis; any other runs from
/// the smaller angle to the larger, whichever way its element does.
constexpr double kLastQuarter = 4.71238898038469;
constexpr double kFirstQuarter = 1.5707963267948966;

AcDbEntity* arcEntity(const KrVector& v) {
  AcGeCircArc3d arc;
  AcGeError error = AcGe::kOk;
  arc.set(v.startPoint(), v.midPoint(), v.endPoint(), error);
  if (error != AcGe::kOk) return nullptr;
  const AcGePoint3d centre = arc.center();
  const auto angleTo = [&centre](const AcGePoint3d& p) { return acutAngle(asDblArray(centre), asDblArray(p)); };
  const auto [low, high] = std::minmax({angleTo(v.startPoint()), angleTo(v.endPoint())});
  const bool overZero = high > kLastQuarter && low < kFirstQuarter;
  return new AcDbArc(centre, arc.radius(), overZero ? high : low, overZero ? low : high);
}

}  // namespace

Acad::ErrorStatus KrObject::subGetGsMarkersAtSubentPath(const AcDbFullSubentPath& path,
                                                        AcArray<Adesk::GsMarker>& markers) const {
  assertReadEnabled();
  const AcDbSubentId part = path.subentId();
  if (part.type() != AcDb::kEdgeSubentType && part.type() != AcDb::kVertexSubentType) return kPathDoesNotApply;
  markers.append(part.index());
  return Acad::eOk;
}

// Both vertices of an edge go by the number of its marker: that is what they are asked for by.
Acad::ErrorStatus KrObject::subGetSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker marker,
                                                        const AcGePoint3d&, const AcGeMatrix3d&, int& numPaths,
                                                        AcDbFullSubentPath*& paths, int, AcDbObjectId*) const {
  assertReadEnabled();
  numPaths = 0;
  paths = nullptr;
  if (marker == 0) return Acad::eInvalidInput;
  if (marker < 0) return Acad::eOk;
  if (type == AcDb::kEdgeSubentType) numPaths = 1;
  if (type == AcDb::kVertexSubentType) numPaths = 2;
  if (numPaths == 0) return Acad::eOk;
  paths = new AcDbFullSubentPath[static_cast<std::size_t>(numPaths)];
  std::fill_n(paths, numPaths, AcDbFullSubentPath(objectId(), type, marker));
  return Acad::eOk;
}

AcDbEntity* KrObject::subSubentPtr(const AcDbFullSubentPath& path) const {
  assertReadEnabled();
  const AcDbSubentId part = path.subentId();
  // An edge is numbered from 1, as its marker is.
  if (part.type() != AcDb::kEdgeSubentType || part.index() < 1 || part.index() > GetNumVertex(VistaCorrente))
    return nullptr;
  KrVector v;
  GetVector(static_cast<int>(part.index()) - 1, v);
  switch (v.type()) {
    case KR_VT_EIXO:
    case KR_VT_LINHA_OCULTA:
    case KR_VT_LINHA:
    case KR_VT_FURO_EIXO:
      return new AcDbLine(v.startPoint(), v.endPoint());
    case KR_VT_ARCO:
      return arcEntity(v);
    case KR_VT_CIRCULO:
    case KR_VT_FURO:
      return new AcDbCircle(v.centerPoint(), AcGeVector3d::kZAxis, v.radius() + v.folga() / 2);
    default:
      return nullptr;
  }
}
