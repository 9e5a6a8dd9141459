#pragma once

#include "host/db/AcCmColor.h"
#include "host/db/AcDbEnums.h"
#include "host/db/AcDbObjectId.h"
#include "host/gi/AcGiEnums.h"
#include "host/rx/AcRxObject.h"

/// The properties under which the next figures are drawn. Each stays until it is set again.
class AcGiSubEntityTraits : public AcRxObject {
 public:
  /// Colour by index: 0 by block, 1 to 255, 256 by layer.
  virtual void setColor(const Adesk::UInt16 color) = 0;
  /// Colour in any of its forms.
  virtual void setTrueColor(const AcCmColor& color) = 0;
  virtual void setLayer(const AcDbObjectId layerId) = 0;
  virtual void setLineType(const AcDbObjectId linetypeId) = 0;
  /// The marker by which what is drawn next is picked and highlighted; 0 for none.
  virtual void setSelectionMarker(const Adesk::LongPtr markerId) = 0;
  virtual void setFillType(const AcGiFillType fillType) = 0;
  virtual void setLineWeight(const AcDb::LineWeight lineWeight) = 0;
  virtual void setLineTypeScale(double scale = 1.0) = 0;

  virtual Adesk::UInt16 color() const = 0;
  virtual AcCmColor trueColor() const = 0;
  virtual AcDbObjectId layerId() const = 0;
  virtual AcDbObjectId lineTypeId() const = 0;
  virtual AcGiFillType fillType() const = 0;
  virtual AcDb::LineWeight lineWeight() const = 0;
  virtual double lineTypeScale() const = 0;
};

/// The traits that a drawable receives before it is drawn.
class AcGiDrawableTraits : public AcGiSubEntityTraits {};
