#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace krio::dwg {

/// Writes the bit codes of a drawing, each in its shortest form, into one growing buffer.
class BitWriter {
 public:
  explicit BitWriter(std::size_t room = 0) { grow(room); }

  /// Bits written so far.
  std::size_t position() const { return 8 * size_ + fill_; }
  /// Fills up to a whole byte with zeros.
  void align() {
    if (fill_ != 0) put(0, 8 - fill_);
  }
  /// The bytes written; aligns first.
  std::span<const std::uint8_t> bytes() {
    align();
    return {data(), size_};
  }
  /// The bytes written, for good: nothing can be written any more.
  std::vector<std::byte> take() {
    align();
    buffer_.resize(size_);
    size_ = 0;
    return std::move(buffer_);
  }
  /// Back to nothing; the room stays.
  void clear() { size_ = 0, fill_ = 0, held_ = 0; }
  /// Whole bytes written so far; call aligned only.
  std::size_t size() const { return size_; }
  std::uint8_t* data() { return reinterpret_cast<std::uint8_t*>(buffer_.data()); }
  /// Moves the bytes from `at` on by `count`, which opens as many zero bytes there; call aligned only.
  void openGap(std::size_t at, std::size_t count) {
    reserve(count);
    std::memmove(buffer_.data() + at + count, buffer_.data() + at, size_ - at);
    std::memset(buffer_.data() + at, 0, count);
    size_ += count;
  }

  void b(bool value) { put(value ? 1 : 0, 1); }
  void bb(unsigned value) { put(value, 2); }
  void rc(std::uint8_t value) { put(value, 8); }
  void rs(std::uint16_t value) { put(__builtin_bswap16(value), 16); }
  void rl(std::uint32_t value) { put(__builtin_bswap32(value), 32); }
  void rll(std::uint64_t value) { put64(__builtin_bswap64(value)); }
  void rd(double value) { put64(__builtin_bswap64(std::bit_cast<std::uint64_t>(value))); }

