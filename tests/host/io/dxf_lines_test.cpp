// The lines of a DXF: groups, numbers, angles, text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "host/io/CodePage.h"
#include "host/io/dxf/DxfAngle.h"
#include "host/io/dxf/DxfFormat.h"
#include "host/io/dxf/DxfNumber.h"
#include "host/io/dxf/DxfScanner.h"
#include "host/io/dxf/DxfSink.h"
#include "host/io/dxf/DxfText.h"

using namespace krio;
using namespace krio::dxf;

namespace {

std::vector<std::pair<int, std::string>> groupsOf(std::string_view text) {
  Scanner scanner(std::as_bytes(std::span(text)));
  std::vector<std::pair<int, std::string>> groups;
  while (scanner.next()) groups.emplace_back(scanner.code(), std::string(scanner.value()));
  return groups;
}

using Groups = std::vector<std::pair<int, std::string>>;

TEST(PlainAscii, HasNoLetterBeyondNoneOfNothingAndNoReturn) {
  for (std::size_t length = 0; length <= 20; ++length) {
    std::string plain(length, '\x01');
    for (std::size_t i = 0; i < length; i += 3) plain[i] = i % 2 == 0 ? '\x0C' : '\x0E';  // the neighbours of a return
    EXPECT_TRUE(krio::dxf::isPlainAscii(plain)) << length;
    EXPECT_TRUE(krio::dxf::isPlainAscii(std::string(length, '\x7F'))) << length;
    for (std::size_t place = 0; place < length; ++place) {
      for (const char odd : {'\0', '\r', '\x80', '\xFF'}) {
        std::string text = plain;
        text[place] = odd;
        EXPECT_FALSE(krio::dxf::isPlainAscii(text)) << length << " with one at " << place;
      }
    }
  }
}

}  // namespace

TEST(DxfScanner, CutsPairsOfLinesWhateverTheLineEnds) {
  const Groups wanted{{0, "LINE"}, {10, "1.5"}, {1, "a text longer than sixteen bytes"}};
  EXPECT_EQ(groupsOf("  0\nLINE\n 10\n1.5\n  1\na text longer than sixteen bytes\n"), wanted);
  EXPECT_EQ(groupsOf("0\r\nLINE\r\n10\r\n1.5\r\n1\r\na text longer than sixteen bytes\r\n"), wanted);
  EXPECT_EQ(groupsOf("0\nLINE\n10 \n1.5\n1\na text longer than sixteen bytes"), wanted);
}

TEST(DxfScanner, PassesOverCommentsAndAByteOrderMark) {
  EXPECT_EQ(groupsOf("\xEF\xBB\xBF"
                     "999\nwritten by hand\n  0\nEOF\n"),
            (Groups{{0, "EOF"}}));
}

TEST(DxfScanner, KeepsBlanksOfValues) {
  EXPECT_EQ(groupsOf("1\n  two blanks ahead\n"), (Groups{{1, "  two blanks ahead"}}));
}

TEST(DxfScanner, TellsOfALineThatIsNoCode) {
  const std::string_view text = "0\nLINE\nrubbish\n10\n1.0\n";
  Scanner scanner(std::as_bytes(std::span(text)));
  ASSERT_TRUE(scanner.next());
  EXPECT_FALSE(scanner.next());
  EXPECT_TRUE(scanner.fault());
  EXPECT_EQ(scanner.lineNumber(), 3);
  scanner.skipLine();
  ASSERT_TRUE(scanner.next());
  EXPECT_EQ(scanner.code(), 10);
}

TEST(DxfScanner, TakesNoCodeThatAFileCannotHave) {
  for (const char* text : {"-1\nx\n", "1072\nx\n", "99999999999\nx\n", "1 2\nx\n", "0x\nx\n"}) {
    Scanner scanner(std::as_bytes(std::span(std::string_view(text))));
    EXPECT_FALSE(scanner.next()) << text;
    EXPECT_TRUE(scanner.fault()) << text;
  }
}

TEST(DxfScanner, ReadsAGroupAgain) {
  const std::string_view text = "0\nLINE\n8\n0\n";
  Scanner scanner(std::as_bytes(std::span(text)));
  scanner.next();
  scanner.pushBack();
  ASSERT_TRUE(scanner.next());
  EXPECT_EQ(scanner.value(), "LINE");
  scanner.next();
  EXPECT_EQ(scanner.value(), "0");
}

