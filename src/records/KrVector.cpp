#include "records/KrVector.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <utility>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "records/ChordAngle.h"
#include "records/FiledMarker.h"
#include "records/StrictDxfReader.h"
#include "support/Bulges.h"
#include "support/Database.h"

static_assert(std::is_trivially_copyable_v<KrVector>);

namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kRightAngle = 1.5707963267948966;
constexpr double kThreeRightAngles = 4.71238898038469;
/// From the side of a square to its half diagonal.
constexpr double kSquareDiagonal = 1.414213562373095;
/// The one record version whose DXF groups are read.
constexpr std::int16_t kDxfVersionRead = 1;

AcGeVector3d polar(double angle) {
  return AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
}

AcGePoint3d meanOf(const AcGePoint3d& a, const AcGePoint3d& b) {
  return AcGePoint3d((a.x + b.x) / 2.0, (a.y + b.y) / 2.0, (a.z + b.z) / 2.0);
}

double angleBetween(const AcGePoint3d& from, const AcGePoint3d& to) {
  return chordAngle(to.x - from.x, to.y - from.y);
}

/// Centre of the arc of that radius from start to end that bulges to the side of `through`.
AcGePoint3d arcCentre(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& through, double radius) {
  const AcGeCircArc2d aboutStart(AcGePoint2d(start.x, start.y), radius);
  const AcGeCircArc2d aboutEnd(AcGePoint2d(end.x, end.y), radius);
  int count = 0;
  AcGePoint2d candidates[2];
  // Without a common point there is no such arc: the middle of the chord is the nearest thing to a centre.
  if (!aboutStart.intersectWith(aboutEnd, count, candidates[0], candidates[1], AcGeTol())) return meanOf(start, end);
  AcGePoint3d centre(candidates[0].x, candidates[0].y, start.z);
  if (count > 1 && toEqualSide(start, end, through, centre)) centre.set(candidates[1].x, candidates[1].y, start.z);
  return centre;
}

// Kept apart, so that what they load is not loaded for the many elements that need neither.
[[gnu::noinline]] void transformInSpace(AcGePoint3d& p, const AcGeMatrix3d& m) {
  p.transformBy(m);
}
[[gnu::noinline]] void scaleHole(const AcGeMatrix3d& m, double& radius, double& folga) {
  const double scale = m.scale();
  radius *= scale;
  folga *= scale;
}

/// Whether all are zero, of either sign, in one comparison.
bool areZero(std::initializer_list<double> values) {
  std::uint64_t bits = 0;
  for (const double value : values) bits |= std::bit_cast<std::uint64_t>(value);
  return bits << 1 == 0;
}

/// Drawings are flat, and so is what moves them: of the product with a point of level 0 most is zeros.
void transformFlat(AcGePoint3d& p, const AcGeMatrix3d& m) {
  const double x = m.entry[0][0] * p.x + m.entry[0][1] * p.y + m.entry[0][3];
  p.y = m.entry[1][0] * p.x + m.entry[1][1] * p.y + m.entry[1][3];
  p.x = x;
}

template <class Enumeration>
std::int16_t filedEnum(Enumeration value) {
  return static_cast<std::int16_t>(value);
}

template <class Enumeration>
Enumeration enumOf(std::int16_t filed) {
  return static_cast<Enumeration>(static_cast<std::uint16_t>(filed));
}

double readDouble(AcDbDwgFiler* filer) {
  double value = 0.0;
  filer->readDouble(&value);
  return value;
}

std::int16_t readInt16(AcDbDwgFiler* filer) {
  Adesk::Int16 value = 0;
  filer->readInt16(&value);
  return value;
}

std::int32_t readInt32(AcDbDwgFiler* filer) {
  Adesk::Int32 value = 0;
  filer->readInt32(&value);
  return value;
}

}  // namespace

KrVector::KrVector(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& through, double radius) {
  setArc(start, end, through, radius);
}

KrVector::KrVector(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end, KrVectorType type)
    : type_(type) {
  setChord(start, mid, end);
}

KrVector::KrVector(const AcGePoint3d& start, const AcGePoint3d& end, KrVectorType type) : type_(type) {
  setChord(start, meanOf(start, end), end);
}

