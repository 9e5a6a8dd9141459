#include <algorithm>
#include <cmath>
#include <numbers>

#include "ProfileRows.h"
#include "profiles/Kr2ULaminado.h"
#include "profiles/KrBNDuplaLaminada.h"
#include "profiles/KrBNLaminado.h"
#include "profiles/KrCantCruzLaminada.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/KrCantLaminadaCaixa.h"
#include "profiles/KrCantTEELaminada.h"
#include "profiles/KrCantULaminada.h"
#include "profiles/KrCantZLaminada.h"
#include "profiles/KrILaminadoUSA.h"
#include "profiles/KrULaminado.h"
#include "profiles/KrUULaminado.h"

namespace kr {
namespace {

constexpr ProfileParameter kHeight{"Altura", true, "height of the section, mm"};
constexpr ProfileParameter kWidth{"Largura", true, "width of the section or of a flange, mm"};
constexpr ProfileParameter kWeb{"Espessura", true, "thickness of the web, mm"};
constexpr ProfileParameter kFlange{"EspMedia", true, "mean thickness of a flange, half-way along its overhang, mm"};
constexpr ProfileParameter kReach{"DeslocF", false, "from a flange's outer face to the end of the root fillet, mm"};
constexpr ProfileParameter kRoot{"RaioDobra", true, "root fillet, mm", Range::kZeroOrMore};
constexpr ProfileParameter kToe{"Raio1", false, "toe fillet, mm", Range::kZeroOrMore};
constexpr ProfileParameter kLegHeight{"Altura", true, "length of the upright leg, mm"};
constexpr ProfileParameter kLegWidth{"Largura", true, "length of the lying leg, mm"};
constexpr ProfileParameter kLeg{"Espessura", true, "thickness of the legs, mm"};
constexpr ProfileParameter kGap{"Afastamento", false, "gap between the halves, mm", Range::kZeroOrMore};
constexpr ProfileParameter kCentreX{"EixoX", true, "from the heel to the centre of gravity along the lying leg, mm",
                                    Range::kSigned};
constexpr ProfileParameter kCentreY{"EixoY", true, "from the upright leg's toe to the centre of gravity, mm",
                                    Range::kSigned};
constexpr ProfileParameter kBack{"EixoX", false, "from the web's back to the centre of gravity, mm",
                                 Range::kZeroOrMore};

constexpr ProfileParameter kI[] = {kHeight,
                                   kWidth,
                                   kWeb,
                                   kReach,
                                   {"Inclinacao", false, "slope of the flanges' inner faces, degrees", Range::kSlope},
                                   kRoot,
                                   kToe,
                                   kFlange,
                                   kTurnParameter,
                                   kAreaParameter,
                                   kWeightParameter,
                                   {"tipo", false, "kind of I, 0, 1 or 2", Range::kKind, 1}};
constexpr ProfileParameter kU[] = {kHeight, kWidth,  kWeb,           kReach,         kRoot,           kToe,
                                   kBack,   kFlange, kTurnParameter, kAreaParameter, kWeightParameter};
constexpr ProfileParameter kUU[] = {kHeight, kWidth,  kWeb,           kGap,           kReach, kRoot,
                                    kToe,    kFlange, kTurnParameter, kAreaParameter, kBack,  kWeightParameter};
constexpr ProfileParameter k2U[] = {kHeight, kWidth, kWeb,    kGap,           kReach,         kRoot,
                                    kToe,    kBack,  kFlange, kTurnParameter, kAreaParameter, kWeightParameter};
constexpr ProfileParameter kBN[] = {{"Aba", true, "length of the legs, mm"},
                                    kLeg,
                                    {"EixoX", false, "from the start to the bar's axis, mm", Range::kSigned},
                                    kRoot,
                                    kTurnParameter,
                                    kWeightParameter,
                                    kAreaParameter};
constexpr ProfileParameter kBNDupla[] = {{"Aba", true, "length of the legs, mm"},
                                         kLeg,
                                         kGap,
                                         kRoot,
                                         {"EixoX", false, "to the centre of gravity of a half, mm", Range::kSigned},
                                         kTurnParameter,
                                         kAreaParameter,
                                         kWeightParameter};
constexpr ProfileParameter kL[] = {kLegHeight,     kLegWidth,        kLeg,          kCentreX, kCentreY, kRoot,
                                   kTurnParameter, kWeightParameter, kAreaParameter};
constexpr ProfileParameter kLBox[] = {kLegHeight,     kLegWidth,        kLeg,          kRoot,
                                      kTurnParameter, kWeightParameter, kAreaParameter};
constexpr ProfileParameter kLPair[] = {
    kLegHeight,
    kLegWidth,
    kLeg,
    {"EixoX", false, "to the centre of gravity of a half along the lying leg, mm", Range::kSigned},
    {"EixoY", false, "to the centre of gravity of a half along the upright leg, mm", Range::kSigned},
    kRoot,
    kGap,
    kTurnParameter,
    kWeightParameter,
    kAreaParameter};
constexpr ProfileParameter kLZ[] = {kLegHeight,
                                    kLegWidth,
                                    kLeg,
                                    kRoot,
                                    {"AfastamentoH", false, "gap between the halves across, mm", Range::kZeroOrMore},
                                    {"AfastamentoV", false, "gap between the halves upwards, mm", Range::kZeroOrMore},
                                    kTurnParameter,
                                    kWeightParameter,
                                    kAreaParameter};
constexpr ProfileParameter kLCross[] = {
    kLegHeight,
    kLegWidth,
    kLeg,
    kRoot,
    {"AfastamentoHor", false, "gap between the halves across, mm", Range::kZeroOrMore},
    {"AfastamentoVer", false, "gap between the halves upwards, mm", Range::kZeroOrMore},
    kTurnParameter,
    kWeightParameter,
    kAreaParameter};

// The weight that follows from the area when none is given.
void weigh(const GivenParameters& given, ParameterValues& values, std::size_t area, std::size_t weight) {
  if (!given.has(weight)) values[weight] = values[area] * kSteel;
}

// A flange of the rolled I or channel: `overhang` from web to tip.
struct Flange {
  double overhang;
  double slope;
  double root;
  double toe;

