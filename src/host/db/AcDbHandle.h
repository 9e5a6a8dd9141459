#pragma once

#include <compare>
#include <cstddef>

#include "host/rx/AdeskTypes.h"

/// The number by which a drawing knows an object for good, also in files. 0 is no handle.
class AcDbHandle {
 public:
  constexpr AcDbHandle() = default;
  constexpr AcDbHandle(Adesk::UInt64 value) : value_(value) {}
  constexpr AcDbHandle(int low, int high)
      : value_((Adesk::UInt64(Adesk::UInt32(high)) << 32) | Adesk::UInt64(Adesk::UInt32(low))) {}
  /// Reads hexadecimal digits; text that isn't a handle gives 0.
  explicit AcDbHandle(const ACHAR* text) { *this = text; }
  explicit AcDbHandle(const char* text);

  AcDbHandle& operator=(const ACHAR* text);

  constexpr Adesk::UInt32 low() const { return Adesk::UInt32(value_); }
  constexpr Adesk::UInt32 high() const { return Adesk::UInt32(value_ >> 32); }
  constexpr Adesk::UInt64 value() const { return value_; }
  constexpr bool isNull() const { return value_ == 0; }
  constexpr void setNull() { value_ = 0; }
  constexpr bool isOne() const { return value_ == 1; }
  constexpr AcDbHandle& increment() {
    ++value_;
    return *this;
  }
  constexpr AcDbHandle& decrement() {
    --value_;
    return *this;
  }

  /// Writes the handle in upper-case hexadecimal without leading zeros ("0" for none). False when it doesn't fit;
  /// kStrSize characters always hold it.
  bool getIntoAsciiBuffer(ACHAR* buffer, std::size_t size = kStrSize) const;
  bool getIntoAsciiBuffer(char* buffer, std::size_t size = kStrSize) const;

  constexpr auto operator<=>(const AcDbHandle&) const = default;

  static constexpr std::size_t kStrSize = 17;

 private:
  Adesk::UInt64 value_ = 0;
};
