// Splits: gaps that shorten a long member on the sheet.

#include <algorithm>
#include <cmath>

#include "modifiers/Flat.h"
#include "object/KrObject.h"

namespace {

/// The gap of a split that tells none, in millimetres.
constexpr double kDefaultGap = 0.1;

/// The axis of a bar in an elevation at 1:1: where its Z starts, and which way it runs.
struct BarAxis {
  explicit BarAxis(const KrObject& member) {
    if (member.isSecao() != Acad::eNotApplicable || member.secaoToVistaXForm(frame_) != Acad::eOk) return;
    origin = AcGePoint3d::kOrigin;
    origin.transformBy(frame_);
    along = -AcGeVector3d::kZAxis;
    along.transformBy(frame_);
    usable = std::fabs(along.z) < AcGeContext::gTol.equalPoint();
  }
  AcGePoint3d at(double z) const { return origin + along * z; }

  AcGePoint3d origin;
  AcGeVector3d along;
  bool usable = false;  ///< in an elevation, with the axis in its plane

 private:
  AcGeMatrix3d frame_;
};

}  // namespace

void KrObject::AplicaSplits() {
  if (splits_.IsEmpty() != 0) return;
  const AcArray<double> straight;
  for (int i = 0; i < splits_.length(); ++i) {
    const BarAxis axis(*this);
    if (!axis.usable) return;
    const double gap =
        std::fabs(splits_[i].length()) < AcGeContext::gTol.equalPoint() ? kDefaultGap : splits_[i].length();
    const AcGeVector3d across = axis.along.crossProduct(AcGeVector3d::kZAxis);
    // A section that stands off its reference origin is reached too.
    AcGePoint3d e[4];
    GetExtremePoints(e, 0, 0);
    double reach = 0;
    for (const AcGePoint3d& corner : e) reach = std::max(reach, std::fabs((corner - axis.origin).dotProduct(across)));
    const AcGeVector3d h = across * (2 * height() + reach);
    const AcGePoint3d before = axis.at(splits_[i].zPos() - gap / 2);
    const AcGePoint3d behind = axis.at(splits_[i].zPos() + gap / 2);
    AcArray<AcGePoint2d> points(4);
    for (const AcGePoint3d& p : {before + h, before - h, behind - h, behind + h}) points.append(flat(p));
    AcGePoint2d side = flat(axis.at(splits_[i].zPos()));
    RecorteVisual(points, straight, side, 0, nullptr);
  }
}

int KrObject::addSplit(const KrObjectSplit& split, int adia) {
  assertWriteEnabled();
  const bool isFinite = std::isfinite(split.zPos()) && std::isfinite(split.length());
  if (isFinite && splits_.append(split) != 0) {
    if (adia != 0)
      setToRegenAtClose();
    else
      Gera_KrVector();
  }
  return splits_.length() - 1;
}

Acad::ErrorStatus KrObject::adjustSplit(KrObjectSplit& split, const AcGePoint3d& p) const {
  assertReadEnabled();
  AcGePoint3d place = p;
  unscaleRef(place);
  if (const Acad::ErrorStatus es = vistaToSecaoXForm(place); es != Acad::eOk) return es;
  if (!std::isfinite(place.z)) return Acad::eInvalidInput;
  split.setZPos(-place.z);
  return Acad::eOk;
}

int KrObject::splitPoint(int i, AcGePoint3d& p) const {
  assertReadEnabled();
  if (i < 0 || i >= splits_.length()) return 0;
  const BarAxis axis(*this);
  if (!axis.usable) return 0;
  p = axis.at(splits_[i].zPos());
  scaleRef(p, 0);
  return 1;
}
