#pragma once

#include <cstddef>
#include <cstdint>

#include "host/db/db.h"
#include "host/ge/ge.h"
#include "host/rx/rx.h"

/// Reads DXF groups that must come in one order. Each step takes one group of the given code into a value and says
/// whether it did; after the first that didn't, no further group is taken and no value written.
class StrictDxfReader {
 public:
  explicit StrictDxfReader(AcDbDxfFiler* filer) : filer_(filer) {}

  /// Group 40.
  bool real(double& value);
  /// Group 170, or another code with a 16-bit value.
  bool int16(std::int16_t& value, int code = 170);
  /// Group 90, or another code with a 32-bit value.
  bool int32(std::int32_t& value, int code = 90);
  /// Group 10, or another code with a point.
  bool point(AcGePoint3d& value, int code = 10);

  /// Group 1: the filer's own text, which lasts until the next step.
  bool text(const ACHAR*& value);
  /// Group 310: as many bytes as the group has of the `size` wanted, zeros behind them.
  bool bytes(void* value, std::size_t size);

  /// Ends the reading if what was read isn't acceptable.
  bool require(bool acceptable);

  /// Puts the group that ended the reading back, and `Acad::eInvalidDxfCode` with the message for a broken file into
  /// the filer. The filer's status.
  Acad::ErrorStatus giveUp();

 private:
  bool take(int code);

  AcDbDxfFiler* filer_;
  resbuf item_{};
  bool taken_ = false;
  bool ended_ = false;
};
