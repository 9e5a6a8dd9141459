#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kr {

/// What the sections of a table look like: which columns give them, and which class draws them. docs/catalogue.md tells
/// each in full.
enum class CatalogueShape : std::uint8_t { kI, kU, kL, kTube, kBox, kColdU, kColdZ };

/// "I", "cold U": as a table names its shape.
std::string_view shapeWord(CatalogueShape shape);

/// A column of numbers: mm, mm2, kg/m; the slope is a ratio.
enum class CatalogueColumn : std::uint8_t {
  kH,
  kB,
  kTw,
  kTf,
  kU,
  kR,
  kR2,
  kSlope,
  kA,
  kT,
  kEx,
  kEy,
  kD,
  kRo,
  kRi,
  kLip,
  kB1,
  kB2,
  kArea,
  kMass
};
inline constexpr std::size_t kCatalogueColumns = 20;

/// "tw": as a table's row of names names it.
std::string_view columnWord(CatalogueColumn column);

/// Something wrong in a table: the row or column that it tells is left out, the rest is used.
struct CatalogueProblem {
  std::string file;
  std::size_t line = 0;    ///< from 1
  std::size_t column = 0;  ///< from 1, in bytes
  std::string message;
};

/// "my.csv:12:5: not a number: "abc""
std::string describe(const CatalogueProblem& problem);

/// One table: a series of sections.
struct CatalogueTable {
  std::string name;  ///< of its file, without folder and ending: "eu_ipe"
  std::string file;
  std::string_view series;    ///< "IPE"
  std::string_view standard;  ///< empty when the table doesn't tell it
  std::string_view source;
  CatalogueShape shape = CatalogueShape::kI;
  std::uint32_t firstRow = 0;
  std::uint32_t rowCount = 0;
  std::array<std::int8_t, kCatalogueColumns> place{};  ///< of each column in a row's numbers; -1: not there
};

/// One section. The texts live as long as the catalogue.
struct CatalogueRow {
  std::string_view designation;
  std::string_view second;  ///< a further name; empty when it has none
  std::uint32_t table = 0;
  std::uint32_t line = 0;    ///< in its file, from 1
  std::uint32_t values = 0;  ///< where its numbers begin
};

/// What a designation stands for.
struct CatalogueMatch {
  const CatalogueRow* row = nullptr;    ///< null: nothing
  const CatalogueRow* other = nullptr;  ///< a second one that it stands for just as well
};

/// Tables of sections, found by their designations. No copy: rows are told apart by where they stand.
///
/// Designations are compared without spaces and letter case, with a multiplication sign as an x and a comma as a point.
/// Where several tables hold one, the row spelled as asked is meant, and a row's first name goes before second names;
/// "us_w:W250X44.8" names the table.
class Catalogue {
 public:
  Catalogue();
  Catalogue(const Catalogue&) = delete;
  Catalogue& operator=(const Catalogue&) = delete;

  /// Adds every table of a folder (*.csv), by name. False when there is none.
  bool addFolder(const std::string& folder);

  /// Adds a table. False when the file can't be read; what is wrong inside it is among the problems.
  bool addFile(const std::string& path);

  /// Adds a table from its text; `file` is what problems call it.
  void addText(const std::string& file, std::string text);

  const std::vector<CatalogueTable>& tables() const { return tables_; }
  const std::vector<CatalogueRow>& rows() const { return rows_; }
  const CatalogueTable& tableOf(const CatalogueRow& row) const { return tables_[row.table]; }

  /// What is wrong with the tables, in the order in which they were added.
  const std::vector<CatalogueProblem>& problems() const { return problems_; }

  /// Tells that a row is of no use: a problem at its place.
  void blame(const CatalogueRow& row, std::string message);

  /// A number of a row; 0 where it has none.
  double value(const CatalogueRow& row, CatalogueColumn column) const;

  /// The section of that designation.
  CatalogueMatch find(std::string_view designation) const;

  /// The designations most like `designation`, all equally so, at most `count`; none that isn't near.
  std::vector<std::string_view> nearest(std::string_view designation, std::size_t count) const;

  /// "did you mean "IPE 200" or "IPE 220"?" or where else to look.
  std::string suggestion(std::string_view designation) const;

  /// The rows in one of whose designations, or in whose series or table's name, every word of `text` stands: from where
  /// letters begin on, so that "ipe" finds no pipe.
  std::vector<const CatalogueRow*> search(std::string_view text) const;

 private:
  friend class CatalogueReader;

  static std::uint32_t hashOf(std::string_view designation);
  CatalogueMatch find(std::string_view asked, std::uint32_t hash, std::string_view table) const;
  void index(std::uint32_t row, std::uint32_t hash);
  void insert(std::uint32_t hash, std::uint32_t entry);
  void grow();
  const std::string& keep(std::string text);

  static constexpr std::uint32_t kFree = std::numeric_limits<std::uint32_t>::max();

  std::vector<std::unique_ptr<std::string>> texts_;  // the files' bytes, into which designations point
  std::vector<CatalogueTable> tables_;
  std::vector<CatalogueRow> rows_;
  std::vector<double> values_;
  std::vector<CatalogueProblem> problems_;

  // Open addressing: twice the row's number, and one more for its second name; every name of a row stands there, so
  // that equal ones follow each other.
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t entry = kFree;
  };
  std::vector<Slot> slots_;
  std::size_t names_ = 0;
};

}  // namespace kr
