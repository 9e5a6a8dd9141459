// Numbers of a table against the standard library's reading of the same text: to the last bit.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "lib/Catalogue.h"

namespace {

constexpr double kNotUsed = -99;

// The diameter of the one row of a table of tubes.
double diameterOf(const std::string& text) {
  kr::Catalogue catalogue;
  catalogue.addText("my.csv", "# shape: tube\ndesignation,D,t\nT," + text + ",1\n");
  return catalogue.rows().empty() ? kNotUsed : catalogue.value(catalogue.rows()[0], kr::CatalogueColumn::kD);
}

TEST(TableNumbers, AreTheNearestDoubles) {
  std::mt19937 random(20240803);
  std::uniform_int_distribution<int> digit('0', '9');
  std::uniform_int_distribution<std::size_t> before(1, 8);
  std::uniform_int_distribution<std::size_t> behind(0, 12);
  for (int i = 0; i < 20000; ++i) {
    std::string text = "1";
    for (std::size_t n = before(random); n > 0; --n) text += static_cast<char>(digit(random));
    if (const std::size_t n = behind(random); n > 0) {
      text += '.';
      for (std::size_t k = 0; k < n; ++k) text += static_cast<char>(digit(random));
    }
    EXPECT_EQ(diameterOf(text), std::strtod(text.c_str(), nullptr)) << text;
  }
}

TEST(TableNumbers, MayBeWrittenInAnyFormOfADecimal) {
  EXPECT_EQ(diameterOf("0114.30"), 114.3);
  EXPECT_EQ(diameterOf("1.143e2"), 114.3);
  EXPECT_EQ(diameterOf("114."), 114);
  EXPECT_EQ(diameterOf(".5"), 0.5);
  EXPECT_EQ(diameterOf("0.1000000000000000055511151231257827"), 0.1);
  EXPECT_EQ(diameterOf("1000000000"), 1e9);
}

TEST(TableNumbers, AreNothingElse) {
  for (const char* text :
       {"1.2.3", "1..2", ".", "1,2", "12a", "--1", "0x10", "nan", "inf", "0", "0.0", "-1", "1000000001"})
    EXPECT_EQ(diameterOf(text), kNotUsed) << text;
}

}  // namespace
