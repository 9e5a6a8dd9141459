#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbExtents.h"
#include "host/db/AcDbObject.h"
#include "host/db/AcDbSubentId.h"
#include "host/ge/ge.h"

using AcGePoint2dArray = AcArray<AcGePoint2d>;
using AcGePoint3dArray = AcArray<AcGePoint3d>;
using AcGeVector2dArray = AcArray<AcGeVector2d>;
using AcGeVector3dArray = AcArray<AcGeVector3d>;
using AcGeDoubleArray = AcArray<double>;

class AcDbSubentities;

/// An object that draws itself: it lies in a block and has the common properties. Callers use the plain form of each
/// operation, which asserts the open state and calls the sub... form; classes override the latter.
class AcDbEntity : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEntity);
  ~AcDbEntity() override = default;

  // --- Properties --------------------------------------------------------------------------------------------------
  // Setters answer eOk, or what their comment tells. A name is looked up in the entity's database, else in the working
  // one. New entities are by layer, of linetype scale 1, visible; without a layer of its own set, an entity gets layer
  // "0" when it is appended.

  /// The block record that the entity lies in.
  AcDbObjectId blockId() const { return ownerId(); }

  AcDbObjectId layerId() const;
  /// The same whatever the open state, for the host itself.
  AcDbObjectId layerReference() const { return layerId_; }
  /// The layer's name: a new text that acutDelString frees; null when the entity has no layer yet.
  ACHAR* layer() const;
  /// eKeyNotFound for an unknown name; eNoDatabase; eInvalidLayer for an id that isn't a layer's. The layer of what
  /// belongs to the entity follows unless `doSubents` is false.
  Acad::ErrorStatus setLayer(const ACHAR* name, bool doSubents = true, bool allowHiddenLayer = false);
  Acad::ErrorStatus setLayer(AcDbObjectId id, bool doSubents = true, bool allowHiddenLayer = false);

  AcCmColor color() const;
  Adesk::UInt16 colorIndex() const { return color().colorIndex(); }
  Acad::ErrorStatus setColor(const AcCmColor& color, bool doSubents = true);
  /// eInvalidInput unless 0 to 256.
  Acad::ErrorStatus setColorIndex(Adesk::UInt16 index, bool doSubents = true);

  AcDbObjectId linetypeId() const;
  /// A new text that acutDelString frees; null when the entity has no linetype yet.
  ACHAR* linetype() const;
  Acad::ErrorStatus setLinetype(const ACHAR* name, bool doSubents = true);
  Acad::ErrorStatus setLinetype(AcDbObjectId id, bool doSubents = true);
  double linetypeScale() const;
  /// eInvalidInput unless above 0.
  Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);

  AcDb::LineWeight lineWeight() const;
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);
  AcDb::Visibility visibility() const;
  Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, bool doSubents = true);

  /// How the plot style is told; the id counts for kPlotStyleById only.
  enum PlotStyleForm : int { kPlotStyleByLayer = 0, kPlotStyleByBlock = 1, kPlotStyleDefault = 2, kPlotStyleById = 3 };
  PlotStyleForm plotStyleNameType() const;
  AcDbObjectId plotStyleNameId() const;
  Acad::ErrorStatus setPlotStyleName(PlotStyleForm form, AcDbObjectId id = AcDbObjectId::kNull);

  Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* source, bool doSubents = true);
  /// Takes the current layer, colour, linetype, linetype scale and lineweight of `database`, or of the working one.
  void setDatabaseDefaults(AcDbDatabase* database = nullptr);

  virtual bool isPlanar() const { return false; }
  virtual Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const;
  virtual void getEcs(AcGeMatrix3d& ecs) const;

  // --- Geometry ----------------------------------------------------------------------------------------------------

  Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform);
  /// A new entity outside of any database.
  Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const;
  Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
  /// Appends new entities outside of any database, which the caller owns.
  Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const;
  Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                  Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const;
  Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& projection,
                                  AcGePoint3dArray& points, Adesk::GsMarker thisMarker = 0,
                                  Adesk::GsMarker otherMarker = 0) const;
  Acad::ErrorStatus boundingBoxIntersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                             Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const;

  // --- Editing -----------------------------------------------------------------------------------------------------

  /// Tells of the entity on the command line.
  void list() const;
  Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pickPoint,
                                   const AcGePoint3d& lastPoint, const AcGeMatrix3d& viewXform,
                                   AcGePoint3dArray& snapPoints, AcDbIntArray& geomIds) const;
  Acad::ErrorStatus getGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes, AcDbIntArray& geomIds) const;
  Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
  Acad::ErrorStatus getStretchPoints(AcGePoint3dArray& points) const;
  Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
  void gripStatus(AcDb::GripStat status) { subGripStatus(status); }

  /// `paths` is a new array of `numPaths`, freed by delete[].
  Acad::ErrorStatus getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker marker,
                                             const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform, int& numPaths,
                                             AcDbFullSubentPath*& paths, int numInserts = 0,
                                             AcDbObjectId* entAndInsertStack = nullptr) const;
  Acad::ErrorStatus getGsMarkersAtSubentPath(const AcDbFullSubentPath& path, AcArray<Adesk::GsMarker>& markers) const;
  /// A new entity outside of any database for one part; null when there is none.
  AcDbEntity* subentPtr(const AcDbFullSubentPath& path) const;

  /// Highlights a part, or the whole for a path without a part, until unhighlight of the same or of the whole.
  Acad::ErrorStatus highlight(const AcDbFullSubentPath& path = AcDbFullSubentPath(), bool highlightAll = false) const;
  Acad::ErrorStatus unhighlight(const AcDbFullSubentPath& path = AcDbFullSubentPath(), bool highlightAll = false) const;
  bool isHighlighted() const;
  /// The parts highlighted now, in the order in which they came.
  AcDbFullSubentPathArray highlightedPaths() const;

  /// Marks the entity's picture as changed (modifiedGraphics at its close).
  void recordGraphicsModified(bool modified = true) { mark(AcDbStub::kModifiedGraphics, modified); }
  Acad::ErrorStatus draw();

  // --- Reading and writing files -------------------------------------------------------------------------------------
  // Whatever the open state, without checks and without notice.

  enum LinetypeForm : Adesk::UInt8 {
    kLinetypeByLayer = 0,
    kLinetypeByBlock = 1,
    kLinetypeContinuous = 2,
    kLinetypeById = 3
  };
  /// The common properties as a drawing file has them.
  struct Common {
    AcDbObjectId layer;
    AcDbObjectId linetype;
    AcDbObjectId plotStyle;
    double linetypeScale = 1.0;
    AcCmColor color;
    AcDb::LineWeight lineWeight = AcDb::kLnWtByLayer;
    bool invisible = false;
    /// As a DWG's two bits tell the linetype. The id is set in any case.
    Adesk::UInt8 linetypeForm = kLinetypeByLayer;
    Adesk::UInt8 plotStyleForm = kPlotStyleByLayer;
  };
  Common common() const;
  void setCommonAsRead(const Common& common);
  /// As above for the usual entity, in few instructions: no plot style of its own.
  void setCommonAsRead(AcDbStub* layer, AcDbStub* linetype, Adesk::UInt8 linetypeForm, double linetypeScale,
                       const AcCmColor& color, AcDb::LineWeight weight, bool invisible) {
    layerId_ = AcDbObjectId(layer);
    linetypeId_ = AcDbObjectId(linetype);
    linetypeScale_ = linetypeScale;
    color_ = color.color();
    lineWeight_ = Adesk::Int16(weight);
    form_ = Adesk::UInt8((invisible ? kInvisibleBit : 0) | linetypeForm << kLinetypeShift);
  }
  /// The stream of proxy graphics that came with the entity from a file: what programs without its class show. A write
  /// to the entity lets it go, except in a proxy.
  std::span<const std::byte> fileGraphics() const;
  void setFileGraphics(std::vector<std::byte> graphics);
  /// The parts that are entities of their own; null for an entity without.
  virtual AcDbSubentities* subentities() { return nullptr; }

  // --- Filing ------------------------------------------------------------------------------------------------------

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus audit(AcDbAuditInfo* info) override;
  void saveAs(AcGiWorldDraw* draw, AcDb::SaveType type) override;
  Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler* filer, AcRxClass* aClass) override;
  Acad::ErrorStatus subClose() override;

 protected:
  AcDbEntity() { addTrait(kIsEntity); }

  // What a class of entities overrides. The defaults answer eNotImplementedYet, or do what their comment tells.
  Adesk::UInt32 subSetAttributes(AcGiDrawableTraits* traits) override;  ///< hands over the common properties
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;            ///< draws nothing; true
  void subViewportDraw(AcGiViewportDraw* draw) override;                ///< draws nothing
  virtual Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform);
  virtual Acad::ErrorStatus subGetTransformedCopy(const AcGeMatrix3d& xform,
                                                  AcDbEntity*& copy) const;  ///< copy, transform
  virtual Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const;
  virtual Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const;
  virtual Acad::ErrorStatus subIntersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                             Adesk::GsMarker thisMarker, Adesk::GsMarker otherMarker) const;
  virtual Acad::ErrorStatus subIntersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& projection,
                                             AcGePoint3dArray& points, Adesk::GsMarker thisMarker,
                                             Adesk::GsMarker otherMarker) const;
  virtual void subList() const;  ///< class, handle, layer and space
  virtual Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                              const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                              const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                              AcDbIntArray& geomIds) const;
  virtual Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                             AcDbIntArray& geomIds) const;
  virtual Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
  virtual Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points) const;
  virtual Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
  virtual void subGripStatus(AcDb::GripStat status);
  virtual Acad::ErrorStatus subGetSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker marker,
                                                        const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform,
                                                        int& numPaths, AcDbFullSubentPath*& paths, int numInserts,
                                                        AcDbObjectId* entAndInsertStack) const;
  virtual Acad::ErrorStatus subGetGsMarkersAtSubentPath(const AcDbFullSubentPath& path,
                                                        AcArray<Adesk::GsMarker>& markers) const;
  virtual AcDbEntity* subSubentPtr(const AcDbFullSubentPath& path) const;
  virtual Acad::ErrorStatus subHighlight(const AcDbFullSubentPath& path, bool highlightAll) const;
  virtual Acad::ErrorStatus subUnhighlight(const AcDbFullSubentPath& path, bool highlightAll) const;
  virtual Acad::ErrorStatus subSetLayer(AcDbObjectId id, bool doSubents, bool allowHiddenLayer);
  virtual Acad::ErrorStatus subSetColor(const AcCmColor& color, bool doSubents);
  virtual Acad::ErrorStatus subSetLinetype(AcDbObjectId id, bool doSubents);
  virtual Acad::ErrorStatus subSetLineWeight(AcDb::LineWeight weight, bool doSubents);
  virtual Acad::ErrorStatus subSetVisibility(AcDb::Visibility visibility, bool doSubents);
  virtual void subSetDatabaseDefaults(AcDbDatabase* database);

 private:
  friend class AcDbBlockTableRecord;
  friend class AcDbOpener;
  friend class AcDbDatabase;
  /// Layer "0" and linetype ByLayer, where nothing was set.
  void takeDefaults(const AcDbDatabase& database);

  static constexpr int kInvisibleBit = 1;
  static constexpr int kLinetypeShift = 1;
  static constexpr int kPlotStyleShift = 3;
  static constexpr int kFormMask = 3;

  // Small ones first: they lie in what the base leaves of its last word.
  Adesk::UInt8 form_ = 0;  // invisible; how linetype and plot style are told
  Adesk::Int16 lineWeight_ = AcDb::kLnWtByLayer;
  Adesk::UInt32 color_ = Adesk::UInt32(AcCmColor::kByLayer) << 24;
  AcDbHardPointerId layerId_;
  AcDbHardPointerId linetypeId_;
  double linetypeScale_ = 1.0;
};
