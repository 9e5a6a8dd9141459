#pragma once

#include <optional>
#include <vector>

#include "host/db/AcDbEntity.h"
#include "host/gi/WorldDrawBase.h"

namespace edhost {

/// Tells how a drawable stands to a region of the plane, seen from above: by drawing it. The region is a closed
/// polygon, or an open fence, which has no inside.
class HitTest final : public gi::WorldDrawBase {
 public:
  HitTest(std::vector<AcGePoint2d> region, bool closed) : m_region(std::move(region)), m_closed(closed) {}
  static HitTest box(const AcGePoint3d& a, const AcGePoint3d& b);

  /// Something of it touches the region or lies inside.
  bool touches() const { return m_touched; }
  /// All of it lies inside, and there is something of it.
  bool holdsAll() const { return m_drawn && !m_leftOut; }
  /// The marker of the first figure that touches, 0 when it has none.
  Adesk::GsMarker marker() const { return m_marker; }
  /// A point of the drawable; none when it draws nothing.
  std::optional<AcGePoint3d> somePoint() const { return m_somePoint; }

 protected:
  void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) override;
  void onArc(const gi::ArcCall& arc) override;
  void onText(const gi::TextCall& text) override;

 private:
  void figure(const std::vector<AcGePoint3d>& points, bool closed, bool filled);
  bool isInside(const AcGePoint2d& p) const;
  bool crossesEdge(const AcGePoint2d& a, const AcGePoint2d& b) const;

  std::vector<AcGePoint2d> m_region;
  bool m_closed;
  bool m_drawn = false;
  bool m_touched = false;
  bool m_leftOut = false;
  Adesk::GsMarker m_marker = 0;
  std::optional<AcGePoint3d> m_somePoint;
};

}  // namespace edhost