KrVector::KrVector(const AcGePoint3d& centre, double radius)
    : mid_(centre), length_(radius), type_(KR_VT_CIRCULO), radius_(radius) {}

KrVector::KrVector(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType type,
                   KrVectorFlag flag, int)
    : mid_(centre), type_(type), radius_(radius), folga_(folga), furoAux_(furoAux), flag_(flag) {}

KrVector::KrVector(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType type,
                   KrVectorFlag flag, double angle, double stretch, int)
    : KrVector(centre, radius, folga, furoAux, type, flag) {
  setStretch(angle, stretch);
}

KrVector::KrVector(const AcGePoint3d& start, double angle, double length, KrVectorType type) : type_(type) {
  setRay(start, angle, length);
}

void KrVector::set(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& through, double radius) {
  resetTags();
  setArc(start, end, through, radius);
}

void KrVector::set(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end, KrVectorType type) {
  resetTags();
  type_ = type;
  setChord(start, mid, end);
}

void KrVector::set(const AcGePoint3d& start, const AcGePoint3d& end, KrVectorType type) {
  type_ = type;
  set(start, end);
}

void KrVector::set(const AcGePoint3d& start, const AcGePoint3d& end) {
  resetTags();
  setChord(start, meanOf(start, end), end);
}

void KrVector::set(const AcGePoint3d& centre, double radius) {
  resetTags();
  setCentre(centre);
  type_ = KR_VT_CIRCULO;
  length_ = radius_ = radius;
}

void KrVector::set(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType,
                   KrVectorFlag flag, int) {
  resetTags();
  setCentre(centre);
  type_ = KR_VT_FURO;
  flag_ = flag;
  radius_ = radius;
  folga_ = folga;
  furoAux_ = furoAux;
}

void KrVector::set(const AcGePoint3d& centre, double radius, double folga, double furoAux, KrVectorType type,
                   KrVectorFlag flag, double angle, double stretch, int) {
  set(centre, radius, folga, furoAux, type, flag);
  setStretch(angle, stretch);
}

void KrVector::set(const AcGePoint3d& start, double angle, double length, KrVectorType type) {
  resetTags();
  type_ = type;
  setRay(start, angle, length);
}

void KrVector::resetTags() {
  hidden_ = 0;
  indexFur_ = -1;
  radius_ = folga_ = furoAux_ = 0.0;
}

void KrVector::setArc(const AcGePoint3d& start, const AcGePoint3d& end, const AcGePoint3d& through, double radius) {
  start_ = start;
  end_ = end;
  type_ = KR_VT_ARCO;
  radius_ = radius;
  const AcGePoint3d centre = arcCentre(start, end, through, radius);
  mid_ = centre + polar(angleBetween(centre, through)) * radius;
}

void KrVector::setChord(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end) {
  start_ = start;
  mid_ = mid;
  end_ = end;
  measureChord();
}

void KrVector::setCentre(const AcGePoint3d& centre) {
  start_ = end_ = AcGePoint3d();
  mid_ = centre;
  direction_ = length_ = 0.0;
}

void KrVector::setStretch(double angle, double stretch) {
  const AcGeVector3d half = polar(angle) * stretch / 2.0;
  start_ = mid_ - half;
  end_ = mid_ + half;
  direction_ = angle;
  length_ = stretch;
}

void KrVector::setRay(const AcGePoint3d& start, double angle, double length) {
  start_ = start;
  end_ = start + polar(angle) * length;
  mid_ = meanOf(start_, end_);
  direction_ = angle;
  length_ = length;
}

void KrVector::measureChord() {
  direction_ = angleBetween(start_, end_);
  length_ = start_.distanceTo(end_);
}

void KrVector::setStartPoint(const AcGePoint3d& point) {
  const AcGePoint3d end = end_;
  setChord(point, meanOf(point, end), end);
}

void KrVector::setEndPoint(const AcGePoint3d& point) {
  const AcGePoint3d start = start_;
  setChord(start, meanOf(start, point), point);
}

int KrVector::setLength(double length, int fromStart) {
  switch (type_) {
    case KR_VT_EIXO:
    case KR_VT_LINHA_OCULTA:
    case KR_VT_LINHA:
    case KR_VT_FURO_EIXO:
    case KR_VT_REFERENCIA:
      break;
    default:
      return 0;
  }
  const AcGeVector3d chord = end_ - start_;
  if (chord.isZeroLength()) return 0;
  const AcGeVector3d reach = chord.normal() * length;
  if (fromStart != 0) {
    end_ = start_ + reach;
  } else {
    start_ = end_ - reach;
  }
  return 1;
}

