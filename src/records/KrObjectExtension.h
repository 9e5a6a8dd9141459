#pragma once

#include <cstdint>

#include "host/ge/ge.h"
#include "host/rx/rx.h"

class AcDbDwgFiler;
class AcGiWorldDraw;
class KrObject;

/// Data that another module hangs on a member as a whole: filed with it, able to draw and to offer grip points.
///
/// An abstract base. A subclass registers itself in the class dictionary with a creator, so that a filed instance can
/// be made again by its class name.
class KrObjectExtension : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(KrObjectExtension);

  /// Appends the extension's grip points. `Acad::eNotImplementedYet` by default.
  virtual Acad::ErrorStatus getExtensionGripPoints(AcArray<AcGePoint3d>& points, AcArray<int>& osnapModes,
                                                   AcArray<int>& geomIds) const;
  /// Moves the grip points of the given indices; `firstIndex` is that of the extension's first point among all points
  /// of the member. `Acad::eNotImplementedYet` by default.
  virtual Acad::ErrorStatus moveExtensionGripPointsAt(const AcArray<int>& indices, const AcGeVector3d& offset,
                                                      int firstIndex);
  /// Draws the extension. 1 for done, which is all that the default does.
  virtual int extensionWorldDraw(int& regen, AcGiWorldDraw* mode);
  /// File the extension; a subclass calls its base's first. `Acad::eNotApplicable` for a version that isn't known.
  virtual Acad::ErrorStatus dwgInFieldsExtension(AcDbDwgFiler* filer);
  virtual Acad::ErrorStatus dwgOutFieldsExtension(AcDbDwgFiler* filer) const;

  /// Takes over what the other extension files, but for the id. Anything else is ignored. Always `Acad::eOk`.
  Acad::ErrorStatus copyFrom(const AcRxObject* other) override;

  /// The member that holds the extension, null for none.
  KrObject* curExtendedObj() const { return curExtendedObj_; }
  void setCurExtendedObj(KrObject* object) { curExtendedObj_ = object; }
  /// Id of the extension within its member, from 1 on; 0 while it isn't attached.
  std::uint32_t extensionId() const { return extensionId_; }
  void setExtensionId(std::uint32_t id) { extensionId_ = id; }

  /// Assert that the extended member is open for reading or writing; without one they do nothing.
  void assertReadEnabled() const;
  void assertWriteEnabled(bool autoUndo = true, bool recordModified = true);

 protected:
  KrObjectExtension() = default;
  KrObjectExtension(const KrObjectExtension&) = default;
  KrObjectExtension& operator=(const KrObjectExtension&) = default;

  /// Newest version of an extension's fields.
  static constexpr std::uint32_t kFieldsVersion = 1;

 private:
  KrObject* curExtendedObj_ = nullptr;
  std::uint32_t extensionId_ = 0;
};
