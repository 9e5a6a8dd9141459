#include "RuleReader.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "Number.h"
#include "Suggest.h"

namespace kr {
namespace {

constexpr std::size_t kDeepest = 32;  // a job needs 6
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::uint32_t kMostCoordinates = 3;
constexpr int kNumberOverflow = 406;  // the parser's number for a number that no double holds

bool isSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool isNumberCharacter(char c) {
  return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
}

// The end of the string that begins at `at`, or the end of the text.
std::size_t skipString(std::string_view text, std::size_t at) {
  for (++at; at < text.size() && text[at] != '"'; ++at) {
    if (text[at] == '\\') ++at;
  }
  return at + 1;
}

// One step of a JSON pointer.
void appendStep(std::string& path, std::string_view step) {
  path += '/';
  for (const char c : step) {
    if (c == '~')
      path += "~0";
    else if (c == '/')
      path += "~1";
    else
      path += c;
  }
}

// What the parser says of a syntax error, without its own numbering of places.
std::string syntaxMessage(const std::string& what) {
  const std::size_t reason = what.find("syntax error ");
  if (reason != std::string::npos) return what.substr(reason);
  const std::size_t end = what.find("] ");
  return "syntax error: " + (end == std::string::npos ? what : what.substr(end + 2));
}

std::vector<std::string_view> keysOf(const ObjectRule& rule) {
  std::vector<std::string_view> keys;
  for (const KeyRule& key : rule.keys) keys.push_back(key.key);
  return keys;
}

}  // namespace

std::string_view kindWord(Kind kind) {
  constexpr std::string_view kWords[] = {"null",    "true or false", "a number", "a text",
                                         "a point", "an object",     "a list"};
  return kWords[static_cast<std::size_t>(kind)];
}

RuleReader::RuleReader(std::string_view text, Job& job, std::vector<Problem>& problems)
    : text_(text), problems_(problems), job_(job) {
  stack_.reserve(kDeepest);
}

bool RuleReader::read() {
  if (runParser()) return true;
  if (!overflowMet_ || !neutraliseOverflows()) return false;
  // A number too great for a double ends the parser's work, but it is no error of syntax: read again without it.
  problems_.clear();
  return runParser();
}

bool RuleReader::runParser() {
  stack_.clear();
  namedIn_.clear();
  maps_ = 0;
  job_ = Job{};
  builder_.emplace(job_, *this);
  const std::string_view source = patched_.empty() ? text_ : std::string_view(patched_);
  place_ = source.data();
  finish_ = source.data() + source.size();
  previous_ = source.data() + (source.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
  return nlohmann::json::sax_parse(TrackedIterator(&place_), TrackedIterator(&finish_), this);
}

bool RuleReader::neutraliseOverflows() {
  patched_ = text_;
  for (std::size_t at = 0; at < patched_.size();) {
    if (patched_[at] == '"') {
      at = skipString(patched_, at);
      continue;
    }
    if (!isNumberCharacter(patched_[at])) {
      ++at;
      continue;
    }
    const std::size_t begin = at;
    while (at < patched_.size() && isNumberCharacter(patched_[at])) ++at;
    if (std::isfinite(std::strtod(patched_.substr(begin, at - begin).c_str(), nullptr))) continue;
    patched_[begin] = '0';
    std::fill(patched_.begin() + static_cast<std::ptrdiff_t>(begin) + 1,
              patched_.begin() + static_cast<std::ptrdiff_t>(at), ' ');
    overflows_.push_back(begin);
  }
  return !overflows_.empty();
}

bool RuleReader::overflowed(std::size_t offset) const {
  return std::binary_search(overflows_.begin(), overflows_.end(), offset);
}

void RuleReader::begin() {
  const char* at = previous_;
  while (at < finish_ && (isSpace(*at) || *at == ',' || *at == ':')) ++at;
  const char* base = patched_.empty() ? text_.data() : patched_.data();
  offset_ = static_cast<std::size_t>(at - base);
}

bool RuleReader::done() {
  previous_ = place_;
  return true;
}

RuleReader::Expected RuleReader::expected() {
  if (stack_.empty()) return {};
  Frame& frame = stack_.back();
  switch (frame.holder) {
    case Holder::kObject:
      return {frame.key != nullptr ? &frame.key->value : nullptr, frame.key};
    case Holder::kList:
      ++frame.index;
      return {frame.element, frame.key};
    case Holder::kMap:
      return {frame.element, frame.key};
    default:
      return {};
  }
}

std::string RuleReader::path(std::size_t frames) const {
  std::string out;
  for (std::size_t i = 0; i < frames; ++i) {
    const Frame& frame = stack_[i];
    const bool named = frame.holder == Holder::kMap || frame.anyKey || frame.key == nullptr;
    if (frame.holder == Holder::kList || frame.holder == Holder::kPoint)
      appendStep(out, std::to_string(frame.index - 1));
    else if (frame.holder != Holder::kSkipped)
      appendStep(out, named ? std::string_view(frame.name) : frame.key->key);
  }
  return out;
}

void RuleReader::report(std::string message) {
  problems_.push_back({offset_, 0, 0, path(stack_.size()), std::move(message)});
}

void RuleReader::reportKey(std::string_view key, std::size_t offset, std::string message) {
  std::string where = path(stack_.size());
  appendStep(where, key);
  problems_.push_back({offset, 0, 0, std::move(where), std::move(message)});
}

void RuleReader::mismatch(const ValueRule& rule, Kind kind) {
  report("expected " + std::string(rule.meaning) + ", found " + std::string(kindWord(kind)));
}

bool RuleReader::acceptNumber(const ValueRule& rule, double number) {
  if (overflowed(offset_)) {
    report("the number is too great to be held: expected " + std::string(rule.meaning));
    return false;
  }
  if (rule.form == Form::kInteger && number != std::floor(number)) {
    report("expected " + std::string(rule.meaning) + ", found a fraction");
    return false;
  }
  if (rule.positive && number <= 0) {
    report("must be greater than 0: expected " + std::string(rule.meaning));
    return false;
  }
  if (number >= rule.low && number <= rule.high) return true;
  report("must be from " + shortest(rule.positive ? 0 : rule.low) + " to " + shortest(rule.high) + ": expected " +
         std::string(rule.meaning));
  return false;
}

bool RuleReader::acceptWord(const ValueRule& rule, Scalar& value) {
  for (std::size_t i = 0; i < rule.words.size(); ++i) {
    if (rule.words[i].empty() || rule.words[i] != value.text) continue;
    value.word = static_cast<int>(i);
    return true;
  }
  std::vector<std::string_view> words;
  std::copy_if(rule.words.begin(), rule.words.end(), std::back_inserter(words),
               [](auto word) { return !word.empty(); });
  report("unknown " + std::string(rule.meaning) + " " + inQuotes(value.text) + ": " +
         suggestion(value.text, words, "see the manual"));
  return false;
}

void RuleReader::acceptScalar(const Expected& rule, Scalar& value) {
  const ValueRule& want = *rule.value;
  bool fits = false;
  switch (want.form) {
    case Form::kIgnored:
      return;
    case Form::kAny:
      if (value.kind == Kind::kNumber && overflowed(offset_)) value.number = HUGE_VAL;
      fits = true;
      break;
    case Form::kNumber:
    case Form::kInteger:
      if (value.kind == Kind::kNumber && !acceptNumber(want, value.number)) return;
      fits = value.kind == Kind::kNumber;
      break;
    case Form::kText:
      fits = value.kind == Kind::kText;
      break;
    case Form::kFlag:
      fits = value.kind == Kind::kFlag;
      break;
    case Form::kWord:
      if (value.kind == Kind::kText && !acceptWord(want, value)) return;
      fits = value.kind == Kind::kText;
      break;
    case Form::kPoint:
      fits = value.kind == Kind::kPoint;
      break;
    case Form::kPointOrName:
      fits = value.kind == Kind::kPoint || value.kind == Kind::kText;
      break;
    default:
      break;
  }
  if (!fits) {
    mismatch(want, value.kind);
    return;
  }
  const Frame& frame = stack_.back();
  const bool named = frame.holder == Holder::kMap || frame.anyKey;
  value.key = named ? std::string_view(frame.name) : rule.key->key;
  if (rule.key->take != nullptr) rule.key->take(*builder_, value);
}

void RuleReader::pointElement(const Scalar& value) {
  Frame& frame = stack_.back();
  ++frame.index;
  static constexpr ValueRule kCoordinate{Form::kNumber, "a coordinate in mm"};
  if (frame.index > kMostCoordinates) return;
  const bool other = frame.index == kMostCoordinates && frame.value->third != nullptr;
  const ValueRule& want = other ? *frame.value->third : kCoordinate;
  if (value.kind != Kind::kNumber) {
    mismatch(want, value.kind);
    pointFits_ = false;
    return;
  }
  pointFits_ = acceptNumber(want, value.number) && pointFits_;
  (frame.index == 1 ? point_.x : frame.index == 2 ? point_.y : point_.z) = value.number;
}

bool RuleReader::scalar(Scalar value) {
  begin();
  if (stack_.empty()) {
    report("a job is an object: expected { ... }, found " + std::string(kindWord(value.kind)));
    return done();
  }
  if (stack_.back().holder == Holder::kPoint) {
    pointElement(value);
    return done();
  }
  if (const Expected rule = expected(); rule.value != nullptr) acceptScalar(rule, value);
  return done();
}

bool RuleReader::null() {
  return scalar({});
}
bool RuleReader::boolean(bool value) {
  return scalar({.kind = Kind::kFlag, .flag = value});
}
bool RuleReader::number_integer(number_integer_t value) {
  return scalar({.kind = Kind::kNumber, .number = static_cast<double>(value)});
}
bool RuleReader::number_unsigned(number_unsigned_t value) {
  return scalar({.kind = Kind::kNumber, .number = static_cast<double>(value)});
}
bool RuleReader::number_float(number_float_t value, const string_t&) {
  return scalar({.kind = Kind::kNumber, .number = value});
}
bool RuleReader::string(string_t& value) {
  return scalar({.kind = Kind::kText, .text = value});
}
bool RuleReader::binary(binary_t&) {
  return false;
}  // JSON text has none

RuleReader::Frame& RuleReader::push(Holder holder, const Expected& rule) {
  Frame& frame = stack_.emplace_back();
  frame.holder = holder;
  frame.begin = offset_;
  frame.key = rule.key;
  frame.value = rule.value;
  if (rule.value != nullptr) {
    frame.object = rule.value->object;
    frame.element = rule.value->element;
  }
  return frame;
}

RuleReader::Frame RuleReader::pop() {
  Frame frame = std::move(stack_.back());
  stack_.pop_back();
  offset_ = frame.begin;
  return frame;
}

// What stands here was reported or is left out: read over it.
bool RuleReader::skip(Kind kind, const Expected& rule) {
  if (stack_.size() >= kDeepest) {
    report("nested deeper than " + std::to_string(kDeepest) + " levels");
    return false;
  }
  if (!stack_.empty() && stack_.back().holder == Holder::kPoint) {
    pointElement({.kind = kind});
  } else if (rule.value != nullptr) {
    Scalar value{.kind = kind};
    acceptScalar(rule, value);
  }
  push(Holder::kSkipped, {});
  return done();
}

bool RuleReader::start_object(std::size_t) {
  begin();
  if (stack_.empty()) {
    Frame& frame = push(Holder::kObject, {});
    frame.object = &jobRule();
    return done();
  }
  const Expected rule = expected();
  if (rule.value != nullptr && rule.value->form == Form::kMap) {
    push(Holder::kMap, rule).map = ++maps_;
    return done();
  }
  if (rule.value == nullptr || rule.value->form != Form::kObject) return skip(Kind::kObject, rule);
  const std::string name = stack_.back().holder == Holder::kMap ? stack_.back().name : std::string();
  Frame& frame = push(Holder::kObject, rule);
  frame.key = nullptr;
  if (frame.object->open != nullptr) frame.object->open(*builder_, name);
  return done();
}

bool RuleReader::start_array(std::size_t) {
  begin();
  if (stack_.empty()) {
    report("a job is an object: expected { ... }, found a list");
    push(Holder::kSkipped, {});
    return done();
  }
  const Expected rule = expected();
  const Form form = rule.value != nullptr ? rule.value->form : Form::kIgnored;
  if (form == Form::kList) {
    if (rule.key->openList != nullptr) rule.key->openList(*builder_);
    push(Holder::kList, rule);
    return done();
  }
  if (form != Form::kPoint && form != Form::kPointOrName) return skip(Kind::kList, rule);
  push(Holder::kPoint, rule);
  point_ = {};
  pointFits_ = true;
  return done();
}

void RuleReader::enterKey(Frame& frame, const std::string& key) {
  frame.anyKey = false;
  frame.key = nullptr;
  for (std::size_t i = 0; i < frame.object->keys.size(); ++i) {
    const KeyRule& rule = frame.object->keys[i];
    if (rule.key != key) continue;
    const std::uint64_t bit = std::uint64_t{1} << i;
    if ((frame.seen & bit) != 0) {
      frame.name = key;
      report("duplicate key " + inQuotes(key) + ": give it once");
      return;
    }
    frame.seen |= bit;
    frame.key = &rule;
    return;
  }
  frame.name = key;
  if (frame.object->otherKeys != nullptr) {
    frame.anyKey = true;
    frame.key = frame.object->otherKeys;
    return;
  }
  const auto known = keysOf(*frame.object);
  report("unknown key " + inQuotes(key) + " in a " + std::string(frame.object->what) + ": " +
         suggestion(key, known, "see the manual"));
}

void RuleReader::enterName(Frame& frame, const std::string& name) {
  frame.name = name;
  if (name.empty()) {
    report("a name must not be empty");
    return;
  }
  const NameId id = job_.names.intern(name);
  if (namedIn_.size() <= id) namedIn_.resize(job_.names.size() + job_.names.size() / 2, 0);
  if (namedIn_[id] == frame.map) report("duplicate name " + inQuotes(name) + ": each must be unique");
  namedIn_[id] = frame.map;
}

bool RuleReader::key(string_t& value) {
  begin();
  Frame& frame = stack_.back();
  if (frame.holder == Holder::kObject)
    enterKey(frame, value);
  else if (frame.holder == Holder::kMap)
    enterName(frame, value);
  return done();
}

bool RuleReader::end_object() {
  const Frame frame = pop();
  if (frame.holder != Holder::kObject) return done();
  for (std::size_t i = 0; i < frame.object->keys.size(); ++i) {
    const KeyRule& rule = frame.object->keys[i];
    if (!rule.required || (frame.seen >> i & 1U) != 0) continue;
    report("missing " + inQuotes(rule.key) + ": " + std::string(rule.value.meaning));
  }
  if (frame.object->close != nullptr) frame.object->close(*builder_);
  return done();
}

bool RuleReader::end_array() {
  const Frame frame = pop();
  if (frame.holder != Holder::kPoint) return done();
  const bool special = frame.value->flat || frame.value->third != nullptr;
  if (frame.index != 2 && (frame.index != kMostCoordinates || frame.value->flat)) {
    report("expected " + std::string(special ? frame.value->meaning : "[x, y] or [x, y, z] in mm") + ", found " +
           std::to_string(frame.index) + " elements");
  } else if (pointFits_) {
    Scalar value{.kind = Kind::kPoint, .point = point_};
    acceptScalar({frame.value, frame.key}, value);
  }
  return done();
}

bool RuleReader::parse_error(std::size_t position, const std::string&, const nlohmann::json::exception& error) {
  if (error.id == kNumberOverflow && overflows_.empty()) {
    overflowMet_ = true;
    return false;
  }
  offset_ = std::min(position > 0 ? position - 1 : 0, text_.size());
  report(syntaxMessage(error.what()));
  return false;
}

}  // namespace kr