void KrVector::invert() {
  std::swap(start_, end_);
}

int KrVector::isConnectedTo(const KrVector& other, const AcGeTol& tol) const {
  return start_.isEqualTo(other.start_, tol) || start_.isEqualTo(other.end_, tol) ||
                 end_.isEqualTo(other.start_, tol) || end_.isEqualTo(other.end_, tol)
             ? 1
             : 0;
}

const AcGePoint3d& KrVector::centerPoint() const {
  static AcGePoint3d centre;
  if (type_ != KR_VT_ARCO) return mid_;
  AcGeCircArc3d arc;
  AcGeError error = AcGe::kOk;
  arc.set(start_, mid_, end_, error);
  if (error != AcGe::kOk) return mid_;
  centre = arc.center();
  return centre;
}

double KrVector::len() const {
  switch (type_) {
    case KR_VT_ARCO: {
      if (start_ == end_) return 0.0;
      AcGeCircArc3d arc;
      AcGeError error = AcGe::kOk;
      arc.set(start_, mid_, end_, error);
      // On a straight "arc" the chord is all there is.
      if (error != AcGe::kOk) return start_.distanceTo(end_);
      return arc.length(arc.startAng(), arc.endAng(), AcGeContext::gTol.equalPoint());
    }
    case KR_VT_CIRCULO:
    case KR_VT_FURO:
      return flag_ == KR_VF_FURO_REDONDO ? radius_ * kTwoPi : length_;
    default:
      return length_;
  }
}

void KrVector::GetLimitsFuro(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& p3, AcGePoint3d& p4) const {
  AcGePoint3d corners[4];
  if (flag_ == KR_VF_FURO_REDONDO) {
    constexpr double kHalf = kRightAngle / 2.0;
    const double angles[4] = {kHalf, kRightAngle + kHalf, kThreeRightAngles - kHalf, kThreeRightAngles + kHalf};
    for (int i = 0; i < 4; ++i) corners[i] = mid_ + polar(angles[i]) * radius_ * kSquareDiagonal;
  }
  const auto [minX, maxX] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
  const auto [minY, maxY] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
  p1.set(minX, minY, 0.0);
  p2.set(minX, maxY, 0.0);
  p3.set(maxX, minY, 0.0);
  p4.set(maxX, maxY, 0.0);
}

AcDbEntity* KrVector::getAcDbEntity() const {
  switch (type_) {
    case KR_VT_EIXO:
    case KR_VT_LINHA_OCULTA:
    case KR_VT_LINHA:
      return new AcDbLine(start_, end_);
    case KR_VT_ARCO: {
      AcGeCircArc3d geometry;
      AcGeError error = AcGe::kOk;
      geometry.set(start_, mid_, end_, error);
      if (error != AcGe::kOk) return nullptr;
      auto arc = std::make_unique<AcDbArc>();
      return krGeToDbArc(geometry, arc.get()) == Acad::eOk ? arc.release() : nullptr;
    }
    case KR_VT_CIRCULO:
      return new AcDbCircle(centerPoint(), AcGeVector3d::kZAxis, radius_);
    default:
      return nullptr;
  }
}

Acad::ErrorStatus KrVector::transformBy(const AcGeMatrix3d& matrix) {
  const bool flat = areZero({start_.z, mid_.z, end_.z, matrix.entry[2][0], matrix.entry[2][1], matrix.entry[2][3]});
  if (flat) {
    for (AcGePoint3d* p : {&end_, &start_, &mid_}) transformFlat(*p, matrix);
  } else {
    for (AcGePoint3d* p : {&end_, &start_, &mid_}) transformInSpace(*p, matrix);
  }
  measureChord();
  if (type_ == KR_VT_FURO) scaleHole(matrix, radius_, folga_);
  return Acad::eOk;
}

