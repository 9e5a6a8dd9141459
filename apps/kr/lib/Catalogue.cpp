#include "Catalogue.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "CatalogueReader.h"
#include "Suggest.h"

namespace kr {
namespace {

constexpr std::size_t kFirstSlots = 8192;  // a power of two; room for the tables that come with the program
constexpr std::size_t kSuggestions = 3;

constexpr char kTimes[] = "\xC3\x97";  // the multiplication sign
constexpr char kSkipped = '\0';
constexpr char kPerhapsTimes = kTimes[0];

// What each byte of a designation is compared as.
constexpr std::array<char, 256> kFolded = [] {
  std::array<char, 256> all{};
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char>(i);
  for (std::size_t c = 'a'; c <= 'z'; ++c) all[c] = static_cast<char>(c - 'a' + 'A');
  all[','] = '.';
  all[' '] = all['\t'] = kSkipped;
  return all;
}();

// The letters of a designation as they are compared, one after the other.
class Folded {
 public:
  explicit Folded(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  /// The next letter; 0 at the end.
  char next() {
    while (at_ != end_) {
      const char c = kFolded[static_cast<unsigned char>(*at_++)];
      if (c == kSkipped) continue;
      if (c != kPerhapsTimes || at_ == end_ || *at_ != kTimes[1]) return c;
      ++at_;
      return 'X';
    }
    return '\0';
  }

 private:
  const char* at_;
  const char* end_;
};

bool sameFolded(std::string_view a, std::string_view b) {
  Folded left(a), right(b);
  for (;;) {
    const char c = left.next();
    if (c != right.next()) return false;
    if (c == '\0') return true;
  }
}

std::string folded(std::string_view text) {
  std::string out;
  Folded letters(text);
  for (char c = letters.next(); c != '\0'; c = letters.next()) out += c;
  return out;
}

// How exactly a name is spelled as asked: 2 to the letter, 1 but for letter case and signs, 0 but for blanks too.
int likeness(std::string_view name, std::string_view asked) {
  if (name == asked) return 2;
  const auto blanks = [](std::string_view text) { return std::count(text.begin(), text.end(), ' '); };
  return blanks(name) == blanks(asked) ? 1 : 0;
}

bool isLetter(char c) {
  return c >= 'A' && c <= 'Z';
}

// Whether a word stands in a text, not within other letters: "IPE" isn't in "PIPE".
bool beginsIn(std::string_view text, std::string_view word) {
  for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
    if (at == 0 || !isLetter(text[at - 1]) || !isLetter(word[0])) return true;
  }
  return false;
}

}  // namespace

std::string describe(const CatalogueProblem& problem) {
  return problem.file + ":" + std::to_string(problem.line) + ":" + std::to_string(problem.column) + ": " +
         problem.message;
}

// FNV-1a, as for names of a job.
std::uint32_t Catalogue::hashOf(std::string_view designation) {
  std::uint32_t hash = 2166136261U;
  Folded letters(designation);
  for (char c = letters.next(); c != '\0'; c = letters.next()) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  }
  return hash;
}

Catalogue::Catalogue() : slots_(kFirstSlots) {}

const std::string& Catalogue::keep(std::string text) {
  return *texts_.emplace_back(std::make_unique<std::string>(std::move(text)));
}

bool Catalogue::addFolder(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code failed;
  for (const auto& entry : std::filesystem::directory_iterator(folder, failed)) {
    if (entry.path().extension() == ".csv") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  bool all = !files.empty();
  for (const std::string& file : files) all = addFile(file) && all;
  return all;
}

bool Catalogue::addFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  const std::streamoff size = file ? static_cast<std::streamoff>(file.tellg()) : -1;
  if (size < 0 || std::filesystem::is_directory(path)) return false;
  std::string text(static_cast<std::size_t>(size), '\0');
  file.seekg(0);
  if (!file.read(text.data(), size)) return false;
  addText(path, std::move(text));
  return true;
}

void Catalogue::addText(const std::string& file, std::string text) {
  CatalogueReader(*this, file, keep(std::move(text))).read();
}

void Catalogue::blame(const CatalogueRow& row, std::string message) {
  problems_.push_back({tableOf(row).file, row.line, 1, std::move(message)});
}

double Catalogue::value(const CatalogueRow& row, CatalogueColumn column) const {
  const std::int8_t place = tableOf(row).place[static_cast<std::size_t>(column)];
  return place < 0 ? 0 : values_[row.values + static_cast<std::size_t>(place)];
}

void Catalogue::index(std::uint32_t row, std::uint32_t hash) {
  insert(hash, row * 2);
  if (!rows_[row].second.empty()) insert(hashOf(rows_[row].second), row * 2 + 1);
}

