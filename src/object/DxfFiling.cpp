// The DXF form: identity, the list of the view shown, placement and cuts. What it leaves out doesn't come back.

#include "object/FiledNumbers.h"
#include "object/KrObject.h"
#include "records/StrictDxfReader.h"

namespace {

constexpr ACHAR kMarker[] = L"KrObject";

/// The one version that is read beyond its number.
constexpr int kVersionRead = 9;

constexpr AcDb::DxfCode kWord = AcDb::kDxfXInt16;
constexpr AcDb::DxfCode kChunk = AcDb::kDxfBinaryChunk;

Adesk::Int16 word(int value) {
  return static_cast<Adesk::Int16>(value);
}

/// A word into a field of another type; nothing when the reading has ended.
template <class Field>
bool readWord(StrictDxfReader& in, Field& field) {
  std::int16_t value = 0;
  if (!in.int16(value)) return false;
  field = static_cast<Field>(static_cast<std::uint16_t>(value));
  return true;
}

bool readVector(StrictDxfReader& in, AcGeVector3d& vector) {
  AcGePoint3d p;
  if (!in.point(p, AcDb::kDxfNormalX)) return false;
  vector = p - AcGePoint3d::kOrigin;
  return true;
}

}  // namespace

Acad::ErrorStatus KrObject::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  AcDbEntity::dxfOutFields(filer);
  filer->writeItem(AcDb::kDxfSubclass, kMarker);
  filer->writeItem(kWord, word(version_));
  filer->writeItem(AcDb::kDxfText, userName_ ? userName_->c_str() : L"");
  filer->writeItem(kWord, word(vista_));
  filer->writeItem(kWord, word(material_));
  filer->writeItem(kWord, word(objectType_));
  if (currentVertexList(VistaCorrente).dxfOutFields(filer) != Acad::eOk) return filer->filerStatus();
  filer->writeItem(AcDb::kDxfNormalX, normal_);
  filer->writeItem(AcDb::kDxfReal, angleVista_);
  filer->writeItem(AcDb::kDxfXCoord, startPoint_);
  filer->writeItem(AcDb::kDxfXCoord, endPoint_);
  filer->writeItem(AcDb::kDxfReal, comprimento_);
  filer->writeItem(AcDb::kDxfReal, angleSecao_);
  const DclFuracao pattern = furacaoTrelica_.value_or(DclFuracao{});
  filer->writeItem(kChunk, &pattern, sizeof pattern);
  filer->writeItem(kWord, word(projeto_));
  filer->writeItem(AcDb::kDxfReal, projetoFator_);
  filer->writeItem(AcDb::kDxfInt32, static_cast<Adesk::Int32>(cortes_.Qtd()));
  for (int i = 0; i < cortes_.Qtd(); ++i) {
    double a = 0, b = 0, c = 0, d = 0;
    cortes_.GetPlane(i).getCoefficients(a, b, c, d);
    for (const double k : {a, b, c, d}) filer->writeItem(AcDb::kDxfReal, k);
    filer->writeItem(AcDb::kDxfXCoord, cortes_.GetSide(i));
  }
  return filer->filerStatus();
}

Acad::ErrorStatus KrObject::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(kMarker)) return filer->filerStatus();
  StrictDxfReader in(filer);
  std::int16_t version = 0;
  if (!in.int16(version)) return in.giveUp();
  version_ = static_cast<Version>(version);
  if (version_ == kVersionRead) {
    if (!readIdentity(in)) return in.giveUp();
    if (const Acad::ErrorStatus es = vertexList(VistaCorrente).dxfInFields(filer); es != Acad::eOk) return es;
    if (!readPlacement(in) || !in.require(isFinite(*this)) || !readCuts(in)) return in.giveUp();
  }
  generateEixoBarra();
  return filer->filerStatus();
}

bool KrObject::readIdentity(StrictDxfReader& in) {
  const ACHAR* name = nullptr;
  if (!in.text(name)) return false;
  setUserName(name);
  KrVistas view = vista_;
  // A list of no view can't be held; the word comes from a file.
  if (!readWord(in, view) || !in.require(view >= 0 && view < kNumVistas)) return false;
  vista_ = view;
  return readWord(in, material_) && readWord(in, objectType_);
}

bool KrObject::readPlacement(StrictDxfReader& in) {
  const bool placed = readVector(in, normal_) && in.real(angleVista_) && in.point(startPoint_) && in.point(endPoint_) &&
                      in.real(comprimento_) && in.real(angleSecao_);
  DclFuracao pattern;
  if (!placed || !in.bytes(&pattern, sizeof pattern)) return false;
  furacaoTrelica_ = pattern;
  std::int16_t projeto = 0;
  if (!in.int16(projeto)) return false;
  projeto_ = projeto;
  return in.real(projetoFator_);
}

bool KrObject::readCuts(StrictDxfReader& in) {
  std::int32_t count = 0;
  if (!in.int32(count) || !in.require(count <= kMostCounted)) return false;
  // Without cuts in the file those of the member stay.
  if (count > 0) cortes_.Clear();
  for (std::int32_t i = 0; i < count; ++i) {
    double a = 0, b = 0, c = 0, d = 0;
    AcGePoint3d side;
    if (!in.real(a) || !in.real(b) || !in.real(c) || !in.real(d) || !in.point(side)) return false;
    AcGePlane plane;
    if (!in.require(setCutPlane(a, b, c, d, side, plane))) return false;
    cortes_.Add(plane, side);
  }
  return true;
}
