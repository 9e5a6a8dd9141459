#include <gmock/gmock.h>

#include <cmath>
#include <string>

#include "host/gi/AcGiTextStyle.h"
#include "host/gi/StyleFont.h"
#include "host/gi/TextLayout.h"

namespace {

struct Box {
  AcGePoint2d least, greatest;
};

Box boxOf(const AcGiTextStyle& style, const ACHAR* text, bool penups = false, bool raw = true, int length = -1) {
  Box box;
  style.extentsBox(text, length, penups, raw, box.least, box.greatest);
  return box;
}

AcGiTextStyle styleOf(double size, double xScale = 1.0, double oblique = 0.0) {
  return AcGiTextStyle(L"osifont.ttf", L"", size, xScale, oblique);
}

std::wstring plain(std::wstring_view text, bool raw = false) {
  std::wstring result;
  for (const gi::TextCharacter& c : gi::readTextCodes(text, raw)) result += c.character;
  return result;
}

TEST(TextStyle, SizeIsTheHeightOfACapital) {
  const Box box = boxOf(styleOf(3.5), L"H");
  EXPECT_NEAR(box.least.y, 0.0, 1e-9);
  EXPECT_NEAR(box.greatest.y, 3.5, 1e-9);
}

TEST(TextStyle, BoxGrowsInProportionToSizeAndWidth) {
  const Box one = boxOf(styleOf(1.0), L"Treliça 12");
  const Box large = boxOf(styleOf(5.0, 0.6), L"Treliça 12");
  EXPECT_NEAR(large.greatest.x, one.greatest.x * 3.0, 1e-9);
  EXPECT_NEAR(large.least.y, one.least.y * 5.0, 1e-9);
}

TEST(TextStyle, DescendersReachBelowTheLine) {
  EXPECT_LT(boxOf(styleOf(1.0), L"gpq").least.y, -0.1);
}

TEST(TextStyle, SlantMovesTheTopByItsTangent) {
  const double angle = 0.25;
  for (const double xScale : {1.0, 0.5}) {
    // A font whose H has square corners, on the line and at the capital height.
    AcGiTextStyle style(L"DejaVu Sans", L"", 2.0, xScale, 0.0);
    const Box upright = boxOf(style, L"H");
    style.setObliquingAngle(angle);
    const Box slanted = boxOf(style, L"H");
    // The font's points are rounded to 1/2048 of its em.
    constexpr double kUnit = 2.0 / 0.7 / 2048.0;
    EXPECT_NEAR(slanted.greatest.x - upright.greatest.x, 2.0 * std::tan(angle), kUnit) << xScale;
    EXPECT_NEAR(slanted.least.x, upright.least.x, kUnit);
  }
}

TEST(TextStyle, BlanksCountOnlyWithPenups) {
  const AcGiTextStyle style = styleOf(1.0);
  EXPECT_EQ(boxOf(style, L"A  ").greatest.x, boxOf(style, L"A").greatest.x);
  EXPECT_GT(boxOf(style, L"A  ", true).greatest.x, boxOf(style, L"A", true).greatest.x + 0.5);
}

TEST(TextStyle, TakesNoMoreThanTheLengthAskedFor) {
  const AcGiTextStyle style = styleOf(1.0);
  EXPECT_EQ(boxOf(style, L"ABC", false, true, 1).greatest.x, boxOf(style, L"A").greatest.x);
}

TEST(TextStyle, EmptyAndNullTextHaveAnEmptyBox) {
  for (const ACHAR* text : {static_cast<const ACHAR*>(nullptr), L""}) {
    const Box box = boxOf(styleOf(2.5), text);
    EXPECT_EQ(box.greatest.x - box.least.x, 0.0);
    EXPECT_EQ(box.greatest.y - box.least.y, 0.0);
  }
}

TEST(TextStyle, BackwardAndUpsideDownMirrorTheBox) {
  AcGiTextStyle style = styleOf(1.0);
  const Box plainBox = boxOf(style, L"Ag");
  style.setBackward(true);
  style.setUpsideDown(true);
  const Box mirrored = boxOf(style, L"Ag");
  EXPECT_DOUBLE_EQ(mirrored.least.x, -plainBox.greatest.x);
  EXPECT_DOUBLE_EQ(mirrored.greatest.y, -plainBox.least.y);
}

TEST(TextStyle, ReadsCodesUnlessRaw) {
  EXPECT_EQ(plain(L"%%c12 %%p0,5 45%%D 10%%%"), L"\u00d812 \u00b10,5 45\u00b0 10%");
  EXPECT_EQ(plain(L"%%065%%066"), L"AB");
  EXPECT_EQ(plain(L"%%c", true), L"%%c");
  EXPECT_EQ(plain(L"%%x %% 50%"), L"%%x %% 50%");
  EXPECT_EQ(plain(L"%%06"), L"%%06");
}

TEST(TextStyle, UnderlinesFromCodeToCode) {
  const auto text = gi::readTextCodes(L"a%%ub%%oc%%ud", false);
  ASSERT_EQ(text.size(), 4U);
  EXPECT_FALSE(text[0].underlined);
  EXPECT_TRUE(text[1].underlined && !text[1].overlined);
  EXPECT_TRUE(text[2].underlined && text[2].overlined);
  EXPECT_TRUE(!text[3].underlined && text[3].overlined);
}

TEST(TextStyle, UnderlineIsOneRuleThatCountsInTheBox) {
  const gi::TextLayout layout = gi::layOutText(L"%%uabc", false, *gi::Font::standard(), 0.0);
  ASSERT_EQ(layout.rules.size(), 1U);
  EXPECT_EQ(layout.rules[0].fromX, 0.0);
  EXPECT_DOUBLE_EQ(layout.rules[0].toX, layout.advance);
  EXPECT_EQ(layout.minY, gi::TextLayout::kUnderlineY);
}

TEST(TextStyle, ControlCharactersAreBlanks) {
  EXPECT_EQ(plain(std::wstring(L"a\tb\n\0c", 6)), L"a b  c");
}

TEST(TextStyle, StandardLetteringIsTheNamedFont) {
  ASSERT_NE(gi::Font::standard(), nullptr);
  EXPECT_EQ(gi::Font::standard()->family(), gi::Font::kStandardFamily);
  EXPECT_EQ(AcGiTextStyle().loadStyleRec(), 0);
  EXPECT_EQ(AcGiTextStyle(L"simplex.shx", L"", 1, 1, 0).loadStyleRec(), 0);
}

TEST(TextStyle, SaysWhenAnotherFontStandsIn) {
  AcGiTextStyle style(L"No Such Font.ttf", L"", 1, 1, 0);
  EXPECT_EQ(style.loadStyleRec(), 1);
  EXPECT_EQ(style.setFont(L"No Such Font Either", false, false), Acad::eKeyNotFound);
  EXPECT_EQ(style.setFont(L"DejaVu Sans", true, false), Acad::eOk);
  EXPECT_EQ(style.loadStyleRec(), 0);
}

TEST(TextStyle, CharactersThatTheFontLacksComeFromAnother) {
  ASSERT_EQ(gi::Font::standard()->glyph(L'\u2192').index, 0U);
  const gi::TextLayout layout = gi::layOutText(L"a\u2192", true, *gi::Font::standard(), 0.0);
  ASSERT_EQ(layout.glyphs.size(), 2U);
  EXPECT_EQ(layout.glyphs[1].font, gi::Font::fallback());
  EXPECT_EQ(layout.missing, 0);
}

}  // namespace
