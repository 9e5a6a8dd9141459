#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/db/db.h"
#include "records/KrObjectExtension.h"

class AcGiTextStyle;

/// A text attached to a member: it stands at one of nine places of the member's rectangle and follows it.
class KrObjectTextExtension : public KrObjectExtension {
 public:
  ACRX_DECLARE_MEMBERS(KrObjectTextExtension);

  /// Bits of the option flags.
  enum OptionFlags : std::uint32_t {
    kRelativeOriented = 0x1,  ///< the text turns with the member
    kMinusSecondAxis = 0x2,   ///< anchor moved by minus the second half-axis
    kPlusSecondAxis = 0x4,    ///< anchor moved by plus the second half-axis
    kPlusFirstAxis = 0x8,     ///< anchor moved by plus the first half-axis
    kMinusFirstAxis = 0x10,   ///< anchor moved by minus the first half-axis
    kPlusHalfHeight = 0x40,   ///< text moved by plus half its height
    kMinusHalfHeight = 0x80,  ///< text moved by minus half its height
    kMinusHalfWidth = 0x100,  ///< text moved by minus half its width
    kPlusHalfWidth = 0x200    ///< text moved by plus half its width
  };

  KrObjectTextExtension() = default;
  /// A copy shares the text until either is given another.
  KrObjectTextExtension(const KrObjectTextExtension&) = default;
  KrObjectTextExtension& operator=(const KrObjectTextExtension&) = default;

  /// The text, null for none.
  const ACHAR* text() const;
  /// Angle of the text, radians.
  double textAngle() const;
  /// Height of the text; below the global tolerance the style's size is taken.
  double textHeight() const;
  AcDbObjectId textStyleId() const;
  /// Layer of the text; null for the member's.
  AcDbObjectId layerId() const;
  /// Offset of the text from its anchor.
  AcGeVector3d vecOffset() const;
  /// 1 if the text turns with the member, else 0.
  int isRelativeOriented() const;
  std::uint32_t optionFlags() const { return optionFlags_; }

  /// Keeps a copy of the text; null takes the text away.
  void setText(const ACHAR* text);
  void setTextAngle(double angle);
  void setTextHeight(double height);
  void setTextStyle(const AcDbObjectId& style);
  void setLayer(const AcDbObjectId& layer);
  void setVecOffset(const AcGeVector3d& offset);
  void setIsRelativeOriented(int relative);
  /// Clears bits, then sets bits.
  void modifyOptionFlags(std::uint32_t clear, std::uint32_t set);

  /// The text's anchor on the member's rectangle in its current view. Needs an extended member.
  void calcTextPoint(AcGePoint3d& point) const;
  /// Unit direction of the text. `inverted`, if given, holds 1 if it was turned round so that the text doesn't stand on
  /// its head, else 0. Needs an extended member.
  void calcTextDirection(AcGeVector3d& direction, int* inverted = nullptr) const;
  /// From the anchor to the text's lower left corner: minus half its extents in that style, moved as the flags say.
  /// Does nothing without a text or an extended member.
  void calcTextJustifyOffset(const AcGiTextStyle& style, AcGeVector3d& offset) const;

  Acad::ErrorStatus getExtensionGripPoints(AcArray<AcGePoint3d>& points, AcArray<int>& osnapModes,
                                           AcArray<int>& geomIds) const override;
  Acad::ErrorStatus moveExtensionGripPointsAt(const AcArray<int>& indices, const AcGeVector3d& offset,
                                              int firstIndex) override;
  int extensionWorldDraw(int& regen, AcGiWorldDraw* mode) override;
  Acad::ErrorStatus dwgInFieldsExtension(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFieldsExtension(AcDbDwgFiler* filer) const override;

 private:
  static constexpr std::uint32_t kDefaultFlags = kRelativeOriented | kPlusFirstAxis;

  bool hasFlag(OptionFlags flag) const { return (optionFlags_ & flag) != 0; }

  std::shared_ptr<const std::wstring> text_;
  std::uint32_t optionFlags_ = kDefaultFlags;
  AcGeVector3d vecOffset_;
  AcDbObjectId textStyleId_;
  AcDbObjectId layerId_;
  double textHeight_ = 0.0;
  double textAngle_ = 0.0;
};
