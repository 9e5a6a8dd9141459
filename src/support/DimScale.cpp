#include "support/DimScale.h"

namespace {

AcDbDatabase* workingDatabase() {
  return acdbHostApplicationServices()->workingDatabase();
}

/// The scale of the current paper viewport. The host has viewports of the model only, whose pictures have no height on
/// paper, so that none can be opened as a paper viewport.
double viewportScale() {
  return 1.0;
}

}  // namespace

double krAdjustDimScale(double s) {
  return s != 0.0 ? s : viewportScale();
}

double GetScale() {
  const AcDbDatabase* database = workingDatabase();
  return database == nullptr ? 1.0 : krAdjustDimScale(database->dimscale());
}

int curDimScale(resbuf* rb) {
  if (rb == nullptr || workingDatabase() == nullptr) return RTERROR;
  rb->restype = RTREAL;
  rb->resval.rreal = GetScale();
  return RTNORM;
}

double getDimscale(AcDbObjectId dimStyle, int ajustar) {
  AcDbDimStyleTableRecord* style = nullptr;
  if (acdbOpenObject(style, dimStyle, AcDb::kForRead) != Acad::eOk) return 1.0;
  const double scale = style->dimscale();
  style->close();
  return ajustar != 0 ? krAdjustDimScale(scale) : scale;
}
