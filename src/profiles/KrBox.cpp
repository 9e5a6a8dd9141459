#include "profiles/KrBox.h"

#include "profiles/FoldedProfile.h"
#include "support/Bulges.h"

KR_PROFILE_DEFINE_MEMBERS(KrBox, KRBOX)
KR_FOLDED_DEFINE_LIFE(KrBox)
KR_FOLDED_DEFINE_MEASURES(KrBox)
KR_FOLDED_DEFINE_DWG(KrBox)
KR_DEFINE_NO_DXF(KrBox)

KrBox::KrBox(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double altura, double largura,
             double espessura, double raio, double AngleSecao)
    : espessura_(espessura), altura_(altura), largura_(largura), raio_(raio) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  generate(AngleSecao);
}

KrBox::KrBox(const AcGePoint3d& start, KrVistas vista, double altura, double largura, double espessura, double raio,
             double Comprimento, double AngleSecao, double AngleVista)
    : espessura_(espessura), altura_(altura), largura_(largura), raio_(raio) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  generate(AngleSecao);
}

void KrBox::Define_geratriz(KrGeratriz& g) const {
  static const double b = Calcula_Bulge(kRightAngle, 1);
  const double t = espessura_;
  const double r = raio_;
  const double H = altura_;
  const double L = largura_;
  g.Clear();
  const auto add = [&g](double x, double y, double bulge) { g.Add(AcGeVector3d(x, y, 0.0), bulge); };
  add(L / 2.0, t / 2.0, 0.0);
  add(r + t, t / 2.0, b);
  add(t / 2.0, r + t, 0.0);
  add(t / 2.0, H - (r + t), b);
  add(r + t, H - t / 2.0, 0.0);
  add(L - t - r, H - t / 2.0, b);
  add(L - t / 2.0, H - (r + t), 0.0);
  add(L - t / 2.0, r + t, b);
  add(L - t - r, t / 2.0, 0.0);
  add(L / 2.0, t / 2.0, 0.0);
  add(L / 2.0, H / 2.0, KrGeratriz::kReferenceBulge);
}

void KrBox::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writePerfil(*this, L"[]", buffer);
}

void KrBox::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {altura_, largura_, espessura_});
}

double KrBox::getPerimetro() const {
  assertReadEnabled();
  const KrBox section(AcGePoint3d::kOrigin, Secao, altura_, largura_, espessura_, raio_, 0.0, angleSecao(), 0.0);
  return ProfileHelpers::drawnLength(section) - 2.0 * espessura_;
}

double KrBox::getAltura() {
  assertReadEnabled();
  return altura_;
}

double KrBox::getLargura() {
  assertReadEnabled();
  return largura_;
}

void KrBox::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({altura_, largura_, espessura_}, getArea());
}
