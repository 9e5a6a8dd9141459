#pragma once

#include "host/gi/AcGiSubEntityTraits.h"

namespace gi {

/// The properties in force, as a plain value.
struct TraitValues {
  AcCmColor color;
  AcDbObjectId layer;
  AcDbObjectId linetype;  ///< Null counts as by layer.
  Adesk::LongPtr marker = 0;
  AcGiFillType fill = kAcGiFillNever;
  AcDb::LineWeight lineWeight = AcDb::kLnWtByLayer;
  double linetypeScale = 1.0;

  bool operator==(const TraitValues&) const = default;
};

/// Traits that do no more than hold their values. A colour index beyond 256 is passed over.
class SimpleTraits final : public AcGiDrawableTraits {
 public:
  TraitValues values;

  void setColor(const Adesk::UInt16 color) override { values.color.setColorIndex(color); }
  void setTrueColor(const AcCmColor& color) override { values.color = color; }
  void setLayer(const AcDbObjectId layerId) override { values.layer = layerId; }
  void setLineType(const AcDbObjectId linetypeId) override { values.linetype = linetypeId; }
  void setSelectionMarker(const Adesk::LongPtr markerId) override { values.marker = markerId; }
  void setFillType(const AcGiFillType fillType) override { values.fill = fillType; }
  void setLineWeight(const AcDb::LineWeight lineWeight) override { values.lineWeight = lineWeight; }
  void setLineTypeScale(double scale) override { values.linetypeScale = scale; }

  Adesk::UInt16 color() const override { return values.color.colorIndex(); }
  AcCmColor trueColor() const override { return values.color; }
  AcDbObjectId layerId() const override { return values.layer; }
  AcDbObjectId lineTypeId() const override { return values.linetype; }
  AcGiFillType fillType() const override { return values.fill; }
  AcDb::LineWeight lineWeight() const override { return values.lineWeight; }
  double lineTypeScale() const override { return values.linetypeScale; }
};

}  // namespace gi
