// The sections made from a middle line: closed, sound, of the area, length and place that follow from their dimensions,
// and seen from four sides as an independent judge sees them.

#include <gtest/gtest.h>

#include "FoldedSamples.h"
#include "object/ElevationView.h"

namespace {

using folded::kPi;
using folded::Sample;

class FoldedSection : public testing::TestWithParam<Sample> {
 protected:
  static bool hollow() { return GetParam().name == "hollow section"; }
};

/// The samples whose box follows from their dimensions by a simple formula.
std::vector<Sample> boxed() {
  std::vector<Sample> all = folded::samples();
  std::erase_if(all, [](const Sample& sample) { return sample.box.minX > sample.box.maxX; });
  return all;
}

class FoldedBox : public testing::TestWithParam<Sample> {};

std::string nameOf(const testing::TestParamInfo<Sample>& info) {
  std::string name;
  for (const char c : info.param.name)
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
  return name;
}

}  // namespace

TEST_P(FoldedSection, OutlineHasItsContoursClosedAndFreeOfCrossings) {
  const oracle::Outline outline = section::contoursOf(*GetParam().make(Superior, 0));
  EXPECT_EQ(static_cast<int>(outline.size()), GetParam().contours);
  EXPECT_EQ(section::crossingsOf(outline), 0);
}

TEST_P(FoldedSection, AreaIsThatOfTheDimensionsAndOfTheOutline) {
  const std::unique_ptr<KrObject> bar = GetParam().make(Secao, 0);
  const double ofOutline = folded::areaOf(section::contoursOf(*bar), hollow());
  EXPECT_NEAR(ofOutline, GetParam().area, 1e-9 * GetParam().area);
  EXPECT_NEAR(bar->getArea(), GetParam().area, 1e-9 * GetParam().area);
}

TEST_P(FoldedSection, OutlineIsAsLongAsItsDimensionsTell) {
  double length = 0.0;
  for (const oracle::Contour& contour : section::contoursOf(*GetParam().make(Superior, 0)))
    length += section::perimeterOf(contour);
  EXPECT_NEAR(length, GetParam().outline, 1e-9 * length);
}

TEST_P(FoldedSection, PerimeterIsWhatTheClassTellsOfIt) {
  for (const double turn : {0.0, 37.0 * kPi / 180.0}) {
    for (const KrVistas vista : {Superior, Secao}) {
      EXPECT_NEAR(GetParam().make(vista, turn)->getPerimetro(), GetParam().perimeter, 1e-6) << turn;
    }
  }
}

TEST_P(FoldedBox, LiesAboutItsOriginAsItsDimensionsTell) {
  const section::Box& expected = GetParam().box;
  const section::Box box = section::boxOf(section::contoursOf(*GetParam().make(Superior, 0)));
  EXPECT_NEAR(box.minX, expected.minX, 1e-9);
  EXPECT_NEAR(box.minY, expected.minY, 1e-9);
  EXPECT_NEAR(box.maxX, expected.maxX, 1e-9);
  EXPECT_NEAR(box.maxY, expected.maxY, 1e-9);
}

TEST_P(FoldedSection, DrawsAsLongAsItsOutlineInTheSectionViews) {
  for (const KrVistas vista : {Secao, SecaoVerso}) {
    const std::unique_ptr<KrObject> bar = GetParam().make(vista, 0.3);
    double length = 0.0;
    for (int i = 0; i < bar->GetNumVertex(VistaCorrente); ++i) {
      KrVector element;
      bar->GetVector(i, element);
      EXPECT_TRUE(element.type() == KR_VT_LINHA || element.type() == KR_VT_ARCO);
      length += element.len();
    }
    EXPECT_NEAR(length, GetParam().outline, 1e-6) << vista;
  }
}

// The strips' lengths times their thicknesses are the metal.
TEST_P(FoldedSection, StripsAreThicknessAndDevelopedLengthInTurn) {
  const std::unique_ptr<KrObject> bar = GetParam().make(Superior, 0);
  const AcArray<double> strips = bar->GeratrizLength();
  ASSERT_EQ(strips.length(), hollow() ? 2 : 2 * GetParam().contours);
  double area = 0.0;
  for (int i = 0; i < strips.length(); i += 2) area += strips[i] * strips[i + 1];
  EXPECT_NEAR(area, GetParam().area, 1e-9 * area);
}

TEST_P(FoldedSection, ElevationsShowWhatTheOutlineShows) {
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

INSTANTIATE_TEST_SUITE_P(Catalogue, FoldedSection, testing::ValuesIn(folded::samples()), nameOf);
INSTANTIATE_TEST_SUITE_P(Catalogue, FoldedBox, testing::ValuesIn(boxed()), nameOf);
