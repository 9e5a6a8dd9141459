#pragma once

#include <cstddef>
#include <ctime>

/// What one input may cost. Made with the input's size before it is read; ends the program, and with it the run, as
/// soon as more memory than allowed is held at a time, and at its own end when it took longer than allowed. Memory is
/// what operator new gives, over what was held before; time is the processor's. One at a time.
class Budget {
 public:
  static constexpr std::size_t kBytesPerByte = 64;
  static constexpr std::size_t kFreeBytes = std::size_t(64) << 20;
  static constexpr double kSecondsPerMegabyte = 10;
  /// For what doesn't depend on the size: a drawing with all that it has from the start.
  static constexpr double kFreeSeconds = 1;

  explicit Budget(std::size_t size);
  Budget(const Budget&) = delete;
  Budget& operator=(const Budget&) = delete;
  ~Budget();

 private:
  std::size_t size_;
  std::clock_t begun_;
};
