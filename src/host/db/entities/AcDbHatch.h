#pragma once

#include <array>
#include <vector>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

/// An area filled whole or with lines, bounded by closed paths.
class AcDbHatch : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHatch);
  enum HatchPatternType : int { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
  enum HatchStyle : int { kNormal = 0, kOuter = 1, kIgnore = 2 };
  /// Bits of a path's flags.
  enum HatchLoopType : int {
    kDefault = 0,
    kExternal = 1,
    kPolyline = 2,
    kDerived = 4,
    kTextbox = 8,
    kOutermost = 16,
    kNotClosed = 32
  };
  enum class EdgeKind : Adesk::UInt8 { kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4 };

  /// One edge of a path, in the plane of the hatch. Which fields count depends on the kind:
  /// line: start, end. Arc: start is the centre; radius, angles. Ellipse: start is the centre, end the end of the major
  /// axis seen from it, radius the ratio; angles. Spline: the rest.
  struct Edge {
    EdgeKind kind = EdgeKind::kLine;
    AcGePoint2d start;
    AcGePoint2d end;
    double radius = 0.0;
    double startAngle = 0.0;
    double endAngle = 0.0;
    bool counterClockwise = true;
    Adesk::Int32 degree = 0;
    bool rational = false;
    bool periodic = false;
    std::vector<double> knots;
    std::vector<AcGePoint2d> points;
    std::vector<double> weights;  ///< as many as points when rational
    KR_DB_TIE(kind, start, end, radius, startAngle, endAngle, counterClockwise, degree, rational, periodic, knots,
              points, weights)
  };
  /// A closed path: edges, or with the flag kPolyline vertices with bulges.
  struct Path {
    Adesk::Int32 flags = kExternal;
    std::vector<Edge> edges;
    bool hasBulges = false;
    bool closed = true;
    std::vector<AcGePoint2d> vertices;
    std::vector<double> bulges;  ///< as many as vertices when hasBulges
    std::vector<AcDbSoftPointerId> boundaryObjects;
    bool isPolyline() const { return (flags & kPolyline) != 0; }
    KR_DB_TIE(flags, edges, hasBulges, closed, vertices, bulges, boundaryObjects)
  };
  /// One family of parallel lines: through the origin at the angle, each `offset` from the last; scaled already.
  struct PatternLine {
    double angle = 0.0;
    AcGePoint2d origin;
    AcGeVector2d offset;
    std::vector<double> dashes;
    KR_DB_TIE(angle, origin, offset, dashes)
  };
  struct Data {
    double elevation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    std::wstring patternName = L"SOLID";
    bool solid = true;
    bool associative = false;
    std::vector<Path> paths;
    Adesk::Int16 style = kNormal;
    Adesk::Int16 patternType = kPreDefined;
    double patternAngle = 0.0;
    double patternScale = 1.0;
    bool patternDouble = false;
    std::vector<PatternLine> patternLines;
    double pixelSize = 0.0;  ///< filed when any path is derived
    std::vector<AcGePoint2d> seeds;
    KR_DB_TIE(elevation, normal, patternName, solid, associative, paths, style, patternType, patternAngle, patternScale,
              patternDouble, patternLines, pixelSize, seeds)
  };
  AcDbHatch() = default;
  KR_DB_DATA(Data)

  KR_DB_FIELD(double, elevation, setElevation, data_.elevation)
  KR_DB_GET(AcGeVector3d, normal, data_.normal)
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  KR_DB_GET(const ACHAR*, patternName, data_.patternName.c_str())
  KR_DB_GET(HatchPatternType, patternType, HatchPatternType(data_.patternType))
  /// "SOLID" fills whole; another name keeps the pattern lines that were set.
  Acad::ErrorStatus setPattern(HatchPatternType type, const ACHAR* name);
  KR_DB_GET(bool, isSolidFill, data_.solid)
  KR_DB_FIELD(double, patternAngle, setPatternAngle, data_.patternAngle)
  KR_DB_FIELD(double, patternScale, setPatternScale, data_.patternScale)
  KR_DB_FIELD(bool, patternDouble, setPatternDouble, data_.patternDouble)
  KR_DB_GET(int, numPatternDefinitions, int(data_.patternLines.size()))
  KR_DB_GET(HatchStyle, hatchStyle, HatchStyle(data_.style))
  Acad::ErrorStatus setHatchStyle(HatchStyle style);
  KR_DB_FIELD(bool, associative, setAssociative, data_.associative)
  KR_DB_GET(int, numLoops, int(data_.paths.size()))
  /// eInvalidIndex.
  Acad::ErrorStatus getLoopTypeAt(int index, Adesk::Int32& type) const;
  /// A closed polyline with a bulge for each vertex, or none. eInvalidInput for fewer than two vertices or another
  /// number of bulges.
  Acad::ErrorStatus appendLoop(Adesk::Int32 type, const AcGePoint2dArray& vertices, const AcGeDoubleArray& bulges);
  Acad::ErrorStatus removeLoopAt(int index);
  /// The path in the plane of the hatch as straight pieces, arcs cut finely; its end isn't repeated.
  std::vector<AcGePoint2d> outlineOf(const Path& path) const;

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  /// Whole: filled polygons, the holes led into by cuts. With lines: the pieces of each family within the paths.
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless the matrix is a motion with one scale.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;

 private:
  Data data_;
};
