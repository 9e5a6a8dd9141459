#pragma once

#include "host/rx/AdeskTypes.h"
#include "host/rx/ErrorStatus.h"

/// A colour: of the layer, of the block, by index 1 to 255, or by its red, green and blue.
class AcCmColor {
 public:
  enum ColorMethod : Adesk::UInt8 {
    kByLayer = 0xc0,
    kByBlock = 0xc1,
    kByColor = 0xc2,
    kByACI = 0xc3,
    kForeground = 0xc5
  };
  static constexpr Adesk::UInt16 kACIbyBlock = 0;
  static constexpr Adesk::UInt16 kACIforeground = 7;
  static constexpr Adesk::UInt16 kACIbyLayer = 256;
  static constexpr Adesk::UInt16 kACIstandard = 7;
  static constexpr Adesk::UInt16 kACImaximum = 255;

  /// By layer.
  constexpr AcCmColor() = default;

  constexpr ColorMethod colorMethod() const { return method_; }
  constexpr bool isByLayer() const { return method_ == kByLayer; }
  constexpr bool isByBlock() const { return method_ == kByBlock; }
  constexpr bool isByACI() const { return method_ == kByACI; }
  constexpr bool isByColor() const { return method_ == kByColor; }

  /// 256 by layer, 0 by block, else the index; a colour by its parts gives the index 7.
  constexpr Adesk::UInt16 colorIndex() const {
    switch (method_) {
      case kByLayer:
        return kACIbyLayer;
      case kByBlock:
        return kACIbyBlock;
      case kByACI:
        return Adesk::UInt16(value_);
      default:
        return kACIstandard;
    }
  }
  /// Takes 0 to 256. eInvalidInput, and no change, for any other value.
  constexpr Acad::ErrorStatus setColorIndex(int index) {
    if (index < 0 || index > kACIbyLayer) return Acad::eInvalidInput;
    method_ = index == kACIbyLayer ? kByLayer : index == kACIbyBlock ? kByBlock : kByACI;
    value_ = method_ == kByACI ? Adesk::UInt32(index) : 0;
    return Acad::eOk;
  }

  constexpr Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue) {
    method_ = kByColor;
    value_ = Adesk::UInt32(red) << 16 | Adesk::UInt32(green) << 8 | Adesk::UInt32(blue);
    return Acad::eOk;
  }
  constexpr Adesk::UInt8 red() const { return Adesk::UInt8(value_ >> 16); }
  constexpr Adesk::UInt8 green() const { return Adesk::UInt8(value_ >> 8); }
  constexpr Adesk::UInt8 blue() const { return Adesk::UInt8(value_); }

  /// The whole colour in 32 bits: the method above, the value below.
  constexpr Adesk::UInt32 color() const { return Adesk::UInt32(method_) << 24 | value_; }
  /// Takes what color() gave. eInvalidInput for an unknown method.
  constexpr Acad::ErrorStatus setColor(Adesk::UInt32 color) {
    const auto method = ColorMethod(color >> 24);
    if (method != kByLayer && method != kByBlock && method != kByColor && method != kByACI) return Acad::eInvalidInput;
    method_ = method;
    value_ = method == kByColor || method == kByACI ? color & 0xffffffU : 0;
    return Acad::eOk;
  }

  constexpr bool operator==(const AcCmColor&) const = default;

 private:
  ColorMethod method_ = kByLayer;
  Adesk::UInt32 value_ = 0;
};