Acad::ErrorStatus KrVector::dwgOutFields(AcDbDwgFiler* filer) const {
  filer->writeDouble(kFiledMarker);
  filer->writeInt16(static_cast<Adesk::Int16>(version_));
  filer->writePoint3d(start_);
  filer->writePoint3d(mid_);
  filer->writePoint3d(end_);
  filer->writeDouble(direction_);
  filer->writeDouble(length_);
  filer->writeInt16(filedEnum(type_));
  filer->writeDouble(radius_);
  filer->writeDouble(folga_);
  filer->writeDouble(furoAux_);
  filer->writeInt16(filedEnum(flag_));
  filer->writeBoolean(hidden_ != 0);
  filer->writeInt32(indexFur_);
  filer->writeInt32(typeEx_);
  return Acad::eOk;
}

Acad::ErrorStatus KrVector::dwgInFields(AcDbDwgFiler* filer) {
  const double first = readDouble(filer);
  std::int16_t version = 0;
  if (first != kFiledMarker) {
    // The oldest records have no marker: what was read is a coordinate already.
    const double y = readDouble(filer);
    const double z = readDouble(filer);
    start_.set(first, y, z);
    readMidToHidden(filer);
  } else {
    version = readInt16(filer);
    if (version != 0) {
      filer->readPoint3d(&start_);
      readMidToHidden(filer);
    }
  }
  if (static_cast<std::uint16_t>(version) > 1) indexFur_ = readInt32(filer);
  if (static_cast<std::uint16_t>(version) > 2) typeEx_ = static_cast<KrVectorTypeEx>(readInt32(filer));
  version_ = kRecordVersion;
  return Acad::eOk;
}

void KrVector::readMidToHidden(AcDbDwgFiler* filer) {
  filer->readPoint3d(&mid_);
  filer->readPoint3d(&end_);
  direction_ = readDouble(filer);
  length_ = readDouble(filer);
  type_ = enumOf<KrVectorType>(readInt16(filer));
  radius_ = readDouble(filer);
  folga_ = readDouble(filer);
  furoAux_ = readDouble(filer);
  flag_ = enumOf<KrVectorFlag>(readInt16(filer));
  Adesk::Boolean hidden = false;
  filer->readBoolean(&hidden);
  hidden_ = hidden ? 1 : 0;
  indexFur_ = -1;
}

Acad::ErrorStatus KrVector::dxfOutFields(AcDbDxfFiler* filer) const {
  filer->writeItem(AcDb::kDxfReal, kFiledMarker);
  filer->writeItem(AcDb::kDxfXInt16, static_cast<Adesk::Int16>(version_));
  filer->writeItem(AcDb::kDxfXCoord, start_);
  filer->writeItem(AcDb::kDxfXCoord, mid_);
  filer->writeItem(AcDb::kDxfXCoord, end_);
  filer->writeItem(AcDb::kDxfReal, direction_);
  filer->writeItem(AcDb::kDxfReal, length_);
  filer->writeItem(AcDb::kDxfXInt16, filedEnum(type_));
  filer->writeItem(AcDb::kDxfReal, radius_);
  filer->writeItem(AcDb::kDxfReal, folga_);
  filer->writeItem(AcDb::kDxfReal, furoAux_);
  filer->writeItem(AcDb::kDxfXInt16, filedEnum(flag_));
  filer->writeItem(AcDb::kDxfXInt16, static_cast<Adesk::Int16>(hidden_));
  return filer->filerStatus();
}

Acad::ErrorStatus KrVector::dxfInFields(AcDbDxfFiler* filer) {
  StrictDxfReader reader(filer);
  double marker = 0.0;
  std::int16_t version = 0;
  std::int16_t type = filedEnum(type_);
  std::int16_t flag = filedEnum(flag_);
  std::int16_t hidden = static_cast<std::int16_t>(hidden_);
  const bool complete = reader.real(marker) && reader.int16(version) && reader.require(version == kDxfVersionRead) &&
                        reader.point(start_) && reader.point(mid_) && reader.point(end_) && reader.real(direction_) &&
                        reader.real(length_) && reader.int16(type) && reader.real(radius_) && reader.real(folga_) &&
                        reader.real(furoAux_) && reader.int16(flag) && reader.int16(hidden);
  type_ = enumOf<KrVectorType>(type);
  flag_ = enumOf<KrVectorFlag>(flag);
  hidden_ = hidden;
  return complete ? filer->filerStatus() : reader.giveUp();
}
