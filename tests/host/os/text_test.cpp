#include <gmock/gmock.h>

#include <climits>
#include <cstdlib>

#include "host/os/os.h"

namespace {

TEST(Utf8, GoesBothWaysForEveryLengthOfCharacter) {
  const std::wstring text = L"Aç€\U0001F529";
  const std::string bytes = "A\xC3\xA7\xE2\x82\xAC\xF0\x9F\x94\xA9";
  EXPECT_EQ(os::toUtf8(text), bytes);
  EXPECT_EQ(os::toWide(bytes), text);
  EXPECT_TRUE(os::isUtf8(bytes));
}

TEST(Utf8, RefusesIllFormedBytes) {
  for (const char* bytes : {"\x80", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                            "\xF8\x88", "\xC3", "\xE2\x82", "\xF0\x9F\x94", "\xC3\x28"}) {
    EXPECT_FALSE(os::isUtf8(bytes)) << ::testing::PrintToString(std::string(bytes));
  }
}

TEST(Utf8, AcceptsTheLimitsOfEachLength) {
  for (const char* bytes : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
                            "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF", "\xEE\x80\x80"}) {
    EXPECT_TRUE(os::isUtf8(bytes)) << ::testing::PrintToString(std::string(bytes));
    EXPECT_EQ(os::toUtf8(os::toWide(bytes)), bytes);
  }
}

TEST(Utf8, TextThatIsntUtf8IsReadAsWindows1252) {
  EXPECT_EQ(os::toWide("Se\xE7\xE3o \x80 \x96"), L"Seção € –");
}

TEST(Utf8, WritesTheReplacementForWhatIsNoCharacter) {
  EXPECT_EQ(os::toUtf8(std::wstring(1, wchar_t(0xD800))), "\xEF\xBF\xBD");
  EXPECT_EQ(os::toUtf8(std::wstring(1, wchar_t(0x110000))), "\xEF\xBF\xBD");
}

TEST(Case, IsDisregardedForAccentedLettersToo) {
  EXPECT_EQ(_wcsicmp(L"l-hidden", L"L-HIDDEN"), 0);
  EXPECT_EQ(_wcsicmp(L"seção ûÿž", L"SEÇÃO ÛŸŽ"), 0);
  EXPECT_EQ(_wcsicmp(L"ось", L"ОСЬ"), 0);
  EXPECT_LT(_wcsicmp(L"abc", L"ABD"), 0);
  EXPECT_GT(_wcsicmp(L"abcd", L"ABC"), 0);
  EXPECT_LT(_wcsicmp(L"", L"a"), 0);
  EXPECT_EQ(os::compareNoCase(L"Eixo", L"eIXO"), 0);
  EXPECT_LT(os::compareNoCase(L"Eixo", L"eIXO2"), 0);
}

TEST(Case, LowerAndUpperAreInverse) {
  for (wchar_t c = 0; c < 0x460; ++c) {
    const wchar_t lower = os::lowerCase(c);
    EXPECT_EQ(os::lowerCase(lower), lower) << int(c);
    // The dotted capital I shares its small letter with the plain one.
    const bool isCapital = lower != c && c != 0x130;
    EXPECT_TRUE(!isCapital || os::upperCase(lower) == c) << int(c);
  }
  EXPECT_EQ(os::lowerCase(L'×'), L'×');
  EXPECT_EQ(os::upperCase(L'÷'), L'÷');
}

TEST(Numbers, AreReadFromTheFrontOfAText) {
  EXPECT_EQ(_wtoi(L" \t-12x"), -12);
  EXPECT_EQ(_wtoi(L"+7"), 7);
  EXPECT_EQ(_wtoi(L"cor"), 0);
  EXPECT_EQ(_wtoi(L""), 0);
  EXPECT_EQ(_wtoi(L"99999999999999999999"), INT_MAX);
  EXPECT_EQ(_wtoi(L"-99999999999999999999"), INT_MIN);
  EXPECT_EQ(_wtoi(L"-2147483648"), INT_MIN);
  EXPECT_DOUBLE_EQ(_wtof(L" -12.5mm"), -12.5);
  EXPECT_DOUBLE_EQ(_wtof(L"+1e3"), 1000);
  EXPECT_DOUBLE_EQ(_wtof(L"x"), 0);
}

TEST(Numbers, AreWrittenInAnyBase) {
  wchar_t buffer[33];
  EXPECT_STREQ(_itow(-12, buffer, 10), L"-12");
  EXPECT_STREQ(_itow(255, buffer, 16), L"ff");
  EXPECT_STREQ(_itow(-1, buffer, 2), L"11111111111111111111111111111111");
  EXPECT_STREQ(_itow(INT_MIN, buffer, 10), L"-2147483648");
}

TEST(Tokens, CountARunOfSeparatorsAsOne) {
  wchar_t text[] = L";EIXO;;6;centro;";
  EXPECT_STREQ(wcstok(text, L";"), L"EIXO");
  EXPECT_STREQ(wcstok(nullptr, L";"), L"6");
  EXPECT_STREQ(wcstok(nullptr, L";"), L"centro");
  EXPECT_EQ(wcstok(nullptr, L";"), nullptr);
}

TEST(Environment, GivesWideTextOrNull) {
  ::setenv("KR_TEST_VARIABLE", "C:\\aço", 1);
  EXPECT_STREQ(_wgetenv(L"KR_TEST_VARIABLE"), L"C:\\aço");
  ::unsetenv("KR_TEST_VARIABLE");
  EXPECT_EQ(_wgetenv(L"KR_TEST_VARIABLE"), nullptr);
}

}  // namespace
