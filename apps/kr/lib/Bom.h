#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "LeftOut.h"

namespace kr {

/// One member as a bill of materials counts it. Lengths in mm, weight in kg, painted area in m2.
struct BomPiece {
  std::string name;
  std::string profileClass;  ///< "KrTubo"
  std::string designation;
  std::string dimensions;
  double length = 0;
  double weight = 0;
  double paintedArea = 0;
};

/// Equal pieces. The numbers are those of one of them.
struct BomItem {
  int mark = 0;  ///< position number, from 1
  BomPiece piece;
  std::vector<std::string> members;  ///< names, in the order of the job

  std::size_t count() const { return members.size(); }
  double totalLength() const { return piece.length * static_cast<double>(count()); }
  double totalWeight() const { return piece.weight * static_cast<double>(count()); }
  double totalPaintedArea() const { return piece.paintedArea * static_cast<double>(count()); }
};

struct BomTotals {
  std::size_t count = 0;
  double length = 0;
  double weight = 0;
  double paintedArea = 0;
};

/// A bill of materials.
struct Bom {
  std::vector<BomItem> items;

  BomTotals totals() const;

  /// The position number of each member, by its name.
  std::unordered_map<std::string, int> marks() const;
};

/// Lengths that differ by no more are equal, mm: what rounding leaves of mirrored coordinates, far below any cut.
inline constexpr double kEqualLength = 0.01;

/// Groups equal pieces: of the same class, designation and dimensions, and of one length. Items stand by class, then
/// dimensions in the order of first appearance, the longest first.
Bom makeBom(const std::vector<BomPiece>& pieces);

/// A table for people: aligned columns and a line of totals.
std::string bomText(const Bom& bom);

/// One row an item under a row of names, comma separated; numbers with a point.
std::string bomCsv(const Bom& bom);

/// By data/schemas/bom.schema.json.
/// `leftOut` are entities of a drawing that the bill leaves out: told when there are some.
std::string bomJson(const Bom& bom, const std::string& project, const std::string& title,
                    const ClassCounts& leftOut = {});

}  // namespace kr
