// What must hold of every class of member, in every view, at every quarter of its section: no view, no scale and no
// motion changes the member.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <random>

#include "object/ElementLists.h"
#include "object/KrObject.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/KrTubo.h"
#include "profiles/KrULaminado.h"

namespace {

constexpr double kPi = 3.141592653589793;

const KrVistas kViews[] = {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso};
const KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};
const AcGePoint3d kStart(120, -40, 0);

AcGePoint3d endAt(double angle) {
  return kStart + AcGeVector3d(std::cos(angle), std::sin(angle), 0) * 2000;
}

struct Class {
  std::string name;
  std::function<std::unique_ptr<KrObject>(KrVistas, double)> make;  ///< 2000 long, at an angle
};

const std::vector<Class>& classes() {
  static const std::vector<Class> all = {
      {"angle",
       [](KrVistas v, double a) {
         return std::make_unique<KrCantLaminada>(kStart, endAt(a), v, 100, 75, 8, 18.7, 68.9, 10, 0, 10.6, 1350);
       }},
      {"channel",
       [](KrVistas v, double a) {
         return std::make_unique<KrULaminado>(kStart, endAt(a), v, 200, 75, 8.5, 30, 11.5, 6, 20.1, 11.5, 0, 3220,
                                              25.3);
       }},
      {"tube", [](KrVistas v, double a) { return std::make_unique<KrTubo>(kStart, endAt(a), v, 114.3, 104.3); }},
  };
  return all;
}

/// Holes right through the section's middle, along X and along Y, and splits: what can be stored of any class.
void modify(KrObject& member, std::mt19937& random) {
  std::uniform_real_distribution<double> place(300, 1700);
  AcGePoint3d a, b, c, d;
  if (member.GetExtremePointsSecao(a, b, c, d) != Acad::eOk) return;
  KrGeratriz outline;
  member.GetSecao(outline);
  const AcGeVector3d& origin = outline.GetRefOrigin();
  const AcGePoint3d low = b + origin;
  const AcGePoint3d high = c + origin;
  const double x = (low.x + 3 * high.x) / 4;
  const double y = (low.y + 3 * high.y) / 4;
  KrFuro holes;
  for (int i = 0; i < 3; ++i) {
    const double z = place(random);
    holes.Add(AcGeVector3d(x, high.y, z), AcGeVector3d(x, low.y, z), 14, i == 1 ? 20 : 0, kPi / 2);
    holes.Add(AcGeVector3d(low.x, y, z), AcGeVector3d(high.x, y, z), 18, 0, 0);
  }
  member.setFurosSemLink(holes);
  KrObjectSplit split;
  split.setZPos(place(random));
  split.setLength(30);
  member.addSplit(split, 1);
  member.Gera_KrVector();
}

int drawnHoles(const KrObject& member) {
  const lists::Elements all = lists::of(member, member.Vista(0));
  return static_cast<int>(std::count_if(all.begin(), all.end(), [](const KrVector& v) { return v.isFuro(); }));
}

class EveryClass : public testing::TestWithParam<std::tuple<int, int>> {
 protected:
  std::unique_ptr<KrObject> make(KrVistas view, double angle) {
    const auto& [which, quarter] = GetParam();
    std::unique_ptr<KrObject> member = classes()[static_cast<std::size_t>(which)].make(view, angle);
    member->setAngleSecao(quarter * kPi / 2);
    member->Gera_KrVector();
    std::mt19937 random(static_cast<unsigned>(1000 * which + 10 * quarter + view));
    modify(*member, random);
    EXPECT_EQ(member->numFuros(), 6);
    EXPECT_EQ(member->numSplits(), 1);
    EXPECT_GT(drawnHoles(*member), 0);
    return member;
  }
};

