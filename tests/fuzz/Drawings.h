#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/db/db.h"
#include "host/gi/WorldDrawBase.h"
#include "host/io/Report.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dxf/Dxf.h"

/// What all targets that work on drawings have in common.
namespace fuzz {

/// Starts the module of the members, so that files find its classes. Once per program; further calls do nothing.
void startModule();

/// Ends the program with a message: what must hold of every input doesn't.
[[noreturn]] void fail(const std::string& what);
[[noreturn]] void fail(const std::string& what, const krio::Report& report);

/// Whether any finding is an error.
bool hasError(const krio::Report& report);

/// Looks at all that is drawn and keeps nothing of it.
class Looker final : public gi::WorldDrawBase {
 protected:
  void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) override;
  void onArc(const gi::ArcCall& arc) override;
  void onText(const gi::TextCall& text) override;

 private:
  double sum_ = 0;
};

/// A format's two functions.
struct Format {
  Acad::ErrorStatus (*read)(std::span<const std::byte>, AcDbDatabase&, krio::Report&, const krio::ReadOptions&);
  Acad::ErrorStatus (*write)(AcDbDatabase&, std::vector<std::byte>&, krio::Report&);
};

inline constexpr Format kDwg{krio::readDwg, krio::writeDwg};
inline constexpr Format kDxf{krio::readDxf, krio::writeDxf};

/// What any bytes must lead to: strictly read, a drawing or an error in the report; recovered, the same. A drawing can
/// be audited and drawn, nothing of it stays open, and what can be written of it is read strictly and written again as
/// the same bytes. What can be written in the other format is read strictly too, with as many entities in each block.
/// What an audit mends of it is mended at once, and can be saved.
void tryDrawing(const Format& format, const Format& other, std::span<const std::byte> bytes);

/// A small stream of pseudorandom numbers, for mutators, which get a seed.
class Dice {
 public:
  explicit Dice(unsigned seed) : state_(seed * 2654435761U + 1) {}
  unsigned next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_;
  }
  /// From 0 to below n; 0 for 0.
  std::size_t below(std::size_t n) { return n == 0 ? 0 : next() % n; }

 private:
  unsigned state_;
};

}  // namespace fuzz
