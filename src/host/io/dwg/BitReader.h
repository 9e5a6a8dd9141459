#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace krio::dwg {

/// A reference to an object as it stands in a file: what kind of reference, and the handle meant (0: none).
struct HandleRef {
  std::uint8_t code = 0;
  std::uint64_t value = 0;
  bool operator==(const HandleRef&) const = default;
};

/// Codes of references.
enum HandleCode : std::uint8_t { kOwn = 0, kSoftOwner = 2, kHardOwner = 3, kSoftPointer = 4, kHardPointer = 5 };

/// Reads the bit codes of a drawing from a stretch of bytes. It knows where the stretch ends: what would reach beyond
/// it gives zero, and failed() from then on. A code that isn't allowed fails too.
class BitReader {
 public:
  BitReader() = default;
  /// The bits from `first` up to `last` of `bytes`; both are cut to what there is.
  BitReader(std::span<const std::uint8_t> bytes, std::size_t first, std::size_t last)
      : data_(bytes.data()),
        windowLimit_(bytes.size() >= kWindowBytes ? bytes.size() - kWindowBytes + 1 : 0),
        size_(bytes.size()),
        end_(std::min(last, 8 * bytes.size())),
        pos_(std::min(first, end_)) {}
  explicit BitReader(std::span<const std::uint8_t> bytes) : BitReader(bytes, 0, 8 * bytes.size()) {}

  std::size_t position() const { return pos_; }
  std::size_t end() const { return end_; }
  std::size_t left() const { return end_ - pos_; }
  bool failed() const { return failed_; }
  void fail() { failed_ = true, pos_ = end_; }
  /// To a position; beyond the end is a failure.
  void seek(std::size_t position) {
    if (position > end_) return fail();
    pos_ = position;
  }
  void skip(std::size_t bits) {
    if (bits > left()) return fail();
    pos_ += bits;
  }
  /// Moves the end closer, or back out to at most what was given at first by the caller.
  void setEnd(std::size_t end) {
    end_ = std::min(end, 8 * size_);
    if (pos_ > end_) fail();
  }
  /// Whether `count` items of at least `bitsEach` bits can still follow. Fails when they can't.
  bool fits(std::uint64_t count, std::uint64_t bitsEach) {
    if (count <= left() / bitsEach) return true;
    fail();
    return false;
  }

  bool b() { return bits(1) != 0; }
  unsigned bb() { return unsigned(bits(2)); }
  std::uint8_t rc() { return std::uint8_t(bits(8)); }
  std::uint16_t rs() { return __builtin_bswap16(std::uint16_t(bits(16))); }
  std::uint32_t rl() { return __builtin_bswap32(std::uint32_t(bits(32))); }
  std::uint64_t rll() { return __builtin_bswap64(raw64(0)); }
  double rd() { return std::bit_cast<double>(rll()); }

  std::uint16_t bs() {
    const std::uint64_t w = window();
    switch (w >> 62) {
      case 0:
        return take(18) ? __builtin_bswap16(std::uint16_t(w >> 46)) : std::uint16_t(0);
      case 1:
        return take(10) ? std::uint16_t((w >> 54) & 0xff) : std::uint16_t(0);
      case 2:
        take(2);
        return 0;
      default:
        return take(2) ? 256 : 0;
    }
  }
  std::int16_t sbs() { return std::int16_t(bs()); }
  std::uint32_t bl() {
    const std::uint64_t w = window();
    switch (w >> 62) {
      case 0:
        return take(34) ? __builtin_bswap32(std::uint32_t(w >> 30)) : 0;
      case 1:
        return take(10) ? std::uint32_t((w >> 54) & 0xff) : 0;
      case 2:
        take(2);
        return 0;
      default:
        fail();
        return 0;
    }
  }
  std::int32_t sbl() { return std::int32_t(bl()); }
  double bd() {
    switch (window() >> 62) {
      case 0:
        return std::bit_cast<double>(__builtin_bswap64(raw64(2)));
      case 1:
        return take(2) ? 1.0 : 0.0;
      case 2:
        take(2);
        return 0.0;
      default:
        fail();
        return 0.0;
    }
  }
  /// A double with a default, whose bytes it may share.
  double dd(double preset) {
    const std::uint64_t w = window();
    const auto d = std::bit_cast<std::uint64_t>(preset);
    switch (w >> 62) {
      case 0:
        return take(2) ? preset : 0.0;
      case 1: {
        if (!take(34)) return 0.0;
        const std::uint32_t low = __builtin_bswap32(std::uint32_t(w >> 30));
        return std::bit_cast<double>((d & 0xffffffff00000000U) | low);
      }
      case 2: {
        if (!take(50)) return 0.0;
        const std::uint64_t middle = __builtin_bswap16(std::uint16_t(w >> 46));
        const std::uint64_t low = __builtin_bswap32(std::uint32_t(w >> 14));
        return std::bit_cast<double>((d & 0xffff000000000000U) | middle << 32 | low);
      }
      default:
        return std::bit_cast<double>(__builtin_bswap64(raw64(2)));
    }
  }
  double bt() { return b() ? 0.0 : bd(); }