TEST_P(EveryClass, ThroughTheFourViewsAndBackIsTheSameList) {
  for (const KrVistas from : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      SCOPED_TRACE(testing::Message() << "from " << from << " at " << scale);
      const auto member = make(from, 0.6);
      member->ObjectScale(scale, scale, scale);
      const lists::Elements before = lists::of(*member, from);
      for (const KrVistas next : {Inferior, Direita, Esquerda, Superior}) {
        member->switchToVista(next);
        ASSERT_EQ(member->Vista(0), next);
        EXPECT_THAT(lists::of(*member, next), lists::ShowTheSameAs(before)) << "the picture stays";
      }
      member->switchToVista(from);
      EXPECT_THAT(lists::of(*member, from), lists::Are(before));
      EXPECT_NEAR(member->getComprimentoReal(), 2000, 1e-7);
    }
  }
}

TEST_P(EveryClass, ToAnyScaleAndBackIsTheSameModelAndList) {
  for (const KrVistas view : kViews) {
    SCOPED_TRACE(testing::Message() << "view " << view);
    const auto member = make(view, 0.6);
    const lists::Elements before = lists::of(*member, view);
    for (const double scale : {0.1, 0.04, 2.0}) {
      member->ObjectScale(scale, scale, scale);
      member->Gera_KrVector();
      EXPECT_NEAR(member->getComprimentoReal(), 2000, 1e-7);
    }
    member->ObjectScale(1, 1, 1);
    EXPECT_THAT(lists::of(*member, view), lists::ShowTheSameAs(before));
    member->Gera_KrVector();
    EXPECT_THAT(lists::of(*member, view), lists::ShowTheSameAs(before));
  }
}

TEST_P(EveryClass, ARigidMotionMovesTheListMadeAnewAsTheMatrixDoes) {
  const AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(-300, 70, 0)) *
                         AcGeMatrix3d::rotation(1.9, AcGeVector3d::kZAxis, AcGePoint3d(5, 6, 0));
  for (const KrVistas view : kViews) {
    for (const double scale : {1.0, 0.1}) {
      SCOPED_TRACE(testing::Message() << "view " << view << " at " << scale);
      const auto member = make(view, 0.6);
      member->ObjectScale(scale, scale, scale);
      lists::Elements want = lists::of(*member, view);
      member->transformBy(m);
      lists::transform(want, m);
      EXPECT_THAT(lists::of(*member, view), lists::ShowTheSameAs(want));
      member->Gera_KrVector();
      EXPECT_THAT(lists::of(*member, view), lists::ShowTheSameAs(want));
    }
  }
}

TEST_P(EveryClass, AMirroredOneMadeAnewIsTheMirroredList) {
  const AcGeMatrix3d m = AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d(5, 6, 0), AcGeVector3d(0.6, 0.8, 0)));
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      SCOPED_TRACE(testing::Message() << "view " << view << " at " << scale);
      const auto member = make(view, 0.6);
      member->ObjectScale(scale, scale, scale);
      lists::Elements want = lists::of(*member, view);
      member->transformBy(m);
      lists::transform(want, m);
      member->Gera_KrVector();
      EXPECT_THAT(lists::of(*member, view), lists::ShowTheSameAs(want));
      member->transformBy(m);
      lists::transform(want, m);
      member->Gera_KrVector();
      EXPECT_THAT(lists::of(*member, view), lists::ShowTheSameAs(want)) << "and back";
    }
  }
}

TEST_P(EveryClass, WeighsTheSameAtEveryScaleInEveryView) {
  for (const KrVistas view : kViews) {
    const auto member = make(view, 0.6);
    const double weight = member->getPeso();
    EXPECT_GT(weight, 0);
    member->ObjectScale(0.1, 0.1, 0.1);
    EXPECT_NEAR(member->getPeso(), weight, 1e-9 * weight);
    member->Gera_KrVector();
    EXPECT_NEAR(member->getPeso(), weight, 1e-9 * weight);
  }
}

std::string nameOf(const testing::TestParamInfo<std::tuple<int, int>>& which) {
  return classes()[static_cast<std::size_t>(std::get<0>(which.param))].name + "Quarter" +
         std::to_string(std::get<1>(which.param));
}

INSTANTIATE_TEST_SUITE_P(Catalogue, EveryClass, testing::Combine(testing::Range(0, 3), testing::Range(0, 4)), nameOf);

}  // namespace
