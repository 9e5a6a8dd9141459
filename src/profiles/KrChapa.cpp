#include "profiles/KrChapa.h"

#include <cmath>
#include <utility>

#include "host/ed/ed.h"
#include "profiles/MiddleLine.h"
#include "profiles/ProfileHelpers.h"
#include "records/ItemReader.h"

KR_PROFILE_DEFINE_MEMBERS(KrChapa, KRCHAPA)

namespace {

/// Kilograms of steel in a cubic millimetre.
constexpr double kSteelPerCubicMillimetre = 7.85e-06;
constexpr double kSquareMetresPerSquareMillimetre = 1e-06;

/// The first versions of the class that file a width and a line, and a kind.
constexpr int kVersionWithLine = 1;
constexpr int kVersionWithType = 2;

constexpr const ACHAR* kUserName = L"KrChapa";

double orZero(double value) {
  return std::fabs(value) < AcGeContext::gTol.equalPoint() ? 0.0 : value;
}

/// Lengthens the axis of each hole that isn't square to the bar: half the change, as seen along the bar, at both ends.
void lengthenHoles(KrFuro& holes, double thicker) {
  for (int i = 0; i < holes.Qtd(); ++i) {
    NoFuro& hole = *holes.getNode(i);
    const AcGeVector3d axis = (hole.Fim - hole.Ini).normal();
    if (orZero(axis.z) == 0.0) continue;
    const AcGeVector3d reach = axis * (thicker / 2.0 / axis.z);
    hole.Fim += reach;
    hole.Ini -= reach;
  }
}

}  // namespace

KrChapa::KrChapa() = default;

KrChapa::KrChapa(const AcGePoint3d& start, KrVistas vista, double largura, double espessura, double Comprimento,
                 double AngleSecao, double AngleVista)
    : espessura_(espessura), largura_(orZero(largura) == 0.0 ? espessura : largura) {
  setUserName(kUserName);
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  generate();
}

KrChapa::KrChapa(const KrChapa& source, int copyVectors)
    : espessura_(source.espessura_),
      largura_(source.largura_),
      linhaMedia_(source.linhaMedia_),
      versao_(source.versao_),
      tipo_(source.tipo_) {
  // Neither holes and cuts nor links come along, whatever is copied.
  CopiaDados(&source, 0);
  settipoBarra(source.tipoBarra());
  if (copyVectors == 1)
    ProfileHelpers::copyDrawn(*this, source);
  else if (linhaMedia_ != nullptr)
    MiddleLine::thicken(*this, *linhaMedia_, espessura_);
}

KrChapa::KrChapa(const KrChapa* source, int copyVectors)
    : espessura_(source->espessura_), largura_(source->largura_), versao_(source->versao_), tipo_(source->tipo_) {
  CopiaDados(source, copyVectors);
  if (source->linhaMedia_ == nullptr) return;
  linhaMedia_ = std::make_shared<KrGeratriz>(*source->linhaMedia_);
  if (copyVectors != 1) MiddleLine::thicken(*this, *linhaMedia_, espessura_);
}

void KrChapa::Create(const AcGePoint3d& start, double espessura, double Comprimento, double largura, KrVistas vista) {
  assertWriteEnabled();
  espessura_ = espessura;
  largura_ = largura;
  versao_ = kVersion;
  setUserName(kUserName);
  setVista(vista);
  setAngleSecao(0.0);
  setStartPoint(start);
  setendPoint(start + AcGeVector3d::kXAxis * Comprimento);
  setComprimento(Comprimento);
  generate();
}

void KrChapa::generate() {
  linhaMedia_ = std::make_shared<KrGeratriz>();
  Define_geratriz(*linhaMedia_);
  MiddleLine::thicken(*this, *linhaMedia_, espessura_);
}

void KrChapa::Define_geratriz(KrGeratriz& g) const {
  g.Clear();
  g.Add(AcGeVector3d::kIdentity, 0.0);
  g.Add(AcGeVector3d(0.0, largura_, 0.0), 0.0);
  g.Add(AcGeVector3d::kIdentity, -KrGeratriz::kReferenceBulge);
}

double KrChapa::comprimento() const {
  double valor = 0.0;
  KrObject::Comprimento(valor);
  return valor;
}

Acad::ErrorStatus KrChapa::espessura(double& valor) const {
  valor = espessura();
  return Acad::eOk;
}

double KrChapa::espessura() const {
  assertReadEnabled();
  return espessura_;
}

