#include "profiles/KrILaminadoUSA.h"

#include <cmath>
#include <cwchar>

#include "host/ed/ed.h"
#include "profiles/RolledProfile.h"
#include "profiles/SectionWalk.h"
#include "support/Bulges.h"

KR_PROFILE_DEFINE_MEMBERS(KrILaminadoUSA, KR_PERFIL_I_LAMINADO_USA)

KR_ROLLED_DEFINE_CALCULE(KrILaminadoUSA)
KR_ROLLED_DEFINE_ELEVATIONS(KrILaminadoUSA)

namespace {

/// The version of a file from which on it holds the kind of the section.
constexpr std::int16_t kVersionWithTipo = 2;

constexpr double kPi = 3.141592653589793;

/// Slope of tapered flanges, radians.
constexpr double kTaper = 0.1;
/// Tapered flanges have their mean thickness in the middle of what one reaches beyond the web: a quarter of what both
/// do.
constexpr double kMeanThicknessAt = 0.25;

}  // namespace

KrILaminadoUSA::KrILaminadoUSA(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                               double Largura, double Espessura, double DeslocF, double Inclinacao, double RaioDobra,
                               double Raio1, double EspMedia, double AngleSecao, double Area, double KgMetro,
                               ISolType tipo)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      EspMedia_(EspMedia),
      DeslocF_(DeslocF),
      Inclinacao_(Inclinacao),
      RaioDobra_(RaioDobra),
      Raio1_(Raio1),
      KgMetro_(KgMetro),
      Area_(Area),
      tipo_(tipo) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrILaminadoUSA::KrILaminadoUSA(const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double Altura,
                               double Largura, double Espessura, double EspMedia, ISolType tipo, double AngleSecao,
                               double Area, double KgMetro)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      EspMedia_(EspMedia),
      KgMetro_(KgMetro),
      Area_(Area),
      tipo_(tipo) {
  ProfileHelpers::placeBar(*this, start, end, vista);
  setAngleSecao(AngleSecao);
  AutoCalc();
  Calcule();
}

KrILaminadoUSA::KrILaminadoUSA(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                               double Espessura, double DeslocF, double Inclinacao, double RaioDobra, double Raio1,
                               double EspMedia, double AngleSecao, double AngleVista, double Comprimento, double Area,
                               double KgMetro, ISolType tipo)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      EspMedia_(EspMedia),
      DeslocF_(DeslocF),
      Inclinacao_(Inclinacao),
      RaioDobra_(RaioDobra),
      Raio1_(Raio1),
      KgMetro_(KgMetro),
      Area_(Area),
      tipo_(tipo) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  Calcule();
}

KrILaminadoUSA::KrILaminadoUSA(const AcGePoint3d& start, KrVistas vista, double Altura, double Largura,
                               double Espessura, double EspMedia, ISolType tipo, double AngleSecao, double AngleVista,
                               double Comprimento, double Area, double KgMetro)
    : Altura_(Altura),
      Largura_(Largura),
      Espessura_(Espessura),
      EspMedia_(EspMedia),
      KgMetro_(KgMetro),
      Area_(Area),
      tipo_(tipo) {
  ProfileHelpers::placeBar(*this, start, vista, AngleVista, Comprimento);
  setAngleSecao(AngleSecao);
  AutoCalc();
  Calcule();
}

KrILaminadoUSA::KrILaminadoUSA() = default;

KrILaminadoUSA::KrILaminadoUSA(const KrILaminadoUSA* source, int completo) : tipo_(source->tipo_) {
  ProfileHelpers::copyParameters(filed(*this), filed(*source));
  CopiaDados(source, completo);
  if (completo != 1) Calcule();
}

KrILaminadoUSA::KrILaminadoUSA(const KrILaminadoUSA& source) : KrObject(), tipo_(source.tipo_) {
  ProfileHelpers::copyParameters(filed(*this), filed(source));
  setAngleSecao(source.angleSecao());
  Calcule();
}

Acad::ErrorStatus KrILaminadoUSA::tipo(ISolType& valor) const {
  assertReadEnabled();
  valor = tipo_;
  return Acad::eOk;
}

Acad::ErrorStatus KrILaminadoUSA::setTipo(ISolType valor) {
  assertWriteEnabled();
  tipo_ = valor;
  return Acad::eOk;
}

void KrILaminadoUSA::AutoCalc() {
  assertWriteEnabled();
  Inclinacao_ = 0.0;
  RaioDobra_ = EspMedia_;
  switch (tipo_) {
    case ISolParalelaArredondada:
      DeslocF_ = 2.0 * EspMedia_;
      Raio1_ = EspMedia_;
      break;
    case ISolParalela:
      DeslocF_ = 2.0 * EspMedia_;
      Raio1_ = 0.0;
      break;
    case ISolInclinada:
      Inclinacao_ = kTaper;
      DeslocF_ = 2.0 * EspMedia_;
      // The radius with which the two fillets and the face between them take up the whole of `DeslocF`.
      RaioDobra_ = Raio1_ =
          ((Largura_ - Espessura_) * kMeanThicknessAt * std::sin(kTaper) - std::cos(kTaper) * EspMedia_) /
          (std::sin(kTaper) - 1.0);
      break;
    default:
      break;
  }
}

