#pragma once

#include "host/db/AcCmColor.h"
#include "host/db/AcDbSymbolTable.h"

/// A layer: the common properties and the state of the entities on it.
class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
  /// On, thawed, unlocked, plotted, colour 7, default lineweight; the linetype is set to Continuous when added.
  AcDbLayerTableRecord() { color_.setColorIndex(AcCmColor::kACIforeground); }

  bool isFrozen() const { return state(kFrozen); }
  /// eInvalidLayer for the current layer.
  Acad::ErrorStatus setIsFrozen(bool frozen);
  bool isOff() const { return state(kOff); }
  void setIsOff(bool off) { setState(kOff, off); }
  /// Entities on a locked layer can't be opened for write (eOnLockedLayer).
  bool isLocked() const { return state(kLocked); }
  void setIsLocked(bool locked) { setState(kLocked, locked); }
  /// Whether the layer is frozen in new viewports.
  bool VPDFLT() const { return state(kVpdflt); }
  void setVPDFLT(bool frozen) { setState(kVpdflt, frozen); }
  bool isPlottable() const { return !state(kNotPlotted); }
  Acad::ErrorStatus setIsPlottable(bool plot);
  bool isHidden() const { return false; }
  bool isInUse() const;

  AcCmColor color() const;
  /// By layer and by block are no colours of a layer: no change.
  void setColor(const AcCmColor& color);
  AcDbObjectId linetypeObjectId() const;
  Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
  AcDb::LineWeight lineWeight() const;
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
  AcDbObjectId plotStyleNameId() const;
  Acad::ErrorStatus setPlotStyleName(AcDbObjectId id);
  /// For readers of files: no checks.
  void setLinetypeAsRead(AcDbObjectId id) { linetypeId_ = id; }
  void setPlotStyleAsRead(AcDbObjectId id) { plotStyle_ = id; }
  void setLineWeightAsRead(AcDb::LineWeight weight) { lineWeight_ = Adesk::Int16(weight); }
  void setColorAsRead(const AcCmColor& color) { color_ = color; }
  void setStatesAsRead(bool frozen, bool off, bool frozenInNew, bool locked, bool plottable) {
    states_ = Adesk::UInt8((off ? kOff : 0) | (frozen ? kFrozen : 0) | (locked ? kLocked : 0) |
                           (frozenInNew ? kVpdflt : 0) | (plottable ? 0 : kNotPlotted));
  }
  /// A new text that acutDelString frees.
  ACHAR* description() const;
  Acad::ErrorStatus setDescription(const ACHAR* description);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  /// Layer "0" and the current one can't be erased: eCannotBeErasedByCaller.
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

 protected:
  Adesk::Int16 dxfFlags() const override;
  void setDxfFlags(Adesk::Int16 flags) override;

 private:
  friend class AcDbOpener;
  enum State : Adesk::UInt8 { kOff = 1, kFrozen = 2, kLocked = 4, kVpdflt = 8, kNotPlotted = 16 };
  bool state(State bit) const {
    assertReadEnabled();
    return (states_ & bit) != 0;
  }
  void setState(State bit, bool on);
  bool isCurrent() const;

  Adesk::UInt8 states_ = 0;
  Adesk::Int16 lineWeight_ = AcDb::kLnWtByLwDefault;
  AcCmColor color_;
  AcDbHardPointerId linetypeId_;
  AcDbHardPointerId plotStyle_;
  std::wstring description_;
};

class AcDbLayerTable : public AcDbSymbolTableOf<AcDbLayerTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayerTable);
};
using AcDbLayerTableIterator = AcDbLayerTable::Iterator;
