#include <gmock/gmock.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>

#include "host/os/os.h"

namespace {

using os::formatted;

TEST(Format, TakesWideTextForSAndNarrowForHs) {
  EXPECT_EQ(formatted(L"[%s|%ls|%hs|%S|%c|%hc|%C]", L"aço", L"vão", "via", "UTF \xC3\xA7", L'é', 'x', 'y'),
            L"[aço|vão|via|UTF ç|é|x|y]");
}

TEST(Format, PrintsNullTextsAsSuch) {
  EXPECT_EQ(formatted(L"%s %hs", static_cast<const wchar_t*>(nullptr), static_cast<const char*>(nullptr)),
            L"(null) (null)");
}

TEST(Format, CutsAndFillsTexts) {
  EXPECT_EQ(formatted(L"[%5s|%-5s|%.2s|%*s|%.*s]", L"abc", L"abc", L"abc", -4, L"ab", 1, L"xyz"),
            L"[  abc|abc  |ab|ab  |x]");
}

TEST(Format, DoesNotReadBehindTheGivenPrecision) {
  const wchar_t open[2] = {L'a', L'b'};
  EXPECT_EQ(formatted(L"%.2s", open), L"ab");
}

TEST(Format, PrintsIntegers) {
  EXPECT_EQ(formatted(L"%d %i %u %x %X %o", -5, 7, 4294967295U, 255, 255, 8), L"-5 7 4294967295 ff FF 10");
  EXPECT_EQ(formatted(L"0x%08x", 9), L"0x00000009");
  EXPECT_EQ(formatted(L"[%+d|% d|%-4d|%04d|%.3d|%5.3d|%#x|%#o]", 5, 5, 5, -5, 5, 5, 255, 8),
            L"[+5| 5|5   |-005|005|  005|0xff|010]");
  EXPECT_EQ(formatted(L"%ld %lld %I64d %hd %hhd %Iu", -6L, -7LL, std::int64_t{8}, 65537, 257, std::size_t{9}),
            L"-6 -7 8 1 1 9");
  EXPECT_EQ(formatted(L"%d %lld", std::numeric_limits<int>::min(), std::numeric_limits<long long>::min()),
            L"-2147483648 -9223372036854775808");
  EXPECT_EQ(formatted(L"[%.0d]", 0), L"[]");
}

TEST(Format, PrintsRealNumbers) {
  EXPECT_EQ(formatted(L"%f %6.4f %.0f %lf %8.2f|%-8.2f|%08.2f", 1.5, 2.0 / 3.0, 2.5, -0.25, 3.14159, 3.14159, -3.14159),
            L"1.500000 0.6667 2 -0.250000     3.14|3.14    |-0003.14");
  EXPECT_EQ(formatted(L"%g %g %g %G %e %.2E", 100000.0, 1000000.0, 0.0001, 1e-10, 12345.678, 12345.678),
            L"100000 1e+06 0.0001 1E-10 1.234568e+04 1.23E+04");
  EXPECT_EQ(formatted(L"%f %F %+f", std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                      std::numeric_limits<double>::infinity()),
            L"inf -INF +inf");
  EXPECT_EQ(formatted(L"%f", -0.0), L"-0.000000");
}

TEST(Format, PrintsRealNumbersAsTheSystemDoesInThePlainLocale) {
  std::mt19937_64 random(7);
  char expected[2000];
  const char* const narrow[] = {"%f",    "%.3f",     "%12.4f",   "%e", "%.0e", "%g",
                                "%.10g", "%-20.8g|", "%+012.3f", "%a", "%#.0f"};
  const wchar_t* const wide[] = {L"%f",    L"%.3f",     L"%12.4f",   L"%e", L"%.0e", L"%g",
                                 L"%.10g", L"%-20.8g|", L"%+012.3f", L"%a", L"%#.0f"};
  for (int i = 0; i < 2000; ++i) {
    const double size = std::ldexp(1.0, static_cast<int>(random() % 200) - 100);
    const double value = (static_cast<double>(random() % 2000001) - 1000000.0) * size;
    for (std::size_t form = 0; form < std::size(narrow); ++form) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
      std::snprintf(expected, sizeof expected, narrow[form], value);
#pragma GCC diagnostic pop
      // Hexadecimal forms may differ in their first digit and still be right.
      if (narrow[form][1] == 'a') continue;
      ASSERT_EQ(os::toUtf8(formatted(wide[form], value)), expected);
    }
  }
}

TEST(Format, PrintsTheLargestNumbersWhole) {
  char expected[400];
  std::snprintf(expected, sizeof expected, "%f", std::numeric_limits<double>::max());
  EXPECT_EQ(os::toUtf8(formatted(L"%f", std::numeric_limits<double>::max())), expected);
}

TEST(Format, NeverGoesByLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "pt_BR.UTF-8", "C.UTF-8"}) std::setlocale(LC_ALL, name);
  EXPECT_EQ(formatted(L"%.1f", 1234567.5), L"1234567.5");
  std::setlocale(LC_ALL, before.c_str());
}

TEST(Format, InvalidConversionPrintsItsCharacterAndReadsNoArgument) {
  EXPECT_EQ(formatted(L"%f,%f%,%f", 1.0, 2.0, 3.0), L"1.000000,2.000000,3.000000");
  EXPECT_EQ(formatted(L"100%!%d", 5), L"100!5");
  EXPECT_EQ(formatted(L"%*,%d", 5), L",5");
}

TEST(Format, PercentSignTwiceIsOne) {
  EXPECT_EQ(formatted(L"100%%"), L"100%");
}

TEST(Format, LonePercentSignAtTheEndPrintsNothing) {
  EXPECT_EQ(formatted(L"50%"), L"50");
}

TEST(Format, UnfinishedConversionPrintsNothingMoreAndReadsNoArgument) {
  EXPECT_EQ(formatted(L"\n%s, id: 0x%08", L"AcDbLayerTableRecord"), L"\nAcDbLayerTableRecord, id: 0x");
  EXPECT_EQ(formatted(L"%d%*", 1), L"1");
  EXPECT_EQ(formatted(L"%d%ll", 1), L"1");
  EXPECT_EQ(formatted(L"%d%.", 1), L"1");
}

TEST(Format, PointersHaveSixteenDigits) {
  EXPECT_EQ(formatted(L"%p", reinterpret_cast<void*>(std::uintptr_t{0xabc})), L"0000000000000ABC");
}

TEST(Format, LimitsTheWidthOfAField) {
  EXPECT_EQ(formatted(L"%99999999999d", 1).size(), 65536U);
}

TEST(Format, IntoABufferIsCutAndEnded) {
  wchar_t buffer[5];
  EXPECT_EQ(_snwprintf(buffer, 5, L"%s", L"abcd"), 4);
  EXPECT_STREQ(buffer, L"abcd");
  EXPECT_EQ(_snwprintf(buffer, 5, L"%s", L"abcde"), -1);
  EXPECT_STREQ(buffer, L"abcd");
}

}  // namespace
