// The drawing scale of a member: how large it is shown, apart from how large it is.

#include <cmath>

#include "object/KrObject.h"
#include "object/Rotation.h"

namespace {

AcGePoint3d scaled(const AcGePoint3d& p, const AcGePoint3d& base, double a, double b, double c) {
  return {base.x + (p.x - base.x) * a, base.y + (p.y - base.y) * b, base.z + (p.z - base.z) * c};
}

}  // namespace

Acad::ErrorStatus KrObject::ObjectScale(double x, double y, double z) {
  assertWriteEnabled();
  const auto same = [](double p, double q) { return std::fabs(p - q) <= kDrawingTolerance; };
  if (same(x, xScale_) && same(y, yScale_) && same(z, zScale_)) return Acad::eOk;

  // The bar is scaled lying along X, and always by way of 1:1.
  const AcGePoint3d centre = startPoint_;
  const auto turnAll = [&](double angle) {
    const AcGeMatrix3d m = AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, centre);
    KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
    for (int i = 0; i < lista.length(); ++i) {
      // The record's own transformation scales a hole and forgets a circle's radius: neither is meant by a turn.
      lista[i].transformBy(m);
    }
    startPoint_.transformBy(m);
    endPoint_.transformBy(m);
  };
  turnAll(-angleVista_);
  ExecutaVertexScale(1 / xScale_, 1 / yScale_, 1 / zScale_);
  ExecutaVertexScale(x, y, z);
  turnAll(angleVista_);
  comprimento_ = comprimento_ * x / xScale_;
  xScale_ = x;
  yScale_ = y;
  zScale_ = z;
  return Acad::eOk;
}

void KrObject::ExecutaVertexScale(double a, double b, double c) {
  ExecutaVertexScale(a, b, c, startPoint_);
}

void KrObject::ExecutaVertexScale(double a, double b, double c, const AcGePoint3d& base) {
  const AcGePoint3d fixed = base;
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  for (int i = 0; i < lista.length(); ++i) {
    KrVector& v = lista[i];
    const AcGePoint3d mid = scaled(v.midPoint(), fixed, a, b, c);
    if (v.type() == KR_VT_FURO_EIXO) {
      // The centre line of a hole keeps the size of its mark.
      const AcGeVector3d toEnd = v.endPoint() - v.midPoint();
      const AcGeVector3d toStart = v.startPoint() - v.midPoint();
      v.setStartPoint(mid + toStart);
      v.setEndPoint(mid + toEnd);
      v.setMidPoint(mid);
      continue;
    }
    const AcGePoint3d start = scaled(v.startPoint(), fixed, a, b, c);
    const AcGePoint3d end = scaled(v.endPoint(), fixed, a, b, c);
    if (v.type() == KR_VT_FURO) {
      // A hole stays round, whatever the first factor: its radius follows the second.
      const double stretch = v.tipo() == KR_VF_FURO_OBLONGO ? (end - start).length() : 0;
      const int index = v.IndexFur();
      const int hidden = v.hidden();
      v.set(mid, v.radius() * b, v.folga(), 0, KR_VT_FURO, v.tipo(), v.direction(), stretch);
      v.setIndexFur(index);
      v.setHidden(hidden);
      continue;
    }
    v.setStartPoint(start);
    v.setEndPoint(end);
    v.setMidPoint(mid);
    if (v.type() != KR_VT_EIXO) continue;
    startPoint_ = start;
    endPoint_ = end;
  }
}
