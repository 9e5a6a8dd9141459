// Members from files of any content: whatever the numbers are, reading ends, and what was read can be drawn, asked and
// written again.

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <random>

#include "host/gi/Recorder.h"
#include "host/io/ProxyGraphics.h"
#include "object/Drawing.h"
#include "object/MemberLayout.h"
#include "object/TestMember.h"

namespace {

class Hostile {
 public:
  explicit Hostile(unsigned seed) : random_(seed) {}

  bool often() { return random_() % 4 == 0; }
  unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

  /// Mostly as it was, else a number that no drawing should hold.
  void spoil(double& value) {
    static const double kBad[] = {0,
                                  -0.0,
                                  1,
                                  -1,
                                  1e-300,
                                  1e300,
                                  -1e300,
                                  5000,
                                  6000,
                                  6008,
                                  127,
                                  -254,
                                  std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN()};
    if (often()) value = kBad[below(std::size(kBad))];
  }
  template <class Point>
  void spoilPoint(Point& p) {
    spoil(p.x);
    spoil(p.y);
    if constexpr (requires { p.z; }) spoil(p.z);
  }

 private:
  std::mt19937 random_;
};

MemberLayout hostileLayout(unsigned seed) {
  Hostile hostile(seed);
  MemberLayout m = MemberLayout::plate();
  m.version = static_cast<int>(1 + hostile.below(9));
  m.view = static_cast<KrVistas>(hostile.below(5));
  m.kind = static_cast<int>(hostile.below(70000));
  m.tipoBarra = static_cast<int>(hostile.below(60000)) - 30000;
  if (hostile.often())
    for (std::vector<KrVector>& list : m.lists) list.clear();
  for (double* value : {&m.normal.x, &m.normal.y, &m.normal.z, &m.angleVista, &m.comprimento, &m.angleSecao,
                        &m.projetoFator, &m.xScale, &m.yScale, &m.zScale})
    hostile.spoil(*value);
  m.projeto = hostile.often();
  hostile.spoilPoint(m.start);
  hostile.spoilPoint(m.end);
  for (MemberLayout::Cut& cut : m.cuts) {
    for (double* value : {&cut.a, &cut.b, &cut.c, &cut.d}) hostile.spoil(*value);
    hostile.spoilPoint(cut.side);
  }
  // The last node stays the reference: without it the outline is refused.
  for (std::size_t i = 0; i + 1 < m.outline.size(); ++i) {
    hostile.spoilPoint(m.outline[i].vertex);
    hostile.spoil(m.outline[i].bulge);
  }
  hostile.spoilPoint(m.outline.back().vertex);
  for (MemberLayout::Hole& hole : m.holes) {
    hostile.spoilPoint(hole.ini);
    hostile.spoilPoint(hole.fim);
    for (double* value : {&hole.diametro, &hole.stretch, &hole.angle}) hostile.spoil(*value);
  }
  for (std::vector<MemberLayout::Notch>& list : m.notches) {
    for (MemberLayout::Notch& notch : list) {
      hostile.spoilPoint(notch.lado);
      for (AcGePoint2d& p : notch.points) hostile.spoilPoint(p);
      for (double& bulge : notch.bulges) hostile.spoil(bulge);
      if (hostile.often()) notch.bulges.clear();
    }
  }
  return m;
}

}  // namespace

TEST(MemberRobustness, MembersOfAnyNumbersAreReadDrawnAndWritten) {
  const Drawing drawing;
  for (unsigned seed = 1; seed <= 1500; ++seed) {
    SCOPED_TRACE(seed);
    const auto begun = std::chrono::steady_clock::now();
    TestMember member;
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, hostileLayout(seed).bytes());
    member.dwgInFieldsData(&filer);
    gi::Recorder recorder;
    recorder.drawWhole(member);
    std::vector<std::byte> picture;
    krio::encodeProxyGraphics(member, picture);
    AcDbMemoryDwgFiler again(AcDb::kFileFiler);
    member.dwgOutFieldsData(&again);
    for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso}) member.Gera_KrVector(view);
    AcDbAuditInfo info(true);
    member.audit(&info);
    ASSERT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(10));
  }
}
