#pragma once

#include <cstdint>
#include <type_traits>

#include "host/ge/ge.h"
#include "host/rx/rx.h"
#include "records/KrVectorTypes.h"

class AcDbDwgFiler;
class AcDbDxfFiler;
class AcDbEntity;

/// One drawn element of a member in one view: a line, an arc, a circle or a piece of a hole.
///
/// A plain value in the drawing's plane, at the object's scale; millimetres and radians. Every element holds three
/// points, the chord's direction and length, hole measures and tags, whether or not its type uses them. An arc is held
/// by three points; its centre is worked out on demand.
class KrVector {
 public:
  /// Type 0, everything else zero but the flag (`KR_VF_PADRAO`) and `IndexFur` (-1).
  KrVector() = default;
  /// Visible arc from start to end. The centre lies on the side of the chord away from `through`, which need not lie on
  /// the arc: it gives the angle at which the mid point stands. `direction` and length are not worked out.
  KrVector(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& through, double radius);
  /// The three points as given; direction and length of the chord.
  KrVector(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end, KrVectorType type);
  /// A line: mid is the mean of start and end; direction and length of the chord.
  KrVector(const AcGePoint3d& start, const AcGePoint3d& end, KrVectorType type);
  /// A circle.
  KrVector(const AcGePoint3d& centre, double radius);
  /// A hole. Start, end, direction and length stay zero; the last argument is ignored.
  KrVector(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType type, KrVectorFlag flag,
           int = 0);
  /// An oblong hole that reaches `stretch` along `angle` between the centres of its ends; the last argument is ignored.
  KrVector(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType type, KrVectorFlag flag,
           double angle, double stretch, int = 0);
  /// A line from a point along an angle.
  KrVector(const AcGePoint3d& start, double angle, double length, KrVectorType type);

  /// Each `set` rewrites points and measures as the constructor of the same arguments does, makes the element visible,
  /// its `IndexFur` -1 and, but for holes, its hole measures zero. Flag and `typeEx` stay, except where told.
  void set(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& through, double radius);
  void set(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end, KrVectorType type);
  void set(const AcGePoint3d& start, const AcGePoint3d& end, KrVectorType type);
  /// Keeps the type.
  void set(const AcGePoint3d& start, const AcGePoint3d& end);
  /// The type becomes that of a circle.
  void set(const AcGePoint3d& centre, double radius);
  /// Always a hole face on (`KR_VT_FURO`), whatever `type` says; takes the flag.
  void set(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType type, KrVectorFlag flag,
           int = 0);
  /// As the form before, with the oblong hole's stretch.
  void set(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType type, KrVectorFlag flag,
           double angle, double stretch, int = 0);
  void set(const AcGePoint3d& start, double angle, double length, KrVectorType type);

  const AcGePoint3d& startPoint() const { return start_; }
  const AcGePoint3d& midPoint() const { return mid_; }
  const AcGePoint3d& endPoint() const { return end_; }
  /// Angle from start to end in the XY plane, as last worked out.
  double direction() const { return direction_; }
  /// Clearance of a hole, added to its diameter.
  double folga() const { return folga_; }
  double radius() const { return radius_; }
  /// A third measure of a hole, which no geometry reads.
  double furoAux() const { return furoAux_; }
  /// The length as it is kept, whatever the type makes of it: see `len`.
  double storedLength() const { return length_; }
  /// 1 if a face or a modifier hides the element, else 0.
  int hidden() const { return hidden_; }
  /// Index of the modifier that generated the element; `typeEx` tells of which kind.
  int IndexFur() const { return indexFur_; }
  KrVectorFlag tipo() const { return flag_; }
  KrVectorFlag vectorFlag() const { return flag_; }
  KrVectorType type() const { return type_; }
  KrVectorTypeEx typeEx() const { return typeEx_; }

  void setHidden(int hidden) { hidden_ = hidden; }
  void setIndexFur(int index) { indexFur_ = index; }
  void setTipo(KrVectorFlag flag) { flag_ = flag; }
  void setVectorFlag(KrVectorFlag flag) { flag_ = flag; }
  void setType(KrVectorType type) { type_ = type; }
  void setTypeEx(KrVectorTypeEx typeEx) { typeEx_ = typeEx; }

