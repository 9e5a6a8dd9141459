#pragma once

#include "host/db/resbuf.h"
#include "host/ge/ge.h"

// Geometry values seen as the plain arrays of the editor services, and back. They are the same memory.

inline double* asDblArray(AcGePoint2d& p) {
  return &p.x;
}
inline const double* asDblArray(const AcGePoint2d& p) {
  return &p.x;
}
inline double* asDblArray(AcGePoint3d& p) {
  return &p.x;
}
inline const double* asDblArray(const AcGePoint3d& p) {
  return &p.x;
}
inline double* asDblArray(AcGeVector2d& v) {
  return &v.x;
}
inline const double* asDblArray(const AcGeVector2d& v) {
  return &v.x;
}
inline double* asDblArray(AcGeVector3d& v) {
  return &v.x;
}
inline const double* asDblArray(const AcGeVector3d& v) {
  return &v.x;
}

inline AcGePoint2d& asPnt2d(double* values) {
  return *reinterpret_cast<AcGePoint2d*>(values);
}
inline const AcGePoint2d& asPnt2d(const double* values) {
  return *reinterpret_cast<const AcGePoint2d*>(values);
}
inline AcGePoint3d& asPnt3d(double* values) {
  return *reinterpret_cast<AcGePoint3d*>(values);
}
inline const AcGePoint3d& asPnt3d(const double* values) {
  return *reinterpret_cast<const AcGePoint3d*>(values);
}
inline AcGeVector2d& asVec2d(double* values) {
  return *reinterpret_cast<AcGeVector2d*>(values);
}
inline AcGeVector3d& asVec3d(double* values) {
  return *reinterpret_cast<AcGeVector3d*>(values);
}
inline const AcGeVector3d& asVec3d(const double* values) {
  return *reinterpret_cast<const AcGeVector3d*>(values);
}
