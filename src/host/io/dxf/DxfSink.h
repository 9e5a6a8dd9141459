#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/ge/ge.h"
#include "host/io/CodePage.h"
#include "host/io/dxf/DxfFormat.h"

namespace krio::dxf {

/// Writes groups at the end of a run of bytes.
class Sink {
 public:
  /// `out` is emptied; it has its final size once finish() was called.
  Sink(std::vector<std::byte>& out, const CodePage& page, std::size_t expectedSize);
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;
  void finish();
  /// Foresees a run of bytes of that size, so that it isn't moved about while it grows.
  void expect(std::size_t size);

  const CodePage& page() const { return page_; }

  /// A value as it is to stand in the file; without line ends.
  void raw(int code, std::string_view value) {
    char* p = begin(code, value.size());
    // An empty text may have no place.
    if (!value.empty()) std::memcpy(p, value.data(), value.size());
    end(p + value.size());
  }
  void start(std::string_view name) { raw(0, name); }
  void marker(std::string_view name) { raw(100, name); }
  /// Text: letters that the code page lacks and control characters are escaped.
  void text(int code, std::wstring_view value);
  /// Appends the text as it would stand in the file.
  void encode(std::wstring_view value, std::string& bytes) const;
  /// What is no finite number is written as 0.
  void real(int code, double value) {
    end(formatReal(begin(code, kMaxRealLength), std::isfinite(value) ? value : none(0.0)));
  }
  /// An angle in radians. One that is no finite number, or none in degrees, is written as 0.
  void angle(int code, double radians);
  /// The ratio of a view's width to its height, 1 where there is none.
  void ratio(int code, double width, double height);
  void int16(int code, int value) { whole(code, value, 6); }
  void int32(int code, std::int64_t value) { whole(code, value, 9); }
  void int64(int code, std::int64_t value) { whole(code, value, 0); }
  void handle(int code, std::uint64_t value) { end(formatHandle(begin(code, 20), value)); }
  /// Groups `code`, `code` + 10 and, for three coordinates, `code` + 20.
  void point(int code, const AcGePoint3d& p) {
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, p.z);
  }
  void point(int code, const AcGePoint2d& p) {
    real(code, p.x);
    real(code + 10, p.y);
  }
  void vector(int code, const AcGeVector3d& v) { point(code, v.asPoint()); }
  /// Hexadecimal digits, as many groups as it takes; an empty run gives none.
  void binary(int code, std::span<const std::byte> bytes);

  /// Whether a number since the last call was one that no file can say, and another stands for it.
  bool takeNone() { return std::exchange(metNone_, false); }

  /// The bytes written so far, to be looked at before the next write.
  std::size_t size() const { return std::size_t(cursor_ - first()); }
  std::string_view since(std::size_t place) const { return {first() + place, size() - place}; }
  /// Takes back what was written since.
  void rewind(std::size_t place) { cursor_ = first() + place; }

 private:
  double none(double instead) {
    metNone_ = true;
    return instead;
  }
  char* first() const { return reinterpret_cast<char*>(out_.data()); }
  void whole(int code, std::int64_t value, int width);
  /// Writes the code's line; gives the place of a value of up to `room` characters.
  char* begin(int code, std::size_t room) {
    constexpr std::size_t kCodeRoom = 8;
    constexpr std::size_t kEndRoom = 2;
    if (std::size_t(limit_ - cursor_) < room + kCodeRoom + kEndRoom) grow(room + kCodeRoom + kEndRoom);
    const CodeLine& line = kCodeLines[std::size_t(code)];
    std::memcpy(cursor_, line.text, sizeof line.text);
    return cursor_ + line.length;
  }
  void end(char* p) {
    *p++ = '\n';
    cursor_ = p;
  }
  void grow(std::size_t room);

  static constexpr std::size_t kNumCodes = 1072;
  struct CodeLine {
    char text[7];
    char length;
  };
  static const std::array<CodeLine, kNumCodes> kCodeLines;

  std::vector<std::byte>& out_;
  const CodePage& page_;
  bool metNone_ = false;
  char* cursor_ = nullptr;
  char* limit_ = nullptr;
  std::string scratch_;
};

}  // namespace krio::dxf
