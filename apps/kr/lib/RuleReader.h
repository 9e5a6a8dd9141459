#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "JobBuilder.h"
#include "JobRules.h"
#include "Problem.h"

namespace kr {

/// An input iterator over a text that tells from outside how far the parser has come: the parser copies iterators, so
/// the place is kept beside them.
class TrackedIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  explicit TrackedIterator(const char** place) : place_(place) {}
  reference operator*() const { return **place_; }
  TrackedIterator& operator++() {
    ++*place_;
    return *this;
  }
  bool operator==(const TrackedIterator& other) const { return *place_ == *other.place_; }
  bool operator!=(const TrackedIterator& other) const { return *place_ != *other.place_; }

 private:
  const char** place_;
};

/// Reads a JSON text by the rules of a job: one pass, no tree. Whatever doesn't fit is reported with its place and path
/// and left out, and reading goes on; only a syntax error ends it.
class RuleReader final : public ProblemSink {
 public:
  using number_integer_t = std::int64_t;
  using number_unsigned_t = std::uint64_t;
  using number_float_t = double;
  using string_t = std::string;
  using binary_t = nlohmann::json::binary_t;

  RuleReader(std::string_view text, Job& job, std::vector<Problem>& problems);

  /// Reads the whole text. False when a syntax error ended it; it is among the problems then.
  bool read();

  /// The text that was read in the end: of the same length and with the same places as the text given.
  std::string_view source() const { return patched_.empty() ? text_ : std::string_view(patched_); }

  JobBuilder& builder() { return *builder_; }

  // What the parser calls.
  bool null();
  bool boolean(bool value);
  bool number_integer(number_integer_t value);
  bool number_unsigned(number_unsigned_t value);
  bool number_float(number_float_t value, const string_t& spelled);
  bool string(string_t& value);
  bool binary(binary_t& value);
  bool start_object(std::size_t elements);
  bool key(string_t& value);
  bool end_object();
  bool start_array(std::size_t elements);
  bool end_array();
  bool parse_error(std::size_t position, const std::string& token, const nlohmann::json::exception& error);

  void report(std::string message) override;
  void reportKey(std::string_view key, std::size_t offset, std::string message) override;
  std::size_t offset() const override { return offset_; }
  std::size_t reported() const override { return problems_.size(); }

 private:
  enum class Holder : std::uint8_t { kObject, kMap, kList, kPoint, kSkipped };

  struct Frame {
    Holder holder;
    bool anyKey = false;  // the key goes to the rule's otherKeys
    const ObjectRule* object = nullptr;
    const KeyRule* key = nullptr;      // the key being read of an object; what a map, list or point stands under
    const ValueRule* value = nullptr;  // what the whole must be
    const ValueRule* element = nullptr;
    std::uint64_t seen = 0;   // keys of an object, by position
    std::uint32_t index = 0;  // of a list or point: elements begun
    std::size_t begin = 0;
    std::string name;       // the key being read, where the rules don't hold it
    std::uint32_t map = 0;  // of a map: its number
  };

  /// The rule for the value that begins now, or null when it is to be skipped.
  struct Expected {
    const ValueRule* value = nullptr;
    const KeyRule* key = nullptr;
  };

  bool runParser();
  bool neutraliseOverflows();
  bool overflowed(std::size_t offset) const;
  void begin();
  bool done();
  Expected expected();
  bool scalar(Scalar value);
  void acceptScalar(const Expected& rule, Scalar& value);
  bool acceptNumber(const ValueRule& rule, double number);
  bool acceptWord(const ValueRule& rule, Scalar& value);
  void pointElement(const Scalar& value);
  void mismatch(const ValueRule& rule, Kind kind);
  bool skip(Kind kind, const Expected& rule);
  Frame& push(Holder holder, const Expected& rule);
  Frame pop();
  bool openObject();
  bool openList();
  void enterKey(Frame& frame, const std::string& key);
  void enterName(Frame& frame, const std::string& name);
  std::string path(std::size_t frames) const;

  std::string_view text_;
  std::string patched_;                 // the text with overflowing numbers made harmless
  std::vector<std::size_t> overflows_;  // where those stood, rising
  bool overflowMet_ = false;
  std::vector<Problem>& problems_;
  std::optional<JobBuilder> builder_;
  Job& job_;
  std::vector<Frame> stack_;
  std::vector<std::uint32_t> namedIn_;  // by name: the map that last held it
  std::uint32_t maps_ = 0;
  JobPoint point_;
  bool pointFits_ = true;
  const char* place_ = nullptr;  // how far the parser has read
  const char* finish_ = nullptr;
  const char* previous_ = nullptr;  // how far it had read at the end of the last event
  std::size_t offset_ = 0;
};

}  // namespace kr