void KrILaminadoUSA::CalculeSecao() {
  assertWriteEnabled();
  ClearVertexes(Secao);
  outline().reserve(22);
  const double i = Inclinacao_;
  const double tangent = std::tan((kPi / 2.0 - i) / 2.0);
  const double toe = tangent * Raio1_;
  const double root = tangent * RaioDobra_;
  const double flange = (Largura_ / 2.0 - Espessura_ / 2.0) / std::cos(i);
  const double face = flange - (toe + root);
  const double tip = DeslocF_ - (std::sin(i) * flange + toe + root);
  const double toeBulge = Calcula_Bulge(kPi / 2.0 + i, 1);
  const double rootBulge = Calcula_Bulge(kPi / 2.0 + i, -1);
  const double up = kPi / 2.0;
  const double down = 3.0 * kPi / 2.0;

  SectionWalk walk(*this, outline());
  const auto inward = [&](double upright, double slope) {
    walk.line(upright, tip);
    walk.arc(upright, slope, toe, Raio1_, toeBulge);
    walk.line(slope, face);
    walk.arc(slope, upright, root, RaioDobra_, rootBulge);
  };
  const auto outward = [&](double upright, double slope) {
    walk.arc(upright, slope, root, RaioDobra_, rootBulge);
    walk.line(slope, face);
    walk.arc(slope, upright, toe, Raio1_, toeBulge);
    walk.line(upright, tip);
  };
  inward(up, i);
  walk.line(up, Altura_ - 2.0 * DeslocF_);
  outward(up, kPi - i);
  walk.line(0.0, Largura_);
  inward(down, kPi + i);
  walk.line(down, Altura_ - 2.0 * DeslocF_);
  outward(down, 2.0 * kPi - i);
  walk.line(kPi, Largura_);
  walk.finish();
  outline().Add(AcGeVector3d(Largura_ / 2.0, Altura_ / 2.0, 0.0), KrGeratriz::kReferenceBulge);
}

HandMadeElevation::Edges KrILaminadoUSA::edgesByHand() const {
  const double side = Largura_ / 2.0;
  const double web = Espessura_ / 2.0;
  const double top = Altura_ / 2.0;
  const double flange = top - EspMedia_;
  return {{{-side, false, false}, {-web, true, true}, {web, true, true}, {side, false, false}},
          {{-top, false, false}, {-flange, false, false}, {flange, false, false}, {top, false, false}}};
}

void KrILaminadoUSA::getPerfil(ACHAR* buffer) const {
  assertReadEnabled();
  if (const ACHAR* nome = userName(); nome != nullptr && nome[0] != L'\0') {
    std::wcscpy(buffer, nome);
    return;
  }
  ProfileHelpers::writePerfil(*this, L"ILam", buffer);
}

void KrILaminadoUSA::getDimensoes(ACHAR* buffer) const {
  assertReadEnabled();
  ProfileHelpers::writeDimensoes(buffer, {Altura_, Largura_, Espessura_, EspMedia_});
}

int KrILaminadoUSA::getLinearWeight(double& peso) const {
  assertReadEnabled();
  peso = KgMetro_;
  return 1;
}

double KrILaminadoUSA::getArea() const {
  assertReadEnabled();
  return Area_;
}

double KrILaminadoUSA::getPerimetro() const {
  assertReadEnabled();
  const KrILaminadoUSA section(AcGePoint3d::kOrigin, Secao, Altura_, Largura_, Espessura_, DeslocF_, Inclinacao_,
                               RaioDobra_, Raio1_, EspMedia_, angleSecao(), 0.0, 0.0, Area_, KgMetro_, tipo_);
  return ProfileHelpers::drawnLength(section);
}

double KrILaminadoUSA::getAltura() {
  assertReadEnabled();
  return Altura_;
}

double KrILaminadoUSA::getEspessura() {
  assertReadEnabled();
  return Espessura_;
}

double KrILaminadoUSA::getLargura() {
  assertReadEnabled();
  return Largura_;
}

void KrILaminadoUSA::subList() const {
  assertReadEnabled();
  KrObject::subList();
  ProfileHelpers::listSection({Altura_, Largura_, Espessura_, EspMedia_}, Area_);
}

Acad::ErrorStatus KrILaminadoUSA::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgOutFields(filer); es != Acad::eOk) return es;
  ProfileHelpers::writeFields(filer, versao_, filed(*this));
  filer->writeInt16(static_cast<Adesk::Int16>(tipo_));
  return filer->filerStatus();
}

Acad::ErrorStatus KrILaminadoUSA::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dwgInFields(filer); es != Acad::eOk) return es;
  std::int16_t filedVersion = kVersion;
  if (const Acad::ErrorStatus es = ProfileHelpers::readFields(filer, filedVersion, kVersion, filed(*this));
      es != Acad::eOk) {
    return es;
  }
  Adesk::Int16 tipo = ISolParalelaArredondada;
  if (filedVersion >= kVersionWithTipo && filer->readInt16(&tipo) != Acad::eOk) return filer->filerStatus();
  tipo_ = static_cast<ISolType>(tipo);
  if (outline().Qtd() == 0) {
    CalculeSecao();
    ProfileHelpers::dropUnlessFinite(outline());
  }
  return filer->filerStatus();
}

Acad::ErrorStatus KrILaminadoUSA::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  if (const Acad::ErrorStatus es = KrObject::dxfOutFields(filer); es != Acad::eOk) return es;
  return ProfileHelpers::writeGroups(filer, L"KrILaminadoUSA", versao_, filed(*this));
}

Acad::ErrorStatus KrILaminadoUSA::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  if (const Acad::ErrorStatus es = KrObject::dxfInFields(filer); es != Acad::eOk) return es;
  // What was read stays apart from the version that is written.
  std::int16_t filedVersion = kVersion;
  return ProfileHelpers::readGroups(filer, L"KrILaminadoUSA", filedVersion, filed(*this));
}
