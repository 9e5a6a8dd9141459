#pragma once

#include "host/db/AcDbEntity.h"

/// An entity that is a line in space, run through by a parameter and by the length along it. What a class doesn't
/// override answers eNotImplementedYet.
class AcDbCurve : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbCurve);

  virtual Adesk::Boolean isClosed() const { return false; }
  virtual Adesk::Boolean isPeriodic() const { return false; }
  virtual Acad::ErrorStatus getStartParam(double& param) const;
  virtual Acad::ErrorStatus getEndParam(double& param) const;
  virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
  virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;
  virtual Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const;
  virtual Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const;
  virtual Acad::ErrorStatus getDistAtParam(double param, double& dist) const;
  virtual Acad::ErrorStatus getParamAtDist(double dist, double& param) const;
  virtual Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& dist) const;
  virtual Acad::ErrorStatus getPointAtDist(double dist, AcGePoint3d& point) const;
  virtual Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& derivative) const;
  virtual Acad::ErrorStatus getSecondDeriv(double param, AcGeVector3d& derivative) const;
  virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& onCurve,
                                              bool extend = false) const;
  virtual Acad::ErrorStatus getArea(double& area) const;
  virtual Acad::ErrorStatus reverseCurve();
  virtual Acad::ErrorStatus getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const;
  virtual Acad::ErrorStatus extend(double newParam);
  virtual Acad::ErrorStatus extend(Adesk::Boolean atStart, const AcGePoint3d& to);

 protected:
  AcDbCurve() = default;
};
