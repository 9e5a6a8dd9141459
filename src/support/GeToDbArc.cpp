#include "host/db/db.h"
#include "support/Database.h"

Acad::ErrorStatus krGeToDbArc(const AcGeCircArc3d& arco, AcDbEntity* db) {
  if (db == nullptr) return Acad::eNullEntityPointer;
  AcDbArc* arc = AcDbArc::cast(db);
  if (arc == nullptr) return Acad::eIllegalEntityType;

  const AcGeVector3d normal = arco.normal();
  const AcGeVector3d reference = arco.refVec();
  const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(normal);
  if (normal.isZeroLength() || reference.isZeroLength()) return Acad::eNotApplicable;
  const AcGeVector3d xAxis = AcGeVector3d(AcGeVector3d::kXAxis).transformBy(plane);
  const double turn = xAxis.angleTo(reference, normal);
  arc->setCenter(arco.center());
  arc->setRadius(arco.radius());
  arc->setNormal(normal);
  arc->setStartAngle(arco.startAng() + turn);
  arc->setEndAngle(arco.endAng() + turn);
  return Acad::eOk;
}
