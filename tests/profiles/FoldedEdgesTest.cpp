// What the folded classes and the box do at their limits, and what they tell of themselves.

#include <gtest/gtest.h>

#include <random>

#include "FoldedSamples.h"

namespace {

using folded::filedLine;
using folded::kOrigin;
using folded::kPi;
using folded::kRight;

std::unique_ptr<KrUDobrado> channel(double angle, double enrig) {
  return std::make_unique<KrUDobrado>(kOrigin, Superior, 200, 75, 75, 3, 3, angle, kRight, 1000, 0, 0, enrig);
}

/// What the class itself lists, behind the base.
std::wstring listOf(KrObject& bar) {
  const edhost::ConsoleCapture console;
  bar.list();
  const std::wstring text = console.text();
  const std::size_t base = text.find(L"Versão KrObject");
  const std::size_t end = text.find(L'\n', base);
  return text.substr(end + 1);
}

std::wstring number(double value) {
  ACHAR text[400];
  EXPECT_EQ(acdbRToS(value, -1, -1, text), RTNORM);
  return text;
}

}  // namespace

TEST(FoldedStrip, NoLipMeansNoLipNodes) {
  EXPECT_EQ(filedLine(*channel(kRight, 0), 8).size(), 7U);
  EXPECT_EQ(filedLine(*channel(kRight, 20), 8).size(), 11U);
}

TEST(FoldedStrip, NegativeLipsTurnTheOtherWay) {
  const std::vector<profile::Node> inward = filedLine(*channel(kRight, 20), 8);
  const std::vector<profile::Node> outward = filedLine(*channel(kRight, -20), 8);
  ASSERT_EQ(inward.size(), outward.size());
  // The lower lip is mirrored in the flange, the upper one too.
  for (const std::size_t i : {0U, 1U}) {
    EXPECT_NEAR(outward[i].x, inward[i].x, 1e-9);
    EXPECT_NEAR(outward[i].y, -inward[i].y, 1e-9);
    EXPECT_NEAR(outward[8 + i].x, inward[8 + i].x, 1e-9);
    EXPECT_NEAR(outward[8 + i].y, 2 * 197 - inward[8 + i].y, 1e-9);
  }
  EXPECT_NEAR(outward[1].bulge, -inward[1].bulge, 1e-9);
  EXPECT_NEAR(outward[7].bulge, -inward[7].bulge, 1e-9);
  for (std::size_t i = 2; i < 7; ++i) EXPECT_NEAR(outward[i].y, inward[i].y, 1e-9);
}

// Lips outward make the section higher than its height tells.
TEST(FoldedStrip, HeightDoesNotCountLipsOutward) {
  const std::unique_ptr<KrUDobrado> bar = channel(kRight, -20);
  const section::Box box = section::boxOf(section::contoursOf(*bar));
  EXPECT_EQ(bar->getAltura(), 200);
  EXPECT_NEAR(box.maxY - box.minY, 200 + 2 * (20 - 3), 1e-9);
}

TEST(FoldedStrip, SetBackOfARightAngleIsTheOuterRadius) {
  KrGeratriz none;
  EXPECT_NEAR(FoldedStrip(none, 3, 4).setBack(kRight), 7, 1e-12);
}

TEST(FoldedStrip, SetBackFollowsTheAngleUpToTheOuterRadius) {
  KrGeratriz none;
  const FoldedStrip strip(none, 3, 4);
  EXPECT_NEAR(strip.setBack(120 * kPi / 180), 7 / std::sqrt(3.0), 1e-12);
  EXPECT_NEAR(strip.setBack(60 * kPi / 180), 7, 1e-12);
  EXPECT_NEAR(strip.setBack(kPi), 0, 1e-12);
}

