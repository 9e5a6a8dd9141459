#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/os/os.h"

namespace {

std::wstring length(double value, int unit, int precision) {
  wchar_t text[400] = L"";
  EXPECT_EQ(acdbRToS(value, unit, precision, text), RTNORM);
  return text;
}

/// A drawing of its own, so that variables are the test's.
class LengthText : public ::testing::Test {
 protected:
  LengthText() { acDocManagerPtr()->newDocument(); }
  ~LengthText() override { acDocManagerPtr()->closeAllDocuments(); }

  static void setVar(const wchar_t* name, short value) {
    resbuf rb{};
    rb.restype = RTSHORT;
    rb.resval.rint = value;
    ASSERT_EQ(acedSetVar(name, &rb), RTNORM);
  }
};

TEST_F(LengthText, HasFiveModes) {
  EXPECT_EQ(length(17.5, 1, 4), L"1.7500E+01");
  EXPECT_EQ(length(17.5, 2, 2), L"17.50");
  EXPECT_EQ(length(17.5, 3, 2), L"1'-5.50\"");
  EXPECT_EQ(length(17.5, 4, 2), L"1'-5 1/2\"");
  EXPECT_EQ(length(17.5, 5, 2), L"17 1/2");
}

TEST_F(LengthText, DecimalsHaveEachPrecision) {
  const wchar_t* const expected[] = {L"3",       L"3.1",      L"3.14",      L"3.142",     L"3.1416",
                                     L"3.14159", L"3.141593", L"3.1415927", L"3.14159265"};
  for (int precision = 0; precision <= 8; ++precision) {
    EXPECT_EQ(length(3.14159265358979, 2, precision), expected[precision]);
  }
}

TEST_F(LengthText, ScientificHasEachPrecision) {
  EXPECT_EQ(length(1234.5678, 1, 0), L"1E+03");
  EXPECT_EQ(length(1234.5678, 1, 1), L"1.2E+03");
  EXPECT_EQ(length(1234.5678, 1, 3), L"1.235E+03");
  EXPECT_EQ(length(1234.5678, 1, 8), L"1.23456780E+03");
  EXPECT_EQ(length(0.00012, 1, 2), L"1.20E-04");
  EXPECT_EQ(length(0.0, 1, 2), L"0.00E+00");
  EXPECT_EQ(length(0.0, 1, 0), L"0E+00");
  EXPECT_EQ(length(9.996, 1, 2), L"1.00E+01");
  EXPECT_EQ(length(1e100, 1, 1), L"1.0E+100");
}

TEST_F(LengthText, TiesGoAwayFromZero) {
  EXPECT_EQ(length(0.125, 2, 2), L"0.13");
  EXPECT_EQ(length(2.5, 2, 0), L"3");
  EXPECT_EQ(length(-2.5, 2, 0), L"-3");
  EXPECT_EQ(length(12.5, 1, 1), L"1.3E+01");
  EXPECT_EQ(length(0.03125, 5, 4), L"1/16");
}

TEST_F(LengthText, ValueThatIsNoTieGoesToTheNearest) {
  // 2.675 as a double lies below the tie, 1.005 too.
  EXPECT_EQ(length(2.675, 2, 2), L"2.67");
  EXPECT_EQ(length(1.005, 2, 2), L"1.00");
}

TEST_F(LengthText, FractionsHaveEachDenominatorAndAreReduced) {
  EXPECT_EQ(length(0.7, 5, 0), L"1");
  EXPECT_EQ(length(0.7, 5, 1), L"1/2");
  EXPECT_EQ(length(0.7, 5, 2), L"3/4");
  EXPECT_EQ(length(0.7, 5, 3), L"3/4");    // 5.6 eighths
  EXPECT_EQ(length(0.7, 5, 4), L"11/16");  // 11.2
  EXPECT_EQ(length(0.7, 5, 5), L"11/16");  // 22.4 of 32
  EXPECT_EQ(length(0.7, 5, 6), L"45/64");  // 44.8
  EXPECT_EQ(length(0.7, 5, 7), L"45/64");  // 89.6 of 128 rounds to 90
  EXPECT_EQ(length(0.7, 5, 8), L"179/256");
  EXPECT_EQ(length(0.0, 5, 4), L"0");
  EXPECT_EQ(length(40.0, 5, 4), L"40");
}

TEST_F(LengthText, FractionThatRoundsToAFootCarries) {
  setVar(L"DIMZIN", 1);
  EXPECT_EQ(length(11.9999, 4, 4), L"1'-0\"");
  EXPECT_EQ(length(11.9999, 3, 2), L"1'-0.00\"");
  EXPECT_EQ(length(23.99, 4, 3), L"2'-0\"");
}

TEST_F(LengthText, FeetAndInchesKeepOrDropZerosByDimzin) {
  struct Row {
    short dimzin;
    const wchar_t* half;
    const wchar_t* six;
    const wchar_t* foot;
    const wchar_t* footAndFraction;
  };
  const Row rows[] = {{0, L"1/2\"", L"6\"", L"1'", L"1'-0 3/4\""},
                      {1, L"0'-0 1/2\"", L"0'-6\"", L"1'-0\"", L"1'-0 3/4\""},
                      {2, L"0'-0 1/2\"", L"0'-6\"", L"1'", L"1'-0 3/4\""},
                      {3, L"1/2\"", L"6\"", L"1'-0\"", L"1'-0 3/4\""}};
  for (const Row& row : rows) {
    setVar(L"DIMZIN", row.dimzin);
    EXPECT_EQ(length(0.5, 4, 4), row.half) << row.dimzin;
    EXPECT_EQ(length(6.0, 4, 4), row.six) << row.dimzin;
    EXPECT_EQ(length(12.0, 4, 4), row.foot) << row.dimzin;
    EXPECT_EQ(length(12.75, 4, 4), row.footAndFraction) << row.dimzin;
  }
}

TEST_F(LengthText, DecimalZerosAreDroppedByDimzin) {
  setVar(L"DIMZIN", 4);
  EXPECT_EQ(length(0.5, 2, 2), L".50");
  setVar(L"DIMZIN", 8);
  EXPECT_EQ(length(0.5, 2, 2), L"0.5");
  EXPECT_EQ(length(100.0, 2, 2), L"100");
  setVar(L"DIMZIN", 12);
  EXPECT_EQ(length(-0.5, 2, 2), L"-.5");
  EXPECT_EQ(length(0.0, 2, 2), L"0");
}

TEST_F(LengthText, NegativeOnesHaveASignUnlessTheyRoundToNothing) {
  EXPECT_EQ(length(-17.5, 4, 2), L"-1'-5 1/2\"");
  EXPECT_EQ(length(-17.5, 5, 2), L"-17 1/2");
  EXPECT_EQ(length(-1234.5, 1, 2), L"-1.23E+03");
  EXPECT_EQ(length(-0.001, 2, 2), L"0.00");
  EXPECT_EQ(length(-0.01, 5, 2), L"0");
}

TEST_F(LengthText, MinusOneTakesTheDrawingsUnits) {
  setVar(L"LUNITS", 5);
  setVar(L"LUPREC", 1);
  EXPECT_EQ(length(2.5, -1, -1), L"2 1/2");
  setVar(L"LUNITS", 2);
  EXPECT_EQ(length(2.26, -1, -1), L"2.3");
}

TEST_F(LengthText, RefusesWhatItDoesntKnow) {
  wchar_t text[400];
  EXPECT_EQ(acdbRToS(1.0, 0, 2, text), RTERROR);
  EXPECT_EQ(acdbRToS(1.0, 6, 2, text), RTERROR);
  EXPECT_EQ(acdbRToS(1.0, 2, 9, text), RTERROR);
  EXPECT_EQ(acdbRToS(1.0, 2, -2, text), RTERROR);
  EXPECT_EQ(acdbRToS(std::numeric_limits<double>::infinity(), 2, 2, text), RTERROR);
  EXPECT_EQ(acdbRToS(std::nan(""), 2, 2, text), RTERROR);
  EXPECT_EQ(acdbRToS(1.0, 2, 2, nullptr), RTERROR);
}

TEST_F(LengthText, LargestNumbersFit) {
  EXPECT_EQ(length(std::numeric_limits<double>::max(), 2, 8).size(), 309U + 9U);
  EXPECT_EQ(length(1e17, 5, 8), L"100000000000000000");
}

TEST_F(LengthText, ReadsBackWhatItWrites) {
  for (const double value : {0.0, 0.5, 6.25, 17.5, 1234.0625, -31.75}) {
    for (int unit = 1; unit <= 5; ++unit) {
      double read = 0.0;
      const std::wstring text = length(value, unit, 8);
      EXPECT_EQ(acdbDisToF(text.c_str(), unit, &read), RTNORM) << os::toUtf8(text);
      EXPECT_NEAR(read, value, 1e-5) << os::toUtf8(text);
    }
  }
}

TEST_F(LengthText, ReadsTypedForms) {
  double value = 0.0;
  EXPECT_EQ(acdbDisToF(L"1'-6\"", 4, &value), RTNORM);
  EXPECT_EQ(value, 18.0);
  EXPECT_EQ(acdbDisToF(L"2'", 4, &value), RTNORM);
  EXPECT_EQ(value, 24.0);
  EXPECT_EQ(acdbDisToF(L"3-1/2", 5, &value), RTNORM);
  EXPECT_EQ(value, 3.5);
  EXPECT_EQ(acdbDisToF(L"1.5e2", 2, &value), RTNORM);
  EXPECT_EQ(value, 150.0);
  EXPECT_EQ(acdbDisToF(L"1'", 2, &value), RTERROR);
  EXPECT_EQ(acdbDisToF(L"", 2, &value), RTERROR);
  EXPECT_EQ(acdbDisToF(L"1x", 2, &value), RTERROR);
  EXPECT_EQ(acdbDisToF(L"1/0", 2, &value), RTERROR);
}

TEST_F(LengthText, AnglesHaveFiveUnits) {
  wchar_t text[400];
  const auto angle = [&](double degrees, int unit, int precision) {
    EXPECT_EQ(acdbAngToS(degrees * kAcutPi / 180.0, unit, precision, text), RTNORM);
    return std::wstring(text);
  };
  EXPECT_EQ(angle(30.0, 0, 1), L"30.0");
  EXPECT_EQ(angle(-90.0, 0, 0), L"270");
  EXPECT_EQ(angle(30.5, 1, 2), L"30d30'");
  EXPECT_EQ(angle(90.0, 2, 0), L"100g");
  EXPECT_EQ(angle(180.0, 3, 2), L"3.14r");
  EXPECT_EQ(angle(45.0, 4, 0), L"N 45d E");
  double read = 0.0;
  EXPECT_EQ(acdbAngToF(L"N 45d W", 4, &read), RTNORM);
  EXPECT_DOUBLE_EQ(read, 0.75 * kAcutPi);
  EXPECT_EQ(acdbAngToF(L"45d30'", 0, &read), RTNORM);
  EXPECT_DOUBLE_EQ(read, 45.5 * kAcutPi / 180.0);
}

}  // namespace
