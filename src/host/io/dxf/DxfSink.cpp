#include "host/io/dxf/DxfSink.h"

#include "host/io/dxf/DxfAngle.h"
#include "host/io/dxf/DxfText.h"

namespace krio::dxf {

const std::array<Sink::CodeLine, Sink::kNumCodes> Sink::kCodeLines = [] {
  std::array<CodeLine, kNumCodes> lines{};
  constexpr int kWidth = 3;
  for (std::size_t code = 0; code < kNumCodes; ++code) {
    CodeLine& line = lines[code];
    char digits[8];
    const auto length = int(formatWhole(digits, code) - digits);
    const int blanks = length < kWidth ? kWidth - length : 0;
    std::memset(line.text, ' ', std::size_t(blanks));
    std::memcpy(line.text + blanks, digits, std::size_t(length));
    line.text[blanks + length] = '\n';
    line.length = char(blanks + length + 1);
  }
  return lines;
}();

Sink::Sink(std::vector<std::byte>& out, const CodePage& page, std::size_t expectedSize) : out_(out), page_(page) {
  out_.clear();
  out_.reserve(expectedSize);
  cursor_ = limit_ = first();
}

void Sink::finish() {
  out_.resize(size());
}

void Sink::expect(std::size_t wanted) {
  if (wanted <= out_.capacity()) return;
  const std::size_t used = size();
  out_.resize(used);
  out_.reserve(wanted);
  cursor_ = limit_ = first() + used;
}

void Sink::grow(std::size_t room) {
  // Memory is taken far ahead but cleared in steps that the next groups find in the cache.
  constexpr std::size_t kStep = 1 << 16;
  const std::size_t used = size();
  const std::size_t needed = used + room;
  if (needed > out_.capacity()) expect(needed + used / 2);
  out_.resize(std::max(needed, std::min(used + kStep, out_.capacity())));
  cursor_ = first() + used;
  limit_ = first() + out_.size();
}

void Sink::text(int code, std::wstring_view value) {
  scratch_.clear();
  encodeText(page_, value, scratch_);
  raw(code, scratch_);
}

void Sink::encode(std::wstring_view value, std::string& bytes) const {
  encodeText(page_, value, bytes);
}

void Sink::angle(int code, double radians) {
  end(formatDegrees(begin(code, kMaxWideLength), hasDegrees(radians) ? radians : none(0.0)));
}

void Sink::ratio(int code, double width, double height) {
  if (!hasRatio(width, height)) {
    if (width != height) metNone_ = true;
    width = height = 1;
  }
  end(formatRatio(begin(code, kMaxWideLength), width, height));
}

void Sink::whole(int code, std::int64_t value, int width) {
  constexpr std::size_t kRoom = 24;
  char* p = begin(code, kRoom);
  char digits[kRoom];
  const auto length = int(std::to_chars(digits, digits + kRoom, value).ptr - digits);
  for (int i = length; i < width; ++i) *p++ = ' ';
  std::memcpy(p, digits, std::size_t(length));
  end(p + length);
}

void Sink::binary(int code, std::span<const std::byte> bytes) {
  constexpr std::size_t kBytesPerLine = 127;
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (std::size_t i = 0; i < bytes.size(); i += kBytesPerLine) {
    const std::size_t stop = std::min(bytes.size(), i + kBytesPerLine);
    char* p = begin(code, 2 * kBytesPerLine);
    for (std::size_t k = i; k < stop; ++k) {
      *p++ = kDigits[std::to_integer<unsigned>(bytes[k]) >> 4];
      *p++ = kDigits[std::to_integer<unsigned>(bytes[k]) & 0xF];
    }
    end(p);
  }
}

}  // namespace krio::dxf
