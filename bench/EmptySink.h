#pragma once

#include "host/gi/gi.h"

namespace bench {

/// A drawing interface that takes everything and keeps nothing but the layer in force, whose state drawables look up:
/// what is measured with it is the drawable.
class EmptySink final : public AcGiWorldDraw {
 public:
  AcGiRegenType regenType() const override { return kAcGiStandardDisplay; }
  Adesk::Boolean regenAbort() const override { return false; }
  AcGiSubEntityTraits& subEntityTraits() const override { return traits_; }
  AcGiWorldGeometry& geometry() const override { return geometry_; }
  Adesk::Boolean isDragging() const override { return false; }
  double deviation(const AcGiDeviationType, const AcGePoint3d&) const override { return 0.1; }
  Adesk::UInt32 numberOfIsolines() const override { return 0; }
  AcGiContext* context() override { return nullptr; }

  /// Figures drawn since the sink was made.
  long figures() const { return geometry_.figures; }

 private:
  class Traits final : public AcGiSubEntityTraits {
   public:
    void setColor(const Adesk::UInt16) override {}
    void setTrueColor(const AcCmColor&) override {}
    void setLayer(const AcDbObjectId id) override { layer_ = id; }
    void setLineType(const AcDbObjectId) override {}
    void setSelectionMarker(const Adesk::LongPtr) override {}
    void setFillType(const AcGiFillType) override {}
    void setLineWeight(const AcDb::LineWeight) override {}
    void setLineTypeScale(double) override {}
    Adesk::UInt16 color() const override { return 256; }
    AcCmColor trueColor() const override { return {}; }
    AcDbObjectId layerId() const override { return layer_; }
    AcDbObjectId lineTypeId() const override { return {}; }
    AcGiFillType fillType() const override { return kAcGiFillNever; }
    AcDb::LineWeight lineWeight() const override { return AcDb::kLnWtByLayer; }
    double lineTypeScale() const override { return 1; }

   private:
    AcDbObjectId layer_;
  };

  class Geometry final : public AcGiWorldGeometry {
   public:
    void setExtents(AcGePoint3d*) const override {}
    void getModelToWorldTransform(AcGeMatrix3d& matrix) const override { matrix.setToIdentity(); }
    void getWorldToModelTransform(AcGeMatrix3d& matrix) const override { matrix.setToIdentity(); }
    Adesk::Boolean pushModelTransform(const AcGeVector3d&) override { return true; }
    Adesk::Boolean pushModelTransform(const AcGeMatrix3d&) override { return true; }
    Adesk::Boolean popModelTransform() override { return true; }
    Adesk::Boolean circle(const AcGePoint3d&, const double, const AcGeVector3d&) const override { return drawn(); }
    Adesk::Boolean circle(const AcGePoint3d&, const AcGePoint3d&, const AcGePoint3d&) const override { return drawn(); }
    Adesk::Boolean circularArc(const AcGePoint3d&, const double, const AcGeVector3d&, const AcGeVector3d&, const double,
                               const AcGiArcType) const override {
      return drawn();
    }
    Adesk::Boolean circularArc(const AcGePoint3d&, const AcGePoint3d&, const AcGePoint3d&,
                               const AcGiArcType) const override {
      return drawn();
    }
    Adesk::Boolean polyline(const Adesk::UInt32, const AcGePoint3d*, const AcGeVector3d*,
                            Adesk::LongPtr) const override {
      return drawn();
    }
    Adesk::Boolean polygon(const Adesk::UInt32, const AcGePoint3d*) const override { return drawn(); }
    Adesk::Boolean text(const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&, const double, const double,
                        const double, const ACHAR*) const override {
      return drawn();
    }
    Adesk::Boolean text(const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&, const ACHAR*, const Adesk::Int32,
                        const Adesk::Boolean, const AcGiTextStyle&) const override {
      return drawn();
    }
    Adesk::Boolean draw(AcGiDrawable*) const override { return false; }

    mutable long figures = 0;

   private:
    Adesk::Boolean drawn() const {
      ++figures;
      return false;
    }
  };

  mutable Traits traits_;
  mutable Geometry geometry_;
};

}  // namespace bench