TEST(FoldedStrip, StraightBendLeavesNoNodeAndNoTurn) {
  const std::unique_ptr<KrUDobrado> bar = channel(kPi, 0);
  const std::vector<profile::Node> line = filedLine(*bar, 8);
  for (const profile::Node& node : line) {
    EXPECT_TRUE(std::isfinite(node.x) && std::isfinite(node.y) && std::isfinite(node.bulge));
  }
  EXPECT_NEAR(line[0].y, line[1].y, 1e-9);
  EXPECT_EQ(section::crossingsOf(section::contoursOf(*bar)), 0);
}

// A reflex angle turns the web the other way.
TEST(FoldedStrip, ReflexAngleBendsTheOtherWay) {
  const KrCantoneiraDobrada bar(kOrigin, Superior, 60, 50, 3, 3, 3 * kRight, 1000, 0, 0, 0);
  const std::vector<profile::Node> line = filedLine(bar, 6);
  ASSERT_EQ(line.size(), 5U);
  EXPECT_NEAR(line[1].bulge, 52.6051, 1e-4);
  EXPECT_NEAR(line[2].x, -4.5, 1e-9);
  EXPECT_NEAR(line[2].y, 58.5, 1e-9);
  EXPECT_NEAR(line[3].x, -48.5, 1e-9);
  EXPECT_EQ(section::crossingsOf(section::contoursOf(bar)), 0);
}

// A lip that is its bend and nothing more.
TEST(FoldedStrip, LipWithoutAStraightPartStaysSound) {
  const std::unique_ptr<KrUDobrado> bar = channel(kRight, 6);
  const oracle::Outline outline = section::contoursOf(*bar);
  EXPECT_EQ(section::crossingsOf(outline), 0);
  EXPECT_NEAR(section::areaOf(outline),
              3 * folded::developed(3, 3, {6, 75, 200, 75, 6}, {kRight, kRight, kRight, kRight}), 1e-6);
}

