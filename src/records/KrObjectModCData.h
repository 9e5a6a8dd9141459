#pragma once

#include "host/rx/rx.h"

class AcDbDwgFiler;

/// Data that another module hangs on one modifier of a member: on a hole, a cut, a notch or a split.
///
/// An abstract base. A subclass registers itself in the class dictionary with a creator, so that a filed instance can
/// be made again by its class name, and files itself in `dwgInFields` and `dwgOutFields`, through which it is copied
/// too.
class KrObjectModCData : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(KrObjectModCData);

  virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) = 0;
  virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const = 0;
  /// Nonzero (the default) if the data goes with a copy of the member; with 0 it is only filed in drawings.
  virtual int saveOnCopy() const { return 1; }
  /// Prints what the data says, for the LIST command. Prints nothing by default.
  virtual void list() const {}

  /// Takes over what the other files. Always `Acad::eOk`.
  Acad::ErrorStatus copyFrom(const AcRxObject* source) override;
  /// A new instance of the same class with the same contents; null for a class without a creator.
  AcRxObject* clone() const override;

  /// Files a slot that may hold data: the class name and the data, or the empty string for an empty slot, and for data
  /// that doesn't go with a copy when the filer makes one. `Acad::eOk`.
  static Acad::ErrorStatus auxDwgOutFields(AcDbDwgFiler* filer, const KrObjectModCData* data);
  /// Replaces what the slot holds by what `auxDwgOutFields` filed. `Acad::eMakeMeProxy` for data of a class that isn't
  /// registered, `Acad::eNotApplicable` if the filer gives no class name, else the data's own result; the slot is null
  /// wherever no data was made.
  static Acad::ErrorStatus auxDwgInFields(AcDbDwgFiler* filer, KrObjectModCData** slot);

  /// A clone of data that may be null.
  static KrObjectModCData* cloneOf(const KrObjectModCData* data);
  /// Deletes the data of a slot if `classe` is null or the data is of a kind of it. With a class there must be data.
  static void purge(KrObjectModCData*& slot, const AcRxClass* classe);

 protected:
  KrObjectModCData() = default;
  KrObjectModCData(const KrObjectModCData&) = default;
  KrObjectModCData& operator=(const KrObjectModCData&) = default;
};
