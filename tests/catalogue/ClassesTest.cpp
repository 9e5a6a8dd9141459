// Every class that a job can name: made from its parameters by their keys, against the outline that comes out.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>

#include "lib/ProfileClasses.h"
#include "profiles/SectionChecks.h"

namespace {

using Parameters = std::map<std::string_view, double>;

struct Sample {
  std::string_view name;
  Parameters given;
  double height;  // of the class, by its table of sizes
  double width;
  double area;  // what the class tells
  std::shared_ptr<const kr::SectionLine> line{};
};

constexpr double kPi = 3.14159265358979323846;

// A strip's area: straight lengths, quarter bends of the mean radius 4.5, 3 thick.
double strip(double straight, int bends) {
  return 3 * (straight + bends * kPi / 2 * 4.5);
}

std::vector<Sample> samples() {
  const Parameters angle{{"Altura", 100}, {"Largura", 75}, {"Espessura", 8}, {"RaioDobra", 10}, {"Area", 1350}};
  const auto with = [](Parameters base, const Parameters& more) {
    base.insert(more.begin(), more.end());
    return base;
  };
  const Parameters channel{{"Altura", 200},    {"Largura", 75}, {"Espessura", 8.5}, {"RaioDobra", 11.5},
                           {"EspMedia", 11.5}, {"Raio1", 6},    {"EixoX", 20.1},    {"Area", 3220}};
  return {
      {"KrTubo", {{"Diametro", 114}, {"Espessura", 5}}, 114, 114, kPi * 109 * 5},
      {"KrBarraRedonda", {{"diametro", 20}}, 20, 20, kPi * 100},
      {"KrILaminadoUSA",
       {{"Altura", 200}, {"Largura", 100}, {"Espessura", 5.6}, {"RaioDobra", 12}, {"EspMedia", 8.5}, {"Area", 2848}},
       200,
       100,
       2848},
      {"KrULaminado", channel, 200, 75, 3220},
      {"KrUULaminado", with(channel, {{"Afastamento", 9}}), 200, 159, 3220},
      {"Kr2ULaminado", with(channel, {{"Afastamento", 9}}), 200, 159, 3220},
      {"KrCantLaminada", with(angle, {{"EixoX", 18.7}, {"EixoY", 69}}), 100, 75, 1350},
      {"KrCantLaminadaCaixa", angle, 100, 75, 1350},
      {"KrCantTEELaminada", with(angle, {{"Afastamento", 10}}), 100, 160, 1350},
      {"KrCantULaminada", with(angle, {{"Afastamento", 10}}), 100, 160, 1350},
      {"KrCantZLaminada", with(angle, {{"AfastamentoH", 10}, {"AfastamentoV", 12}}), 212, 160, 1350},
      {"KrCantCruzLaminada", with(angle, {{"AfastamentoHor", 10}, {"AfastamentoVer", 12}}), 212, 160, 1350},
      {"KrBNLaminado",
       {{"Aba", 75}, {"Espessura", 8}, {"RaioDobra", 10}, {"Area", 1150}},
       75 * std::sqrt(2.0),
       75 / std::sqrt(2.0),
       1150},
      {"KrBNDuplaLaminada",
       {{"Aba", 75}, {"Espessura", 8}, {"RaioDobra", 10}, {"Afastamento", 6}, {"Area", 2300}},
       75 * std::sqrt(2.0),
       6 + 75 * std::sqrt(2.0),
       2300},
      {"KrBox",
       {{"altura", 100}, {"largura", 60}, {"espessura", 5}, {"raio", 3}},
       100,
       60,
       100 * 60 - (4 - kPi) * 64 - (90 * 50 - (4 - kPi) * 9)},
      {"KrUDobrado",
       {{"altura", 200}, {"mesa1", 75}, {"mesa2", 60}, {"espessura", 3}, {"raio", 3}, {"enrig", 20}},
       200,
       75,
       strip(188 + 63 + 48 + 2 * 14, 4)},
      {"KrZDobrado",
       {{"altura", 200}, {"mesa1", 75}, {"mesa2", 70}, {"espessura", 3}, {"raio", 3}, {"enrig", 20}},
       200,
       142,
       strip(188 + 63 + 58 + 2 * 14, 4)},
      {"KrCartola",
       {{"altura", 60}, {"mesa", 80}, {"espessura", 3}, {"raio", 3}, {"enrig", 25}},
       60,
       124,
       strip(2 * 19 + 2 * 48 + 68, 4)},
      {"KrCaixaDobrado",
       {{"altura", 200}, {"mesa", 75}, {"espessura", 3}, {"raio", 3}, {"enrig", 20}, {"gap", 7}},
       200,
       157,
       2 * strip(188 + 2 * 63 + 2 * 14, 4)},
      {"KrIDobrado",
       {{"altura", 200}, {"mesa1", 75}, {"mesa2", 60}, {"espessura", 3}, {"raio", 3}, {"gap", 7}},
       200,
       157,
       2 * strip(188 + 69 + 54, 2)},
      {"KrCantoneiraDobrada", {{"aba1", 60}, {"aba2", 50}, {"espessura", 3}, {"raio", 3}}, 60, 50, strip(54 + 44, 1)},
      {"KrCantTDobrada",
       {{"aba1", 60}, {"aba2", 50}, {"espessura", 3}, {"raio", 3}, {"gap", 7}},
       60,
       107,
       2 * strip(54 + 44, 1)},
      {"KrCantUDobrada",
       {{"aba1", 60}, {"aba2", 50}, {"espessura", 3}, {"raio", 3}, {"gap", 7}},
       60,
       107,
       2 * strip(54 + 44, 1)},
      {"KrXDobrado",
       {{"aba1", 60}, {"aba2", 50}, {"espessura", 3}, {"raio", 3}, {"gap", 7}},
       110 / std::sqrt(2.0),
       60 * std::sqrt(2.0) + 7,
       2 * strip(54 + 44, 1)},
      {"KrISoldado",
       {{"altura", 300}, {"mesa1", 150}, {"mesa2", 200}, {"tw", 6}, {"tf1", 10}, {"tf2", 12.5}},
       300,
       200,
       150 * 10 + 200 * 12.5 + 277.5 * 6},
      {"KrChapa", {{"largura", 150}, {"espessura", 12.5}}, 150, 0, 150 * 12.5},
      // A leg of 60, a bend of radius 6, a leg of 40.
      {"KrUser",
       {{"espessura", 3}},
       0,
       0,
       3 * (54 + 6 * kPi / 2 + 34),
       std::make_shared<kr::SectionLine>(
           kr::SectionLine{{{0, 60}, {0, 6, std::tan(kPi / 8)}, {6, 0}, {40, 0}}, {20, 30}})},
  };
}

kr::GivenParameters keyed(const kr::ProfileClass& row, const Parameters& given,
                          const std::shared_ptr<const kr::SectionLine>& line = nullptr) {
  kr::GivenParameters all;
  all.values.line = line;
  for (const auto& [key, value] : given) {
    const std::size_t at = row.positionOf(key);
    EXPECT_LT(at, kr::kMaxParameters) << key;
    if (at < kr::kMaxParameters) all.set(at, value);
  }
  return all;
}

std::unique_ptr<KrObject> made(const kr::ProfileClass& row, const kr::ParameterValues& values, int view = 0) {
  AcGePoint3d start(0, 0, 0), end(1000, 0, 0);
  return std::unique_ptr<KrObject>(row.make(start, end, view, values));
}

TEST(ProfileClasses, AreAllSampledHere) {
  const std::vector<Sample> all = samples();
  ASSERT_EQ(all.size(), kr::profileClasses().size());
  for (const Sample& sample : all) EXPECT_NE(kr::profileClass(sample.name), nullptr) << sample.name;
}

TEST(ProfileClasses, TakeEachParameterByItsKey) {
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(std::string(sample.name));
    const kr::ProfileClass& row = *kr::profileClass(sample.name);
    kr::ParameterValues values{};
    kr::ParameterProblem problem;
    ASSERT_TRUE(settleParameters(row, keyed(row, sample.given, sample.line), values, problem)) << problem.message;
    const std::unique_ptr<KrObject> member = made(row, values);
    EXPECT_NEAR(member->getAltura(), sample.height, 1e-9);
    EXPECT_NEAR(member->getLargura(), sample.width, 1e-9);
    EXPECT_NEAR(member->getArea(), sample.area, 1e-6);
    EXPECT_NEAR(member->getPeso(), sample.area * 0.00785, 1e-6);  // of a metre
  }
}

