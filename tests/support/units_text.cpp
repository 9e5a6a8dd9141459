#include <gtest/gtest.h>

#include <string>

#include "support/NumberText.h"

namespace {

TEST(NumberText, OfZeroIsEmpty) {
  double zero = 0.0;
  EXPECT_STREQ(FormatInString(0), L"");
  EXPECT_STREQ(FormatInString(0.0), L"");
  EXPECT_STREQ(FormatInString(&zero), L"");
  EXPECT_STREQ(FormatInString(static_cast<double*>(nullptr)), L"");
}

TEST(NumberText, OfAWholeNumberHasNoDecimals) {
  EXPECT_STREQ(FormatInString(2.0), L"2");
  EXPECT_STREQ(FormatInString(-17), L"-17");
  EXPECT_STREQ(FormatInString(1250.0), L"1250");
}

TEST(NumberText, OfAnyOtherHasTwo) {
  double value = 3.14159;
  EXPECT_STREQ(FormatInString(2.5), L"2.50");
  EXPECT_STREQ(FormatInString(&value), L"3.14");
}

TEST(NumberText, IsOverwrittenByTheNext) {
  const wchar_t* first = FormatInString(1);
  FormatInString(2.5);
  EXPECT_STREQ(first, L"2.50");
}

}  // namespace
