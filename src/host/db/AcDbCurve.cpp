#include "host/db/AcDbCurve.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)

Acad::ErrorStatus AcDbCurve::getStartParam(double&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getEndParam(double&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getPointAtParam(double, AcGePoint3d&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d&, double&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getDistAtParam(double, double&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getParamAtDist(double, double&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& dist) const {
  double param = 0;
  const Acad::ErrorStatus es = getParamAtPoint(point, param);
  return es == Acad::eOk ? getDistAtParam(param, dist) : es;
}
Acad::ErrorStatus AcDbCurve::getPointAtDist(double dist, AcGePoint3d& point) const {
  double param = 0;
  const Acad::ErrorStatus es = getParamAtDist(dist, param);
  return es == Acad::eOk ? getPointAtParam(param, point) : es;
}
Acad::ErrorStatus AcDbCurve::getFirstDeriv(double, AcGeVector3d&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getSecondDeriv(double, AcGeVector3d&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d&, AcGePoint3d&, bool) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getArea(double&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::reverseCurve() {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getOffsetCurves(double, AcDbVoidPtrArray&) const {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::extend(double) {
  return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::extend(Adesk::Boolean, const AcGePoint3d&) {
  return Acad::eNotImplementedYet;
}