// Any channel whose runs are longer than its set-backs: one sound contour of the developed length.
TEST(FoldedStrip, AnyChannelThatFitsIsSoundAndAsLongAsItsRuns) {
  std::mt19937 random(20261);
  const auto between = [&random](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  for (int i = 0; i < 200; ++i) {
    const double t = between(1, 8);
    const double r = between(0, 12);
    const double least = 2 * (t + r) + 1;
    const double altura = least + between(50, 400);
    const double mesa1 = least + between(0, 100);
    const double mesa2 = least + between(0, 100);
    const double a1 = between(75, 170) * kPi / 180;
    const double a2 = between(75, 170) * kPi / 180;
    const double lip = i % 3 == 0 ? 0 : (i % 3 == 1 ? 1 : -1) * (t + r + between(0, 8));
    const KrUDobrado bar(kOrigin, Superior, altura, mesa1, mesa2, t, r, a1, a2, 1000, 0, 0, lip);
    const double length = lip == 0 ? folded::developed(t, r, {mesa1, altura, mesa2}, {a1, a2})
                                   : folded::developed(t, r, {std::fabs(lip), mesa1, altura, mesa2, std::fabs(lip)},
                                                       {kRight, a1, a2, kRight});
    const oracle::Outline outline = section::contoursOf(bar);
    ASSERT_EQ(outline.size(), 1U) << i;
    EXPECT_EQ(section::crossingsOf(outline), 0) << i;
    EXPECT_NEAR(section::areaOf(outline), t * length, 1e-8 * t * length) << i;
    EXPECT_NEAR(bar.getArea(), t * length, 1e-8 * t * length) << i;
    EXPECT_NEAR(bar.getPerimetro(), 2 * length + 2 * t, 1e-6) << i;
  }
}

TEST(FoldedStrip, DegenerateDimensionsGiveNoReport) {
  const KrUDobrado nothing(kOrigin, Superior, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  const KrXDobrado cross(kOrigin, Superior, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  const KrBox box(kOrigin, Superior, 0, 0, 0, 0, 0, 0, 0);
  EXPECT_EQ(nothing.getArea(), 0.0);
  EXPECT_EQ(cross.getArea(), 0.0);
  EXPECT_EQ(box.getArea(), 0.0);
}

// The thickness of the second loop comes from the marker before it.
TEST(FoldedCompound, AreaCountsBothLoops) {
  const KrCaixaDobrado caixa(kOrigin, Superior, 200, 75, 3, 3, 10, 1000, 0, 0, 20);
  const KrUDobrado half(kOrigin, Superior, 200, 75, 75, 3, 3, kRight, kRight, 1000, 0, 0, 20);
  EXPECT_NEAR(caixa.getArea(), 2 * half.getArea(), 1e-9);
}

// Though made of two channels: it stands as it is.
TEST(FoldedCompound, PerimeterOfTheBoxAndTheIOfChannelsIsOneChannels) {
  const KrUDobrado half(kOrigin, Superior, 200, 75, 75, 3, 3, kRight, kRight, 1000, 0, 0, 20);
  EXPECT_NEAR(KrCaixaDobrado(kOrigin, Superior, 200, 75, 3, 3, 10, 1000, 0, 0, 20).getPerimetro(), half.getPerimetro(),
              1e-9);
  EXPECT_NEAR(KrIDobrado(kOrigin, Superior, 200, 75, 75, 3, 3, 10, 1000, 0, 0, 20).getPerimetro(), half.getPerimetro(),
              1e-9);
}

TEST(FoldedCompound, PerimeterOfTheAnglesIsTwiceOneAngles) {
  const KrCantoneiraDobrada half(kOrigin, Superior, 60, 50, 3, 3, kRight, 1000, 0, 0, 15);
  for (const double gap : {0.0, 10.0}) {
    EXPECT_NEAR(KrCantTDobrada(kOrigin, Superior, 60, 50, 3, 3, gap, 1000, 0, 0, 15).getPerimetro(),
                2 * half.getPerimetro(), 1e-9);
    EXPECT_NEAR(KrCantUDobrada(kOrigin, Superior, 60, 50, 3, 3, gap, 1000, 0, 0, 15).getPerimetro(),
                2 * half.getPerimetro(), 1e-9);
    EXPECT_NEAR(KrXDobrado(kOrigin, Superior, 60, 50, 3, 3, kRight, gap, 1000, 0, 0, 15).getPerimetro(),
                2 * half.getPerimetro(), 1e-9);
  }
}

TEST(FoldedCompound, CrossTakesItsOwnAngle) {
  const KrXDobrado cross(kOrigin, Superior, 60, 50, 3, 3, 2.0, 10, 1000, 0, 0, 0);
  const KrCantoneiraDobrada half(kOrigin, Superior, 60, 50, 3, 3, 2.0, 1000, 0, 0, 0);
  EXPECT_NEAR(cross.getArea(), 2 * half.getArea(), 1e-9);
  EXPECT_GT(
      std::fabs(cross.getArea() - KrXDobrado(kOrigin, Superior, 60, 50, 3, 3, kRight, 10, 1000, 0, 0, 0).getArea()),
      1.0);
}

TEST(FoldedMeasures, HeightThicknessAndWidth) {
  struct Measured {
    std::unique_ptr<KrObject> bar;
    double altura, espessura, largura;
  };
  const double s = std::sin(kPi / 4);
  std::vector<Measured> all;
  all.push_back({std::make_unique<KrBox>(kOrigin, Superior, 100, 60, 5, 3, 1, 0, 0), 100, 5, 60});
  all.push_back({std::make_unique<KrCaixaDobrado>(kOrigin, Superior, 200, 75, 3, 4, 10, 1, 0, 0, 20), 200, 3, 160});
  all.push_back(
      {std::make_unique<KrCantoneiraDobrada>(kOrigin, Superior, 60, 50, 3, 4, kRight, 1, 0, 0, 15), 60, 3, 50});
  all.push_back({std::make_unique<KrCantTDobrada>(kOrigin, Superior, 60, 50, 3, 4, 10, 1, 0, 0, 15), 60, 3, 110});
  all.push_back({std::make_unique<KrCantUDobrada>(kOrigin, Superior, 60, 50, 3, 4, 10, 1, 0, 0, 15), 60, 3, 110});
  all.push_back({std::make_unique<KrCartola>(kOrigin, Superior, 60, 80, 3, 4, 25, 1, 0, 0), 60, 3, 124});
  all.push_back({std::make_unique<KrIDobrado>(kOrigin, Superior, 200, 60, 75, 3, 4, 10, 1, 0, 0, 20), 200, 3, 160});
  all.push_back(
      {std::make_unique<KrUDobrado>(kOrigin, Superior, 200, 60, 75, 3, 4, kRight, kRight, 1, 0, 0, 20), 200, 3, 75});
  all.push_back({std::make_unique<KrXDobrado>(kOrigin, Superior, 60, 50, 3, 4, kRight, 10, 1, 0, 0, 15), 110 * s, 3,
                 120 * s + 10});
  all.push_back({std::make_unique<KrZDobrado>(kOrigin, Superior, 200, 75, 70, 3, 4, kRight, kRight, 1, 0, 0, 20, 0),
                 200, 3, 142});
  // The web is thicker than nothing when the flanges differ.
  all.push_back({std::make_unique<KrISoldado>(kOrigin, 300, 150, 200, 10, 12, 6, 1, Superior, 0, 0, 40), 300, 6, 200});
  all.push_back({std::make_unique<KrISoldado>(kOrigin, Superior, 300, 150, 120, 6, 10, 1, 0, 0, 40), 300, 10, 150});
  all.push_back({std::make_unique<KrChapa>(kOrigin, Superior, 120, 8, 1, 0, 0), 120, 8, 0});
  for (const Measured& each : all) {
    EXPECT_NEAR(each.bar->getAltura(), each.altura, 1e-9);
    EXPECT_NEAR(each.bar->getEspessura(), each.espessura, 1e-9);
    EXPECT_NEAR(each.bar->getLargura(), each.largura, 1e-9);
  }
}

TEST(FoldedMeasures, WeightComesFromTheAreaAsThereIsNoWeightPerMetre) {
  const std::unique_ptr<KrUDobrado> bar = channel(kRight, 20);
  double linear = -1.0;
  EXPECT_EQ(bar->getLinearWeight(linear), 0);
  EXPECT_EQ(linear, 0.0);
  EXPECT_NEAR(bar->getPeso(), bar->getArea() * 0.00785, 1e-9);
  EXPECT_NEAR(bar->getAreaPintura(), (2 * bar->getArea() + bar->getPerimetro() * 1000) / 1e6, 1e-12);
}

TEST(FoldedText, Dimensions) {
  const auto text = [](const KrObject& bar) { return profile::dimensoesOf(bar); };
  EXPECT_EQ(text(KrBox(kOrigin, Superior, 100, 60, 5, 3, 1, 0, 0)), L"100x60x5");
  EXPECT_EQ(text(KrCaixaDobrado(kOrigin, Superior, 200, 75, 3, 4, 10, 1, 0, 0, 20)), L"200x75x3x20");
  EXPECT_EQ(text(KrCartola(kOrigin, Superior, 60, 80, 3, 4, 25, 1, 0, 0)), L"60x80x25x3");
  EXPECT_EQ(text(KrZDobrado(kOrigin, Superior, 200, 75, 70, 3, 4, kRight, kRight, 1, 0, 0, 20, 0)), L"200x75x70x3");
  EXPECT_EQ(text(*channel(kRight, 20)), L"200x75x20x3");
  // A lip of nothing prints as nothing.
  EXPECT_EQ(text(*channel(kRight, 0)), L"200x75xx3");
  EXPECT_EQ(text(KrIDobrado(kOrigin, Superior, 200, 75, 60, 3, 4, 10, 1, 0, 0, 20)), L"200x75x20x3");
  EXPECT_EQ(text(KrCantoneiraDobrada(kOrigin, Superior, 60, 50, 3, 4, kRight, 1, 0, 0, 15)), L"60x50x3");
  EXPECT_EQ(text(KrCantTDobrada(kOrigin, Superior, 60, 50, 3, 4, 10, 1, 0, 0, 15)), L"60x50x3");
  EXPECT_EQ(text(KrCantUDobrada(kOrigin, Superior, 60, 50, 3, 4, 10, 1, 0, 0, 15)), L"60x50x3");
  EXPECT_EQ(text(KrXDobrado(kOrigin, Superior, 60, 50, 3, 4, kRight, 10, 1, 0, 0, 15)), L"60x50x3");
  EXPECT_EQ(text(KrISoldado(kOrigin, 300, 150, 200, 10, 12.5, 6, 1, Superior, 0, 0, 40)), L"300x150x200x6x10x12.50");
  EXPECT_EQ(text(KrChapa(kOrigin, Superior, 120, 8, 1, 0, 0)), L"8x120");
}

TEST(FoldedText, ProfileTextIsTheDesignationAndNotThePrefix) {
  const profile::Designations names("KrUDobrado=Perfil U\nKrUser=Especial\n");
  EXPECT_EQ(profile::perfilOf(*channel(kRight, 0)), L"Perfil U");
  EXPECT_EQ(profile::perfilOf(KrUser()), L"Especial");
  // Without a designation the empty one overwrites the prefix too.
  EXPECT_EQ(profile::perfilOf(KrChapa(kOrigin, Superior, 120, 8, 1, 0, 0)), L"");
}

TEST(FoldedText, SimpleClassListsItsDimensionsAndArea) {
  const std::unique_ptr<KrUDobrado> bar = channel(kRight, 20);
  EXPECT_EQ(listOf(*bar), L"\nDimensões       " + number(200) + L"x" + number(75) + L"x" + number(20) + L"x" +
                              number(3) + L"\nÁrea da seção   " + number(bar->getArea()) + L" mm2");
}

TEST(FoldedText, CompoundListsItsHalfAndThenTheWholeWithTheGap) {
  KrCantTDobrada angles(kOrigin, Superior, 60, 50, 3, 3, 10, 1000, 0, 0, 15);
  const std::wstring half = number(60) + L"x" + number(50) + L"x" + number(3);
  EXPECT_EQ(listOf(angles), L"\nDados da Cantoneira\n\nDimensões       " + half + L"\nÁrea da seção   " +
                                number(angles.getArea() / 2) + L" mm2\n\nDados do Perfil Composto\n\nDimensões       " +
                                half + L"x" + number(10) + L"\nÁrea da seção   " + number(angles.getArea()) + L" mm2");
  KrIDobrado channels(kOrigin, Superior, 200, 75, 60, 3, 3, 10, 1000, 0, 0, 20);
  EXPECT_NE(listOf(channels).find(L"\nDados do Perfil\n\nDimensões"), std::wstring::npos);
}

TEST(Box, CornersOfRadiusZeroAreHalfAThicknessOnTheMiddleLine) {
  const KrBox box(kOrigin, Superior, 100, 60, 5, 0, 1000, 0, 0);
  const std::vector<profile::Node> line = filedLine(box, 4);
  // A quarter from (5, 2.5) to (2.5, 5).
  EXPECT_NEAR(line[1].x - line[2].x, 2.5, 1e-12);
  EXPECT_NEAR(line[2].y - line[1].y, 2.5, 1e-12);
  EXPECT_NEAR(line[1].bulge, -52.6051, 1e-4);
  EXPECT_EQ(section::contoursOf(box).size(), 2U);
}

// The closed line has no ends whose faces would have to go: it stands as it is.
TEST(Box, PerimeterIsTheSumLessTwiceTheThickness) {
  const KrBox box(kOrigin, Superior, 100, 60, 5, 3, 1000, 0, 0);
  const oracle::Outline outline = section::contoursOf(box);
  EXPECT_NEAR(box.getPerimetro(), section::perimeterOf(outline[0]) + section::perimeterOf(outline[1]) - 10, 1e-9);
}