  HandleRef h() {
    const std::uint64_t w = window();
    const auto count = unsigned(w >> 56) & 0xf;
    if (count > 8 || !take(8 + 8 * count)) {
      fail();
      return {};
    }
    const auto code = std::uint8_t(w >> 60);
    if (count == 0) return {code, 0};
    // Up to 7 bytes stand in the window behind the 8 bits; an eighth is fetched apart.
    if (count < 8) return {code, (w << 8) >> (64 - 8 * count)};
    pos_ -= 64;
    return {code, raw64(0)};
  }

  /// Modular numbers of at most 9 bytes.
  std::uint64_t umc() {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
      const std::uint8_t byte = rc();
      value |= std::uint64_t(byte & 0x7f) << shift;
      if ((byte & 0x80) == 0) return value;
    }
    fail();
    return 0;
  }
  std::int64_t mc() {
    std::int64_t value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
      const std::uint8_t byte = rc();
      if ((byte & 0x80) != 0) {
        value |= std::int64_t(byte & 0x7f) << shift;
        continue;
      }
      value |= std::int64_t(byte & 0x3f) << shift;
      return (byte & 0x40) != 0 ? -value : value;
    }
    fail();
    return 0;
  }
  std::uint32_t ms() {
    const std::uint32_t low = rs();
    if ((low & 0x8000) == 0) return low;
    const std::uint32_t high = rs();
    if ((high & 0x8000) != 0) {
      fail();
      return 0;
    }
    return (low & 0x7fff) | high << 15;
  }

  /// `count` raw bytes into `to`; nothing is written when they aren't there.
  bool bytes(void* to, std::size_t count) {
    if (count > left() / 8) {
      fail();
      return false;
    }
    auto* out = static_cast<std::uint8_t*>(to);
    if ((pos_ & 7) == 0) {
      if (count != 0) std::memcpy(out, data_ + (pos_ >> 3), count);
      pos_ += 8 * count;
      return true;
    }
    for (; count >= 8; count -= 8, out += 8) {
      const std::uint64_t w = __builtin_bswap64(raw64(0));
      std::memcpy(out, &w, 8);
    }
    for (; count > 0; --count) *out++ = rc();
    return true;
  }
  /// `count` bits, first bit highest; 1 to 57.
  std::uint64_t bits(unsigned count) {
    const std::uint64_t w = window();
    return take(count) ? w >> (64 - count) : 0;
  }

 private:
  static constexpr std::size_t kWindowBytes = 9;

  bool take(std::size_t count) {
    if (count > end_ - pos_) [[unlikely]] {
      fail();
      return false;
    }
    pos_ += count;
    return true;
  }
  /// The next 64 bits, the first highest. Beyond the end of the file zeros, beyond the stretch what stands there: take
  /// decides whether they count.
  std::uint64_t window() const { return windowAt(pos_); }
  std::uint64_t windowAt(std::size_t position) const {
    const std::size_t byte = position >> 3;
    const unsigned shift = position & 7;
    if (byte >= windowLimit_) [[unlikely]]
      return lastWindow(byte, shift);
    std::uint64_t w;
    std::memcpy(&w, data_ + byte, 8);
    return __builtin_bswap64(w) << shift | std::uint64_t(data_[byte + 8]) >> (8 - shift);
  }
  [[gnu::noinline]] std::uint64_t lastWindow(std::size_t byte, unsigned shift) const {
    std::uint8_t held[kWindowBytes] = {};
    if (byte < size_) std::memcpy(held, data_ + byte, std::min(kWindowBytes, size_ - byte));
    std::uint64_t w;
    std::memcpy(&w, held, 8);
    return __builtin_bswap64(w) << shift | std::uint64_t(held[8]) >> (8 - shift);
  }
  /// 64 bits that stand `ahead` of here.
  std::uint64_t raw64(std::size_t ahead) {
    const std::uint64_t w = windowAt(pos_ + ahead);
    return take(ahead + 64) ? w : 0;
  }

  const std::uint8_t* data_ = nullptr;
  std::size_t windowLimit_ = 0;  // the first byte from which a whole window can't be loaded any more
  std::size_t size_ = 0;
  std::size_t end_ = 0;
  std::size_t pos_ = 0;
  bool failed_ = false;
};

}  // namespace krio::dwg
