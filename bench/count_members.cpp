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

// Two views by turns: nothing of the elevation before serves the next.
std::function<long()> regenerationByTurns(const bench::Subject& subject) {
  const std::shared_ptr<KrObject> member = subject.make(Superior);
  return [member] {
    for (int i = 0; i < kCalls; i += 2) {
      member->Gera_KrVector(Superior);
      member->Gera_KrVector(Direita);
    }
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

/// A turn of a bar with holes in whose list stand `elements` elements.
std::function<long()> transformation(int elements) {
  const std::shared_ptr<KrObject> member = bench::outlineSubject("rolledI", bench::rolledI()).make(Superior);
  const KrVector edge(AcGePoint3d(10, 20, 0), AcGePoint3d(500, 20, 0), KR_VT_LINHA);
  const KrVector hole(AcGePoint3d(300, 20, 0), 9, 0, 0, KR_VT_FURO, KR_VF_FURO_OBLONGO, 0.3, 20);
  const KrVector centreLine(AcGePoint3d(282, 20, 0), AcGePoint3d(318, 20, 0), KR_VT_FURO_EIXO);
  while (member->GetNumVertex(Superior) + 3 <= elements)
    for (const KrVector& v : {hole, centreLine, centreLine}) member->AddVertex(v, Superior);
  while (member->GetNumVertex(Superior) < elements) member->AddVertex(edge, Superior);
  return [member] {
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(0.1, AcGeVector3d::kZAxis, AcGePoint3d(30, 40, 0));
    for (int i = 0; i < kCalls; ++i) member->transformBy(turn);
    return long{kCalls};
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
  all.push_back({"transform_40_elements", [] { return transformation(40); }});
  const bench::Subject drilled = bench::drilledSubject(8);
  all.push_back({"elevation_by_turns_" + drilled.name, [drilled] { return regenerationByTurns(drilled); }});
  return bench::countMain(argc, argv, all);
}
