// Every setter of the classes made from a middle line stores its own parameter, answers eOk and regenerates nothing.

#include <gtest/gtest.h>

#include "FoldedSamples.h"

namespace {

template <class M>
struct Accessors {
  const char* name;
  Acad::ErrorStatus (M::*get)(double&) const;
  Acad::ErrorStatus (M::*set)(double);
};
#define ACCESSORS(NAME) \
  { #NAME, &M::NAME, &M::set##NAME }

template <class M>
void expectSetters(M& bar, std::initializer_list<Accessors<M>> all) {
  const std::vector<profile::Node> outline = profile::outlineOf(bar);
  double next = 1000;
  for (const Accessors<M>& each : all) EXPECT_EQ((bar.*each.set)(next++), Acad::eOk) << each.name;
  next = 1000;
  for (const Accessors<M>& each : all) EXPECT_EQ(profile::valueOf(bar, each.get), next++) << each.name;
  profile::expectOutline(bar, outline);
}

using folded::kOrigin;
using folded::kRight;

}  // namespace

TEST(FoldedSetters, KrBox) {
  using M = KrBox;
  M bar(kOrigin, Superior, 100, 60, 5, 3, 1000, 0, 0);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(altura), ACCESSORS(largura), ACCESSORS(raio)});
}

TEST(FoldedSetters, KrCaixaDobrado) {
  using M = KrCaixaDobrado;
  M bar(kOrigin, Superior, 200, 75, 3, 3, 10, 1000, 0, 0, 20);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(altura), ACCESSORS(mesa), ACCESSORS(raio), ACCESSORS(enrig),
                         ACCESSORS(gap)});
}

TEST(FoldedSetters, KrCantoneiraDobrada) {
  using M = KrCantoneiraDobrada;
  M bar(kOrigin, Superior, 60, 50, 3, 3, kRight, 1000, 0, 0, 15);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(aba1), ACCESSORS(aba2), ACCESSORS(raio), ACCESSORS(ang_int),
                         ACCESSORS(enrig)});
}

template <class M>
void setCompoundAngle() {
  M bar(kOrigin, Superior, 60, 50, 3, 3, 10, 1000, 0, 0, 15);
  expectSetters<M>(
      bar, {ACCESSORS(espessura), ACCESSORS(aba1), ACCESSORS(aba2), ACCESSORS(raio), ACCESSORS(gap), ACCESSORS(enrig)});
}

TEST(FoldedSetters, KrCantTDobrada) {
  setCompoundAngle<KrCantTDobrada>();
}

TEST(FoldedSetters, KrCantUDobrada) {
  setCompoundAngle<KrCantUDobrada>();
}

TEST(FoldedSetters, KrCartola) {
  using M = KrCartola;
  M bar(kOrigin, Superior, 60, 80, 3, 3, 25, 1000, 0, 0);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(altura), ACCESSORS(mesa), ACCESSORS(raio), ACCESSORS(enrig)});
}

TEST(FoldedSetters, KrIDobrado) {
  using M = KrIDobrado;
  M bar(kOrigin, Superior, 200, 75, 60, 3, 3, 10, 1000, 0, 0, 20);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(altura), ACCESSORS(mesa1), ACCESSORS(mesa2), ACCESSORS(raio),
                         ACCESSORS(enrig), ACCESSORS(gap)});
}

TEST(FoldedSetters, KrISoldado) {
  using M = KrISoldado;
  M bar(kOrigin, Superior, 300, 150, 140, 6, 9, 1000, 0, 0, 36);
  expectSetters<M>(bar, {ACCESSORS(altura), ACCESSORS(mesa1), ACCESSORS(mesa2), ACCESSORS(tw), ACCESSORS(tf),
                         ACCESSORS(tf1), ACCESSORS(tf2), ACCESSORS(KgMetro)});
}

TEST(FoldedSetters, KrUDobrado) {
  using M = KrUDobrado;
  M bar(kOrigin, Superior, 200, 75, 60, 3, 3, kRight, kRight, 1000, 0, 0, 20);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(altura), ACCESSORS(mesa1), ACCESSORS(mesa2), ACCESSORS(raio),
                         ACCESSORS(ang_int1), ACCESSORS(ang_int2), ACCESSORS(enrig)});
}

TEST(FoldedSetters, KrXDobrado) {
  using M = KrXDobrado;
  M bar(kOrigin, Superior, 60, 50, 3, 3, kRight, 10, 1000, 0, 0, 15);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(aba1), ACCESSORS(aba2), ACCESSORS(raio), ACCESSORS(ang_int),
                         ACCESSORS(enrig), ACCESSORS(gap)});
}

TEST(FoldedSetters, KrZDobrado) {
  using M = KrZDobrado;
  M bar(kOrigin, Superior, 200, 75, 70, 3, 3, kRight, kRight, 1000, 0, 0, 20, 0);
  expectSetters<M>(bar, {ACCESSORS(espessura), ACCESSORS(altura), ACCESSORS(mesa1), ACCESSORS(mesa2), ACCESSORS(raio),
                         ACCESSORS(ang_int1), ACCESSORS(ang_int2), ACCESSORS(enrig), ACCESSORS(ang_enrig)});
}

// The area follows the line as it was, and the thickness as it is.
TEST(FoldedSetters, ThicknessSetCountsInTheAreaAtOnce) {
  KrUDobrado bar(kOrigin, Superior, 200, 75, 75, 3, 3, kRight, kRight, 1000, 0, 0, 0);
  const double before = bar.getArea();
  bar.setespessura(6);
  EXPECT_NEAR(bar.getArea(), 2 * before, 1e-9);
}
