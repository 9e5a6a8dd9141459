#include "profiles/KrBarraRedonda.h"

#include <cwchar>
#include <memory>

#include "host/ed/ed.h"
#include "profiles/ProfileHelpers.h"
#include "support/Angles.h"
#include "support/Bulges.h"
#include "support/Units.h"

KR_PROFILE_DEFINE_MEMBERS(KrBarraRedonda, KRBARRAREDONDA)

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kRightAngle = kPi / 2.0;

}  // namespace

KrBarraRedonda::KrBarraRedonda() = default;

KrBarraRedonda::KrBarraRedonda(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double diametro)
    : diametro_(diametro) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  Calcule();
}

KrBarraRedonda::KrBarraRedonda(const AcGePoint3d& start, KrVistas vista, double diametro, double Comprimento,
                               double AngleVista)
    : diametro_(diametro) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  Calcule();
}

KrBarraRedonda::KrBarraRedonda(const KrBarraRedonda&) : KrObject() {}

KrBarraRedonda::KrBarraRedonda(const KrBarraRedonda*) : KrObject() {}

Acad::ErrorStatus KrBarraRedonda::diametro(double& valor) const {
  assertReadEnabled();
  valor = diametro_;
  return Acad::eOk;
}

Acad::ErrorStatus KrBarraRedonda::setdiametro(double valor) {
  assertWriteEnabled();
  diametro_ = valor;
  return Acad::eOk;
}

void KrBarraRedonda::Calcule() {
  assertWriteEnabled();
  static const double quarter = Calcula_Bulge(kRightAngle, 0);
  const double R = diametro_ / 2.0;
  KrGeratriz& secao = outline();
  secao.Clear();
  secao.Add(AcGeVector3d(-R, 0.0, 0.0), 0.0);
  secao.Add(AcGeVector3d(-R, 0.0, 0.0), quarter);
  secao.Add(AcGeVector3d(0.0, -R, 0.0), quarter);
  secao.Add(AcGeVector3d(R, 0.0, 0.0), quarter);
  secao.Add(AcGeVector3d(0.0, R, 0.0), quarter);
  secao.Add(AcGeVector3d(-R, 0.0, 0.0), 0.0);
  secao.Add(AcGeVector3d(0.0, 0.0, 0.0), KrGeratriz::kReferenceBulge);
  KrGeratriz none;
  Gera_KrVector(startPoint(), none, KrObject::Vista(0), 0.0, 1);
}

void KrBarraRedonda::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"B.red", buffer);
}

void KrBarraRedonda::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  std::wcscpy(buffer, L"%%c");
  std::wcscat(buffer, FormatInString(diametro_));
}

double KrBarraRedonda::getArea() const {
  assertReadEnabled();
  return diametro_ * kPi * diametro_ * 0.25;
}

double KrBarraRedonda::getPerimetro() const {
  assertReadEnabled();
  return diametro_ * kPi;
}

double KrBarraRedonda::getAltura() {
  assertReadEnabled();
  return diametro_;
}

double KrBarraRedonda::getEspessura() {
  assertReadEnabled();
  return diametro_;
}

double KrBarraRedonda::getLargura() {
  assertReadEnabled();
  return diametro_;
}

Acad::ErrorStatus KrBarraRedonda::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgOutFields(filer); es != Acad::eOk) return es;
  return ProfileHelpers::writeFields(filer, versao_, {diametro_});
}

Acad::ErrorStatus KrBarraRedonda::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgInFields(filer); es != Acad::eOk) return es;
  const Acad::ErrorStatus es = ProfileHelpers::readFields(filer, versao_, kVersion, {&diametro_});
  versao_ = kVersion;
  return es;
}

Acad::ErrorStatus KrBarraRedonda::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  return filer->filerStatus();
}

Acad::ErrorStatus KrBarraRedonda::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  return filer->filerStatus();
}

Acad::ErrorStatus KrBarraRedonda::subExplode(AcDbVoidPtrArray& entitySet) const {
  assertReadEnabled();
  if (KrObject::Vista(0) != Secao) return KrObject::subExplode(entitySet);
  auto circle = std::make_unique<AcDbCircle>(startPoint(), AcGeVector3d::kZAxis, diametro_ / 2.0);
  circle->setLayer(layerId());
  entitySet.append(circle.release());
  return Acad::eOk;
}

void KrBarraRedonda::subList() const {
  assertReadEnabled();
  KrObject::subList();
  acutPrintf(L"\n%s:\t%s", L"Diametro", ProfileHelpers::CurrentUnits(diametro_).text);
  acutPrintf(L"\n%s:\t%s", L"Área da seção   ", ProfileHelpers::CurrentUnits(getArea()).text);
}
