#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace krio::dxf {

/// One group of the file: its code, and its value as it stands in the file, without the line's end.
struct Group {
  int code = 0;
  std::string_view value;
};

/// Cuts the bytes of a file into groups, in place: no value is copied. It never looks beyond its bytes.
class Scanner {
 public:
  Scanner() = default;
  explicit Scanner(std::span<const std::byte> bytes);

  /// The group read last.
  const Group& group() const { return group_; }
  int code() const { return group_.code; }
  std::string_view value() const { return group_.value; }

  /// Reads the next group; comments (group 999) are passed over. False at the end of the file, and at a line that is no
  /// group code where one is due: fault() tells.
  bool next() {
    do {
      start_ = cursor_;
      if (!readCode()) return false;
      group_.value = line();
    } while (group_.code == kComment);
    return true;
  }
  /// The next next() reads the last group again.
  void pushBack() { cursor_ = start_; }
  /// Goes to a place that place() or nextPlace() gave: the next next() reads the group there.
  void seek(std::size_t place) { cursor_ = begin_ + place; }
  /// Where the next group begins, in bytes.
  std::size_t nextPlace() const { return std::size_t(cursor_ - begin_); }
  /// Where the last group begins, in bytes.
  std::size_t place() const { return std::size_t(start_ - begin_); }
  std::span<const std::byte> bytes() const { return std::as_bytes(std::span(begin_, end_)); }
  std::size_t size() const { return std::size_t(end_ - begin_); }
  bool atEnd() const { return cursor_ == end_; }

  /// Whether next() stopped at a line that is no group code.
  bool fault() const { return fault_; }
  /// Passes over the line that is no group code.
  void skipLine();

  /// The number of the line, from 1, on which the group read last begins.
  std::int64_t lineNumber() const { return lineNumberAt(place()); }
  std::int64_t lineNumberAt(std::size_t place) const;

 private:
  static constexpr int kComment = 999;
  static constexpr int kMaxCode = 1071;

  bool readCode() {
    const char* p = cursor_;
    while (p != end_ && *p == ' ') ++p;
    int code = 0;
    const char* const digits = p;
    for (; p != end_; ++p) {
      const unsigned digit = unsigned(*p) - unsigned('0');
      if (digit > 9 || code > kMaxCode) break;
      code = code * 10 + int(digit);
    }
    if (p == digits || code > kMaxCode) return oddCode();
    if (p != end_ && *p == '\n') {
      cursor_ = p + 1;
    } else if (end_ - p >= 2 && p[0] == '\r' && p[1] == '\n') {
      cursor_ = p + 2;
    } else {
      return oddCode(p, code);
    }
    group_.code = code;
    return true;
  }
  bool oddCode();
  bool oddCode(const char* p, int code);

  /// The rest of the line at the cursor, which goes behind it.
  std::string_view line() {
    const char* const first = cursor_;
    const char* newline = findNewline(first);
    cursor_ = newline != end_ ? newline + 1 : end_;
    if (newline != first && newline[-1] == '\r') --newline;
    return {first, std::size_t(newline - first)};
  }
  const char* findNewline(const char* p) const {
#if defined(__SSE2__)
    // Most values are shorter than a register: one comparison finds their end.
    constexpr std::ptrdiff_t kWidth = 16;
    const __m128i wanted = _mm_set1_epi8('\n');
    while (end_ - p >= kWidth) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
      const int hits = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, wanted));
      if (hits != 0) return p + __builtin_ctz(unsigned(hits));
      p += kWidth;
    }
#endif
    const void* const found = p != end_ ? std::memchr(p, '\n', std::size_t(end_ - p)) : nullptr;
    return found != nullptr ? static_cast<const char*>(found) : end_;
  }

  const char* begin_ = nullptr;
  const char* end_ = nullptr;
  const char* cursor_ = nullptr;
  const char* start_ = nullptr;
  Group group_;
  bool fault_ = false;
  // Where lines were counted up to: faults come in the order of the file.
  mutable std::size_t countedPlace_ = 0;
  mutable std::int64_t countedLines_ = 0;
};

}  // namespace krio::dxf
