#include "host/io/dxf/DxfScanner.h"

#include <algorithm>

namespace krio::dxf {

Scanner::Scanner(std::span<const std::byte> bytes)
    : begin_(reinterpret_cast<const char*>(bytes.data())),
      end_(begin_ + bytes.size()),
      cursor_(begin_),
      start_(begin_) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (std::string_view(begin_, bytes.size()).starts_with(kByteOrderMark)) cursor_ += kByteOrderMark.size();
}

bool Scanner::oddCode() {
  const char* p = cursor_;
  while (p != end_ && (*p == ' ' || *p == '\t' || *p == '\r' || *p == '\n' || *p == '\x1a')) ++p;
  if (p == end_) {
    // Blank lines and the old mark of an end behind the last group.
    cursor_ = end_;
    return false;
  }
  // Negative codes are a program's own and stand in no file.
  const char* q = cursor_;
  while (q != end_ && (*q == ' ' || *q == '\t')) ++q;
  if (q != end_ && *q == '+') ++q;
  int code = 0;
  const char* const digits = q;
  for (; q != end_ && *q >= '0' && *q <= '9' && code <= kMaxCode; ++q) code = code * 10 + (*q - '0');
  if (q == digits || code > kMaxCode) {
    fault_ = true;
    return false;
  }
  return oddCode(q, code);
}

bool Scanner::oddCode(const char* p, int code) {
  while (p != end_ && (*p == ' ' || *p == '\t' || *p == '\r')) ++p;
  if (p != end_ && *p != '\n') {
    fault_ = true;
    return false;
  }
  cursor_ = p != end_ ? p + 1 : end_;
  group_.code = code;
  return true;
}

void Scanner::skipLine() {
  line();
  fault_ = false;
}

std::int64_t Scanner::lineNumberAt(std::size_t place) const {
  place = std::min(place, size());
  if (place < countedPlace_) countedPlace_ = 0, countedLines_ = 0;
  countedLines_ += std::count(begin_ + countedPlace_, begin_ + place, '\n');
  countedPlace_ = place;
  return 1 + countedLines_;
}

}  // namespace krio::dxf