TEST(DxfNumber, ReadsRealsAsTheNearestDouble) {
  const auto read = [](std::string_view text) {
    double value = -99;
    EXPECT_TRUE(parseReal(text, value)) << text;
    return value;
  };
  EXPECT_EQ(read("0.0"), 0.0);
  EXPECT_EQ(read("  1.25 "), 1.25);
  EXPECT_EQ(read("+3"), 3.0);
  EXPECT_EQ(read("-50.31873725478131"), -50.31873725478131);
  EXPECT_EQ(read(".5"), 0.5);
  EXPECT_EQ(read("5."), 5.0);
  EXPECT_EQ(read("1.000000000000000E+20"), 1e20);
  EXPECT_EQ(read("0.1000000000000000055511151231257827"), 0.1);
  EXPECT_EQ(read("123456789012345678"), 123456789012345678.0);
  EXPECT_EQ(read("1e-400"), 0.0);
  EXPECT_TRUE(std::signbit(read("-0.0")));
}

TEST(DxfNumber, RefusesWhatIsNoFiniteNumber) {
  double value = 7;
  for (const char* text :
       {"", " ", "-", ".", "nan", "NaN", "inf", "-inf", "1e999", "1,5", "1.5x", "1 5", "0x10", "--1", "+-1"}) {
    EXPECT_FALSE(parseReal(text, value)) << text;
  }
  EXPECT_EQ(value, 7);
}

TEST(DxfNumber, ReadsIntegersWithinTheirWidth) {
  std::int16_t narrow = 0;
  EXPECT_TRUE(parseInteger("    -7", narrow));
  EXPECT_EQ(narrow, -7);
  EXPECT_TRUE(parseInteger("65535", narrow));
  EXPECT_EQ(narrow, -1);
  EXPECT_FALSE(parseInteger("65536", narrow));
  EXPECT_FALSE(parseInteger("-32769", narrow));
  EXPECT_FALSE(parseInteger("1.5", narrow));
  EXPECT_TRUE(parseInteger("2.0", narrow));
  EXPECT_EQ(narrow, 2);
  std::uint64_t handle = 0;
  EXPECT_TRUE(parseHandle("1aF", handle));
  EXPECT_EQ(handle, 0x1AFU);
  EXPECT_TRUE(parseHandle("FFFFFFFFFFFFFFFF", handle));
  for (const char* text : {"", "G", "-1", "0x1", "10000000000000000"}) EXPECT_FALSE(parseHandle(text, handle)) << text;
}

TEST(DxfFormat, WritesTheFewestDigitsThatReadBack) {
  const auto written = [](double value) {
    char text[kMaxRealLength + 4];
    return std::string(text, formatReal(text, value));
  };
  EXPECT_EQ(written(0.0), "0.0");
  EXPECT_EQ(written(-0.0), "-0.0");
  EXPECT_EQ(written(1.0), "1.0");
  EXPECT_EQ(written(-2.5), "-2.5");
  EXPECT_EQ(written(0.1), "0.1");
  EXPECT_EQ(written(1234.0625), "1234.0625");
  EXPECT_EQ(written(0.0001), "0.0001");
  EXPECT_EQ(written(1e20), "1e+20");
  EXPECT_EQ(written(1.0 / 3.0), "0.3333333333333333");
  EXPECT_EQ(written(123456789012.0), "123456789012.0");
}

TEST(DxfFormat, ReadsBackEveryDouble) {
  std::mt19937_64 random(20261);
  for (int i = 0; i < 200000; ++i) {
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (i % 2 == 0) value = double(std::int64_t(bits % 2000000000) - 1000000000) / (i % 4 == 0 ? 10000.0 : 777.0);
    if (!std::isfinite(value)) continue;
    char text[kMaxRealLength + 4];
    double back = 0;
    ASSERT_TRUE(parseReal({text, std::size_t(formatReal(text, value) - text)}, back));
    ASSERT_EQ(std::memcmp(&back, &value, sizeof value), 0) << value;
  }
}

TEST(DxfFormat, WritesHandles) {
  char text[20];
  EXPECT_EQ(std::string(text, formatHandle(text, 0)), "0");
  EXPECT_EQ(std::string(text, formatHandle(text, 0x1AF0)), "1AF0");
  EXPECT_EQ(std::string(text, formatHandle(text, ~std::uint64_t(0))), "FFFFFFFFFFFFFFFF");
}

TEST(DxfAngle, HasDegreesInTheFile) {
  double radians = 0;
  ASSERT_TRUE(parseDegrees("180", radians));
  EXPECT_DOUBLE_EQ(radians, std::numbers::pi);
  ASSERT_TRUE(parseDegrees(" -90.0", radians));
  EXPECT_DOUBLE_EQ(radians, -std::numbers::pi / 2);
  EXPECT_FALSE(parseDegrees("ninety", radians));
  EXPECT_FALSE(parseDegrees("inf", radians));
}

