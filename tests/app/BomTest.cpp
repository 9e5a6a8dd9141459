#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "lib/Bom.h"

namespace {

kr::BomPiece piece(const std::string& name, double length, const std::string& dimensions = "100x8") {
  return {name, "KrTubo", "Tubo", dimensions, length, length * 0.01, length * 0.001};
}

TEST(Bom, CountsEqualPiecesInOneRow) {
  const kr::Bom bom = kr::makeBom({piece("A", 1000), piece("B", 2000), piece("C", 1000)});
  ASSERT_EQ(bom.items.size(), 2U);
  EXPECT_EQ(bom.items[0].piece.length, 2000);
  EXPECT_EQ(bom.items[1].members, (std::vector<std::string>{"A", "C"}));
  EXPECT_EQ(bom.items[1].mark, 2);
  EXPECT_DOUBLE_EQ(bom.items[1].totalWeight(), 20);
}

TEST(Bom, TakesLengthsThatDifferByRoundingForEqual) {
  EXPECT_EQ(kr::makeBom({piece("A", 1000), piece("B", 1000.009)}).items.size(), 1U);
  EXPECT_EQ(kr::makeBom({piece("A", 1000), piece("B", 1000.02)}).items.size(), 2U);
}

TEST(Bom, DoesNotChainLengthsThatDifferByLittleIntoOneRow) {
  // Each differs from the next by less than the tolerance, the first from the last by more.
  EXPECT_EQ(kr::makeBom({piece("A", 1000), piece("B", 1000.008), piece("C", 1000.016)}).items.size(), 2U);
}

TEST(Bom, NamesEqualMembersInTheOrderOfTheJob) {
  const kr::Bom bom = kr::makeBom({piece("A", 1000), piece("B", 1000.005)});
  EXPECT_EQ(bom.items[0].members, (std::vector<std::string>{"A", "B"}));
}

TEST(Bom, KeepsSectionsApart) {
  EXPECT_EQ(kr::makeBom({piece("A", 1000), piece("B", 1000, "90x8")}).items.size(), 2U);
}

TEST(Bom, SumsCountLengthWeightAndArea) {
  const kr::BomTotals totals = kr::makeBom({piece("A", 1000), piece("B", 2000), piece("C", 1000)}).totals();
  EXPECT_EQ(totals.count, 3U);
  EXPECT_DOUBLE_EQ(totals.length, 4000);
  EXPECT_DOUBLE_EQ(totals.weight, 40);
  EXPECT_DOUBLE_EQ(totals.paintedArea, 4);
}

TEST(Bom, FindsAMembersPosition) {
  const kr::Bom bom = kr::makeBom({piece("A", 1000), piece("B", 2000)});
  EXPECT_EQ(bom.marks().at("A"), 2);
  EXPECT_EQ(bom.marks().count("none"), 0U);
}

TEST(Bom, OfNothingHasNoRowsAndZeroTotals) {
  const kr::Bom bom = kr::makeBom({});
  EXPECT_TRUE(bom.items.empty());
  EXPECT_EQ(bom.totals().weight, 0);
  EXPECT_THAT(kr::bomText(bom), testing::HasSubstr("Total"));
}

TEST(Bom, AlignsTheColumnsOfItsTextByCharactersNotBytes) {
  const std::string text = kr::bomText(kr::makeBom({piece("A", 1000, "\u00D820"), piece("B", 1000, "100x8")}));
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[2].size(), lines[3].size() + 1) << text;  // the sign takes two bytes
}

TEST(Bom, QuotesFieldsOfItsCsv) {
  const std::string csv = kr::bomCsv(kr::makeBom({piece("=A,1", 1000, "a \"b\"")}));
  EXPECT_THAT(csv, testing::HasSubstr(",\"a \"\"b\"\"\","));
  EXPECT_THAT(csv, testing::HasSubstr(",\"'=A,1\"\n"));
  EXPECT_THAT(csv, testing::HasSubstr(",1000.000000,1,10.000000,10.000000,1.000000,1.000000,"));
}

TEST(Bom, WritesTotalsIntoItsJson) {
  const auto json = nlohmann::json::parse(kr::bomJson(kr::makeBom({piece("A", 1000), piece("B", 1000)}), "p", "t"));
  EXPECT_EQ(json.at("totals").at("count"), 2);
  EXPECT_EQ(json.at("items").at(0).at("members"), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(json.at("project"), "p");
}

}  // namespace
