#pragma once

#include "host/ge/ge.h"

/// Degrees, radians, and points as vectors.

/// Degrees to radians: graus * 3.141592653589793 / 180.
double sex2rad(double graus);
/// Radians to degrees: rad / 3.141592653589793 * 180.
double rad2sex(double rad);
/// The unit vector of the XY plane at an angle from the X axis, in radians.
AcGeVector3d VectorAngleRad(double a);
/// The same with the angle in degrees.
AcGeVector3d VectorAngleSex(double graus);
/// True when the angles, in radians, are the same but for whole turns: their sines and cosines differ by no more than
/// the single-precision value of 1e-5.
bool AngleIsEqual(double a, double b);
/// 1 when p lies in the upright rectangle with a as its lower left corner and b as its upper right, edges included;
/// else 0. Z is left out.
int isOnSurface2d(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& p);

/// The point's coordinates as a vector's.
void Point_2_Vector(AcGePoint3d p, AcGeVector3d& v);
/// The vector's coordinates as a point's.
void Vector_2_Point(AcGeVector3d v, AcGePoint3d& p);
/// Exchanges the two.
void swap_int(int& a, int& b);
