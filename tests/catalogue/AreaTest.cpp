#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>

#include "SectionFormulas.h"
#include "lib/CatalogueProfile.h"
#include "profiles/SectionChecks.h"

namespace {

using formula::C;
using kr::CatalogueShape;

// A series as docs/catalogue.md describes it: in per cent, how far the published areas are from the standard's shape,
// and from it the drawn ones; how far the masses are from the areas.
struct Series {
  double published = 0;
  double mass = 0;
  double drawnLow = 0;
  double drawnHigh = 0;
};

// Rows "| `eu_ipe` | 58 | ... | 0.57 | 0.77 | exact |" or "| -1.20 to -0.31 |".
std::map<std::string, std::pair<int, Series>> documentedSeries() {
  std::map<std::string, std::pair<int, Series>> found;
  std::ifstream file(KR_SOURCE_DIR "/docs/catalogue.md");
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("| `")) continue;
    std::vector<std::string> cells;
    std::istringstream row(line.substr(1));
    for (std::string cell; std::getline(row, cell, '|');) {
      const std::size_t begin = cell.find_first_not_of(" `");
      cells.push_back(begin == std::string::npos ? "" : cell.substr(begin, cell.find_last_not_of(" `") - begin + 1));
    }
    if (cells.size() < 7 || cells[4].find_first_of("0123456789") != 0) continue;
    Series series{std::stod(cells[4]), std::stod(cells[5]), 0, 0};
    if (cells[6] != "exact") {
      series.drawnLow = std::stod(cells[6]);
      series.drawnHigh = std::stod(cells[6].substr(cells[6].find("to") + 2));
    }
    found[cells[0]] = {std::stoi(cells[1]), series};
  }
  return found;
}

std::unique_ptr<KrObject> drawn(const kr::Catalogue& catalogue, const kr::CatalogueRow& row) {
  const kr::CatalogueProfile profile = profileOf(catalogue, row);
  kr::ParameterValues values{};
  kr::ParameterProblem problem;
  EXPECT_TRUE(settleParameters(*profile.profileClass, profile.given, values, problem))
      << row.designation << ": " << problem.message;
  AcGePoint3d start(0, 0, 0), end(1000, 0, 0);
  return std::unique_ptr<KrObject>(profile.profileClass->make(start, end, 0, values));
}

double outlineArea(const KrObject& member, CatalogueShape shape) {
  const oracle::Outline outline = section::contoursOf(member);
  const bool hollow = shape == CatalogueShape::kTube || shape == CatalogueShape::kBox;
  EXPECT_EQ(outline.size(), hollow ? 2U : 1U);
  double area = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    area += (i == 0 ? 1 : -1) * std::fabs(oracle::area(outline[i]));
  }
  return area;
}

class EveryRow : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(catalogue_.addFolder(KR_SOURCE_DIR "/data/catalogue"));
    for (const kr::CatalogueProblem& problem : catalogue_.problems()) ADD_FAILURE() << describe(problem);
  }

  // Calls visit(row, numbers, shape) for every row; a table without rows is a failure.
  template <class Visit>
  void visit(Visit each) {
    for (const kr::CatalogueTable& table : catalogue_.tables()) {
      SCOPED_TRACE(table.name);
      EXPECT_GT(table.rowCount, 0U);
      for (std::uint32_t i = 0; i < table.rowCount; ++i) {
        const kr::CatalogueRow& row = catalogue_.rows()[table.firstRow + i];
        each(table, row, formula::Row{catalogue_, row});
      }
    }
  }

  kr::Catalogue catalogue_;
};

TEST_F(EveryRow, EnclosesTheAreaThatTheFormulaGivesForItsDimensions) {
  visit([&](const kr::CatalogueTable& table, const kr::CatalogueRow& row, const formula::Row& v) {
    const double expected = formula::drawnArea(v, table.shape);
    EXPECT_NEAR(outlineArea(*drawn(catalogue_, row), table.shape) / expected, 1, 1e-9) << row.designation;
  });
}

TEST_F(EveryRow, HasThePublishedAreaWithinItsSeriesDeviation) {
  const auto documented = documentedSeries();
  visit([&](const kr::CatalogueTable& table, const kr::CatalogueRow& row, const formula::Row& v) {
    ASSERT_TRUE(documented.contains(table.name));
    const Series& series = documented.at(table.name).second;
    const double published = v(C::kArea);
    ASSERT_GT(published, 0) << row.designation;
    const double standard = formula::standardArea(v, table.shape);
    constexpr double kMargin = 0.1;
    EXPECT_LE(std::fabs(standard / published - 1) * 100, series.published + kMargin) << row.designation;
    EXPECT_LE(std::fabs(v(C::kMass) / (published * 0.00785) - 1) * 100, series.mass + kMargin) << row.designation;
    const double outline = outlineArea(*drawn(catalogue_, row), table.shape);
    const double low = series.drawnLow - series.published - kMargin;
    const double high = series.drawnHigh + series.published + kMargin;
    EXPECT_GE((outline / published - 1) * 100, low) << row.designation;
    EXPECT_LE((outline / published - 1) * 100, high) << row.designation;
  });
}

