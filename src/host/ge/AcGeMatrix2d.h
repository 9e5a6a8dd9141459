#pragma once

#include <algorithm>
#include <cmath>

#include "host/ge/AcGePoint2d.h"

class AcGeLine2d;

/// A map of the plane, as a row-major 3 x 3 matrix that acts on columns (x, y, 1). A new one is the identity.
class AcGeMatrix2d {
 public:
  double entry[3][3] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};

  static const AcGeMatrix2d kIdentity;

  constexpr AcGeMatrix2d() = default;

  constexpr double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }
  constexpr double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }
  constexpr AcGeMatrix2d& setToIdentity() { return *this = AcGeMatrix2d(); }

  /// The map that does right first and left after it.
  constexpr AcGeMatrix2d& setToProduct(const AcGeMatrix2d& left, const AcGeMatrix2d& right) {
    AcGeMatrix2d product;
    for (int r = 0; r < 3; ++r) {
      for (int c = 0; c < 3; ++c) {
        product.entry[r][c] = left.entry[r][0] * right.entry[0][c] + left.entry[r][1] * right.entry[1][c] +
                              left.entry[r][2] * right.entry[2][c];
      }
    }
    return *this = product;
  }
  constexpr AcGeMatrix2d operator*(const AcGeMatrix2d& m) const { return AcGeMatrix2d().setToProduct(*this, m); }
  constexpr AcGeMatrix2d& operator*=(const AcGeMatrix2d& m) { return setToProduct(*this, m); }
  constexpr AcGeMatrix2d& preMultBy(const AcGeMatrix2d& left) { return setToProduct(left, *this); }
  constexpr AcGeMatrix2d& postMultBy(const AcGeMatrix2d& right) { return setToProduct(*this, right); }
  constexpr AcGePoint2d operator*(const AcGePoint2d& p) const {
    return {entry[0][0] * p.x + entry[0][1] * p.y + entry[0][2], entry[1][0] * p.x + entry[1][1] * p.y + entry[1][2]};
  }
  constexpr AcGeVector2d operator*(const AcGeVector2d& v) const {
    return {entry[0][0] * v.x + entry[0][1] * v.y, entry[1][0] * v.x + entry[1][1] * v.y};
  }

  /// The determinant; negative for a map that mirrors.
  constexpr double det() const {
    return entry[0][0] * (entry[1][1] * entry[2][2] - entry[1][2] * entry[2][1]) -
           entry[0][1] * (entry[1][0] * entry[2][2] - entry[1][2] * entry[2][0]) +
           entry[0][2] * (entry[1][0] * entry[2][1] - entry[1][1] * entry[2][0]);
  }
  /// True when the map flattens the plane: its determinant is no larger than the vector tolerance allows for a matrix
  /// of its scale.
  Adesk::Boolean isSingular(const AcGeTol& tol = AcGeContext::gTol) const {
    return std::fabs(det()) <= tol.equalVector() * scale() * scale();
  }
  /// The inverse; a matrix whose determinant is 0 comes back as it is.
  constexpr AcGeMatrix2d inverse() const {
    const double d = det();
    if (d == 0.0) return *this;
    AcGeMatrix2d result;
    for (int r = 0; r < 3; ++r) {
      const int r1 = (r + 1) % 3;
      const int r2 = (r + 2) % 3;
      for (int c = 0; c < 3; ++c) {
        const int c1 = (c + 1) % 3;
        const int c2 = (c + 2) % 3;
        result.entry[c][r] = (entry[r1][c1] * entry[r2][c2] - entry[r1][c2] * entry[r2][c1]) / d;
      }
    }
    return result;
  }
  constexpr AcGeMatrix2d& invert() { return *this = inverse(); }
  constexpr AcGeMatrix2d transpose() const {
    AcGeMatrix2d result;
    for (int r = 0; r < 3; ++r) {
      for (int c = 0; c < 3; ++c) result.entry[c][r] = entry[r][c];
    }
    return result;
  }
  constexpr AcGeMatrix2d& transposeIt() { return *this = transpose(); }
  /// The length of the longer image of the two unit axes; the factor of a uniform scale.
  double scale() const {
    return std::max(AcGeVector2d(entry[0][0], entry[1][0]).length(), AcGeVector2d(entry[0][1], entry[1][1]).length());
  }
  /// True when no entry differs by more than the vector tolerance.
  Adesk::Boolean isEqualTo(const AcGeMatrix2d& m, const AcGeTol& tol = AcGeContext::gTol) const {
    for (int r = 0; r < 3; ++r) {
      for (int c = 0; c < 3; ++c) {
        if (std::fabs(entry[r][c] - m.entry[r][c]) > tol.equalVector()) return Adesk::kFalse;
      }
    }
    return Adesk::kTrue;
  }
  bool operator==(const AcGeMatrix2d& m) const { return isEqualTo(m) != 0; }
  bool operator!=(const AcGeMatrix2d& m) const { return !(*this == m); }

  constexpr AcGeVector2d translation() const { return {entry[0][2], entry[1][2]}; }
  constexpr AcGeMatrix2d& setTranslation(const AcGeVector2d& v) {
    entry[0][2] = v.x;
    entry[1][2] = v.y;
    return *this;
  }
  constexpr AcGeMatrix2d& setCoordSystem(const AcGePoint2d& origin, const AcGeVector2d& e0, const AcGeVector2d& e1) {
    setToIdentity();
    setLinear(e0, e1);
    return setTranslation(origin.asVector());
  }
  constexpr void getCoordSystem(AcGePoint2d& origin, AcGeVector2d& e0, AcGeVector2d& e1) const {
    origin.set(entry[0][2], entry[1][2]);
    e0.set(entry[0][0], entry[1][0]);
    e1.set(entry[0][1], entry[1][1]);
  }

  constexpr AcGeMatrix2d& setToTranslation(const AcGeVector2d& v) { return setToIdentity().setTranslation(v); }
  AcGeMatrix2d& setToRotation(double angle, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    setToIdentity();
    setLinear({c, s}, {-s, c});
    return keep(centre);
  }
  constexpr AcGeMatrix2d& setToScaling(double factor, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
    setToIdentity();
    setLinear({factor, 0.0}, {0.0, factor});
    return keep(centre);
  }
  /// The half turn about a point.
  constexpr AcGeMatrix2d& setToMirroring(const AcGePoint2d& centre) { return setToScaling(-1.0, centre); }
  inline AcGeMatrix2d& setToMirroring(const AcGeLine2d& line);

  static constexpr AcGeMatrix2d translation(const AcGeVector2d& v) { return AcGeMatrix2d().setToTranslation(v); }
  static AcGeMatrix2d rotation(double angle, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
    return AcGeMatrix2d().setToRotation(angle, centre);
  }
  static constexpr AcGeMatrix2d scaling(double factor, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
    return AcGeMatrix2d().setToScaling(factor, centre);
  }
  static constexpr AcGeMatrix2d mirroring(const AcGePoint2d& centre) { return AcGeMatrix2d().setToMirroring(centre); }
  static inline AcGeMatrix2d mirroring(const AcGeLine2d& line);

 private:
  constexpr void setLinear(const AcGeVector2d& e0, const AcGeVector2d& e1) {
    entry[0][0] = e0.x;
    entry[1][0] = e0.y;
    entry[0][1] = e1.x;
    entry[1][1] = e1.y;
  }
  /// Chooses the translation so that the point stays where it is.
  constexpr AcGeMatrix2d& keep(const AcGePoint2d& p) { return setTranslation(p.asVector() - *this * p.asVector()); }
};

inline constexpr AcGeMatrix2d AcGeMatrix2d::kIdentity{};

inline AcGeVector2d& AcGeVector2d::transformBy(const AcGeMatrix2d& m) {
  return *this = m * *this;
}
inline AcGePoint2d& AcGePoint2d::transformBy(const AcGeMatrix2d& m) {
  return *this = m * *this;
}
