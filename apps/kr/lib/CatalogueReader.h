#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Catalogue.h"

namespace kr {

/// Reads one table into a catalogue: directives, a row of names, rows. One walk over the bytes.
class CatalogueReader {
 public:
  CatalogueReader(Catalogue& catalogue, const std::string& file, std::string_view text);

  void read();

 private:
  /// What a column of the table is for.
  struct Use {
    enum Kind : std::int8_t { kDesignation, kSecond, kNumber, kText } kind = kText;
    CatalogueColumn column = CatalogueColumn::kH;
    bool required = false;
  };

  bool directive(std::string_view line);
  bool readNames();
  Use useOf(std::string_view name, const char* place);
  void tellUnknown(std::string_view name, const char* place);
  void readRow();
  bool isNew(const CatalogueRow& row, std::uint32_t hash);
  bool readCell(std::size_t column, CatalogueRow& row, bool good);
  bool readNumber(const Use& use, double& number);
  bool plainNumber(double& number);
  std::string_view cell();
  std::string_view quotedCell();
  void skipLine();
  void problem(const char* at, std::string message);

  Catalogue& catalogue_;
  CatalogueTable table_;
  bool shapeGiven_ = false;
  const char* at_;
  const char* end_;
  const char* line_;  // where the line begins
  std::size_t lineNumber_ = 1;
  std::vector<Use> uses_;
  std::size_t numbers_ = 0;  // of a row
};

}  // namespace kr