  void bs(std::uint16_t value) {
    if (value == 0) return put(2, 2);
    if (value < 256) return put(0x100U | value, 10);
    if (value == 256) return put(3, 2);
    put(__builtin_bswap16(value), 18);
  }
  void sbs(int value) { bs(std::uint16_t(value)); }
  void bl(std::uint32_t value) {
    if (value == 0) return put(2, 2);
    if (value < 256) return put(0x100U | value, 10);
    put(__builtin_bswap32(value), 34);
  }
  void bd(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    if (bits == 0) return put(2, 2);
    if (bits == kOne) return put(1, 2);
    put(0, 2);
    put64(__builtin_bswap64(bits));
  }
  void dd(double value, double preset) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t differing = bits ^ std::bit_cast<std::uint64_t>(preset);
    if (differing == 0) return put(0, 2);
    const std::uint32_t low = __builtin_bswap32(std::uint32_t(bits));
    if (differing >> 32 == 0) return put(std::uint64_t(1) << 32 | low, 34);
    if (differing >> 48 == 0) {
      const std::uint64_t middle = __builtin_bswap16(std::uint16_t(bits >> 32));
      return put(std::uint64_t(2) << 48 | middle << 32 | low, 50);
    }
    put(3, 2);
    put64(__builtin_bswap64(bits));
  }
  void bt(double value) {
    const bool none = std::bit_cast<std::uint64_t>(value) == 0;
    b(none);
    if (!none) bd(value);
  }

  void h(unsigned code, std::uint64_t value) {
    const unsigned count = value == 0 ? 0 : (71U - unsigned(std::countl_zero(value))) / 8;
    put(code << 4 | count, 8);
    if (count == 8) return put64(value);
    put(value, 8 * count);
  }

  void umc(std::uint64_t value) {
    for (; value >= 0x80; value >>= 7) rc(std::uint8_t(value | 0x80));
    rc(std::uint8_t(value));
  }
  void mc(std::int64_t value) {
    const std::uint8_t sign = value < 0 ? 0x40 : 0;
    auto magnitude = std::uint64_t(value < 0 ? -value : value);
    for (; magnitude >= 0x40; magnitude >>= 7) rc(std::uint8_t(magnitude | 0x80));
    rc(std::uint8_t(magnitude | sign));
  }
  void ms(std::uint32_t value) {
    if (value < 0x8000) return rs(std::uint16_t(value));
    rs(std::uint16_t(value | 0x8000));
    rs(std::uint16_t(value >> 15));
  }

  void bytes(const void* from, std::size_t count) {
    reserve(count);
    const auto* in = static_cast<const std::uint8_t*>(from);
    if (fill_ == 0) {
      if (count != 0) std::memcpy(buffer_.data() + size_, in, count);
      size_ += count;
      return;
    }
    for (; count >= 8; count -= 8, in += 8) {
      std::uint64_t w;
      std::memcpy(&w, in, 8);
      put64(__builtin_bswap64(w));
    }
    for (; count > 0; --count) rc(*in++);
  }
  /// A text that is in the drawing's code page already. Cut at 65535 bytes, which is what its length can say.
  void tv(std::string_view text) {
    const std::size_t length = std::min<std::size_t>(text.size(), 0xffff);
    bs(std::uint16_t(length));
    bytes(text.data(), length);
  }
  /// The lowest `count` bits of `value`, at most 57; the others must be 0.
  void put(std::uint64_t value, unsigned count) {
    reserve(8);
    if (count == 0) return;
    held_ |= value << (64 - fill_ - count);
    fill_ += count;
    const std::uint64_t out = __builtin_bswap64(held_);
    std::memcpy(buffer_.data() + size_, &out, 8);
    const unsigned whole = fill_ & ~7U;
    size_ += whole / 8;
    held_ = whole == 64 ? 0 : held_ << whole;
    fill_ &= 7;
  }
  /// Bits of `bytes`, the first highest, `count` of them.
  void bitRun(std::span<const std::uint8_t> run, std::size_t count) {
    bytes(run.data(), count / 8);
    if (count % 8 != 0) put(run[count / 8] >> (8 - count % 8), unsigned(count % 8));
  }
  /// Replaces 32 bits that stand at a bit position already written, by a little-endian number.
  void patchRl(std::size_t position, std::uint32_t value) {
    const std::uint32_t big = __builtin_bswap32(value);
    const unsigned shift = position & 7;
    std::uint8_t* const at = data() + (position >> 3);
    // The bits not yet in the buffer are in held_; the caller has written more than 32 bits behind the place.
    std::uint64_t w = 0;
    for (int i = 0; i < 5; ++i) w = w << 8 | at[i];
    const std::uint64_t mask = std::uint64_t(0xffffffffU) << (8 - shift);
    w = (w & ~mask) | std::uint64_t(big) << (8 - shift);
    for (int i = 4; i >= 0; --i, w >>= 8) at[i] = std::uint8_t(w);
  }
  /// Makes room for that many bytes more.
  void reserve(std::size_t bytes) {
    if (size_ + bytes + kSpare > buffer_.size()) [[unlikely]]
      grow(bytes);
  }

 private:
  static constexpr std::uint64_t kOne = 0x3ff0000000000000U;
  static constexpr std::size_t kSpare = 16;  // a put may store a few bytes that aren't its own yet

  void put64(std::uint64_t value) {
    reserve(8);
    const std::uint64_t out = __builtin_bswap64(held_ | value >> fill_);
    std::memcpy(buffer_.data() + size_, &out, 8);
    size_ += 8;
    held_ = fill_ != 0 ? value << (64 - fill_) : 0;
    // The bits held stand in the buffer too, where patches look for them.
    buffer_[size_] = std::byte(held_ >> 56);
  }
  [[gnu::noinline]] void grow(std::size_t bytes) {
    buffer_.resize(std::max(buffer_.size() + buffer_.size() / 2, size_ + bytes + 2 * kSpare));
  }

  std::vector<std::byte> buffer_;
  std::size_t size_ = 0;    // whole bytes
  unsigned fill_ = 0;       // bits held, below 8
  std::uint64_t held_ = 0;  // they, from the highest bit on
};

}  // namespace krio::dwg
