#include <algorithm>
#include <cmath>
#include <numbers>

#include "ProfileRows.h"
#include "profiles/KrBox.h"
#include "profiles/KrCaixaDobrado.h"
#include "profiles/KrCantTDobrada.h"
#include "profiles/KrCantUDobrada.h"
#include "profiles/KrCantoneiraDobrada.h"
#include "profiles/KrCartola.h"
#include "profiles/KrIDobrado.h"
#include "profiles/KrISoldado.h"
#include "profiles/KrUDobrado.h"
#include "profiles/KrXDobrado.h"
#include "profiles/KrZDobrado.h"

namespace kr {
namespace {

constexpr double kSquare = 90;

constexpr ProfileParameter kHeight{"altura", true, "height over everything, mm"};
constexpr ProfileParameter kThickness{"espessura", true, "thickness of the strip, mm"};
constexpr ProfileParameter kRadius{"raio", true, "inner radius of the bends, mm", Range::kZeroOrMore};
constexpr ProfileParameter kLip{"enrig", false, "length of the lips, mm: outwards when negative", Range::kSigned};
constexpr ProfileParameter kGap{"gap", false, "gap between the halves, mm", Range::kZeroOrMore};
constexpr ProfileParameter kLower{"mesa1", true, "width of the lower flange, mm"};
constexpr ProfileParameter kUpper{"mesa2", true, "width of the upper flange, mm"};
constexpr ProfileParameter kFirstBend{"ang_int1", false, "inner angle of the lower bend, degrees", Range::kBend,
                                      kSquare};
constexpr ProfileParameter kSecondBend{"ang_int2", false, "inner angle of the upper bend, degrees", Range::kBend,
                                       kSquare};
constexpr ProfileParameter kBendAngle{"ang_int", false, "inner angle of the bend, degrees", Range::kBend, kSquare};
constexpr ProfileParameter kUpright{"aba1", true, "length of the upright leg, mm"};
constexpr ProfileParameter kLying{"aba2", true, "length of the lying leg, mm"};

constexpr ProfileParameter kBox[] = {kHeight,
                                     {"largura", true, "width over everything, mm"},
                                     kThickness,
                                     {"raio", true, "inner radius of the corners, mm", Range::kZeroOrMore},
                                     kTurnParameter};
constexpr ProfileParameter kCaixa[] = {
    kHeight, {"mesa", true, "width of a half's flanges, mm"}, kThickness, kRadius, kGap, kTurnParameter, kLip};
constexpr ProfileParameter kCantoneira[] = {kUpright, kLying, kThickness, kRadius, kBendAngle, kTurnParameter, kLip};
constexpr ProfileParameter kPair[] = {kUpright, kLying, kThickness, kRadius, kGap, kTurnParameter, kLip};
constexpr ProfileParameter kCartola[] = {{"altura", true, "height of the legs over everything, mm"},
                                         {"mesa", true, "width of the web, mm"},
                                         kThickness,
                                         kRadius,
                                         {"enrig", true, "width of the brims, mm"},
                                         kTurnParameter};
constexpr ProfileParameter kIDobrado[] = {kHeight, kLower, kUpper, kThickness, kRadius, kGap, kTurnParameter, kLip};
constexpr ProfileParameter kISoldado[] = {kHeight,
                                          kLower,
                                          kUpper,
                                          {"tf1", true, "thickness of the lower flange, mm"},
                                          {"tf2", true, "thickness of the upper flange, mm"},
                                          {"tw", true, "thickness of the web, mm"},
                                          kTurnParameter,
                                          kWeightParameter};
constexpr ProfileParameter kU[] = {kHeight,    kLower,      kUpper,         kThickness, kRadius,
                                   kFirstBend, kSecondBend, kTurnParameter, kLip};
constexpr ProfileParameter kX[] = {kUpright, kLying, kThickness, kRadius, kBendAngle, kGap, kTurnParameter, kLip};
constexpr ProfileParameter kZ[] = {
    kHeight,     kLower,
    kUpper,      kThickness,
    kRadius,     kFirstBend,
    kSecondBend, kTurnParameter,
    kLip,        {"ang_enrig", false, "angle by which the lips are turned from the square, degrees", Range::kTurn}};

// What a strip is bent with.
struct Strip {
  double thickness;
  double radius;

