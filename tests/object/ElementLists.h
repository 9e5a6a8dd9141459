#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <vector>

#include "object/KrObject.h"

/// What a view draws, as plain elements to compare.
namespace lists {

using Elements = std::vector<KrVector>;

inline Elements of(const KrObject& member, KrVistas view) {
  Elements all;
  for (int i = 0; i < member.GetNumVertex(view); ++i) {
    KrVector v;
    member.GetVector(view, i, v);
    all.push_back(v);
  }
  return all;
}

/// Each element's points as a matrix moves them; the measures of round ones by its scale.
inline void transform(Elements& all, const AcGeMatrix3d& m) {
  for (KrVector& v : all) v.transformBy(m);
}

inline bool near(const AcGePoint3d& a, const AcGePoint3d& b, double tol) {
  return std::fabs(a.x - b.x) < tol && std::fabs(a.y - b.y) < tol && std::fabs(a.z - b.z) < tol;
}

inline bool near(double a, double b, double tol) {
  return std::fabs(a - b) < tol;
}

inline bool sameKind(const KrVector& a, const KrVector& b, double tol) {
  return a.type() == b.type() && a.tipo() == b.tipo() && a.hidden() == b.hidden() && a.typeEx() == b.typeEx() &&
         a.IndexFur() == b.IndexFur() && near(a.radius(), b.radius(), tol) && near(a.folga(), b.folga(), tol);
}

/// An element whose ends are one point, such as a round hole, has no direction.
inline bool sameMeasures(const KrVector& a, const KrVector& b, double tol) {
  return near(a.len(), b.len(), tol) &&
         (near(a.startPoint(), a.endPoint(), tol) ||
          near(std::remainder(a.direction() - b.direction(), 6.283185307179586), 0, tol));
}

inline bool same(const KrVector& a, const KrVector& b, double tol) {
  return sameKind(a, b, tol) && near(a.startPoint(), b.startPoint(), tol) && near(a.midPoint(), b.midPoint(), tol) &&
         near(a.endPoint(), b.endPoint(), tol) && sameMeasures(a, b, tol);
}

/// Whether two elements look alike on paper: their ends may stand the other way round.
inline bool looksLike(const KrVector& a, const KrVector& b, double tol) {
  if (!sameKind(a, b, tol) || !near(a.midPoint(), b.midPoint(), tol)) return false;
  return (near(a.startPoint(), b.startPoint(), tol) && near(a.endPoint(), b.endPoint(), tol)) ||
         (near(a.startPoint(), b.endPoint(), tol) && near(a.endPoint(), b.startPoint(), tol));
}

inline void print(std::ostream& out, const Elements& all) {
  for (const KrVector& v : all)
    out << "\n  type " << v.type() << " tipo " << v.tipo() << " hidden " << v.hidden() << " index " << v.IndexFur()
        << " r " << v.radius() << " d " << v.direction() << " l " << v.len() << " (" << v.startPoint().x << ", "
        << v.startPoint().y << ") (" << v.midPoint().x << ", " << v.midPoint().y << ") (" << v.endPoint().x << ", "
        << v.endPoint().y << ")";
}

constexpr double kNear = 1e-8;

/// The same elements in the same order, with all that they say.
MATCHER_P(Are, expected, "is the same list") {
  bool equal = arg.size() == expected.size();
  for (std::size_t i = 0; equal && i < arg.size(); ++i) {
    equal = same(arg[i], expected[i], kNear);
    if (!equal) *result_listener << "first difference at " << i;
  }
  if (equal) return true;
  if (result_listener->stream() != nullptr) {
    *result_listener << "\nexpected";
    print(*result_listener->stream(), expected);
    *result_listener << "\ngot";
    print(*result_listener->stream(), arg);
  }
  return false;
}

/// The same picture: every element of each list has its like in the other.
MATCHER_P(ShowTheSameAs, expected, "shows the same") {
  bool equal = arg.size() == expected.size();
  Elements rest = expected;
  for (const KrVector& v : arg) {
    const auto like = std::find_if(rest.begin(), rest.end(), [&](const KrVector& w) { return looksLike(v, w, kNear); });
    equal = equal && like != rest.end();
    if (!equal) break;
    rest.erase(like);
  }
  if (equal) return true;
  if (result_listener->stream() != nullptr) {
    *result_listener << "\nexpected";
    print(*result_listener->stream(), expected);
    *result_listener << "\ngot";
    print(*result_listener->stream(), arg);
  }
  return false;
}

}  // namespace lists