  double tangent() const { return std::tan((std::numbers::pi / 2 - slope) / 2); }
  double rise() const { return std::tan(slope) * overhang; }
  // From the outer face to the fillet's end on the web, for a mean thickness.
  double reach(double mean) const { return mean + rise() / 2 + tangent() * root; }
};

struct FlangePlaces {
  std::size_t reach;
  std::size_t root;
  std::size_t toe;
  std::size_t mean;
};

// Places common to every rolled I and channel.
constexpr std::size_t kAltura = 0;
constexpr std::size_t kLargura = 1;
constexpr std::size_t kEspessura = 2;

bool settleFlanges(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem,
                   const FlangePlaces& at, const Flange& flange) {
  if (flange.overhang <= 0) {
    problem = {"Espessura", "the web is as thick as the section is wide: \"Espessura\" must be less than \"Largura\""};
    return false;
  }
  if (!given.has(at.reach)) values[at.reach] = flange.reach(values[at.mean]);
  const double tip = values[at.reach] - flange.rise() - flange.tangent() * flange.root;
  const std::string_view blamed = given.has(at.reach) ? "DeslocF" : "EspMedia";
  if (tip < kSectionRounding) {
    problem = {blamed, "the flange is thinner than nothing at its tip: " + std::string(blamed) + " is too small"};
    return false;
  }
  if (tip < flange.tangent() * flange.toe - kSectionRounding) {
    problem = {"Raio1", "the toe fillet doesn't fit the flange's tip: \"Raio1\" is too great"};
    return false;
  }
  if (flange.overhang / std::cos(flange.slope) < flange.tangent() * (flange.root + flange.toe) - kSectionRounding) {
    problem = {"RaioDobra",
               "the fillets don't fit the flange: \"RaioDobra\" and \"Raio1\" are too great for its width"};
    return false;
  }
  if (values[kAltura] < 2 * values[at.reach] - kSectionRounding) {
    problem = {"Altura", "flanges and root fillets are higher than the section: \"Altura\" is too small"};
    return false;
  }
  return true;
}

bool settleI(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  enum : std::size_t { kDeslocF = 3, kInclinacao, kRaioDobra, kRaio1, kEspMedia, kAngleSecao, kArea, kKgMetro };
  weigh(given, values, kArea, kKgMetro);
  const Flange flange{(values[kLargura] - values[kEspessura]) / 2, values[kInclinacao], values[kRaioDobra],
                      values[kRaio1]};
  return settleFlanges(given, values, problem, {kDeslocF, kRaioDobra, kRaio1, kEspMedia}, flange);
}

bool settleChannel(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem,
                   const FlangePlaces& at, std::size_t centre) {
  if (!given.has(centre)) values[centre] = values[kLargura] / 3;
  const Flange flange{values[kLargura] - values[kEspessura], kChannelSlope, values[at.root], values[at.toe]};
  return settleFlanges(given, values, problem, at, flange);
}

bool settleU(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  enum : std::size_t { kDeslocF = 3, kRaioDobra, kRaio1, kEixoX, kEspMedia, kAngleSecao, kArea, kKgMetro };
  weigh(given, values, kArea, kKgMetro);
  return settleChannel(given, values, problem, {kDeslocF, kRaioDobra, kRaio1, kEspMedia}, kEixoX);
}

bool settleUU(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  enum : std::size_t { kDeslocF = 4, kRaioDobra, kRaio1, kEspMedia, kAngleSecao, kArea, kEixoX, kKgMetro };
  weigh(given, values, kArea, kKgMetro);
  return settleChannel(given, values, problem, {kDeslocF, kRaioDobra, kRaio1, kEspMedia}, kEixoX);
}

bool settle2U(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  enum : std::size_t { kDeslocF = 4, kRaioDobra, kRaio1, kEixoX, kEspMedia, kAngleSecao, kArea, kKgMetro };
  weigh(given, values, kArea, kKgMetro);
  return settleChannel(given, values, problem, {kDeslocF, kRaioDobra, kRaio1, kEspMedia}, kEixoX);
}

// Both toes are as round as the legs are thick.
bool legsFit(double height, double width, double thickness, double root, bool equal, ParameterProblem& problem) {
  if (std::min(height, width) <= thickness) {
    problem = {"Espessura", "the legs are thicker than long: \"Espessura\" is too great"};
    return false;
  }
  if (std::min(height, width) >= 2 * thickness + root - kSectionRounding) return true;
  problem = {"RaioDobra", std::string("the root fillet and the toe don't fit the leg: ") +
                              (equal ? "\"Aba\"" : "\"Altura\" and \"Largura\"") +
                              " must be at least twice \"Espessura\" and \"RaioDobra\""};
  return false;
}

template <std::size_t Root, std::size_t Area, std::size_t Weight>
bool settleLegs(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  weigh(given, values, Area, Weight);
  return legsFit(values[0], values[1], values[2], values[Root], false, problem);
}

bool settlePair(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  enum : std::size_t { kEixoX = 3, kEixoY, kRaioDobra, kAfastamento, kAngleSecao, kKgMetro, kArea };
  if (!given.has(kEixoY)) values[kEixoY] = values[kAltura] * 2 / 3;
  return settleLegs<kRaioDobra, kArea, kKgMetro>(given, values, problem);
}

template <std::size_t Area, std::size_t Weight>
bool settleTurned(const GivenParameters& given, ParameterValues& values, ParameterProblem& problem) {
  constexpr std::size_t kRaioDobra = 3;
  weigh(given, values, Area, Weight);
  return legsFit(values[0], values[0], values[1], values[kRaioDobra], true, problem);
}

SectionBox centred(double width, double height) {
  return {-width / 2, -height / 2, width / 2, height / 2};
}
SectionBox boxI(const ParameterValues& v) {
  return centred(v[kLargura], v[kAltura]);
}
SectionBox boxU(const ParameterValues& v) {
  constexpr std::size_t kEixoX = 6;
  return {-v[kEixoX], -v[kAltura] / 2, v[kLargura] - v[kEixoX], v[kAltura] / 2};
}
SectionBox boxOfTwoU(const ParameterValues& v) {
  constexpr std::size_t kAfastamento = 3;
  return centred(2 * v[kLargura] + v[kAfastamento], v[kAltura]);
}
SectionBox boxL(const ParameterValues& v) {
  constexpr std::size_t kEixoX = 3;
  constexpr std::size_t kEixoY = 4;
  return {-v[kEixoX], -v[kEixoY], v[kLargura] - v[kEixoX], v[kAltura] - v[kEixoY]};
}
// The toes of a turned angle stand out past the ends of its legs' outer faces.
double turnedWidth(double leg, double thickness) {
  return (leg + thickness * (std::numbers::sqrt2 - 1)) / std::numbers::sqrt2;
}
SectionBox boxBN(const ParameterValues& v) {
  constexpr std::size_t kEixoX = 2;
  const double half = v[0] / std::numbers::sqrt2;
  return {-half - v[kEixoX], -half, turnedWidth(v[0], v[1]) - half - v[kEixoX], half};
}
SectionBox boxBNDupla(const ParameterValues& v) {
  constexpr std::size_t kAfastamento = 2;
  return centred(2 * turnedWidth(v[0], v[1]) + v[kAfastamento], v[0] * std::numbers::sqrt2);
}
SectionBox boxOfLBox(const ParameterValues& v) {
  const double toe = v[kEspessura] * (std::numbers::sqrt2 - 1);
  return centred(v[kLargura] + toe, v[kAltura] + toe);
}
SectionBox boxOfLPair(const ParameterValues& v) {
  constexpr std::size_t kAfastamento = 6;
  const double half = v[kLargura] + v[kAfastamento] / 2;
  return {-half, 0, half, v[kAltura]};
}
SectionBox boxOfLCross(const ParameterValues& v) {
  constexpr std::size_t kAcross = 4;
  constexpr std::size_t kUpwards = 5;
  return centred(2 * v[kLargura] + v[kAcross], 2 * v[kAltura] + v[kUpwards]);
}

// A member whose parameters are the first Count values.
template <class Member, std::size_t Count>
KrObject* make(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values) {
  return [&]<std::size_t... I>(std::index_sequence<I...>)->KrObject* {
    return new Member(start, end, static_cast<KrVistas>(view), values[I]...);
  }
  (std::make_index_sequence<Count>());
}

KrObject* makeI(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& v) {
  constexpr std::size_t kTipo = 11;
  return new KrILaminadoUSA(start, end, static_cast<KrVistas>(view), v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7],
                            v[8], v[9], v[10], static_cast<ISolType>(static_cast<int>(v[kTipo])));
}

// The constructor between two points takes no weight.
KrObject* makeUU(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& v) {
  constexpr std::size_t kKgMetro = 11;
  auto* const member = new KrUULaminado(start, end, static_cast<KrVistas>(view), v[0], v[1], v[2], v[3], v[4], v[5],
                                        v[6], v[7], v[8], v[9], v[10]);
  member->setKgMetro(v[kKgMetro]);
  return member;
}

// The constructor takes the width over both halves in the gap's place.
KrObject* makeLZ(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& v) {
  constexpr std::size_t kAfastamentoH = 4;
  ParameterValues values = v;
  values[kAfastamentoH] += 2 * v[kLargura];
  return make<KrCantZLaminada, 9>(start, end, view, values);
}

constexpr ProfileClass kRows[] = {
    {"KrILaminadoUSA", kI, settleI, boxI, makeI, 8},
    {"KrULaminado", kU, settleU, boxU, make<KrULaminado, 11>, 8},
    {"KrUULaminado", kUU, settleUU, boxOfTwoU, makeUU, 8},
    {"Kr2ULaminado", k2U, settle2U, boxOfTwoU, make<Kr2ULaminado, 12>, 9},
    {"KrCantLaminada", kL, settleLegs<5, 8, 7>, boxL, make<KrCantLaminada, 9>, 6},
    {"KrCantLaminadaCaixa", kLBox, settleLegs<3, 6, 5>, boxOfLBox, make<KrCantLaminadaCaixa, 7>, 4},
    {"KrCantTEELaminada", kLPair, settlePair, boxOfLPair, make<KrCantTEELaminada, 10>, 7},
    {"KrCantULaminada", kLPair, settlePair, boxOfLPair, make<KrCantULaminada, 10>, 7},
    {"KrCantZLaminada", kLZ, settleLegs<3, 8, 7>, boxOfLCross, makeLZ, 6},
    {"KrCantCruzLaminada", kLCross, settleLegs<3, 8, 7>, boxOfLCross, make<KrCantCruzLaminada, 9>, 6},
    {"KrBNLaminado", kBN, settleTurned<6, 5>, boxBN, make<KrBNLaminado, 7>, 4},
    {"KrBNDuplaLaminada", kBNDupla, settleTurned<6, 7>, boxBNDupla, make<KrBNDuplaLaminada, 8>, 5},
};

}  // namespace

std::span<const ProfileClass> rolledClasses() {
  return kRows;
}

}  // namespace kr