Acad::ErrorStatus KrChapa::setespessura(double valor) {
  assertWriteEnabled();
  KrFuro holes;
  Furos(holes, 0);
  lengthenHoles(holes, valor - espessura_);
  espessura_ = valor;
  setFurosSemLink(holes);
  if (linhaMedia_ != nullptr) MiddleLine::thicken(*this, *linhaMedia_, espessura_);
  return Acad::eOk;
}

double KrChapa::largura() const {
  assertReadEnabled();
  return largura_;
}

Acad::ErrorStatus KrChapa::setlargura(double valor) {
  assertWriteEnabled();
  largura_ = valor;
  return Acad::eOk;
}

KrChapa::CHAPA_SPECIFICATION KrChapa::getType() const {
  assertReadEnabled();
  return tipo_;
}

Acad::ErrorStatus KrChapa::setType(CHAPA_SPECIFICATION tipo) {
  assertWriteEnabled();
  tipo_ = tipo;
  return Acad::eOk;
}

Acad::ErrorStatus KrChapa::Corte(KrObjectArray<KrVector>& elementos, AcGePoint3d& lado) {
  assertWriteEnabled();
  return KrObject::Corte(elementos, lado);
}

Acad::ErrorStatus KrChapa::Corte(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, int, int cortaEixo) {
  return KrObject::Corte(p1, p2, lado, cortaEixo, 0);
}

void KrChapa::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"#", buffer);
}

void KrChapa::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {espessura_, largura_});
}

double KrChapa::getPeso() const {
  return getVolume() * kSteelPerCubicMillimetre;
}

double KrChapa::getArea() const {
  assertReadEnabled();
  AcGePoint3dArray points;
  AlinhaVertexes(points);
  double sum = 0.0;
  for (int i = 0; i + 1 < points.length(); ++i) sum += points[i].x * points[i + 1].y - points[i].y * points[i + 1].x;
  return std::fabs(sum) / 2.0;
}

double KrChapa::getAreaPintura() const {
  assertReadEnabled();
  const double length = comprimento();
  const double edges = (length + largura_) * 2.0 * espessura_;
  const double faces = largura_ * 2.0 * length;
  return (edges + faces) * kSquareMetresPerSquareMillimetre;
}

double KrChapa::getAltura() {
  return largura();
}

double KrChapa::getEspessura() {
  return espessura();
}

AcArray<double> KrChapa::GeratrizLength() {
  assertReadEnabled();
  return linhaMedia_ != nullptr ? MiddleLine::strips(*linhaMedia_, espessura_) : AcArray<double>();
}

double KrChapa::getVolume() const {
  assertReadEnabled();
  return espessura_ * comprimento() * largura_;
}

Acad::ErrorStatus KrChapa::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgOutFields(filer); es != Acad::eOk) return es;
  ProfileHelpers::writeFields(filer, kVersion, {espessura_, largura_});
  MiddleLine::writeNodes(filer, linhaMedia_ != nullptr ? *linhaMedia_ : KrGeratriz());
  filer->writeInt16(static_cast<Adesk::Int16>(tipo_));
  return filer->filerStatus();
}

Acad::ErrorStatus KrChapa::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgInFields(filer); es != Acad::eOk) return es;
  ItemReader in(filer);
  Adesk::Int16 filed = 0;
  if (!in.take(filed)) return in.status();
  versao_ = filed;
  if (versao_ >= kVersionWithLine) {
    in.take(espessura_);
    if (!in.take(largura_)) return in.status();
    auto line = std::make_shared<KrGeratriz>();
    if (const Acad::ErrorStatus es = MiddleLine::readNodes(filer, *line); es != Acad::eOk) return es;
    linhaMedia_ = std::move(line);
    MiddleLine::restoreOutline(outline(), *linhaMedia_, espessura_);
  }
  if (versao_ >= kVersionWithType) {
    Adesk::Int16 tipo = 0;
    if (!in.take(tipo)) return in.status();
    tipo_ = static_cast<CHAPA_SPECIFICATION>(tipo);
  }
  return Acad::eOk;
}

void KrChapa::subList() const {
  assertReadEnabled();
  KrObject::subList();
  using ProfileHelpers::CurrentUnits;
  constexpr const ACHAR* kLine = L"\t\t\t\t%s%s\n";
  acutPrintf(L"\t\t\t\t%s%sx%s\n", L"Dimensoes : ", CurrentUnits(largura_).text, CurrentUnits(comprimento()).text);
  acutPrintf(kLine, L"Espessura : ", CurrentUnits(espessura_).text);
  acutPrintf(kLine, L"Area de Pintura :", CurrentUnits(getAreaPintura()).text);
  acutPrintf(L"\t\t\t\t%s%s %s\n", L"Peso :", CurrentUnits(getPeso()).text, L"kgf");
}
