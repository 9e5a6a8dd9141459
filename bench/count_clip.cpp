// Instructions of one clip by a polygon, of its list's copy too, since a clip eats what it works on; and of bars with
// many notches.
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

}  // namespace

int main(int argc, char** argv) {
  bench::start();
  std::vector<bench::Count> all{{"clip", clip}};
  for (const int count : {1, 10, 100, 1000})
    all.push_back({"notches_" + std::to_string(count), [count] { return notches(count); }});
  return bench::countMain(argc, argv, all);
}
