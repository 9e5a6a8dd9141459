// Instructions of one clip by a polygon, of its list's copy too, since a clip eats what it works on; and of bars with
// many notches or cuts.
#include <cmath>
#include <numbers>

#include "ClipJob.h"
#include "Count.h"
#include "Profiles.h"

namespace {

std::function<long()> clip() {
  return [job = bench::ClipJob(), list = KrObjectArray<KrVector>()]() mutable -> long {
    constexpr long kCalls = 20;
    for (long i = 0; i < kCalls; ++i) {
      list = job.elements;
      KrObject::RecorteKrVectorArray(list, job.points, job.bulges, job.side, 0);
    }
    return kCalls;
  };
}

/// A bar with so many notches in its upper edge.
std::function<long()> notches(int count) {
  const std::shared_ptr<KrObject> member = bench::subjects().front().make(Superior);
  AcGePoint3d e[4];
  member->GetExtremePoints(e, 0, 0);
  const double pitch = (e[2].x - e[0].x) / (count + 1);
  KrObjectRecorteArray list;
  for (int i = 0; i < count; ++i) {
    const double x = e[0].x + (i + 0.7) * pitch, top = e[0].y, deep = top - 10;
    AcArray<AcGePoint2d> points;
    for (const AcGePoint2d& p : {AcGePoint2d(x, top + 1), AcGePoint2d(x, deep), AcGePoint2d(x + pitch / 2, deep),
                                 AcGePoint2d(x + pitch / 2, top + 1), AcGePoint2d(x, top + 1)})
      points.append(p);
    AcArray<double> bulges;
    bulges.setLogicalLength(5);
    bulges.setAll(0.0);
    list.append(KrObjectRecorte(points, bulges, AcGePoint2d(x + pitch / 4, top - 5)));
  }
  member->addRecortesWCS(list);
  return [member]() -> long {
    member->Gera_KrVector();
    return 1;
  };
}

/// A bar whose end so many planes round off, each of which leaves an edge that the others are to look at.
std::function<long()> facets(int count) {
  const std::shared_ptr<KrObject> member = bench::subjects().front().make(Superior);
  AcGePoint3d e[4];
  member->GetExtremePoints(e, 0, 0);
  const double radius = (e[0].y - e[1].y) / 2;
  const AcGePoint3d centre(e[2].x - radius, (e[0].y + e[1].y) / 2, 0);
  KrPlanoCorte list;
  for (int i = 0; i < count; ++i) {
    const double angle = std::numbers::pi * ((i + 0.5) / count - 0.5);
    const AcGeVector3d outward(std::cos(angle), std::sin(angle), 0);
    list.Add(AcGePlane(centre + outward * radius, outward), centre + outward * (radius + 10));
  }
  if (member->addCortes(list, 1) != Acad::eOk) std::abort();
  return [member]() -> long {
    member->Gera_KrVector();
    return 1;
  };
}

/// A bar that so many square cuts shorten, each by a little more.
std::function<long()> cuts(int count) {
  const std::shared_ptr<KrObject> member = bench::subjects().front().make(Superior);
  AcGePoint3d e[4];
  member->GetExtremePoints(e, 0, 0);
  const double length = e[2].x - e[0].x;
  KrPlanoCorte list;
  for (int i = 0; i < count; ++i) {
    const AcGePoint3d at(e[2].x - length / 2 * (i + 1) / count, e[0].y, 0);
    list.Add(AcGePlane(at, AcGeVector3d::kXAxis), at + AcGeVector3d::kXAxis);
  }
  if (member->addCortes(list, 1) != Acad::eOk) std::abort();
  return [member]() -> long {
    member->Gera_KrVector();
    return 1;
  };
}

}  // namespace

int main(int argc, char** argv) {
  bench::start();
  std::vector<bench::Count> all{{"clip", clip}};
  for (const int count : {1, 10, 100, 1000})
    all.push_back({"notches_" + std::to_string(count), [count] { return notches(count); }});
  for (const int count : {1, 10, 100, 1000})
    all.push_back({"cuts_" + std::to_string(count), [count] { return cuts(count); }});
  for (const int count : {1, 10, 100, 1000})
    all.push_back({"facets_" + std::to_string(count), [count] { return facets(count); }});
  return bench::countMain(argc, argv, all);
}
