#include "CatalogueReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <initializer_list>

#include "Job.h"
#include "Suggest.h"

namespace kr {
namespace {

using C = CatalogueColumn;

struct ColumnRow {
  std::string_view name;
  bool zero;  // may be 0
};

constexpr ColumnRow kColumns[kCatalogueColumns] = {
    {"h", false},    {"b", false},  {"tw", false}, {"tf", false}, {"u", false},  {"r", true},    {"r2", true},
    {"slope", true}, {"a", false},  {"t", false},  {"ex", false}, {"ey", false}, {"D", false},   {"ro", true},
    {"ri", true},    {"lip", true}, {"b1", false}, {"b2", false}, {"A", false},  {"mass", false}};

constexpr std::string_view kOtherColumns[] = {"designation", "second",   "standard", "strip",
                                              "t_design",    "A_design", "note"};

struct ShapeRow {
  std::string_view name;
  std::initializer_list<C> required;
};

const ShapeRow kShapes[] = {
    {"I", {C::kH, C::kB, C::kTw, C::kTf, C::kR, C::kArea}},
    {"U", {C::kH, C::kB, C::kTw, C::kTf, C::kR, C::kEx, C::kArea}},
    {"L", {C::kA, C::kB, C::kT, C::kR, C::kEx, C::kEy, C::kArea}},
    {"tube", {C::kD, C::kT}},
    {"box", {C::kH, C::kB, C::kT, C::kRi}},
    {"cold U", {C::kH, C::kB, C::kT, C::kRi}},
    {"cold Z", {C::kH, C::kB1, C::kB2, C::kT, C::kRi}},
};

bool required(CatalogueShape shape, C column) {
  const auto& columns = kShapes[static_cast<std::size_t>(shape)].required;
  return std::find(columns.begin(), columns.end(), column) != columns.end();
}

// Without what a spreadsheet leaves around a text: blanks, and the commas that fill a row up.
std::string_view trimmed(std::string_view text, std::string_view what = " \t\r") {
  const std::size_t begin = text.find_first_not_of(what);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(what) - begin + 1);
}

// A number of up to 15 digits with or without a point: whole numbers and powers of ten that small are exact, so that
// their quotient is the nearest double. Gives where it ends; null when it isn't such a number.
const char* plainDecimal(const char* at, const char* end, double& number) {
  constexpr int kExact = 15;
  constexpr double kPowers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  std::int64_t digits = 0;
  int count = 0;
  const char* point = nullptr;
  for (; at != end; ++at) {
    const auto digit = static_cast<unsigned>(*at - '0');
    if (digit <= 9) {
      if (++count > kExact) return nullptr;
      digits = digits * 10 + static_cast<std::int64_t>(digit);
    } else if (*at == '.' && point == nullptr && count > 0) {
      point = at;
    } else {
      break;
    }
  }
  const std::ptrdiff_t decimals = point == nullptr ? 0 : at - point - 1;
  if (count == 0 || (point != nullptr && decimals == 0)) return nullptr;
  number = static_cast<double>(digits);
  if (decimals > 0) number /= kPowers[decimals];
  return at;
}

}  // namespace

std::string_view shapeWord(CatalogueShape shape) {
  return kShapes[static_cast<std::size_t>(shape)].name;
}

std::string_view columnWord(CatalogueColumn column) {
  return kColumns[static_cast<std::size_t>(column)].name;
}

CatalogueReader::CatalogueReader(Catalogue& catalogue, const std::string& file, std::string_view text)
    : catalogue_(catalogue), at_(text.data()), end_(text.data() + text.size()), line_(at_) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";  // some programs begin UTF-8 with it
  if (text.starts_with(kMark)) line_ = at_ += kMark.size();
  table_.file = file;
  table_.name = std::filesystem::path(file).stem().string();
  table_.series = {};
  table_.place.fill(-1);
  table_.firstRow = static_cast<std::uint32_t>(catalogue.rows_.size());
}

void CatalogueReader::problem(const char* at, std::string message) {
  catalogue_.problems_.push_back(
      {table_.file, lineNumber_, static_cast<std::size_t>(at - line_) + 1, std::move(message)});
}

void CatalogueReader::skipLine() {
  while (at_ != end_ && *at_ != '\n') ++at_;
  if (at_ != end_) ++at_;
  line_ = at_;
  ++lineNumber_;
}

// The cell that begins here, without quotes and blanks; leaves the reader at the comma or the line's end behind it.
std::string_view CatalogueReader::cell() {
  if (at_ != end_ && *at_ == '"') return quotedCell();
  const char* begin = at_;
  while (at_ != end_ && *at_ != ',' && *at_ != '\n') ++at_;
  const char* finish = at_;
  while (begin != finish && (*begin == ' ' || *begin == '\t')) ++begin;
  while (begin != finish && (finish[-1] == ' ' || finish[-1] == '\t' || finish[-1] == '\r')) --finish;
  return {begin, static_cast<std::size_t>(finish - begin)};
}

