#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/Inches.h"

namespace {

std::wstring inches(double mm, int quote = 0) {
  wchar_t text[32];
  FormatInInches(mm, text, quote);
  return text;
}

TEST(Inches, AreNotTurnedToMillimetres) {
  EXPECT_EQ(InchToMM(1, 1, 2), 1.5);
  EXPECT_EQ(InchToMM(0, 3, 8), 0.375);
}

TEST(Inches, AreWrittenWhole) {
  EXPECT_EQ(inches(25.4, 1), L"1\"");
  EXPECT_EQ(inches(254.0), L"10");
  EXPECT_EQ(inches(0.0), L"");
  EXPECT_EQ(inches(0.0, 1), L"\"");
}

TEST(Inches, AreWrittenWithAFraction) {
  EXPECT_EQ(inches(12.7), L"1/2");
  EXPECT_EQ(inches(28.575), L"1 1/8");
  EXPECT_EQ(inches(28.575, 1), L"1 1/8\"");
  EXPECT_EQ(inches(25.4 * 2.75), L"2 3/4");
  EXPECT_EQ(inches(25.4 * 31 / 32), L"31/32");
}

TEST(Inches, DropAFractionBelowAThirtySecond) {
  EXPECT_EQ(inches(0.1), L"");
  EXPECT_EQ(inches(25.4 + 0.79), L"1");
  EXPECT_EQ(inches(25.4 * 0.03125), L"1/32");
}

TEST(Inches, AreNeverRoundedUpToTheNextOne) {
  EXPECT_EQ(inches(25.3999), L"31/32");
}

TEST(Inches, OfATieTakeTheSmallerDenominatorFirst) {
  // Half way between 1/2 and 17/32: both miss by 1/64, and 1/2 was tried first.
  EXPECT_EQ(inches(25.4 * (0.5 + 1.0 / 64)), L"1/2");
}

TEST(Inches, OfEveryThirtySecondAreWrittenInLowestTerms) {
  for (int i = 32; i < 96; ++i) {
    int numerator = i % 32;
    int denominator = 32;
    while (numerator != 0 && numerator % 2 == 0) {
      numerator /= 2;
      denominator /= 2;
    }
    const std::wstring whole = std::to_wstring(i / 32);
    const std::wstring expected =
        numerator == 0 ? whole : whole + L" " + std::to_wstring(numerator) + L"/" + std::to_wstring(denominator);
    EXPECT_EQ(inches(i * 25.4 / 32 + 1e-9), expected) << i;
  }
}

TEST(Inches, OfNoNumberAreNone) {
  EXPECT_EQ(inches(std::nan("")), L"");
  EXPECT_EQ(inches(HUGE_VAL), L"");
}

}  // namespace
