#include "profiles/KrTubo.h"

#include <memory>

#include "host/ed/ed.h"
#include "profiles/ProfileHelpers.h"
#include "support/Angles.h"
#include "support/Bulges.h"
#include "support/Units.h"

KR_PROFILE_DEFINE_MEMBERS(KrTubo, KRTUBO)

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kRightAngle = kPi / 2.0;
/// From the square of a diameter to the area of its circle.
constexpr double kCircleOfDiameter = 0.7853981633974483;
/// Kilograms of steel in a cubic millimetre.
constexpr double kSteelPerCubicMillimetre = 7.85e-06;
/// Nodes of an outline with two circles, with its reference node.
constexpr int kOutlineNodes = 20;

double withinTurn(double angle) {
  return angle > kTwoPi ? angle - kTwoPi : angle;
}

}  // namespace

KrTubo::KrTubo() = default;

KrTubo::KrTubo(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Diametro, double DiametroInt)
    : Diametro_(Diametro), DiametroInt_(DiametroInt) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  measure();
  Calcule();
}

KrTubo::KrTubo(const AcGePoint3d& start, KrVistas vista, double Diametro, double DiametroInt, double AngleVista,
               double Comprimento)
    : Diametro_(Diametro), DiametroInt_(DiametroInt) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  measure();
  Calcule();
}

KrTubo::KrTubo(const KrTubo& other) : KrObject() {
  setAngleSecao(other.angleSecao());
  ProfileHelpers::copyDrawn(*this, other);
}

KrTubo::KrTubo(const KrTubo* other) : KrTubo(*other) {}

void KrTubo::measure() {
  double comprimento = 0.0;
  KrObject::Comprimento(comprimento);
  Area_ = (Diametro_ * Diametro_ - DiametroInt_ * DiametroInt_) * kCircleOfDiameter;
  KgMetro_ = Area_ * kSteelPerCubicMillimetre * comprimento;
}

Acad::ErrorStatus KrTubo::read(double field, double& valor) const {
  assertReadEnabled();
  valor = field;
  return Acad::eOk;
}

Acad::ErrorStatus KrTubo::store(double& field, double valor) {
  assertWriteEnabled();
  field = valor;
  return Acad::eOk;
}

Acad::ErrorStatus KrTubo::Diametro(double& valor) const {
  return read(Diametro_, valor);
}

Acad::ErrorStatus KrTubo::setDiametro(double valor) {
  return store(Diametro_, valor);
}

Acad::ErrorStatus KrTubo::DiametroInt(double& valor) const {
  return read(DiametroInt_, valor);
}

Acad::ErrorStatus KrTubo::setDiametroInt(double valor) {
  return store(DiametroInt_, valor);
}

Acad::ErrorStatus KrTubo::Area(double& valor) const {
  return read(Area_, valor);
}

Acad::ErrorStatus KrTubo::setArea(double valor) {
  return store(Area_, valor);
}

Acad::ErrorStatus KrTubo::KgMetro(double& valor) const {
  return read(KgMetro_, valor);
}

Acad::ErrorStatus KrTubo::setKgMetro(double valor) {
  return store(KgMetro_, valor);
}

void KrTubo::Calcule() {
  assertWriteEnabled();
  outline().Clear();
  CalculeSecao();
  KrGeratriz none;
  Gera_KrVector(startPoint(), none, KrObject::Vista(0), 0.0, 1);
}

void KrTubo::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  static const double quarter = Calcula_Bulge(kRightAngle, 1);
  const double R = Diametro_ / 2.0;
  const double r = DiametroInt_ / 2.0;
  KrGeratriz& secao = outline();
  secao.reserve(kOutlineNodes);
  const auto add = [&secao](double x, double y, double bulge) { secao.Add(AcGeVector3d(x, y, 0.0), bulge); };
  // The nodes that stand twice or three times at one place are where the walks along an outline expect them.
  add(-R, 0.0, 0.0);
  add(-R, 0.0, quarter);
  add(0.0, R, quarter);
  add(R, 0.0, quarter);
  add(0.0, -R, quarter);
  add(-R, 0.0, 0.0);
  if (DiametroInt_ > 0.0) {
    add(-R, 0.0, KrGeratriz::kContourEnd);
    add(-r, 0.0, 0.0);
    add(-r, 0.0, quarter);
    add(0.0, r, 0.0);
    add(0.0, r, 0.0);
    add(0.0, r, quarter);
    add(r, 0.0, 0.0);
    add(r, 0.0, 0.0);
    add(r, 0.0, quarter);
    add(0.0, -r, 0.0);
    add(0.0, -r, 0.0);
    add(0.0, -r, quarter);
    add(-r, 0.0, quarter);
  } else {
    add(-R, 0.0, 0.0);
  }
  add(0.0, 0.0, KrGeratriz::kReferenceBulge);
}