  double bend() const { return thickness + radius; }
  // From the outer corner of a bend to its tangent point: never more than a square one's.
  double setBack(double angle) const {
    return std::min(std::abs(std::tan((std::numbers::pi - angle) / 2) * bend()), bend());
  }
  double lipBend(double lip) const { return lip == 0 ? 0 : bend(); }
};

bool refuse(ParameterProblem& problem, std::string_view key, std::string message) {
  problem = {key, std::move(message)};
  return false;
}

bool lipFits(const Strip& strip, double lip, double web, ParameterProblem& problem) {
  if (lip == 0) return true;
  if (std::abs(lip) < strip.bend() - kSectionRounding) {
    return refuse(problem, "enrig",
                  "the lip is shorter than its bend: \"enrig\" must be at least \"raio\" and \"espessura\"");
  }
  if (lip > 0 && 2 * lip > web) {
    return refuse(problem, "enrig", "the lips are longer than the web: \"enrig\" must be at most half of its height");
  }
  if (-lip > web) {
    return refuse(problem, "enrig", "the lip is longer than the web: \"enrig\" must be at most its height");
  }
  return true;
}

// A part of the strip between two bends, or a bend and an end, that needs `bends` of its `length`.
bool partFits(double length, double bends, std::string_view key, ParameterProblem& problem) {
  if (length >= bends - kSectionRounding) return true;
  return refuse(problem, key,
                "the bends don't fit: " + std::string(key) + " is too short for \"raio\" and \"espessura\"");
}

bool channelFits(const Strip& strip, double height, double lower, double upper, double first, double second, double lip,
                 ParameterProblem& problem) {
  const double a = strip.setBack(first);
  const double b = strip.setBack(second);
  return partFits(height, a + b, "altura", problem) && partFits(lower, a + strip.lipBend(lip), "mesa1", problem) &&
         partFits(upper, b + strip.lipBend(lip), "mesa2", problem) && lipFits(strip, lip, height, problem);
}

constexpr double kRight = std::numbers::pi / 2;

bool settleBox(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  const double smaller = std::min(v[0], v[1]);
  if (2 * v[2] >= smaller) {
    return refuse(problem, "espessura", "the wall is thicker than half the section: \"espessura\" is too great");
  }
  if (smaller >= 2 * (v[2] + v[3]) - kSectionRounding) return true;
  return refuse(problem, "raio", "the corners don't fit the section: \"raio\" is too great");
}

bool settleU(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  return channelFits({v[3], v[4]}, v[0], v[1], v[2], v[5], v[6], v[8], problem);
}

bool settleCaixa(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  if (channelFits({v[2], v[3]}, v[0], v[1], v[1], kRight, kRight, v[6], problem)) return true;
  if (problem.key != "altura" && problem.key != "enrig") problem.key = "mesa";
  return false;
}

bool settleIDobrado(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  return channelFits({v[3], v[4]}, v[0], v[1], v[2], kRight, kRight, v[7], problem);
}

bool angleFits(const Strip& strip, double upright, double lying, double bend, double lip, ParameterProblem& problem) {
  const double bends = strip.setBack(bend) + strip.lipBend(lip);
  return partFits(upright, bends, "aba1", problem) && partFits(lying, bends, "aba2", problem) &&
         lipFits(strip, lip, std::min(upright, lying), problem);
}

bool settleCantoneira(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  return angleFits({v[2], v[3]}, v[0], v[1], v[4], v[6], problem);
}
bool settlePair(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  return angleFits({v[2], v[3]}, v[0], v[1], kRight, v[6], problem);
}
bool settleX(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  return angleFits({v[2], v[3]}, v[0], v[1], v[4], v[7], problem);
}

bool settleCartola(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  const Strip strip{v[2], v[3]};
  return partFits(v[0], 2 * strip.bend(), "altura", problem) && partFits(v[1], 2 * strip.bend(), "mesa", problem) &&
         partFits(v[4], strip.bend(), "enrig", problem);
}

bool settleISoldado(const GivenParameters& given, ParameterValues& v, ParameterProblem& problem) {
  enum : std::size_t { kAltura, kMesa1, kMesa2, kTf1, kTf2, kTw, kAngleSecao, kKgMetro };
  if (v[kTf1] + v[kTf2] >= v[kAltura]) {
    return refuse(problem, "altura", "the flanges leave no web: \"altura\" must be greater than \"tf1\" and \"tf2\"");
  }
  if (v[kTw] > std::min(v[kMesa1], v[kMesa2])) {
    return refuse(problem, "tw", "the web is wider than a flange: \"tw\" is too great");
  }
  const double web = v[kAltura] - v[kTf1] - v[kTf2];
  const double area = v[kMesa1] * v[kTf1] + v[kMesa2] * v[kTf2] + web * v[kTw];
  if (!given.has(kKgMetro)) v[kKgMetro] = area * kSteel;
  return true;
}

SectionBox centred(double width, double height) {
  return {-width / 2, -height / 2, width / 2, height / 2};
}
// How much higher lips that stand outwards make a channel, on each side.
double outward(double lip, double thickness) {
  return lip < 0 ? std::max(0.0, -lip - thickness) : 0.0;
}
SectionBox boxBox(const ParameterValues& v) {
  return centred(v[1], v[0]);
}
// A slanting flange reaches as far as its length at most.
SectionBox boxU(const ParameterValues& v) {
  const double width = std::max(v[1], v[2]);
  const double lips = outward(v[8], v[3]);
  const double slant = v[5] == kRight && v[6] == kRight ? 0 : width;
  return {v[1] / 2 - width - slant, -v[0] / 2 - lips - slant, v[1] / 2 + slant, v[0] / 2 + lips + slant};
}
SectionBox boxCaixa(const ParameterValues& v) {
  return centred(2 * v[1] + v[4], v[0] + 2 * outward(v[6], v[2]));
}
SectionBox boxIDobrado(const ParameterValues& v) {
  return centred(2 * std::max(v[1], v[2]) + v[5], v[0] + 2 * outward(v[7], v[3]));
}
SectionBox boxCantoneira(const ParameterValues& v) {
  const double lip = std::abs(v[6]);
  const double slant = v[4] == kRight ? 0 : v[1];
  return {-v[1] / 3 - lip - slant, -v[0] * 2 / 3 - slant, v[1] * 2 / 3 + lip, v[0] / 3 + lip + slant};
}
SectionBox boxPair(const ParameterValues& v) {
  const double half = v[1] + v[4] / 2 + std::abs(v[6]);
  return {-half, -v[0], half, v[0]};
}
SectionBox boxX(const ParameterValues& v) {
  const double leg = std::max(v[0], v[1]) + std::abs(v[7]);
  return centred(2 * leg + v[5], 2 * leg);
}
SectionBox boxCartola(const ParameterValues& v) {
  return centred(v[1] + 2 * (v[4] - v[2]), v[0]);
}
SectionBox boxISoldado(const ParameterValues& v) {
  const double half = std::max(v[1], v[2]) / 2;
  return {-half, -(v[0] + v[3]) / 2, half, (v[0] - v[3]) / 2};
}
SectionBox boxZ(const ParameterValues& v) {
  const double lips = outward(v[8], v[3]);
  const double turned = v[5] == kRight && v[6] == kRight && v[9] == 0 ? 0 : std::max(v[1], v[2]);
  return {-v[1] - turned, -v[0] / 2 - lips - turned, v[2] + turned, v[0] / 2 + lips + turned};
}

// A member whose parameters are the first Count values.
template <class Member, std::size_t Count>
KrObject* make(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values) {
  return [&]<std::size_t... I>(std::index_sequence<I...>)->KrObject* {
    return new Member(start, end, static_cast<KrVistas>(view), values[I]...);
  }
  (std::make_index_sequence<Count>());
}

// The view stands behind the dimensions.
KrObject* makeISoldado(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& v) {
  return new KrISoldado(start, end, v[0], v[1], v[2], v[3], v[4], v[5], static_cast<KrVistas>(view), v[6], v[7]);
}

constexpr ProfileClass kRows[] = {
    {"KrBox", kBox, settleBox, boxBox, make<KrBox, 5>, 4},
    {"KrUDobrado", kU, settleU, boxU, make<KrUDobrado, 9>, 7},
    {"KrZDobrado", kZ, settleU, boxZ, make<KrZDobrado, 10>, 7},
    {"KrCartola", kCartola, settleCartola, boxCartola, make<KrCartola, 6>, 5},
    {"KrCaixaDobrado", kCaixa, settleCaixa, boxCaixa, make<KrCaixaDobrado, 7>, 5},
    {"KrIDobrado", kIDobrado, settleIDobrado, boxIDobrado, make<KrIDobrado, 8>, 6},
    {"KrCantoneiraDobrada", kCantoneira, settleCantoneira, boxCantoneira, make<KrCantoneiraDobrada, 7>, 5},
    {"KrCantTDobrada", kPair, settlePair, boxPair, make<KrCantTDobrada, 7>, 5},
    {"KrCantUDobrada", kPair, settlePair, boxPair, make<KrCantUDobrada, 7>, 5},
    {"KrXDobrado", kX, settleX, boxX, make<KrXDobrado, 8>, 6},
    {"KrISoldado", kISoldado, settleISoldado, boxISoldado, makeISoldado, 6},
};

}  // namespace

std::span<const ProfileClass> foldedClasses() {
  return kRows;
}

}  // namespace kr
