#pragma once

#include <algorithm>
#include <cmath>

#include "host/ge/AcGePoint3d.h"

class AcGeLine3d;
class AcGePlane;

/// A map of space, as a row-major 4 x 4 matrix that acts on columns (x, y, z, 1). A new one is the identity. The last
/// row is taken to be (0, 0, 0, 1).
class AcGeMatrix3d {
 public:
  double entry[4][4] = {{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};

  static const AcGeMatrix3d kIdentity;

  constexpr AcGeMatrix3d() = default;

  constexpr double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }
  constexpr double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }
  constexpr AcGeMatrix3d& setToIdentity() { return *this = AcGeMatrix3d(); }

  /// The map that does right first and left after it.
  constexpr AcGeMatrix3d& setToProduct(const AcGeMatrix3d& left, const AcGeMatrix3d& right) {
    AcGeMatrix3d product;
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c) {
        product.entry[r][c] = left.entry[r][0] * right.entry[0][c] + left.entry[r][1] * right.entry[1][c] +
                              left.entry[r][2] * right.entry[2][c] + left.entry[r][3] * right.entry[3][c];
      }
    }
    return *this = product;
  }
  constexpr AcGeMatrix3d operator*(const AcGeMatrix3d& m) const { return AcGeMatrix3d().setToProduct(*this, m); }
  constexpr AcGeMatrix3d& operator*=(const AcGeMatrix3d& m) { return setToProduct(*this, m); }
  constexpr AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return setToProduct(left, *this); }
  constexpr AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return setToProduct(*this, right); }
  constexpr AcGePoint3d operator*(const AcGePoint3d& p) const {
    return {entry[0][0] * p.x + entry[0][1] * p.y + entry[0][2] * p.z + entry[0][3],
            entry[1][0] * p.x + entry[1][1] * p.y + entry[1][2] * p.z + entry[1][3],
            entry[2][0] * p.x + entry[2][1] * p.y + entry[2][2] * p.z + entry[2][3]};
  }
  constexpr AcGeVector3d operator*(const AcGeVector3d& v) const {
    return {entry[0][0] * v.x + entry[0][1] * v.y + entry[0][2] * v.z,
            entry[1][0] * v.x + entry[1][1] * v.y + entry[1][2] * v.z,
            entry[2][0] * v.x + entry[2][1] * v.y + entry[2][2] * v.z};
  }

  /// The determinant; negative for a map that mirrors.
  constexpr double det() const { return axis(0).dotProduct(axis(1).crossProduct(axis(2))); }
  /// True when the map flattens space: its determinant is no larger than the vector tolerance allows for a matrix of
  /// its scale.
  Adesk::Boolean isSingular(const AcGeTol& tol = AcGeContext::gTol) const {
    const double s = scale();
    return std::fabs(det()) <= tol.equalVector() * s * s * s;
  }
  /// The inverse; a matrix whose determinant is 0 comes back as it is.
  constexpr AcGeMatrix3d inverse() const {
    const double d = det();
    if (d == 0.0) return *this;
    const AcGeVector3d rows[3] = {axis(1).crossProduct(axis(2)) / d, axis(2).crossProduct(axis(0)) / d,
                                  axis(0).crossProduct(axis(1)) / d};
    const AcGeVector3d shift = translation();
    AcGeMatrix3d result;
    for (int r = 0; r < 3; ++r) {
      result.entry[r][0] = rows[r].x;
      result.entry[r][1] = rows[r].y;
      result.entry[r][2] = rows[r].z;
      result.entry[r][3] = -rows[r].dotProduct(shift);
    }
    return result;
  }
  constexpr AcGeMatrix3d& invert() { return *this = inverse(); }
  /// As above, but leaves result alone and answers false when the matrix is singular.
  Adesk::Boolean inverse(AcGeMatrix3d& result, double tolerance) const {
    if (std::fabs(det()) <= tolerance) return Adesk::kFalse;
    result = inverse();
    return Adesk::kTrue;
  }
  constexpr AcGeMatrix3d transpose() const {
    AcGeMatrix3d result;
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c) result.entry[c][r] = entry[r][c];
    }
    return result;
  }
  constexpr AcGeMatrix3d& transposeIt() { return *this = transpose(); }
  /// The length of the longest image of the three unit axes; the factor of a uniform scale.
  double scale() const { return std::max({axis(0).length(), axis(1).length(), axis(2).length()}); }
  /// True when no entry differs by more than the vector tolerance.
  Adesk::Boolean isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const {
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c) {
        if (std::fabs(entry[r][c] - m.entry[r][c]) > tol.equalVector()) return Adesk::kFalse;
      }
    }
    return Adesk::kTrue;
  }
  bool operator==(const AcGeMatrix3d& m) const { return isEqualTo(m) != 0; }
  bool operator!=(const AcGeMatrix3d& m) const { return !(*this == m); }
  /// True when the images of the unit axes are square to one another and equally long.
  Adesk::Boolean isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const {
    const double s = scale();
    return isScaledOrtho(tol) && std::fabs(axis(0).length() - s) <= tol.equalVector() * s &&
           std::fabs(axis(1).length() - s) <= tol.equalVector() * s &&
           std::fabs(axis(2).length() - s) <= tol.equalVector() * s;
  }
  /// True when the images of the unit axes are square to one another.
  Adesk::Boolean isScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const {
    return axis(0).isPerpendicularTo(axis(1), tol) && axis(1).isPerpendicularTo(axis(2), tol) &&
           axis(2).isPerpendicularTo(axis(0), tol);
  }

  constexpr AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
  constexpr AcGeMatrix3d& setTranslation(const AcGeVector3d& v) {
    entry[0][3] = v.x;
    entry[1][3] = v.y;
    entry[2][3] = v.z;
    return *this;
  }
  /// The map from coordinates in the given frame to the world.
  constexpr AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                         const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
    setToIdentity();
    setLinear(xAxis, yAxis, zAxis);
    return setTranslation(origin.asVector());
  }
  constexpr void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                AcGeVector3d& zAxis) const {
    origin = translation().asPoint();
    xAxis = axis(0);
    yAxis = axis(1);
    zAxis = axis(2);
  }
  /// The map that brings one frame to another.
  constexpr AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                             const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                             const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                             const AcGeVector3d& toY, const AcGeVector3d& toZ) {
    AcGeMatrix3d from;
    from.setCoordSystem(fromOrigin, fromX, fromY, fromZ);
    setCoordSystem(toOrigin, toX, toY, toZ);
    return postMultBy(from.inverse());
  }

  constexpr AcGeMatrix3d& setToTranslation(const AcGeVector3d& v) { return setToIdentity().setTranslation(v); }
  /// The right-handed turn by angle, in radians, about the axis through centre.
  AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axisOfTurn,
                              const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    setToIdentity();
    setLinear(turned(AcGeVector3d::kXAxis, angle, axisOfTurn), turned(AcGeVector3d::kYAxis, angle, axisOfTurn),
              turned(AcGeVector3d::kZAxis, angle, axisOfTurn));
    return keep(centre);
  }
  constexpr AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    setToIdentity();
    setLinear({factor, 0.0, 0.0}, {0.0, factor, 0.0}, {0.0, 0.0, factor});
    return keep(centre);
  }
  inline AcGeMatrix3d& setToMirroring(const AcGePlane& plane);
  /// The inversion in a point.
  constexpr AcGeMatrix3d& setToMirroring(const AcGePoint3d& centre) { return setToScaling(-1.0, centre); }
  /// The half turn about a line: mirroring in a line in space, which keeps what lies along it and turns round the rest.
  inline AcGeMatrix3d& setToMirroring(const AcGeLine3d& line);
  /// The map onto a plane along a direction.
  inline AcGeMatrix3d& setToProjection(const AcGePlane& plane, const AcGeVector3d& direction);

  /// From coordinates in the frame that the arbitrary axis rule gives a normal, to the world. Its origin is the
  /// world's. A zero normal counts as the Z axis.
  AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal) {
    const double size = normal.length();
    const AcGeVector3d zAxis = size == 0.0 ? AcGeVector3d::kZAxis : normal / size;
    const AcGeVector3d xAxis = zAxis.perpVector();
    return setCoordSystem(AcGePoint3d::kOrigin, xAxis, zAxis.crossProduct(xAxis), zAxis);
  }
  AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal) { return setToPlaneToWorld(normal).transposeIt(); }
  /// The same for a plane: its own origin and axes.
  inline AcGeMatrix3d& setToPlaneToWorld(const AcGePlane& plane);
  inline AcGeMatrix3d& setToWorldToPlane(const AcGePlane& plane);

  static constexpr AcGeMatrix3d translation(const AcGeVector3d& v) { return AcGeMatrix3d().setToTranslation(v); }
  static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axisOfTurn,
                               const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return AcGeMatrix3d().setToRotation(angle, axisOfTurn, centre);
  }
  static constexpr AcGeMatrix3d scaling(double factor, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return AcGeMatrix3d().setToScaling(factor, centre);
  }
  static constexpr AcGeMatrix3d mirroring(const AcGePoint3d& centre) { return AcGeMatrix3d().setToMirroring(centre); }
  static inline AcGeMatrix3d mirroring(const AcGePlane& plane);
  static inline AcGeMatrix3d mirroring(const AcGeLine3d& line);
  static inline AcGeMatrix3d projection(const AcGePlane& plane, const AcGeVector3d& direction);
  static constexpr AcGeMatrix3d alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                              const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                              const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                              const AcGeVector3d& toY, const AcGeVector3d& toZ) {
    return AcGeMatrix3d().setToAlignCoordSys(fromOrigin, fromX, fromY, fromZ, toOrigin, toX, toY, toZ);
  }
  static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal) { return AcGeMatrix3d().setToPlaneToWorld(normal); }
  static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal) { return AcGeMatrix3d().setToWorldToPlane(normal); }
  static inline AcGeMatrix3d planeToWorld(const AcGePlane& plane);
  static inline AcGeMatrix3d worldToPlane(const AcGePlane& plane);

 private:
  /// The image of a unit axis.
  constexpr AcGeVector3d axis(int column) const { return {entry[0][column], entry[1][column], entry[2][column]}; }
  constexpr void setLinear(const AcGeVector3d& xAxis, const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
    for (unsigned int r = 0; r < 3; ++r) {
      entry[r][0] = xAxis[r];
      entry[r][1] = yAxis[r];
      entry[r][2] = zAxis[r];
    }
  }
  /// Chooses the translation so that the point stays where it is.
  constexpr AcGeMatrix3d& keep(const AcGePoint3d& p) { return setTranslation(p.asVector() - *this * p.asVector()); }
  static AcGeVector3d turned(AcGeVector3d v, double angle, const AcGeVector3d& about) {
    return v.rotateBy(angle, about);
  }
};

inline constexpr AcGeMatrix3d AcGeMatrix3d::kIdentity{};

inline AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m) {
  return *this = m * *this;
}
inline AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m) {
  return *this = m * *this;
}
