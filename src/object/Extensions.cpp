// What extensions do with the member that holds them.

#include "host/gi/gi.h"
#include "object/KrObject.h"
#include "records/KrObjectTextExtension.h"

namespace {

/// Beyond this angle from the X axis a text would stand on its head: half a turn, less what rounding may add.
constexpr double kUprightLimit = 3.1415612376632573;

/// Half of a side of the rectangle, from its corner `from` to `to`, as far as `diagonal` reaches along it.
AcGeVector3d halfAxis(const AcGePoint3d& from, const AcGePoint3d& to, const AcGeVector3d& diagonal) {
  const AcGeVector3d unit = (to - from).normal();
  return unit * unit.dotProduct(diagonal);
}

/// By how much the box of the view shown is turned. Seen from the other end a section turns the other way.
double turnOfView(const KrObject& member) {
  switch (member.Vista(0)) {
    case Secao:
      return member.angleVista() + member.angleSecao();
    case SecaoVerso:
      return member.angleVista() - member.angleSecao();
    default:
      return member.angleVista();
  }
}

}  // namespace

void KrObjectExtension::assertReadEnabled() const {
  if (curExtendedObj_ != nullptr) curExtendedObj_->assertReadEnabled();
}

void KrObjectExtension::assertWriteEnabled(bool autoUndo, bool recordModified) {
  if (curExtendedObj_ != nullptr) curExtendedObj_->assertWriteEnabled(autoUndo, recordModified);
}

void KrObjectTextExtension::calcTextPoint(AcGePoint3d& point) const {
  AcGePoint3d e[4];
  curExtendedObj()->GetExtremePoints(e, 0, 0);
  point = e[1] + (e[2] - e[1]) * 0.5;
  const AcGeVector3d diagonal = e[2] - point;
  const AcGeVector3d first = halfAxis(e[1], e[0], diagonal);
  const AcGeVector3d second = halfAxis(e[1], e[3], diagonal);
  if (hasFlag(kPlusFirstAxis)) point += first;
  if (hasFlag(kMinusFirstAxis)) point -= first;
  if (hasFlag(kPlusSecondAxis)) point += second;
  if (hasFlag(kMinusSecondAxis)) point -= second;
}

void KrObjectTextExtension::calcTextDirection(AcGeVector3d& direction, int* inverted) const {
  const KrObject& member = *curExtendedObj();
  const bool relative = hasFlag(kRelativeOriented);
  const bool section = member.isSecao() == Acad::eOk;
  if (inverted != nullptr) *inverted = 0;
  double turn = textAngle_;
  if (section && relative) turn += turnOfView(member);
  direction = AcGeVector3d::kXAxis;
  if (!section && relative) direction = member.direction().normal();
  direction.rotateBy(turn, AcGeVector3d::kZAxis);
  if (section || !relative) return;
  if (AcGeVector3d::kXAxis.angleTo(direction, AcGeVector3d::kZAxis) <= kUprightLimit) return;
  direction.negate();
  if (inverted != nullptr) *inverted = 1;
}

void KrObjectTextExtension::calcTextJustifyOffset(const AcGiTextStyle& style, AcGeVector3d& offset) const {
  if (text_ == nullptr || curExtendedObj() == nullptr) return;
  AcGePoint2d low;
  AcGePoint2d high;
  style.extentsBox(text_->c_str(), -1, Adesk::kFalse, Adesk::kTrue, low, high);
  AcGeVector3d direction;
  calcTextDirection(direction);
  const AcGeVector3d width = direction * ((high.x - low.x) * 0.5);
  const AcGeVector3d height = AcGeVector3d::kZAxis.crossProduct(direction) * ((high.y - low.y) * 0.5);
  offset = -(width + height);
  if (hasFlag(kPlusHalfHeight)) offset += height;
  if (hasFlag(kMinusHalfHeight)) offset -= height;
  if (hasFlag(kMinusHalfWidth)) offset -= width;
  if (hasFlag(kPlusHalfWidth)) offset += width;
}

int KrObjectTextExtension::extensionWorldDraw(int&, AcGiWorldDraw* mode) {
  const KrObject* member = curExtendedObj();
  if (text_ == nullptr || member == nullptr) return 1;
  AcGiTextStyle style;
  fromAcDbTextStyle(style, textStyleId_);
  if (textHeight_ >= AcGeContext::gTol.equalPoint()) style.setTextSize(textHeight_);
  mode->subEntityTraits().setLayer(layerId_ != AcDbObjectId::kNull ? layerId_ : member->layerId());
  AcGePoint3d position;
  calcTextPoint(position);
  AcGeVector3d direction;
  calcTextDirection(direction);
  AcGeVector3d justify;
  calcTextJustifyOffset(style, justify);
  position += AcGeVector3d(vecOffset_).rotateBy(turnOfView(*member), AcGeVector3d::kZAxis) + justify;
  mode->geometry().text(position, AcGeVector3d::kZAxis, direction, text_->c_str(), -1, Adesk::kTrue, style);
  return 1;
}

Acad::ErrorStatus KrObjectTextExtension::getExtensionGripPoints(AcArray<AcGePoint3d>& points, AcArray<int>&,
                                                                AcArray<int>&) const {
  if (curExtendedObj() == nullptr) return Acad::eNotApplicable;
  AcGePoint3d anchor;
  calcTextPoint(anchor);
  points.append(anchor + AcGeVector3d(vecOffset_).rotateBy(curExtendedObj()->angleVista(), AcGeVector3d::kZAxis));
  return Acad::eOk;
}

Acad::ErrorStatus KrObjectTextExtension::moveExtensionGripPointsAt(const AcArray<int>& indices,
                                                                   const AcGeVector3d& offset, int firstIndex) {
  if (curExtendedObj() == nullptr) return Acad::eNotApplicable;
  const AcGeVector3d own = AcGeVector3d(offset).rotateBy(-curExtendedObj()->angleVista(), AcGeVector3d::kZAxis);
  for (const int index : indices) {
    if (index == firstIndex) vecOffset_ += own;
  }
  return Acad::eOk;
}
