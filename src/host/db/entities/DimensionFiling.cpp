// Dimensions in the exchange format.
#include "host/db/entities/AcDbDimension.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/TextStyling.h"

namespace {

// Bits that group 70 has beside the kind.
constexpr int kKindMask = 7;
constexpr int kDxfOwnBlock = 32;
constexpr int kDxfAlongX = 64;
constexpr int kDxfUserText = 128;

const ACHAR* markerOf(AcDbDimension::Kind kind) {
  switch (kind) {
    case AcDbDimension::kRotated:
    case AcDbDimension::kAligned:
      return L"AcDbAlignedDimension";
    case AcDbDimension::kAngular2Line:
      return L"AcDb2LineAngularDimension";
    case AcDbDimension::kDiametric:
      return L"AcDbDiametricDimension";
    case AcDbDimension::kRadial:
      return L"AcDbRadialDimension";
    case AcDbDimension::kAngular3Point:
      return L"AcDb3PointAngularDimension";
    case AcDbDimension::kOrdinate:
      break;
  }
  return L"AcDbOrdinateDimension";
}

int dxfFlags(const AcDbDimension::Data& data, AcDbDimension::Kind kind) {
  int flags = kind;
  if ((data.flags & AcDbDimension::kOwnBlock) != 0) flags |= kDxfOwnBlock;
  if ((data.flags & AcDbDimension::kTextAtDefault) == 0) flags |= kDxfUserText;
  if (kind == AcDbDimension::kOrdinate && (data.ordinateFlags & 1) != 0) flags |= kDxfAlongX;
  return flags;
}

void takeDxfFlags(AcDbDimension::Data& data, int flags) {
  int own = AcDbDimension::kUsual;
  if ((flags & kDxfOwnBlock) != 0) own |= AcDbDimension::kOwnBlock;
  if ((flags & kDxfUserText) == 0) own |= AcDbDimension::kTextAtDefault;
  data.flags = Adesk::UInt8(own);
  data.ordinateFlags = (flags & kKindMask) == AcDbDimension::kOrdinate && (flags & kDxfAlongX) != 0 ? 1 : 0;
}

}  // namespace

Acad::ErrorStatus AcDbDimension::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  const Data& d = data_;
  const bool lines2 = kind() == kAngular2Line;
  filer->writeSubclass(L"AcDbDimension");
  if (!d.block.isNull()) filer->writeItem(2, entities::recordName(d.block).c_str());
  filer->writeItem(10, d.point10);
  filer->writeItem(11, AcGePoint3d(d.textPosition.x, d.textPosition.y, d.elevation));
  if (d.point12.x != 0.0 || d.point12.y != 0.0)
    filer->writeItem(12, AcGePoint3d(d.point12.x, d.point12.y, d.elevation));
  filer->writeItem(70, Adesk::Int16(dxfFlags(d, kind())));
  if (!d.text.empty()) filer->writeItem(1, d.text.c_str());
  filer->writeItem(71, d.attachment);
  if (d.lineSpacingStyle != 1) filer->writeItem(72, d.lineSpacingStyle);
  if (d.lineSpacingFactor != 1.0) filer->writeItem(41, d.lineSpacingFactor);
  filer->writeItem(42, d.measurement);
  if (d.textRotation != 0.0) filer->writeItem(53, d.textRotation);
  if (d.horizontalRotation != 0.0) filer->writeItem(51, d.horizontalRotation);
  if (d.normal != AcGeVector3d::kZAxis) filer->writeItem(210, d.normal);
  filer->writeItem(3, entities::recordName(d.style, L"Standard").c_str());
  filer->writeSubclass(markerOf(kind()));
  if (kind() != kRadial && kind() != kDiametric) {
    filer->writeItem(13, d.point13);
    filer->writeItem(14, d.point14);
  }
  if (kind() == kAligned || kind() == kRotated) {
    if (d.rotation != 0.0) filer->writeItem(50, d.rotation);
    if (d.oblique != 0.0) filer->writeItem(52, d.oblique);
  } else if (kind() != kOrdinate) {
    filer->writeItem(15, d.point15);
  }
  if (lines2) filer->writeItem(16, AcGePoint3d(d.point16.x, d.point16.y, d.elevation));
  if (kind() == kRadial || kind() == kDiametric) filer->writeItem(40, d.leaderLength);
  if (kind() == kRotated) filer->writeSubclass(L"AcDbRotatedDimension");
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimension::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  Data& d = data_;
  const auto flat = [](const resbuf& group) { return AcGePoint2d(group.resval.rpoint[0], group.resval.rpoint[1]); };
  const auto take = [&](const resbuf& group) {
    const ads_u_val& value = group.resval;
    switch (int(group.restype)) {
      case 1:
        d.text = entities::textOf(group);
        break;
      case 2:
        d.block = entities::blockNamed(filer->database(), entities::textOf(group));
        break;
      case 3:
        d.style = entities::dimStyleNamed(filer->database(), entities::textOf(group));
        break;
      case 10:
        d.point10 = entities::pointOf(group);
        break;
      case 11:
        d.textPosition = flat(group);
        d.elevation = value.rpoint[2];
        break;
      case 12:
        d.point12 = flat(group);
        break;
      case 13:
        d.point13 = entities::pointOf(group);
        break;
      case 14:
        d.point14 = entities::pointOf(group);
        break;
      case 15:
        d.point15 = entities::pointOf(group);
        break;
      case 16:
        d.point16 = flat(group);
        break;
      case 40:
        d.leaderLength = value.rreal;
        break;
      case 41:
        d.lineSpacingFactor = value.rreal;
        break;
      case 42:
        d.measurement = value.rreal;
        break;
      case 50:
        d.rotation = value.rreal;
        break;
      case 51:
        d.horizontalRotation = value.rreal;
        break;
      case 52:
        d.oblique = value.rreal;
        break;
      case 53:
        d.textRotation = value.rreal;
        break;
      case 70:
        takeDxfFlags(d, value.rint);
        break;
      case 71:
        d.attachment = value.rint;
        break;
      case 72:
        d.lineSpacingStyle = value.rint;
        break;
      case 210:
        d.normal = entities::vectorOf(group);
        break;
      default:
        break;
    }
  };
  Acad::ErrorStatus es = entities::readSubclass(filer, L"AcDbDimension", take);
  if (es == Acad::eOk) es = entities::readSubclass(filer, markerOf(kind()), take);
  if (es == Acad::eOk && kind() == kRotated && filer->atSubclassData(L"AcDbRotatedDimension")) {
    es = filer->filerStatus();
  }
  return es;
}