TEST(ProfileClasses, TellABoxThatHoldsTheirSection) {
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(std::string(sample.name));
    const kr::ProfileClass& row = *kr::profileClass(sample.name);
    kr::ParameterValues values{};
    kr::ParameterProblem problem;
    ASSERT_TRUE(settleParameters(row, keyed(row, sample.given, sample.line), values, problem)) << problem.message;
    const section::Box drawn = section::boxOf(section::contoursOf(*made(row, values)));
    const kr::SectionBox box = row.box(values);
    constexpr double kToe = 0.05;  // that a channel's first toe stands out
    EXPECT_LE(box.left, drawn.minX + kToe);
    EXPECT_LE(box.below, drawn.minY + kToe);
    EXPECT_GE(box.right, drawn.maxX - kToe);
    EXPECT_GE(box.above, drawn.maxY - kToe);
    // And is no larger than a drawing of it would stand.
    EXPECT_LE(kr::sectionSize(row, values), 4 * std::max(drawn.maxX - drawn.minX, drawn.maxY - drawn.minY));
  }
}

// A square bend of radius 6 anticlockwise: the section lies in the angle's box about the origin, bend outwards.
TEST(ProfileClasses, DrawsTheLineOfOnesOwnAboutItsOrigin) {
  const std::vector<Sample> all = samples();
  const Sample& sample = all.back();
  const kr::ProfileClass& row = *kr::profileClass("KrUser");
  kr::ParameterValues values{};
  kr::ParameterProblem problem;
  ASSERT_TRUE(settleParameters(row, keyed(row, sample.given, sample.line), values, problem)) << problem.message;
  const auto contours = section::contoursOf(*made(row, values));
  EXPECT_NEAR(section::areaOf(contours), sample.area, 1e-6);
  const section::Box drawn = section::boxOf(contours);
  EXPECT_NEAR(drawn.minX, -21.5, 1e-9);
  EXPECT_NEAR(drawn.minY, -31.5, 1e-9);
  EXPECT_NEAR(drawn.maxX, 20, 1e-9);
  EXPECT_NEAR(drawn.maxY, 30, 1e-9);
}

TEST(ProfileClasses, ReachAcrossTheBarAsTheSectionIsTurned) {
  const kr::ProfileClass& row = *kr::profileClass("KrILaminadoUSA");
  Parameters given{{"Altura", 200},   {"Largura", 100},  {"Espessura", 5.6},
                   {"RaioDobra", 12}, {"EspMedia", 8.5}, {"Area", 2848}};
  kr::ParameterValues values{};
  kr::ParameterProblem problem;
  ASSERT_TRUE(settleParameters(row, keyed(row, given), values, problem));
  constexpr int kSuperior = 1, kDireita = 4;
  EXPECT_NEAR(kr::reachAcross(row, values, kSuperior), 50, 1e-9);
  EXPECT_NEAR(kr::reachAcross(row, values, kDireita), 100, 1e-9);
  given["AngleSecao"] = 90;
  ASSERT_TRUE(settleParameters(row, keyed(row, given), values, problem));
  EXPECT_NEAR(kr::reachAcross(row, values, kSuperior), 100, 1e-9);
  EXPECT_NEAR(kr::reachAcross(row, values, kDireita), 50, 1e-9);
}

}  // namespace
