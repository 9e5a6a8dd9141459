// How the dimensions and leaders of a member follow its drawing scale.

#include "editing/DimensionScale.h"

#include <array>
#include <cmath>

#include "host/ed/ed.h"

namespace {

/// Room for the text of any number.
constexpr std::size_t kNumberSize = 400;

template <class T>
T* exactly(AcDbEntity& entity) {
  return entity.isA() == T::desc() ? static_cast<T*>(&entity) : nullptr;
}

/// Of a dimension line between two extension lines, aligned or rotated.
template <class T>
void scaleLinear(T& dimension, const PointScale& scale) {
  dimension.setXLine1Point(scale(dimension.xLine1Point()));
  dimension.setXLine2Point(scale(dimension.xLine2Point()));
  dimension.setDimLinePoint(scale(dimension.dimLinePoint()));
}

/// False for a class whose points don't follow.
bool scalePoints(AcDbDimension& dimension, const PointScale& scale) {
  if (auto* aligned = exactly<AcDbAlignedDimension>(dimension)) {
    scaleLinear(*aligned, scale);
  } else if (auto* rotated = exactly<AcDbRotatedDimension>(dimension)) {
    scaleLinear(*rotated, scale);
    // What it measures along is scaled like all that lies that way.
    const double angle = rotated->rotation();
    rotated->setRotation(std::atan2(std::sin(angle) * scale.b, std::cos(angle) * scale.a));
  } else if (auto* ordinate = exactly<AcDbOrdinateDimension>(dimension)) {
    ordinate->setOrigin(scale(ordinate->origin()));
    ordinate->setDefiningPoint(scale(ordinate->definingPoint()));
    ordinate->setLeaderEndPoint(scale(ordinate->leaderEndPoint()));
  } else {
    return false;
  }
  const bool byDefault = dimension.isUsingDefaultTextPosition();
  dimension.setTextPosition(scale(dimension.textPosition()));
  if (byDefault) dimension.useDefaultTextPosition();
  return true;
}

bool hasText(const AcDbDimension& dimension) {
  ACHAR* text = dimension.dimensionText();
  const bool some = text != nullptr && text[0] != 0;
  acutDelString(text);
  return some;
}

void writeMeasure(AcDbDimension& dimension, const AcGeMatrix3d& asDrawn) {
  // What an ordinate measures along doesn't turn with its points.
  dimension.transformBy(asDrawn);
  double value = 0;
  const Acad::ErrorStatus es = dimension.measurement(value);
  dimension.transformBy(asDrawn.inverse());
  if (es != Acad::eOk) return;
  int units = kLinearCurrent;
  int precision = -1;
  AcDbDimStyleTableRecord* style = nullptr;
  if (acdbOpenObject(style, dimension.dimensionStyle(), AcDb::kForRead) == Acad::eOk) {
    units = style->dimlunit();
    precision = style->dimdec();
    style->close();
  }
  std::array<ACHAR, kNumberSize> text{};
  if (acdbRToS(value, units, precision, text.data()) == RTNORM) dimension.setDimensionText(text.data());
}

}  // namespace

void scaleDimension(AcDbEntity& entity, const PointScale& scale, const AcGeMatrix3d& asDrawn) {
  if (auto* leader = exactly<AcDbLeader>(entity)) {
    for (int i = 0; i < leader->numVertices(); ++i) leader->setVertexAt(i, scale(leader->vertexAt(i)));
    return;
  }
  auto* dimension = AcDbDimension::cast(&entity);
  if (dimension == nullptr || !scalePoints(*dimension, scale)) return;
  if (!hasText(*dimension)) writeMeasure(*dimension, asDrawn);
}