// What the document says of series whose class draws another shape is the difference of the two formulas.
TEST_F(EveryRow, IsDrawnAsFarFromItsStandardAsTheDocumentSays) {
  const auto documented = documentedSeries();
  EXPECT_EQ(documented.size(), catalogue_.tables().size());
  std::map<std::string, std::pair<double, double>> deviations;
  visit([&](const kr::CatalogueTable& table, const kr::CatalogueRow&, const formula::Row& v) {
    const double deviation = (formula::drawnArea(v, table.shape) / formula::standardArea(v, table.shape) - 1) * 100;
    auto& [low, high] = deviations.try_emplace(table.name, deviation, deviation).first->second;
    low = std::min(low, deviation);
    high = std::max(high, deviation);
  });
  for (const kr::CatalogueTable& table : catalogue_.tables()) {
    const auto& [rows, series] = documented.at(table.name);
    EXPECT_EQ(rows, static_cast<int>(table.rowCount)) << table.name;
    constexpr double kDigits = 0.006;  // two of them are written
    const auto& [low, high] = deviations[table.name];
    EXPECT_NEAR(low, series.drawnLow, kDigits) << table.name << " to " << high;
    EXPECT_NEAR(high, series.drawnHigh, kDigits) << table.name << " from " << low;
  }
}

TEST_F(EveryRow, WeighsAndMeasuresWhatItsClassTakesFromTheTable) {
  visit([&](const kr::CatalogueTable& table, const kr::CatalogueRow& row, const formula::Row& v) {
    const std::unique_ptr<KrObject> member = drawn(catalogue_, row);
    const bool rolled =
        table.shape == CatalogueShape::kI || table.shape == CatalogueShape::kU || table.shape == CatalogueShape::kL;
    const double area = rolled ? v(C::kArea) : formula::drawnArea(v, table.shape);
    const double weight = rolled ? v(C::kMass) : area * 0.00785;
    EXPECT_NEAR(member->getArea() / area, 1, 1e-9) << row.designation;
    EXPECT_NEAR(member->getPeso() / weight, 1, 1e-9) << row.designation;  // of a metre
  });
}

// Two contours, each as large as the single section; area and weight of the table twice.
TEST_F(EveryRow, MakesCompoundsOfTwiceItself) {
  constexpr std::string_view kCompounds[] = {"KrUULaminado",       "Kr2ULaminado",    "KrCantLaminadaCaixa",
                                             "KrCantTEELaminada",  "KrCantULaminada", "KrCantZLaminada",
                                             "KrCantCruzLaminada", "KrIDobrado"};
  std::size_t made = 0;
  visit([&](const kr::CatalogueTable& table, const kr::CatalogueRow& row, const formula::Row& v) {
    const kr::CatalogueProfile single = profileOf(catalogue_, row);
    for (const std::string_view name : kCompounds) {
      kr::CatalogueProfile whole;
      if (!compoundOf(single, *kr::profileClass(name), whole)) continue;
      ++made;
      kr::ParameterValues values{};
      kr::ParameterProblem problem;
      ASSERT_TRUE(settleParameters(*whole.profileClass, whole.given, values, problem)) << problem.message;
      AcGePoint3d start(0, 0, 0), end(1000, 0, 0);
      const std::unique_ptr<KrObject> member(whole.profileClass->make(start, end, 0, values));
      const oracle::Outline outline = section::contoursOf(*member);
      ASSERT_EQ(outline.size(), 2U) << name << " of " << row.designation;
      EXPECT_NEAR(section::areaOf(outline) / (2 * formula::drawnArea(v, table.shape)), 1, 1e-9)
          << name << " of " << row.designation;
      const bool folded = table.shape == CatalogueShape::kColdU;
      const double area = folded ? formula::drawnArea(v, table.shape) : v(C::kArea);
      const double weight = folded ? area * 0.00785 : v(C::kMass);
      EXPECT_NEAR(member->getArea() / (2 * area), 1, 1e-9) << name << " of " << row.designation;
      EXPECT_NEAR(member->getPeso() / (2 * weight), 1, 1e-9) << name << " of " << row.designation;
    }
  });
  EXPECT_GT(made, 2000U);
}

}  // namespace