std::string_view CatalogueReader::quotedCell() {
  const char* begin = ++at_;
  bool doubled = false;
  for (; at_ != end_ && *at_ != '\n'; ++at_) {
    if (*at_ != '"') continue;
    if (at_ + 1 == end_ || at_[1] != '"') break;
    doubled = true;
    ++at_;
  }
  std::string_view text(begin, static_cast<std::size_t>(at_ - begin));
  if (at_ == end_ || *at_ == '\n') {
    problem(begin - 1, "the quotes aren't closed");
  } else {
    ++at_;
  }
  while (at_ != end_ && *at_ != ',' && *at_ != '\n') ++at_;
  if (!doubled) return text;
  std::string single;
  for (std::size_t i = 0; i < text.size(); ++i) {
    single += text[i];
    if (text[i] == '"') ++i;
  }
  return catalogue_.keep(std::move(single));
}

// "# shape: I". False when the table can't be read on.
bool CatalogueReader::directive(std::string_view line) {
  const std::string_view text = trimmed(line, " \t\r,\"#");
  const std::size_t colon = text.find(':');
  const std::string_view key = trimmed(text.substr(0, colon));
  const std::string_view value = colon == std::string_view::npos ? "" : trimmed(text.substr(colon + 1));
  if (key == "series") table_.series = value;
  if (key == "standard") table_.standard = value;
  if (key == "source") table_.source = value;
  if (key != "shape") return true;
  std::vector<std::string_view> words;
  for (const ShapeRow& row : kShapes) words.push_back(row.name);
  const auto found = std::find(words.begin(), words.end(), value);
  if (found == words.end()) {
    const char* place = value.empty() ? line_ : value.data();
    problem(place, "unknown shape " + inQuotes(value) + ": " + suggestion(value, words) + "; the table isn't used");
    return false;
  }
  table_.shape = static_cast<CatalogueShape>(found - words.begin());
  shapeGiven_ = true;
  return true;
}

// What a column of that name is for; its numbers' place is taken.
CatalogueReader::Use CatalogueReader::useOf(std::string_view name, const char* place) {
  if (name == "designation") return {Use::kDesignation};
  if (name == "second") return {Use::kSecond};
  const auto* const number =
      std::find_if(std::begin(kColumns), std::end(kColumns), [&](const ColumnRow& row) { return row.name == name; });
  if (number == std::end(kColumns)) {
    tellUnknown(name, place);
    return {};
  }
  const auto column = static_cast<C>(number - kColumns);
  std::int8_t& at = table_.place[static_cast<std::size_t>(column)];
  if (at >= 0) {
    problem(place, "the column " + inQuotes(name) + " stands twice: the first is used");
    return {};
  }
  at = static_cast<std::int8_t>(numbers_++);
  return {Use::kNumber, column, required(table_.shape, column)};
}

void CatalogueReader::tellUnknown(std::string_view name, const char* place) {
  std::vector<std::string_view> known(std::begin(kOtherColumns), std::end(kOtherColumns));
  for (const ColumnRow& row : kColumns) known.push_back(row.name);
  if (name.empty() || std::find(known.begin(), known.end(), name) != known.end()) return;
  problem(place, "unknown column " + inQuotes(name) +
                     ", which isn't used: " + suggestion(name, known, "docs/catalogue.md names them all"));
}

bool CatalogueReader::readNames() {
  if (!shapeGiven_) {
    problem(line_,
            "the table doesn't tell its shape: put a line such as \"# shape: I\" above the names; it isn't used");
    return false;
  }
  bool named = false;
  for (;;) {
    const char* const place = at_;
    const std::string_view name = cell();
    uses_.push_back(useOf(name, place));
    named = named || uses_.back().kind == Use::kDesignation;
    if (at_ == end_ || *at_ != ',') break;
    ++at_;
  }
  std::string missing = named ? "" : " \"designation\"";
  for (const C column : kShapes[static_cast<std::size_t>(table_.shape)].required) {
    if (table_.place[static_cast<std::size_t>(column)] < 0) missing += " " + inQuotes(columnWord(column));
  }
  if (missing.empty()) return true;
  problem(line_, "a table of shape " + inQuotes(shapeWord(table_.shape)) + " must have the columns" + missing +
                     "; it isn't used");
  return false;
}

// The cell as a number, when it is one that needs no second look; else nothing is read.
bool CatalogueReader::plainNumber(double& number) {
  const char* const finish = plainDecimal(at_, end_, number);
  if (finish == nullptr) return false;
  const bool whole = finish == end_ || *finish == ',' || *finish == '\n' || (*finish == '\r' && finish + 1 != end_);
  if (!whole || number <= 0 || number > kLargestCoordinate) return false;
  at_ = *finish == '\r' ? finish + 1 : finish;
  return true;
}

