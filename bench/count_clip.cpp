// Instructions of one clip by a polygon, of its list's copy too: a clip eats what it works on.
#include "ClipJob.h"
#include "Count.h"
#include "Profiles.h"

int main(int argc, char** argv) {
  bench::start();
  return bench::countMain(argc, argv, {{"clip", [] {
                                          return [job = bench::ClipJob(),
                                                  list = KrObjectArray<KrVector>()]() mutable -> long {
                                            constexpr long kCalls = 20;
                                            for (long i = 0; i < kCalls; ++i) {
                                              list = job.elements;
                                              KrObject::RecorteKrVectorArray(list, job.points, job.bulges, job.side, 0);
                                            }
                                            return kCalls;
                                          };
                                        }}});
}
