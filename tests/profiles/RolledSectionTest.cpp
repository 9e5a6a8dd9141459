// The sections of all rolled classes: closed, sound, of the area and length that follow from their dimensions, and seen
// from four sides as an independent judge sees them.

#include <gtest/gtest.h>

#include "RolledSamples.h"
#include "SectionChecks.h"
#include "object/ElevationView.h"

namespace {

using rolled::kPi;
using rolled::Sample;

class RolledSection : public testing::TestWithParam<Sample> {};

std::string nameOf(const testing::TestParamInfo<Sample>& info) {
  std::string name;
  for (const char c : info.param.name)
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
  return name;
}

}  // namespace

TEST_P(RolledSection, OutlineHasItsContoursClosedAndFreeOfCrossings) {
  const oracle::Outline outline = section::contoursOf(*GetParam().make(Superior, 0));
  EXPECT_EQ(static_cast<int>(outline.size()), GetParam().contours);
  EXPECT_EQ(section::crossingsOf(outline), 0);
}

TEST_P(RolledSection, AreaOfTheOutlineIsThatOfTheDimensions) {
  const double area = section::areaOf(section::contoursOf(*GetParam().make(Superior, 0)));
  EXPECT_NEAR(area, GetParam().section.area, 1e-9 * area);
}

TEST_P(RolledSection, PerimeterIsThatOfTheDimensions) {
  double length = 0.0;
  for (const oracle::Contour& contour : section::contoursOf(*GetParam().make(Superior, 0))) {
    length += section::perimeterOf(contour);
  }
  EXPECT_NEAR(length, GetParam().section.perimeter, 1e-9 * length);
  for (const double turn : {0.0, 37.0 * kPi / 180.0}) {
    EXPECT_NEAR(GetParam().make(Superior, turn)->getPerimetro(), GetParam().perimeter, 1e-6) << turn;
  }
}

TEST_P(RolledSection, DrawsAsLongAsItsOutlineInTheSectionView) {
  for (const KrVistas vista : {Secao, SecaoVerso}) {
    const std::unique_ptr<KrObject> bar = GetParam().make(vista, 0.3);
    double length = 0.0;
    for (int i = 0; i < bar->GetNumVertex(VistaCorrente); ++i) {
      KrVector element;
      bar->GetVector(i, element);
      EXPECT_TRUE(element.type() == KR_VT_LINHA || element.type() == KR_VT_ARCO);
      length += element.len();
    }
    EXPECT_NEAR(length, GetParam().section.perimeter, 1e-6) << vista;
  }
}

// A bar in an elevation keeps the walked section in the list of the section view.
TEST_P(RolledSection, CalculatingTheSectionLeavesItsEdgesInTheSectionsList) {
  const std::unique_ptr<KrObject> bar = GetParam().make(Superior, 0.3);
  ASSERT_GT(bar->GetNumVertex(Secao), 0);
  double length = 0.0;
  for (int i = 0; i < bar->GetNumVertex(Secao); ++i) {
    KrVector element;
    bar->GetVector(Secao, i, element);
    length += element.len();
  }
  // The walk rounds the first toe of a channel as the other: a hair shorter than the outline.
  EXPECT_NEAR(length, GetParam().section.perimeter - GetParam().section.excess, 1e-6);
}

TEST_P(RolledSection, ElevationsShowWhatTheOutlineShows) {
  for (const double degrees : {0.0, 90.0, 180.0, 270.0, 37.0}) {
    const double turn = degrees * kPi / 180.0;
    for (const KrVistas vista : oracle::kElevations) {
      const std::unique_ptr<KrObject> bar = GetParam().make(vista, turn);
      const oracle::Outline outline = section::contoursOf(*bar);
      std::string why;
      EXPECT_TRUE(
          oracle::same(oracle::look(oracle::lookedAt(outline, vista, turn)), oracle::drawnView(*bar, vista), &why))
          << "view " << vista << " turned by " << degrees << ": " << why;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, RolledSection, testing::ValuesIn(rolled::samples()), nameOf);
