// The instructions of a member's pictures: made, and drawn to a sink that keeps nothing.
#include "Count.h"
#include "EmptySink.h"
#include "Profiles.h"

namespace {

constexpr int kCalls = 200;

std::function<long()> regeneration(const bench::Subject& subject, KrVistas view) {
  const std::shared_ptr<KrObject> member = subject.make(view);
  return [member, view] {
    for (int i = 0; i < kCalls; ++i) member->Gera_KrVector(view);
    return long{kCalls};
  };
}

std::function<long()> construction(const bench::Subject& subject, KrVistas view) {
  return [subject, view] {
    for (int i = 0; i < kCalls; ++i) subject.make(view);
    return long{kCalls};
  };
}

// Counted per drawn element.
std::function<long()> drawing(const bench::Subject& subject, KrVistas view) {
  const std::shared_ptr<KrObject> member = subject.make(view);
  member->setLayer(bench::kMemberLayer);
  return [member, view] {
    bench::EmptySink sink;
    for (int i = 0; i < kCalls; ++i) member->worldDraw(&sink);
    return long{kCalls} * member->GetNumVertex(view);
  };
}

}  // namespace

int main(int argc, char** argv) {
  bench::start();
  std::vector<bench::Count> all;
  for (const bench::Subject& subject : bench::subjects()) {
    all.push_back({"elevation_" + subject.name, [subject] { return regeneration(subject, Superior); }});
    all.push_back({"section_" + subject.name, [subject] { return regeneration(subject, Secao); }});
    all.push_back({"construct_elevation_" + subject.name, [subject] { return construction(subject, Superior); }});
    all.push_back({"draw_elevation_" + subject.name, [subject] { return drawing(subject, Superior); }});
    all.push_back({"draw_section_" + subject.name, [subject] { return drawing(subject, Secao); }});
  }
  return bench::countMain(argc, argv, all);
}
