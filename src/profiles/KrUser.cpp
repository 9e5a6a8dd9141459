#include "profiles/KrUser.h"

#include "profiles/FoldedProfile.h"

KR_PROFILE_DEFINE_MEMBERS(KrUser, KRUSER)
KR_DEFINE_NO_DXF(KrUser)

KrUser::KrUser() = default;

KrUser::KrUser(const KrUser& source) : KrObject() {
  *this = source;
}

KrUser& KrUser::operator=(const KrUser& source) {
  if (this == &source) return *this;
  CopiaDados(&source, 1);
  versao_ = source.versao_;
  linhaMedia_ = source.linhaMedia_;
  espessura_ = source.espessura_;
  return *this;
}

Acad::ErrorStatus KrUser::setLinhaMedia(const KrGeratriz& linha) {
  assertWriteEnabled();
  linhaMedia_ = std::make_shared<KrGeratriz>(linha);
  return Acad::eOk;
}

void KrUser::Calcule() {
  assertWriteEnabled();
  if (linhaMedia_ != nullptr) MiddleLine::thicken(*this, *linhaMedia_, espessura_);
}

double KrUser::getArea() const {
  assertReadEnabled();
  return linhaMedia_ != nullptr ? Calcula_AreaGeratriz(*linhaMedia_, espessura_) : 0.0;
}

AcArray<double> KrUser::GeratrizLength() {
  assertReadEnabled();
  return linhaMedia_ != nullptr ? Calcula_LengthGeratriz(*linhaMedia_) : AcArray<double>();
}

Acad::ErrorStatus KrUser::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  return filer->filerStatus();
}

Acad::ErrorStatus KrUser::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  return filer->filerStatus();
}