TEST(DxfAngle, WritesWhatReadsAsTheSameAngle) {
  std::mt19937_64 random(1959);
  std::uniform_real_distribution<double> around(-10.0, 10.0);
  std::uniform_real_distribution<double> exponent(-12.0, 4.0);
  for (int i = 0; i < 100000; ++i) {
    const double radians = i % 3 == 0 ? std::pow(10.0, exponent(random)) : around(random);
    char text[kMaxWideLength + 4];
    double back = 0;
    ASSERT_TRUE(parseDegrees({text, std::size_t(formatDegrees(text, radians) - text)}, back));
    ASSERT_EQ(back, radians);
  }
}

TEST(DxfAngle, KeepsRoundDegrees) {
  for (int degrees = 0; degrees <= 3600; ++degrees) {
    const std::string text = std::to_string(degrees / 10) + "." + std::to_string(degrees % 10);
    double radians = 0;
    ASSERT_TRUE(parseDegrees(text, radians));
    char again[kMaxWideLength + 4];
    double back = 0;
    const std::string second(again, formatDegrees(again, radians));
    ASSERT_TRUE(parseDegrees(second, back));
    EXPECT_EQ(back, radians) << text;
    EXPECT_EQ(second, text);
  }
}

TEST(CodePage, GoesByNameOrNumber) {
  EXPECT_EQ(CodePage().decode("a\xE7o \x80"), L"a\u00E7o \u20AC");
  EXPECT_EQ(CodePage::named("ansi_1251").decode("\xD1\xF2"), L"\u0421\u0442");
  EXPECT_EQ(CodePage::named("ANSI_1251").encode(L"\u0421\u0442"), "\xD1\xF2");
  EXPECT_EQ(CodePage::numbered(29).name(), "ANSI_1251");
  EXPECT_EQ(CodePage::named("ANSI_1252").number(), 30);
  EXPECT_EQ(CodePage::named("ANSI_932").decode("\x93\xFA\x96\x7B x"), L"\u65E5\u672C x");
}

TEST(CodePage, ReadsEscapesInEveryPage) {
  EXPECT_EQ(CodePage().encode(L"\u0421"), "\\U+0421");
  EXPECT_EQ(CodePage().decode("\\U+0421"), L"\u0421");
  EXPECT_EQ(CodePage::named("UTF-8").decode("\xC3\xA9 \\U+0421"), L"\u00E9 \u0421");
}

TEST(CodePage, ReadsAnUnknownPageAsTheUsualOne) {
  EXPECT_EQ(CodePage::named("unheard of").decode("\xE7"), L"\u00E7");
  EXPECT_EQ(CodePage::named("unheard of").name(), "unheard of");
}

TEST(DxfText, EscapesControlCharactersAndTheCaret) {
  std::string bytes;
  encodeText(CodePage(), L"a^b\nc\t\u00E9\u0421", bytes);
  EXPECT_EQ(bytes, "a^ b^Jc^I\xE9\\U+0421");
  std::wstring text;
  decodeText(CodePage(), bytes, text);
  EXPECT_EQ(text, L"a^b\nc\t\u00E9\u0421");
}

TEST(DxfText, LeavesACaretAloneThatEscapesNothing) {
  std::wstring text;
  decodeText(CodePage(), "x^2^", text);
  EXPECT_EQ(text, L"x^2^");
}

TEST(DxfSink, LaysOutGroupsAsHostsDo) {
  std::vector<std::byte> bytes;
  const CodePage page;
  Sink sink(bytes, page, 0);
  sink.start("LINE");
  sink.handle(5, 0x2A);
  sink.int16(70, -3);
  sink.int32(90, 12);
  sink.point(10, AcGePoint3d(1, 2.5, -3));
  sink.angle(50, std::numbers::pi / 2);
  sink.text(1, L"caf\u00E9");
  const std::byte chunk[] = {std::byte(0x0F), std::byte(0xA0)};
  sink.binary(310, chunk);
  sink.finish();
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()),
            "  0\nLINE\n  5\n2A\n 70\n    -3\n 90\n       12\n 10\n1.0\n 20\n2.5\n 30\n-3.0\n 50\n90.0\n  "
            "1\ncaf\xE9\n310\n0FA0\n");
}

TEST(DxfSink, CutsLongRunsOfBytes) {
  std::vector<std::byte> bytes;
  const CodePage page;
  Sink sink(bytes, page, 0);
  const std::vector<std::byte> run(128, std::byte(1));
  sink.binary(310, run);
  sink.finish();
  // A full line of 127 bytes and one of the last byte.
  EXPECT_EQ(bytes.size(), 4U + 254U + 1U + 4U + 2U + 1U);
}
