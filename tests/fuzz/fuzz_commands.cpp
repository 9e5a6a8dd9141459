// Any row of commands on a bar: it is drilled, cut, notched, split, limited, scaled, mirrored, turned to other views
// and stripped again. After each command its numbers are numbers; at the end it files and reads back the same, and the
// same list is drawn after each of two regenerations.
//
// Input: a byte that picks the class, one that picks the view, then commands: a byte each and its operands.
#include <cmath>
#include <cstdint>

#include "../object/EveryClass.h"
#include "Budget.h"
#include "Drawings.h"
#include "StreamFiler.h"
#include "host/gi/Recorder.h"

namespace {

constexpr std::size_t kMostCommands = 24;

/// The operands of commands, one behind the other; zeros at the end.
class Operands {
 public:
  Operands(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

  bool empty() const { return next_ == end_; }
  unsigned byte() { return empty() ? 0 : *next_++; }
  /// A measure around the bar: between -1000 and 4000, mostly where the bar is, at times exactly on one of its points.
  double along() { return everyclass::kStart.x + 12.5 * double(byte()) - 80; }
  double across() { return everyclass::kStart.y + 2 * (double(byte()) - 128); }
  AcGePoint3d point() {
    const double x = along();
    return {x, across(), 0};
  }
  AcGePoint2d point2d() {
    const AcGePoint3d p = point();
    return {p.x, p.y};
  }

 private:
  const std::uint8_t* next_;
  const std::uint8_t* end_;
};

void notch(KrObject& bar, Operands& operands) {
  AcArray<AcGePoint2d> corners;
  AcArray<double> bulges;
  const unsigned count = 3 + operands.byte() % 6;
  for (unsigned i = 0; i < count; ++i) {
    corners.append(operands.point2d());
    const unsigned bulge = operands.byte();
    bulges.append(bulge < 192 ? 0 : (double(bulge) - 224) / 32);
  }
  AcGePoint2d side = operands.point2d();
  bar.Recorte(corners, bulges, side);
}

void transform(KrObject& bar, Operands& operands) {
  switch (operands.byte() % 4) {
    case 0:
      bar.transformBy(AcGeMatrix3d::translation(operands.point() - AcGePoint3d::kOrigin));
      break;
    case 1:
      bar.transformBy(AcGeMatrix3d::rotation(double(operands.byte()) / 40, AcGeVector3d::kZAxis, operands.point()));
      break;
    case 2: {
      const AcGePoint3d p = operands.point();
      const AcGePoint3d q = operands.point();
      if (!p.isEqualTo(q)) bar.transformBy(AcGeMatrix3d::mirroring(AcGeLine3d(p, q)));
      break;
    }
    default:
      bar.transformBy(AcGeMatrix3d::scaling(double(1 + operands.byte()) / 64, operands.point()));
  }
}

void command(KrObject& bar, Operands& operands) {
  switch (operands.byte() % 16) {
    case 0:
    case 1: {
      const AcGePoint3d p = operands.point();
      const double depth = 8 * double(operands.byte());
      const double diameter = double(operands.byte()) / 4;
      const double stretch = double(operands.byte() % 64);
      const double angle = double(operands.byte()) / 40;
      bar.FurarVista(p, depth, diameter, stretch, angle, int(operands.byte() % 5) - 1, int(operands.byte() % 2));
      break;
    }
    case 2: {
      const AcGePoint3d p(double(operands.byte()) - 128, double(operands.byte()) - 128, 16 * double(operands.byte()));
      const AcGeVector2d dir(double(operands.byte()) - 128, double(operands.byte()) - 128);
      bar.FurarSecao(p, dir, double(operands.byte()) / 4, double(operands.byte() % 32), double(operands.byte()) / 40,
                     int(operands.byte() % 5) - 1, int(operands.byte() % 2), int(operands.byte() % 2));
      break;
    }
    case 3:
    case 4: {
      AcGePoint3d p = operands.point();
      AcGePoint3d q = operands.point();
      AcGePoint3d side = operands.point();
      bar.Corte(p, q, side, 0, int(operands.byte() % 2));
      break;
    }
    case 5:
    case 6:
      notch(bar, operands);
      break;
    case 7: {
      KrObjectSplit split;
      bar.adjustSplit(split, operands.point());
      split.setLength(double(operands.byte()));
      bar.addSplit(split, 0);
      break;
    }
    case 8:
      bar.setVisualRepStart(double(operands.byte()) / 255);
      break;
    case 9:
      bar.setVisualRepEnd(double(operands.byte()) / 255);
      break;
    case 10: {
      const double x = double(1 + operands.byte()) / 64;
      const double y = double(1 + operands.byte()) / 64;
      bar.ObjectScale(x, y, y);
      break;
    }
    case 11:
      transform(bar, operands);
      break;
    case 12:
      bar.switchToVista(KrVistas(1 + operands.byte() % 4));
      break;
    case 13:
      bar.swapStartEnd();
      break;
    case 14:
      bar.RemoveMods(int(operands.byte() % 16), int(operands.byte() % 4) - 1);
      break;
    default:
      bar.orthoRotateSec(int(operands.byte() % 2)), bar.Gera_KrVector();
  }
}

bool isNumber(const AcGePoint3d& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

void check(const KrObject& bar) {
  KrVector element;
  for (int i = 0; bar.GetVector(i, element) != 0; ++i) {
    if (!isNumber(element.startPoint()) || !isNumber(element.midPoint()) || !isNumber(element.endPoint())) {
      fuzz::fail("an element's point is no number");
    }
  }
  if (!isNumber(bar.startPoint()) || !isNumber(bar.endPoint())) fuzz::fail("the axis line's end is no number");
  if (!std::isfinite(bar.getComprimentoReal())) fuzz::fail("the length is no number");
}

std::vector<std::uint8_t> fieldsOf(const KrObject& bar) {
  fuzz::StreamFiler filer;
  bar.dwgOutFields(&filer);
  return filer.bytes();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::startModule();
  static const std::vector<everyclass::Sample> types = everyclass::samples();
  static AcDbDatabase database;
  acdbHostApplicationServices()->setWorkingDatabase(&database);
  Operands operands(data, size);
  const everyclass::Sample& type = types[operands.byte() % types.size()];
  const std::unique_ptr<KrObject> bar = type.make(KrVistas(operands.byte() % 5));
  for (std::size_t i = 0; i < kMostCommands && !operands.empty(); ++i) {
    command(*bar, operands);
    check(*bar);
  }
  gi::Recorder recorder;
  recorder.drawWhole(*bar);
  bar->Gera_KrVector();
  check(*bar);
  const std::vector<std::uint8_t> first = fieldsOf(*bar);
  const std::unique_ptr<KrObject> copy = type.empty();
  fuzz::StreamFiler filer(first, {AcDbObjectId::kNull});
  if (copy->dwgInFields(&filer) != Acad::eOk) fuzz::fail("a bar doesn't read what it wrote");
  if (fieldsOf(*copy) != first) fuzz::fail("a bar reads other than it wrote");
  const int drawn = bar->GetNumVertex(VistaCorrente);
  bar->Gera_KrVector();
  if (bar->GetNumVertex(VistaCorrente) != drawn) fuzz::fail("another regeneration draws another list");
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  return 0;
}
