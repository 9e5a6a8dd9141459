#pragma once

#include "host/ge/AcGeMatrix2d.h"
#include "host/ge/AcGePoint2d.h"

/// What all curves of the plane share: a value that knows what it is. Nothing is virtual; code that must act by kind
/// asks type().
class AcGeCurve2d {
 public:
  constexpr AcGe::EntityId type() const { return m_type; }
  constexpr Adesk::Boolean isKindOf(AcGe::EntityId type) const { return m_type == type; }

 protected:
  constexpr explicit AcGeCurve2d(AcGe::EntityId type) : m_type(type) {}

  AcGe::EntityId m_type;
};
