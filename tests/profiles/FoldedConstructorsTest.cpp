// Every constructor of the classes made from a middle line: each argument has its own value and comes back as the
// parameter of its name.

#include <gtest/gtest.h>

#include "FoldedSamples.h"

namespace {

using profile::expectBar;
using profile::expectParameters;
using profile::kAngle;
using profile::kEnd;
using profile::kLength;
using profile::kStart;

constexpr double kTurn = 0.25;
constexpr double kDirection = 1.25;
constexpr double kLong = 800.0;

void expectTwoPoints(const KrObject& bar) {
  expectBar(bar, Superior, kAngle, kLength, kTurn);
  EXPECT_TRUE(bar.startPoint().isEqualTo(kStart));
  EXPECT_TRUE(bar.endPoint().isEqualTo(kEnd));
  EXPECT_GT(bar.GetNumVertex(Superior), 0);
}

void expectOnePoint(const KrObject& bar) {
  expectBar(bar, Direita, kDirection, kLong, kTurn);
  EXPECT_TRUE(bar.startPoint().isEqualTo(kStart));
  EXPECT_GT(bar.GetNumVertex(Direita), 0);
}

}  // namespace

TEST(FoldedConstructors, KrBox) {
  const std::vector<profile::Parameter<KrBox>> expected = {PARAMETER(KrBox, altura, 100), PARAMETER(KrBox, largura, 60),
                                                           PARAMETER(KrBox, espessura, 5), PARAMETER(KrBox, raio, 3)};
  const KrBox two(kStart, kEnd, Superior, 100, 60, 5, 3, kTurn);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const KrBox one(kStart, Direita, 100, 60, 5, 3, kLong, kTurn, kDirection);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrCaixaDobrado) {
  using M = KrCaixaDobrado;
  const std::vector<profile::Parameter<M>> expected = {PARAMETER(M, altura, 100),  PARAMETER(M, mesa, 60),
                                                       PARAMETER(M, espessura, 3), PARAMETER(M, raio, 4),
                                                       PARAMETER(M, gap, 7),       PARAMETER(M, enrig, 15)};
  const M two(kStart, kEnd, Superior, 100, 60, 3, 4, 7, kTurn, 15);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 100, 60, 3, 4, 7, kLong, kTurn, kDirection, 15);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrCantoneiraDobrada) {
  using M = KrCantoneiraDobrada;
  const std::vector<profile::Parameter<M>> expected = {PARAMETER(M, aba1, 60),     PARAMETER(M, aba2, 50),
                                                       PARAMETER(M, espessura, 3), PARAMETER(M, raio, 4),
                                                       PARAMETER(M, ang_int, 1.5), PARAMETER(M, enrig, 15)};
  const M two(kStart, kEnd, Superior, 60, 50, 3, 4, 1.5, kTurn, 15);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 60, 50, 3, 4, 1.5, kLong, kTurn, kDirection, 15);
  expectParameters(one, expected);
  expectOnePoint(one);
}

template <class M>
void constructCompoundAngle() {
  const std::vector<profile::Parameter<M>> expected = {PARAMETER(M, aba1, 60),     PARAMETER(M, aba2, 50),
                                                       PARAMETER(M, espessura, 3), PARAMETER(M, raio, 4),
                                                       PARAMETER(M, gap, 7),       PARAMETER(M, enrig, 15)};
  const M two(kStart, kEnd, Superior, 60, 50, 3, 4, 7, kTurn, 15);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 60, 50, 3, 4, 7, kLong, kTurn, kDirection, 15);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrCantTDobrada) {
  constructCompoundAngle<KrCantTDobrada>();
}

TEST(FoldedConstructors, KrCantUDobrada) {
  constructCompoundAngle<KrCantUDobrada>();
}