void Catalogue::insert(std::uint32_t hash, std::uint32_t entry) {
  if (++names_ * 2 > slots_.size()) grow();
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  while (slots_[slot].entry != kFree) slot = (slot + 1) & mask;
  slots_[slot] = {hash, entry};
}

void Catalogue::grow() {
  std::vector<Slot> wider(slots_.size() * 2);
  const std::size_t mask = wider.size() - 1;
  // From behind a free slot on, so that equal names keep their order.
  std::size_t begin = 0;
  while (slots_[begin].entry != kFree) ++begin;
  for (std::size_t i = 1; i <= slots_.size(); ++i) {
    const Slot& old = slots_[(begin + i) & (slots_.size() - 1)];
    if (old.entry == kFree) continue;
    std::size_t slot = old.hash & mask;
    while (wider[slot].entry != kFree) slot = (slot + 1) & mask;
    wider[slot] = old;
  }
  slots_.swap(wider);
}

CatalogueMatch Catalogue::find(std::string_view designation) const {
  std::string_view table, asked = designation;
  if (const std::size_t colon = designation.find(':'); colon != std::string_view::npos) {
    table = designation.substr(0, colon);
    asked = designation.substr(colon + 1);
    while (asked.starts_with(' ')) asked.remove_prefix(1);
  }
  return find(asked, hashOf(asked), table);
}

CatalogueMatch Catalogue::find(std::string_view asked, std::uint32_t hash, std::string_view table) const {
  const std::size_t mask = slots_.size() - 1;
  CatalogueMatch match;
  int best = -1;
  for (std::size_t slot = hash & mask; slots_[slot].entry != kFree; slot = (slot + 1) & mask) {
    if (slots_[slot].hash != hash) continue;
    const CatalogueRow& row = rows_[slots_[slot].entry / 2];
    const bool second = slots_[slot].entry % 2 != 0;
    const std::string_view name = second ? row.second : row.designation;
    if (!sameFolded(name, asked)) continue;
    // A table that is being read has no entry yet and is not what is asked for by name.
    if (!table.empty() && (row.table >= tables_.size() || !sameFolded(tables_[row.table].name, table))) continue;
    const int rank = 2 * likeness(name, asked) + (second ? 0 : 1);
    if (rank > best) {
      match = {&row, nullptr};
      best = rank;
    } else if (rank == best && match.row != &row) {
      match.other = &row;
    }
  }
  return match;
}

std::vector<std::string_view> Catalogue::nearest(std::string_view designation, std::size_t count) const {
  const std::string asked = folded(designation);
  constexpr unsigned kFarthest = 4;
  unsigned limit = std::min(kFarthest, 1 + static_cast<unsigned>(asked.size() / 4));
  std::vector<std::string_view> near;
  for (const CatalogueRow& row : rows_) {
    for (const std::string_view name : {row.designation, row.second}) {
      if (name.empty()) continue;
      const unsigned distance = editDistance(folded(name), asked, limit);
      if (distance > limit) continue;
      if (distance < limit) near.clear();
      limit = distance;
      if (near.size() < count && std::find(near.begin(), near.end(), name) == near.end()) near.push_back(name);
    }
  }
  return near;
}

std::string Catalogue::suggestion(std::string_view designation) const {
  const std::vector<std::string_view> near = nearest(designation, kSuggestions);
  if (near.empty()) return "\"kr catalogue search\" finds what there is";
  std::string text = "did you mean ";
  for (std::size_t i = 0; i < near.size(); ++i) {
    text += (i == 0 ? "" : i + 1 == near.size() ? " or " : ", ") + inQuotes(near[i]);
  }
  return text + "?";
}

std::vector<const CatalogueRow*> Catalogue::search(std::string_view text) const {
  std::vector<std::string> words;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    if (end > begin) words.push_back(folded(text.substr(begin, end - begin)));
    begin = end + 1;
  }
  std::vector<const CatalogueRow*> found;
  for (const CatalogueRow& row : rows_) {
    const CatalogueTable& table = tableOf(row);
    std::string names = folded(row.designation) + "\n" + folded(row.second) + "\n" + folded(table.name);
    for (std::size_t begin = 0; begin < table.series.size();) {
      const std::size_t end = std::min(table.series.find(' ', begin), table.series.size());
      names += "\n" + folded(table.series.substr(begin, end - begin));
      begin = end + 1;
    }
    const auto stands = [&](const std::string& word) { return beginsIn(names, word); };
    if (std::all_of(words.begin(), words.end(), stands)) found.push_back(&row);
  }
  return found;
}

}  // namespace kr