  /// The element itself.
  KrVector& operator()() { return *this; }
  const KrVector& operator()() const { return *this; }
  /// From start to end.
  operator AcGeVector3d() const { return end_ - start_; }

  /// Whether an element of that type is part of a hole: face on, centre line or edge on.
  static bool isFuro(KrVectorType type) {
    return type == KR_VT_FURO || type == KR_VT_FURO_EIXO || type == KR_VT_FURO_LINHA;
  }
  bool isFuro() const { return isFuro(type_); }
  /// Diameter of a hole with its clearance.
  double diametro() const { return 2.0 * radius_ + folga_; }

  /// Moves an end. Length and direction follow, and the mid point becomes the mean of the ends, for an arc too: restore
  /// an arc's point with `setMidPoint`.
  void setStartPoint(const AcGePoint3d& point);
  void setEndPoint(const AcGePoint3d& point);
  /// Moves the whole element: direction, length, measures and tags stay.
  void translateBy(const AcGeVector3d& v) {
    start_ += v;
    mid_ += v;
    end_ += v;
  }
  /// Moves the mid point and nothing else.
  void setMidPoint(const AcGePoint3d& point) { mid_ = point; }
  /// Sets the radius and takes the clearance away.
  void setRaio(double radius) {
    radius_ = radius;
    folga_ = 0.0;
  }
  /// Moves the end (`fromStart` nonzero) or the start so that they lie `length` apart, along the line that they make:
  /// 1, or 0 without change for an element that is no line or has no length. The stored length, the direction and the
  /// mid point stay as they were; call `setStartPoint` or `setEndPoint` for them.
  int setLength(double length, int fromStart);
  /// Exchanges start and end; the direction stays.
  void invert();
  /// 1 if an end of this element and an end of the other are the same point, else 0.
  int isConnectedTo(const KrVector& other, const AcGeTol& tol = AcGeContext::gTol) const;

  /// Centre of an arc (`KR_VT_ARCO`), else the mid point. An arc's centre stands in one point of the module, which the
  /// next call overwrites: copy it at once. An arc whose points lie on one line has its mid point here.
  const AcGePoint3d& centerPoint() const;
  /// Length of an arc (0 if its ends coincide); circumference of a circle or hole flagged as a round hole; else the
  /// stored length, which for a circle is its radius.
  double len() const;
  /// Corners of the square round a round hole without its clearance: lower left, upper left, lower right, upper right.
  /// All four are the origin for any other element, an oblong hole too.
  void GetLimitsFuro(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& p3, AcGePoint3d& p4) const;

  /// A new entity for a line, arc or circle, owned by the caller; null for every other type, and for an arc that is
  /// none.
  AcDbEntity* getAcDbEntity() const;
  /// Transforms the points and works out direction and length anew; scales radius and clearance of a hole face on only,
  /// so that a circle loses its drawn radius. Always `Acad::eOk`.
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);

  /// Files the element at the newest record version. The reader takes every version. Always `Acad::eOk`.
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
  /// Writes the groups of the newest record version, without `IndexFur` and `typeEx`. The filer's status.
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;
  /// Reads the groups of record version 1, in strict order; anything else, also the version that `dxfOutFields` writes,
  /// puts `Acad::eInvalidDxfCode` into the filer. The filer's status.
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer);

 private:
  static constexpr std::uint16_t kRecordVersion = 3;

  void resetTags();
  void setArc(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& through, double radius);
  void setChord(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end);
  void setCentre(const AcGePoint3d& centre);
  void setHole(const AcGePoint3d& centre, double radius, double folga, double furoAux);
  void setStretch(double angle, double stretch);
  void setRay(const AcGePoint3d& start, double angle, double length);
  void measureChord();
  void readMidToHidden(AcDbDwgFiler* filer);

  AcGePoint3d start_;
  AcGePoint3d mid_;
  AcGePoint3d end_;
  double direction_ = 0.0;
  double length_ = 0.0;
  KrVectorType type_ = KR_VT_EIXO;
  double radius_ = 0.0;
  double folga_ = 0.0;
  double furoAux_ = 0.0;
  KrVectorFlag flag_ = KR_VF_PADRAO;
  std::int32_t hidden_ = 0;
  std::uint16_t version_ = kRecordVersion;
  std::int32_t indexFur_ = -1;
  KrVectorTypeEx typeEx_ = KR_VTX_NENHUM;
};
