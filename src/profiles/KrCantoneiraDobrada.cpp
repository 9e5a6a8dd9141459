#include "profiles/KrCantoneiraDobrada.h"

#include "profiles/FoldedProfile.h"

KR_PROFILE_DEFINE_MEMBERS(KrCantoneiraDobrada, KRCANTONEIRADOBRADA)
KR_FOLDED_DEFINE_LIFE(KrCantoneiraDobrada)
KR_FOLDED_DEFINE_MEASURES(KrCantoneiraDobrada)
KR_FOLDED_DEFINE_DWG(KrCantoneiraDobrada)
KR_FOLDED_DEFINE_DXF(KrCantoneiraDobrada)

KrCantoneiraDobrada::KrCantoneiraDobrada(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double aba1,
                                         double aba2, double espessura, double raio, double ang_int, double AngleSecao,
                                         double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), ang_int_(ang_int), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrCantoneiraDobrada::KrCantoneiraDobrada(const AcGePoint3d& start, KrVistas vista, double aba1, double aba2,
                                         double espessura, double raio, double ang_int, double Comprimento,
                                         double AngleSecao, double AngleVista, double enrig)
    : espessura_(espessura), aba1_(aba1), aba2_(aba2), raio_(raio), ang_int_(ang_int), enrig_(enrig) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

void KrCantoneiraDobrada::Define_geratriz(KrGeratriz& g) const {
  FoldedAngle{aba1_, aba2_, espessura_, raio_, ang_int_, enrig_}.write(g);
}

void KrCantoneiraDobrada::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"Cant", buffer);
}

void KrCantoneiraDobrada::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {aba1_, aba2_, espessura_});
}

double KrCantoneiraDobrada::getPerimetro() const {
  assertReadEnabled();
  const KrCantoneiraDobrada section(AcGePoint3d::kOrigin, Secao, aba1_, aba2_, espessura_, raio_, ang_int_, 0.0,
                                    angleSecao(), 0.0, enrig_);
  return ProfileHelpers::drawnLength(section);
}

double KrCantoneiraDobrada::getAltura() {
  assertReadEnabled();
  return aba1_;
}

double KrCantoneiraDobrada::getLargura() {
  assertReadEnabled();
  return aba2_;
}

void KrCantoneiraDobrada::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({aba1_, aba2_, espessura_}, getArea());
}
