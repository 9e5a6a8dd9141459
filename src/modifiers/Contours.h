#pragma once

#include <vector>

#include "host/ge/ge.h"
#include "records/KrObjectArray.h"
#include "records/KrVector.h"

/// The closed chains that the outline edges (`KR_VF_ARESTA`) of a list make, told by places in the list.
///
/// A chain goes on with the first edge of the list, in either sense, that is left and begins where the chain ends; it
/// counts when it comes back to its start and has more than one edge. Finding all is linear in the list.
class Contours {
 public:
  struct Link {
    const KrVector* edge;
    bool inverted;

    const AcGePoint3d& start() const { return inverted ? edge->endPoint() : edge->startPoint(); }
    const AcGePoint3d& end() const { return inverted ? edge->startPoint() : edge->endPoint(); }
  };
  using Chain = std::vector<Link>;

  explicit Contours(const KrObjectArray<KrVector>& lista);

  /// They point into the list.
  const std::vector<Chain>& all() const { return chains_; }

  /// The polygon of a chain: as many bulges as points, the last 0.
  static void polygonOf(const Chain& chain, AcArray<AcGePoint2d>& points, AcArray<double>& bulges);
  /// The middle of edge i of a polygon, on its arc if it has a bulge.
  static AcGePoint2d middleOf(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, int i);

 private:
  std::vector<Chain> chains_;
};
