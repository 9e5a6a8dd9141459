#include "Bom.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>
#include <tuple>

#include "Number.h"

namespace kr {
namespace {

constexpr int kLengthDecimals = 1;
constexpr int kWeightDecimals = 2;
constexpr int kAreaDecimals = 3;
constexpr int kCsvDecimals = 6;  // a tenth of a milligram, a square millimetre: nothing is lost in a spreadsheet

using Row = std::vector<std::string>;

struct Column {
  std::string_view title;
  bool right;
};

constexpr Column kColumns[] = {{"Pos", true},         {"Class", false},    {"Designation", false},
                               {"Dimensions", false}, {"Length mm", true}, {"Count", true},
                               {"Unit kg", true},     {"Total kg", true},  {"Area m2", true}};

Row textRow(const BomItem& item) {
  return {std::to_string(item.mark),
          item.piece.profileClass,
          item.piece.designation,
          item.piece.dimensions,
          fixed(item.piece.length, kLengthDecimals),
          std::to_string(item.count()),
          fixed(item.piece.weight, kWeightDecimals),
          fixed(item.totalWeight(), kWeightDecimals),
          fixed(item.totalPaintedArea(), kAreaDecimals)};
}

Row totalRow(const BomTotals& totals) {
  return {"",
          "Total",
          "",
          "",
          fixed(totals.length, kLengthDecimals),
          std::to_string(totals.count),
          "",
          fixed(totals.weight, kWeightDecimals),
          fixed(totals.paintedArea, kAreaDecimals)};
}

// How many columns of a terminal a UTF-8 text takes; the texts here hold no wide characters.
std::size_t characters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string alignedLine(const Row& row, const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string pad(widths[i] - characters(row[i]), ' ');
    if (i > 0) line += "  ";
    line += kColumns[i].right ? pad + row[i] : row[i] + pad;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

std::string csvField(std::string_view text) {
  // A field that a spreadsheet would take for a formula is told to be text.
  const bool formula = !text.empty() && std::string_view("=+-@").find(text.front()) != std::string_view::npos;
  if (!formula && text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string out = formula ? "\"'" : "\"";
  for (const char c : text) out += c == '"' ? std::string("\"\"") : std::string(1, c);
  return out + "\"";
}

}  // namespace

BomTotals Bom::totals() const {
  BomTotals sum;
  for (const BomItem& item : items) {
    sum.count += item.count();
    sum.length += item.totalLength();
    sum.weight += item.totalWeight();
    sum.paintedArea += item.totalPaintedArea();
  }
  return sum;
}

std::unordered_map<std::string, int> Bom::marks() const {
  std::unordered_map<std::string, int> marks;
  for (const BomItem& item : items) {
    for (const std::string& name : item.members) marks[name] = item.mark;
  }
  return marks;
}

Bom makeBom(const std::vector<BomPiece>& pieces) {
  // Sections in the order of their first appearance; within each the pieces by length, the longest first.
  std::map<std::tuple<std::string_view, std::string_view, std::string_view>, std::size_t> sections;
  std::vector<std::vector<std::size_t>> members;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const BomPiece& piece = pieces[i];
    const auto [place, isNew] =
        sections.try_emplace({piece.profileClass, piece.designation, piece.dimensions}, members.size());
    if (isNew) members.emplace_back();
    members[place->second].push_back(i);
  }
  Bom bom;
  std::vector<std::vector<std::size_t>> rows;
  for (std::vector<std::size_t>& section : members) {
    std::stable_sort(section.begin(), section.end(),
                     [&](std::size_t a, std::size_t b) { return pieces[a].length > pieces[b].length; });
    const std::size_t first = bom.items.size();
    for (const std::size_t i : section) {
      const bool joins = bom.items.size() > first && bom.items.back().piece.length - pieces[i].length <= kEqualLength;
      if (!joins) {
        bom.items.push_back({static_cast<int>(bom.items.size()) + 1, pieces[i], {}});
        rows.emplace_back();
      }
      rows.back().push_back(i);
    }
  }
  for (std::size_t row = 0; row < rows.size(); ++row) {
    std::sort(rows[row].begin(), rows[row].end());
    for (const std::size_t i : rows[row]) bom.items[row].members.push_back(pieces[i].name);
  }
  return bom;
}

std::string bomText(const Bom& bom) {
  std::vector<Row> rows(1);
  for (const Column& column : kColumns) rows[0].emplace_back(column.title);
  for (const BomItem& item : bom.items) rows.push_back(textRow(item));
  rows.push_back(totalRow(bom.totals()));
  std::vector<std::size_t> widths(std::size(kColumns), 0);
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], characters(row[i]));
  }
  std::size_t wide = 2 * (widths.size() - 1);
  for (const std::size_t width : widths) wide += width;
  const std::string rule = std::string(wide, '-') + "\n";
  std::string out = alignedLine(rows.front(), widths) + rule;
  for (std::size_t i = 1; i + 1 < rows.size(); ++i) out += alignedLine(rows[i], widths);
  return out + rule + alignedLine(rows.back(), widths);
}

std::string bomCsv(const Bom& bom) {
  std::string out =
      "position,class,designation,dimensions,length_mm,count,unit_weight_kg,total_weight_kg,unit_painted_area_m2,"
      "total_painted_area_m2,members\n";
  for (const BomItem& item : bom.items) {
    std::string names;
    for (const std::string& name : item.members) names += (names.empty() ? "" : " ") + name;
    const Row row = {std::to_string(item.mark),
                     csvField(item.piece.profileClass),
                     csvField(item.piece.designation),
                     csvField(item.piece.dimensions),
                     fixed(item.piece.length, kCsvDecimals),
                     std::to_string(item.count()),
                     fixed(item.piece.weight, kCsvDecimals),
                     fixed(item.totalWeight(), kCsvDecimals),
                     fixed(item.piece.paintedArea, kCsvDecimals),
                     fixed(item.totalPaintedArea(), kCsvDecimals),
                     csvField(names)};
    for (std::size_t i = 0; i < row.size(); ++i) out += (i > 0 ? "," : "") + row[i];
    out += "\n";
  }
  return out;
}

std::string bomJson(const Bom& bom, const std::string& project, const std::string& title, const ClassCounts& leftOut) {
  using nlohmann::ordered_json;
  ordered_json out{{"format", "kr-bom"}, {"version", 1}, {"project", project}, {"title", title}};
  out["items"] = ordered_json::array();
  for (const BomItem& item : bom.items) {
    out["items"].push_back({{"position", item.mark},
                            {"class", item.piece.profileClass},
                            {"designation", item.piece.designation},
                            {"dimensions", item.piece.dimensions},
                            {"length", item.piece.length},
                            {"count", item.count()},
                            {"unitWeight", item.piece.weight},
                            {"weight", item.totalWeight()},
                            {"unitPaintedArea", item.piece.paintedArea},
                            {"paintedArea", item.totalPaintedArea()},
                            {"members", item.members}});
  }
  const BomTotals totals = bom.totals();
  out["totals"] = {{"count", totals.count},
                   {"length", totals.length},
                   {"weight", totals.weight},
                   {"paintedArea", totals.paintedArea}};
  if (!leftOut.empty()) out["proxies"] = ordered_json::array();
  for (const auto& [name, count] : leftOut) out["proxies"].push_back({{"class", name}, {"count", count}});
  return out.dump(2) + "\n";
}

}  // namespace kr