bool CatalogueReader::readNumber(const Use& use, double& number) {
  if (plainNumber(number)) return true;
  const char* const at = at_;
  const std::string_view text = cell();
  const ColumnRow& column = kColumns[static_cast<std::size_t>(use.column)];
  const std::string name(column.name);
  number = 0;
  if (text.empty()) {
    if (use.required) problem(at, "no " + name + " given; the row isn't used");
    return !use.required;
  }
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || !std::isfinite(number)) {
    problem(at, "not a number: " + inQuotes(text) + " as " + name + "; the row isn't used");
    return false;
  }
  const bool low = column.zero ? number < 0 : number <= 0;
  if (!low && number <= kLargestCoordinate) return true;
  problem(at, name + " must be " + (column.zero ? "0 or more" : "greater than 0") + " and at most 1e9, not " +
                  std::string(text) + "; the row isn't used");
  return false;
}

// A cell of a row; false when it spoils the row, which is told of the first that does.
bool CatalogueReader::readCell(std::size_t column, CatalogueRow& row, bool good) {
  if (good && column < uses_.size() && uses_[column].kind == Use::kNumber) {
    double number = 0;
    good = readNumber(uses_[column], number);
    catalogue_.values_.push_back(number);
    return good;
  }
  const char* const place = at_;
  const std::string_view text = cell();
  if (!good) return false;
  if (column >= uses_.size()) {
    if (!text.empty()) problem(place, "more cells than columns; the row isn't used");
    return text.empty();
  }
  if (uses_[column].kind == Use::kSecond) row.second = text;
  if (uses_[column].kind != Use::kDesignation) return true;
  if (text.empty()) problem(place, "no designation given; the row isn't used");
  row.designation = text;
  return !text.empty();
}

// Equal names within a table can't both be meant: false. Across tables the one who asks tells which.
bool CatalogueReader::isNew(const CatalogueRow& row, std::uint32_t hash) {
  const CatalogueMatch known = catalogue_.find(row.designation, hash, {});
  if (known.row == nullptr || known.row->designation != row.designation) return true;
  // Of two that are spelled alike either may be the one of this table.
  const bool second = known.other != nullptr && known.other->table == row.table;
  const CatalogueRow& twin = second ? *known.other : *known.row;
  const std::string line = std::to_string(twin.line);
  if (twin.table == row.table) {
    problem(line_, inQuotes(row.designation) + " stands in line " + line + " already; the row isn't used");
    return false;
  }
  problem(line_, inQuotes(row.designation) + " stands in " + inQuotes(catalogue_.tableOf(twin).file) + " too, line " +
                     line + ": name the table, " + inQuotes(table_.name + ":" + std::string(row.designation)));
  return true;
}

void CatalogueReader::readRow() {
  CatalogueRow row;
  row.table = static_cast<std::uint32_t>(catalogue_.tables_.size());
  row.line = static_cast<std::uint32_t>(lineNumber_);
  row.values = static_cast<std::uint32_t>(catalogue_.values_.size());
  bool good = true;
  std::size_t cells = 0;
  for (;;) {
    good = readCell(cells++, row, good);
    if (at_ == end_ || *at_ != ',') break;
    ++at_;
  }
  if (good && cells < uses_.size()) {
    problem(at_, std::to_string(cells) + " cells for " + std::to_string(uses_.size()) + " columns; the row isn't used");
    good = false;
  }
  const std::uint32_t hash = good ? Catalogue::hashOf(row.designation) : 0;
  good = good && isNew(row, hash);
  if (!good) {
    catalogue_.values_.resize(row.values);
    return;
  }
  catalogue_.rows_.push_back(row);
  catalogue_.index(static_cast<std::uint32_t>(catalogue_.rows_.size() - 1), hash);
}

void CatalogueReader::read() {
  bool named = false;
  while (at_ != end_) {
    constexpr std::string_view kSpecial = " \t\r\n,\"#";
    if (named && kSpecial.find(*at_) == std::string_view::npos) {
      readRow();
      skipLine();
      continue;
    }
    const char* finish = std::find(at_, end_, '\n');
    const std::string_view line(at_, static_cast<std::size_t>(finish - at_));
    const std::string_view text = trimmed(line, " \t\r,\"");
    if (text.starts_with('#')) {
      if (!named && !directive(line)) return;
    } else if (!text.empty()) {
      if (!named && !readNames()) return;
      if (named) readRow();
      named = true;
    }
    skipLine();
  }
  if (!named) {
    problem(line_, "the table has no row of names; it isn't used");
    return;
  }
  table_.rowCount = static_cast<std::uint32_t>(catalogue_.rows_.size()) - table_.firstRow;
  if (table_.rowCount == 0) problem(line_, "the table has no row that can be used");
  if (table_.series.empty()) table_.series = catalogue_.keep(table_.name);
  catalogue_.tables_.push_back(std::move(table_));
}

}  // namespace kr
