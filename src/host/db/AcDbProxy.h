#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbProxyGroups.h"

/// A class of objects as a drawing's list of classes tells of it. Its number in a file is 500 plus its place there.
struct AcDbClassRecord {
  static constexpr int kFirstNumber = 500;
  static constexpr Adesk::Int16 kEntityClass = 0x1F2;
  static constexpr Adesk::Int16 kObjectClass = 0x1F3;
  Adesk::Int32 proxyFlags = 0;
  std::wstring appName;
  std::wstring cppName;
  std::wstring dxfName;
  bool wasProxy = false;  ///< the application wasn't there when the file was written
  Adesk::Int16 itemClassId = kObjectClass;
  bool isEntity() const { return itemClassId == kEntityClass; }
};

/// An object of a class that the host doesn't have, or whose class refused to read it, kept whole. What follows the
/// common data is a run of bits with the references apart (a DWG's), or a list of groups (a DXF's).
struct AcDbProxyData {
  enum Form : Adesk::UInt8 { kDwgBits, kDxfGroups };
  struct Reference {
    Adesk::UInt8 code = 4;  ///< of the handle: 2 soft owner, 3 hard owner, 4 soft pointer, 5 hard pointer
    AcDbObjectId id;
  };
  using Group = AcDbProxyGroups::Group;

  Form form = kDwgBits;
  /// The class; empty names for an object of a fixed type.
  AcDbClassRecord classRecord;
  /// Of an object of a fixed type (SPLINE 0x24, ...), else 0.
  Adesk::UInt16 fixedType = 0;
  /// Name of the kind in a DXF file, of a fixed type.
  std::wstring dxfName;
  /// Whether the file held a proxy's record (type 0x1F2 or 0x1F3) rather than the object's own, and the version that
  /// the data are of: version in the low word, maintenance release in the high one.
  bool asProxyRecord = false;
  Adesk::Int32 format = 0;
  /// kDwgBits: from the end of the common data, first bit the high one of the first byte.
  std::vector<std::byte> bits;
  Adesk::UInt32 bitCount = 0;
  /// The references behind the common ones, in order.
  std::vector<Reference> references;
  /// kDxfGroups: the groups behind the common ones, markers (100) included, extended data left out.
  AcDbProxyGroups groups;

  Acad::ErrorStatus dwgOut(AcDbDwgFiler* filer) const;
  Acad::ErrorStatus dwgIn(AcDbDwgFiler* filer);
  bool operator==(const AcDbProxyData& other) const;
};

/// What draws a stream of proxy graphics: set by the layer that knows the format. None is set at first: nothing drawn.
using AcDbProxyGraphicsDraw = void (*)(std::span<const std::byte> graphics, AcGiWorldDraw* draw);
void acdbSetProxyGraphicsDraw(AcDbProxyGraphicsDraw draw);
AcDbProxyGraphicsDraw acdbProxyGraphicsDraw();

/// An entity kept whole. Its picture is the graphics that came with it (AcDbEntity::fileGraphics).
class AcDbProxyEntity : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbProxyEntity);
  enum GraphicsMetafileType { kNoMetafile = 0, kBoundingBox = 1, kFullGraphics = 2 };
  AcDbProxyEntity() { addTrait(kIsProxy); }
  const AcDbProxyData& data() const { return data_; }
  AcDbProxyData& dataAsRead() { return data_; }

  GraphicsMetafileType graphicsMetafileType() const;
  int proxyFlags() const { return data_.classRecord.proxyFlags; }
  const ACHAR* originalClassName() const { return data_.classRecord.cppName.c_str(); }
  const ACHAR* originalDxfName() const;
  const ACHAR* applicationDescription() const { return data_.classRecord.appName.c_str(); }
  /// The references with their codes.
  Acad::ErrorStatus getReferences(AcDbObjectIdArray& ids, AcDbIntArray& codes) const;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// Nobody knows what its data mean: eNotApplicable.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  void subList() const override;

 private:
  AcDbProxyData data_;
};

/// An object that is no entity, kept whole.
class AcDbProxyObject : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbProxyObject);
  AcDbProxyObject() { addTrait(kIsProxy); }
  const AcDbProxyData& data() const { return data_; }
  AcDbProxyData& dataAsRead() { return data_; }

  int proxyFlags() const { return data_.classRecord.proxyFlags; }
  const ACHAR* originalClassName() const { return data_.classRecord.cppName.c_str(); }
  const ACHAR* originalDxfName() const;
  const ACHAR* applicationDescription() const { return data_.classRecord.appName.c_str(); }
  Acad::ErrorStatus getReferences(AcDbObjectIdArray& ids, AcDbIntArray& codes) const;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;

 private:
  AcDbProxyData data_;
};
