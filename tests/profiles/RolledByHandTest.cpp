// Elevations of the rolled classes drawn by hand, against what their outlines show; and the places of their virtual
// accessors.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

#include "RolledSamples.h"
#include "SectionChecks.h"
#include "object/ElevationView.h"

namespace {

using rolled::kPi;
using rolled::Sample;

class RolledByHand : public testing::TestWithParam<Sample> {};

std::string nameOf(const testing::TestParamInfo<Sample>& info) {
  std::string name;
  for (const char c : info.param.name)
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
  return name;
}

/// The channel alone counts its whole height to both sides: it has tests of its own. The others stand here.
std::vector<Sample> allButTheChannel() {
  std::vector<Sample> some;
  for (const Sample& each : rolled::samples())
    if (each.name != "KrULaminado") some.push_back(each);
  return some;
}

void drawByHand(KrObject& bar) {
  const auto draw = [](auto* own) {
    if (own == nullptr) return;
    own->CalculeSuperior();
    own->CalculeInferior();
    own->CalculeEsquerda();
    own->CalculeDireita();
  };
  draw(dynamic_cast<KrUULaminado*>(&bar));
  draw(dynamic_cast<Kr2ULaminado*>(&bar));
  draw(dynamic_cast<KrILaminadoUSA*>(&bar));
  draw(dynamic_cast<KrBNLaminado*>(&bar));
  draw(dynamic_cast<KrBNDuplaLaminada*>(&bar));
  draw(dynamic_cast<KrCantLaminada*>(&bar));
  draw(dynamic_cast<KrCantLaminadaCaixa*>(&bar));
  draw(dynamic_cast<KrCantTEELaminada*>(&bar));
  draw(dynamic_cast<KrCantULaminada*>(&bar));
  draw(dynamic_cast<KrCantZLaminada*>(&bar));
  draw(dynamic_cast<KrCantCruzLaminada*>(&bar));
}

/// The place of a virtual function in the table of its class; -1 for one that isn't virtual.
template <class Function>
std::ptrdiff_t slotOf(Function function) {
  std::ptrdiff_t words[2];
  static_assert(sizeof(Function) == sizeof words, "as the platform's binary interface has it");
  std::memcpy(words, &function, sizeof words);
  constexpr std::ptrdiff_t kWord = sizeof(void*);
  return (words[0] & 1) != 0 && words[0] < 4096 ? words[0] / kWord : -1;
}

template <class Member>
using Getter = Acad::ErrorStatus (Member::*)(double&) const;
template <class Member>
using Setter = Acad::ErrorStatus (Member::*)(double);

/// Getter before setter, one parameter behind the other, behind the base's last.
template <class Member>
void expectSlots(const std::vector<std::pair<Getter<Member>, Setter<Member>>>& accessors) {
  std::ptrdiff_t before = slotOf(&KrObject::GeratrizLength);
  ASSERT_GT(before, 0);
  for (const auto& [get, set] : accessors) {
    EXPECT_EQ(slotOf(get), before + 1);
    EXPECT_EQ(slotOf(set), before + 2);
    before += 2;
  }
}
#define SLOTS(NAME) \
  { &M::NAME, &M::set##NAME }

}  // namespace

// Where a line by hand and an edge of the outline are one, they are both seen or both hidden; and by hand the section
// is as wide as it is, but for the round toes of an angle on its corner, which no dimension tells.
TEST_P(RolledByHand, LinesAreSeenAsTheOutlineShowsThem) {
  const bool onCorner = GetParam().name.starts_with("KrBN");
  for (int quarter = 0; quarter < 4; ++quarter) {
    const double turn = quarter * (kPi / 2);
    const std::unique_ptr<KrObject> bar = GetParam().make(Secao, turn);
    drawByHand(*bar);
    for (const KrVistas vista : oracle::kElevations) {
      const oracle::View seen = oracle::look(oracle::lookedAt(section::contoursOf(*bar), vista, turn));
      const oracle::View drawn = oracle::drawnView(*bar, vista);
      const auto [low, high] = std::minmax_element(seen.sides.begin(), seen.sides.end());
      double least = 1e300, most = -1e300;
      int together = 0;
      for (const oracle::Line& line : drawn.lines) {
        least = std::fmin(least, line.x);
        most = std::fmax(most, line.x);
        for (const double side : seen.sides) together += std::fabs(side - line.x) < 0.01 ? 1 : 0;
        bool stands = false;
        bool alike = false;
        for (const oracle::Line& edge : seen.lines) {
          if (std::fabs(edge.x - line.x) > 0.01) continue;
          stands = true;
          alike = alike || edge.visible == line.visible;
        }
        together += stands ? 1 : 0;
        EXPECT_EQ(stands, alike) << "view " << vista << ", quarter " << quarter << ", at " << line.x
                                 << (line.visible ? " seen by hand" : " hidden by hand");
      }
      // A channel's first toe stands out by a hair.
      const double allowed = onCorner ? 8.0 * (1.0 - std::sqrt(0.5)) + 0.01 : 0.02;
      EXPECT_NEAR(least, *low, allowed) << "view " << vista << ", quarter " << quarter;
      EXPECT_NEAR(most, *high, allowed) << "view " << vista << ", quarter " << quarter;
      EXPECT_GE(together, 2) << "view " << vista << ", quarter " << quarter;
    }
  }
}

TEST_P(RolledByHand, AnyOtherTurnShowsTheAxisAlone) {
  const std::unique_ptr<KrObject> bar = GetParam().make(Secao, 0.5);
  drawByHand(*bar);
  for (const KrVistas vista : oracle::kElevations) EXPECT_EQ(bar->GetNumVertex(vista), 1);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, RolledByHand, testing::ValuesIn(allButTheChannel()), nameOf);

TEST(RolledAccessors, OfAnglesAreVirtualInTheirOrder) {
  {
    using M = KrBNLaminado;
    expectSlots<M>({SLOTS(Aba), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(EixoX), SLOTS(KgMetro), SLOTS(Area)});
  }
  {
    using M = KrBNDuplaLaminada;
    expectSlots<M>({SLOTS(Aba), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(EixoX), SLOTS(KgMetro), SLOTS(Area),
                    SLOTS(Afastamento)});
  }
  {
    using M = KrCantLaminada;
    expectSlots<M>({SLOTS(Altura), SLOTS(Largura), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(EixoX), SLOTS(EixoY),
                    SLOTS(Area), SLOTS(KgMetro)});
  }
  {
    using M = KrCantLaminadaCaixa;
    expectSlots<M>({SLOTS(Altura), SLOTS(Largura), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(EixoX), SLOTS(EixoY),
                    SLOTS(Area), SLOTS(KgMetro)});
  }
  {
    using M = KrCantTEELaminada;
    expectSlots<M>({SLOTS(Altura), SLOTS(Largura), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(Afastamento), SLOTS(EixoX),
                    SLOTS(EixoY), SLOTS(Area), SLOTS(KgMetro)});
  }
  {
    using M = KrCantULaminada;
    expectSlots<M>({SLOTS(Altura), SLOTS(Largura), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(Afastamento), SLOTS(EixoX),
                    SLOTS(EixoY), SLOTS(Area), SLOTS(KgMetro)});
  }
  {
    using M = KrCantZLaminada;
    expectSlots<M>({SLOTS(Altura), SLOTS(Largura), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(AfastamentoH),
                    SLOTS(AfastamentoV), SLOTS(EixoX), SLOTS(EixoY), SLOTS(Area), SLOTS(KgMetro)});
  }
  {
    using M = KrCantCruzLaminada;
    expectSlots<M>({SLOTS(Altura), SLOTS(Largura), SLOTS(Espessura), SLOTS(RaioDobra), SLOTS(AfastamentoHor),
                    SLOTS(AfastamentoVer), SLOTS(EixoX), SLOTS(EixoY), SLOTS(Area), SLOTS(KgMetro)});
  }
}

TEST(RolledAccessors, OfChannelsAndOfTheIAreOrdinary) {
  EXPECT_EQ(slotOf(Getter<KrULaminado>(&KrULaminado::Altura)), -1);
  EXPECT_EQ(slotOf(Getter<KrUULaminado>(&KrUULaminado::Afastamento)), -1);
  EXPECT_EQ(slotOf(Getter<Kr2ULaminado>(&Kr2ULaminado::Afastamento)), -1);
  EXPECT_EQ(slotOf(Getter<KrILaminadoUSA>(&KrILaminadoUSA::Altura)), -1);
}