void KrTubo::CalculeDireita() {
  fillElevation(Direita);
}

void KrTubo::CalculeEsquerda() {
  fillElevation(Esquerda);
}

void KrTubo::CalculeInferior() {
  fillElevation(Inferior);
}

void KrTubo::CalculeSuperior() {
  fillElevation(Superior);
}

void KrTubo::fillElevation(KrVistas vista) {
  assertWriteEnabled();
  ClearVertexes(vista);
  const AcGePoint3d start = startPoint();
  const double along = angleVista();
  double comprimento = 0.0;
  KrObject::Comprimento(comprimento);
  AddVertex(KrVector(start, along, comprimento, KR_VT_EIXO), vista);
  const double upward = withinTurn(along + kRightAngle);
  const double downward = withinTurn(along + 3.0 * kRightAngle);
  for (const double across : {upward, downward}) {
    const AcGeVector3d u = VectorAngleRad(across);
    AddVertex(KrVector(start + u * Diametro_ / 2.0, along, comprimento, KR_VT_LINHA), vista);
    AddVertex(KrVector(start + u * DiametroInt_ / 2.0, along, comprimento, KR_VT_LINHA_OCULTA), vista);
  }
  KrVector outer;
  GetVector(vista, 1, outer);
  AddVertex(KrVector(outer.startPoint(), downward, Diametro_, KR_VT_LINHA), vista);
  AddVertex(KrVector(outer.endPoint(), downward, Diametro_, KR_VT_LINHA), vista);
}

void KrTubo::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"Tubo", buffer);
}

void KrTubo::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Diametro_, Diametro_ - DiametroInt_});
}

double KrTubo::getArea() const {
  assertReadEnabled();
  const double R = Diametro_ / 2.0;
  const double r = DiametroInt_ / 2.0;
  return R * R * kPi - r * r * kPi;
}

double KrTubo::getPerimetro() const {
  assertReadEnabled();
  return Diametro_ * 0.5 * kTwoPi;
}

double KrTubo::getAltura() {
  assertReadEnabled();
  return Diametro_;
}

double KrTubo::getEspessura() {
  assertReadEnabled();
  return (Diametro_ - DiametroInt_) * 0.5;
}

double KrTubo::getLargura() {
  assertReadEnabled();
  return Diametro_;
}

AcArray<double> KrTubo::GeratrizLength() {
  assertReadEnabled();
  const double wall = (Diametro_ - DiametroInt_) * 0.5;
  AcArray<double> strip;
  strip.append(wall);
  strip.append((wall + DiametroInt_) * kPi);
  return strip;
}

Acad::ErrorStatus KrTubo::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgOutFields(filer); es != Acad::eOk) return es;
  return ProfileHelpers::writeFields(filer, versao_, {Diametro_, DiametroInt_, Area_, KgMetro_});
}

Acad::ErrorStatus KrTubo::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgInFields(filer); es != Acad::eOk) return es;
  return ProfileHelpers::readFields(filer, versao_, kVersion, {&Diametro_, &DiametroInt_, &Area_, &KgMetro_});
}

Acad::ErrorStatus KrTubo::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dxfOutFields(filer); es != Acad::eOk) return es;
  return ProfileHelpers::writeGroups(filer, L"KrTubo", versao_, {Diametro_, DiametroInt_, Area_, KgMetro_});
}

Acad::ErrorStatus KrTubo::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dxfInFields(filer); es != Acad::eOk) return es;
  return ProfileHelpers::readGroups(filer, L"KrTubo", versao_, {&Diametro_, &DiametroInt_, &Area_, &KgMetro_});
}

Acad::ErrorStatus KrTubo::subExplode(AcDbVoidPtrArray& entitySet) const {
  assertReadEnabled();
  if (KrObject::Vista(0) != Secao) return KrObject::subExplode(entitySet);
  for (const double diametro : {Diametro_, DiametroInt_}) {
    auto circle = std::make_unique<AcDbCircle>(startPoint(), AcGeVector3d::kZAxis, diametro / 2.0);
    circle->setLayer(layerId());
    entitySet.append(circle.release());
  }
  return Acad::eOk;
}

void KrTubo::subList() const {
  assertReadEnabled();
  KrObject::subList();
  acutPrintf(L"\nDiametro        : %s", FormatInString(Diametro_));
  acutPrintf(L"\nDiametro Int.   : %s", FormatInString(DiametroInt_));
  acutPrintf(L"\nArea            : %s", FormatInString(Area_));
  acutPrintf(L"\nKg/metro        : %s", FormatInString(KgMetro_));
}