// The lip stands before the length here.
TEST(FoldedConstructors, KrCartola) {
  using M = KrCartola;
  const std::vector<profile::Parameter<M>> expected = {PARAMETER(M, altura, 60), PARAMETER(M, mesa, 80),
                                                       PARAMETER(M, espessura, 3), PARAMETER(M, raio, 4),
                                                       PARAMETER(M, enrig, 25)};
  const M two(kStart, kEnd, Superior, 60, 80, 3, 4, 25, kTurn);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 60, 80, 3, 4, 25, kLong, kTurn, kDirection);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrIDobrado) {
  using M = KrIDobrado;
  const std::vector<profile::Parameter<M>> expected = {
      PARAMETER(M, altura, 100), PARAMETER(M, mesa1, 60), PARAMETER(M, mesa2, 50), PARAMETER(M, espessura, 3),
      PARAMETER(M, raio, 4),     PARAMETER(M, gap, 7),    PARAMETER(M, enrig, 15)};
  const M two(kStart, kEnd, Superior, 100, 60, 50, 3, 4, 7, kTurn, 15);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 100, 60, 50, 3, 4, 7, kLong, kTurn, kDirection, 15);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrUDobrado) {
  using M = KrUDobrado;
  const std::vector<profile::Parameter<M>> expected = {
      PARAMETER(M, altura, 100), PARAMETER(M, mesa1, 60),     PARAMETER(M, mesa2, 50),     PARAMETER(M, espessura, 3),
      PARAMETER(M, raio, 4),     PARAMETER(M, ang_int1, 1.5), PARAMETER(M, ang_int2, 1.6), PARAMETER(M, enrig, 15)};
  const M two(kStart, kEnd, Superior, 100, 60, 50, 3, 4, 1.5, 1.6, kTurn, 15);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 100, 60, 50, 3, 4, 1.5, 1.6, kLong, kTurn, kDirection, 15);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrXDobrado) {
  using M = KrXDobrado;
  const std::vector<profile::Parameter<M>> expected = {
      PARAMETER(M, aba1, 60),     PARAMETER(M, aba2, 50), PARAMETER(M, espessura, 3), PARAMETER(M, raio, 4),
      PARAMETER(M, ang_int, 1.5), PARAMETER(M, gap, 7),   PARAMETER(M, enrig, 15)};
  const M two(kStart, kEnd, Superior, 60, 50, 3, 4, 1.5, 7, kTurn, 15);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 60, 50, 3, 4, 1.5, 7, kLong, kTurn, kDirection, 15);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrZDobrado) {
  using M = KrZDobrado;
  const std::vector<profile::Parameter<M>> expected = {
      PARAMETER(M, altura, 100),   PARAMETER(M, mesa1, 60), PARAMETER(M, mesa2, 50),
      PARAMETER(M, espessura, 3),  PARAMETER(M, raio, 4),   PARAMETER(M, ang_int1, 1.5),
      PARAMETER(M, ang_int2, 1.6), PARAMETER(M, enrig, 15), PARAMETER(M, ang_enrig, 0.1)};
  const M two(kStart, kEnd, Superior, 100, 60, 50, 3, 4, 1.5, 1.6, kTurn, 15, 0.1);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 100, 60, 50, 3, 4, 1.5, 1.6, kLong, kTurn, kDirection, 15, 0.1);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrISoldadoWithOneFlangeThickness) {
  using M = KrISoldado;
  const std::vector<profile::Parameter<M>> expected = {
      PARAMETER(M, altura, 300), PARAMETER(M, mesa1, 150), PARAMETER(M, mesa2, 140), PARAMETER(M, tw, 6),
      PARAMETER(M, tf, 9),       PARAMETER(M, tf1, 9),     PARAMETER(M, tf2, 9),     PARAMETER(M, KgMetro, 36)};
  const M two(kStart, kEnd, Superior, 300, 150, 140, 6, 9, kTurn, 36);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, Direita, 300, 150, 140, 6, 9, kLong, kTurn, kDirection, 36);
  expectParameters(one, expected);
  expectOnePoint(one);
}

// The view stands behind the dimensions, and behind the length.
TEST(FoldedConstructors, KrISoldadoWithThreeThicknesses) {
  using M = KrISoldado;
  const std::vector<profile::Parameter<M>> expected = {
      PARAMETER(M, altura, 300), PARAMETER(M, mesa1, 150), PARAMETER(M, mesa2, 140), PARAMETER(M, tw, 6),
      PARAMETER(M, tf, 0),       PARAMETER(M, tf1, 9),     PARAMETER(M, tf2, 12),    PARAMETER(M, KgMetro, 36)};
  const M two(kStart, kEnd, 300, 150, 140, 9, 12, 6, Superior, kTurn, 36);
  expectParameters(two, expected);
  expectTwoPoints(two);
  const M one(kStart, 300, 150, 140, 9, 12, 6, kLong, Direita, kTurn, kDirection, 36);
  expectParameters(one, expected);
  expectOnePoint(one);
}

TEST(FoldedConstructors, KrChapa) {
  const KrChapa bar(kStart, Direita, 120, 8, kLong, kTurn, kDirection);
  EXPECT_EQ(bar.largura(), 120);
  EXPECT_EQ(bar.espessura(), 8);
  EXPECT_STREQ(bar.userName(), L"KrChapa");
  EXPECT_EQ(bar.getType(), KrChapa::kChapaComum);
  expectOnePoint(bar);
}

TEST(FoldedConstructors, EmptyOnesHaveNothingDrawn) {
  const KrBox box;
  const KrCaixaDobrado caixa;
  const KrCantoneiraDobrada cantoneira;
  const KrCantTDobrada t;
  const KrCantUDobrada u;
  const KrCartola cartola;
  const KrIDobrado i;
  const KrISoldado soldado;
  const KrUDobrado canal;
  const KrXDobrado x;
  const KrZDobrado z;
  const KrChapa chapa;
  const KrUser user;
  for (const KrObject* bar : std::initializer_list<const KrObject*>{&box, &caixa, &cantoneira, &t, &u, &cartola, &i,
                                                                    &soldado, &canal, &x, &z, &chapa, &user}) {
    EXPECT_TRUE(profile::outlineOf(*bar).empty());
    EXPECT_EQ(bar->KrObject::Vista(0), VistaCorrente);
    EXPECT_EQ(bar->getArea(), 0.0);
  }
}
