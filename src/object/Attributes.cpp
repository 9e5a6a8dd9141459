// What a member reports of itself: weight, surfaces, names, and the text of the host's LIST command.

#include <cwchar>

#include "host/companion/companion.h"
#include "object/KrObject.h"

namespace {

/// Steel, in kilograms per square millimetre of section and metre of length.
constexpr double kSteelPerMetre = 0.00785;
constexpr double kMetresPerMillimetre = 0.001;
constexpr double kSquareMillimetresPerSquareMetre = 1000000.0;

/// Room for the word of a view.
constexpr unsigned kViewWordSize = 32;

KrConfigSection* namesList = nullptr;

}  // namespace

KrConfigSection* KrObject::GetNamesList() {
  return namesList;
}
void KrObject::SetNamesList(KrConfigSection* nomes) {
  namesList = nomes;
}

void KrObject::getPerfilUsr(ACHAR* buffer) const {
  assertReadEnabled();
  KrString chave(isA()->name());
  KrString valor;
  if (namesList != nullptr) namesList->getVar(chave, valor);
  std::wcscpy(buffer, valor.c_str());
}

void KrObject::getPerfil(ACHAR* buffer) const {
  getPerfilUsr(buffer);
}
void KrObject::getDimensoes(ACHAR*) const {
  assertReadEnabled();
}

double KrObject::getComprimento() const {
  assertReadEnabled();
  if (isSecao() != Acad::eNotApplicable) return comprimento_;
  if (projeto_ != 0) return startPoint_.distanceTo(endPoint_);
  AcGePoint3d p0, p1, p2, p3;
  GetExtremePoints(p0, p1, p2, p3, 0, 0);
  return p0.distanceTo(p2);
}

double KrObject::getPeso() const {
  double w = 0;
  if (getLinearWeight(w) == 0) w = getArea() * kSteelPerMetre;
  return getComprimentoReal() * w * kMetresPerMillimetre;
}

int KrObject::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = 0;
  return 0;
}

double KrObject::getArea() const {
  return 0;
}

double KrObject::getAreaPintura() const {
  return (getArea() * 2.0 + getPerimetro() * getComprimentoReal()) / kSquareMillimetresPerSquareMetre;
}

double KrObject::getPerimetro() const {
  return 0;
}
double KrObject::getAltura() {
  return 0;
}
double KrObject::getEspessura() {
  return 0;
}
double KrObject::getLargura() {
  return 0;
}
AcArray<double> KrObject::GeratrizLength() {
  return AcArray<double>();
}
double KrObject::getVolume() const {
  return getArea() * getComprimentoReal();
}
void KrObject::getMaterial(ACHAR*) const {
  assertReadEnabled();
}

void KrObject::subList() const {
  assertReadEnabled();
  AcDbEntity::subList();
  // The stray percent sign belongs to both texts.
  acutPrintf(L"\n\t\tPonto Inicial: %f,%f%,%f", startPoint_.x, startPoint_.y, zCoordIni_);
  acutPrintf(L"\n\t\tPonto Final  : %f,%f%,%f", endPoint_.x, endPoint_.y, zCoordEnd_);
  acutPrintf(L"\n\t\t%s%s", L"Nome            ", userName_ ? userName_->c_str() : L"");
  ACHAR word[kViewWordSize];
  if (vistaStr(word, kViewWordSize, 0) != 0) acutPrintf(L"\nVista           : %s", word);
  if (vistaStr(word, kViewWordSize, 1) != 0) acutPrintf(L"\nVista Real      : %s", word);
  if (objectType_ == Objeto) acutPrintf(L"\n%s: %s", L"Tipo KrObject   ", L"Objeto");
  if (objectType_ == ::Vista) acutPrintf(L"\n%s: %s", L"Tipo KrObject   ", L"Vista");
  if (const ACHAR* role = tipoBarraStr())
    acutPrintf(L"\n%s: %s", L"Tipo de Barra   ", role);
  else
    acutPrintf(L"\nNão foi possível determinar tipo de barra");
  acutPrintf(L"\n%s\t%f", L"Comprimento em Escala Real (1/1):", getComprimentoReal());
  acutPrintf(L"\n%s\t%f", L"Comprimento de PT a PT (1/1):", startPoint_.distanceTo(endPoint_) / xScale_);
  acutPrintf(L"\n%s%f", L"Comprimento no desenho (em escala):", comprimento_);
  if (const double area = getAreaPintura(); area != 0) acutPrintf(L"\n%s%6.4f %s", L"Área de pintura ", area, L"m2");
  if (const double peso = getPeso(); peso != 0) acutPrintf(L"\n%s%6.2f %s", L"Peso            ", peso, L"kgf");
  acutPrintf(L"\nVersão KrObject: 0x%08x", static_cast<unsigned>(version_));
  acutPrintf(L"\n");
}
