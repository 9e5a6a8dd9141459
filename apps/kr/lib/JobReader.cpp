#include "JobReader.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <unordered_map>

#include "BarModel.h"
#include "RuleReader.h"

namespace kr {
namespace {

// Finds the places of values by their paths: problems that only the whole job shows have none yet.
class PathLocator final : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit PathLocator(std::string_view text) : text_(text) {}

  void want(const std::string& path, std::size_t& offset) { wanted_[path].push_back(&offset); }

  void run() {
    place_ = previous_ = text_.data();
    finish_ = text_.data() + text_.size();
    nlohmann::json::sax_parse(TrackedIterator(&place_), TrackedIterator(&finish_), this);
  }

  bool null() override { return value(); }
  bool boolean(bool) override { return value(); }
  bool number_integer(std::int64_t) override { return value(); }
  bool number_unsigned(std::uint64_t) override { return value(); }
  bool number_float(double, const std::string&) override { return value(); }
  bool string(std::string&) override { return value(); }
  bool binary(nlohmann::json::binary_t&) override { return value(); }
  bool start_object(std::size_t) override { return open(false); }
  bool start_array(std::size_t) override { return open(true); }
  bool end_object() override { return close(); }
  bool end_array() override { return close(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override { return false; }

  bool key(std::string& name) override {
    path_.resize(levels_.back().length);
    path_ += '/';
    for (const char c : name) path_ += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
    previous_ = place_;
    return true;
  }

 private:
  struct Level {
    bool list;
    std::size_t length;
    std::size_t index;
  };

  // A value begins: note its place when its path is wanted.
  void meet() {
    if (!levels_.empty() && levels_.back().list) {
      path_.resize(levels_.back().length);
      path_ += "/" + std::to_string(levels_.back().index++);
    }
    const auto found = wanted_.find(path_);
    if (found == wanted_.end()) return;
    const char* at = previous_;
    while (at < finish_ && std::string_view(" \t\r\n,:").find(*at) != std::string_view::npos) ++at;
    for (std::size_t* offset : found->second) *offset = static_cast<std::size_t>(at - text_.data());
  }

  bool value() {
    meet();
    previous_ = place_;
    return true;
  }

  bool open(bool list) {
    meet();
    levels_.push_back({list, path_.size(), 0});
    previous_ = place_;
    return true;
  }

  bool close() {
    path_.resize(levels_.back().length);
    levels_.pop_back();
    previous_ = place_;
    return true;
  }

  std::string_view text_;
  std::unordered_map<std::string, std::vector<std::size_t*>> wanted_;
  std::vector<Level> levels_;
  std::string path_;
  const char* place_ = nullptr;
  const char* finish_ = nullptr;
  const char* previous_ = nullptr;
};

void locate(std::string_view text, std::vector<Problem>& found) {
  PathLocator locator(text);
  for (Problem& problem : found) locator.want(problem.path, problem.offset);
  locator.run();
}

}  // namespace

bool readJob(std::string_view text, const KnownNames& known, Job& job, std::vector<Problem>& problems) {
  problems.clear();
  RuleReader reader(text, job, problems);
  if (reader.read()) {
    std::vector<Problem> found;
    reader.builder().finish(known, problems.empty(), found);
    if (!found.empty()) locate(reader.source(), found);
    problems.insert(problems.end(), found.begin(), found.end());
  }
  if (!problems.empty()) placeProblems(text, problems);
  return problems.empty();
}

bool modelJob(std::string_view text, Job& job, std::vector<Problem>& problems) {
  problems.clear();
  if (makeModels(job, problems)) return true;
  locate(text, problems);
  placeProblems(text, problems);
  return false;
}

}  // namespace kr
