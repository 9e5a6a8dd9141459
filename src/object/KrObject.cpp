#include "object/KrObject.h"

#include <cmath>
#include <cwchar>
#include <utility>

#include "host/os/os.h"
#include "object/Finite.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// The tolerance under which all geometry tests of members run, for points and vectors.
constexpr double kMemberTolerance = 1e-8;

constexpr std::array<const ACHAR*, kNumVistas> kViewWords = {L"Secao",   L"Superior",     L"Inferior",  L"Esquerda",
                                                             L"Direita", L"Desconhecida", L"SecaoVerso"};

constexpr std::array<const ACHAR*, kNumTiposBarra> kRoleWords = {
    L"Barra", L"Montante", L"Diagonal", L"Banzo Inferior", L"Banzo Superior",
    L"Viga",  L"Pilar",    L"Gousset",  L"Chapa",          L"Terca"};

/// Stores a value under a write assertion.
template <class T>
Acad::ErrorStatus store(AcDbObject& object, T& field, const T& value) {
  object.assertWriteEnabled();
  field = value;
  return Acad::eOk;
}

/// The same for a number or a point: what isn't one is refused.
template <class T>
Acad::ErrorStatus storeNumber(AcDbObject& object, T& field, const T& value) {
  return isFinite(value) ? store(object, field, value) : Acad::eInvalidInput;
}

/// The same for a factor of the drawing scale.
Acad::ErrorStatus storeScale(AcDbObject& object, double& field, double value) {
  return canBeUndone(value) ? store(object, field, value) : Acad::eInvalidInput;
}

/// Copies a value out under a read assertion.
template <class T>
Acad::ErrorStatus fetch(const AcDbObject& object, const T& field, T& out) {
  object.assertReadEnabled();
  out = field;
  return Acad::eOk;
}

template <class T>
T value(const AcDbObject& object, const T& field) {
  object.assertReadEnabled();
  return field;
}

}  // namespace

ACRX_DXF_DEFINE_MEMBERS(KrObject, AcDbEntity, 29, 9, 0xbff, KR_OBJECT, KrObject)

KrObject::KrObject() {
  AcGeTol tolerance;
  tolerance.setEqualPoint(kMemberTolerance);
  tolerance.setEqualVector(kMemberTolerance);
  AcGeContext::gTol = tolerance;
}

KrObject::~KrObject() {
  deleteExtensions();
}

Acad::ErrorStatus KrObject::isSecao(KrVistas vista) {
  switch (vista) {
    case Secao:
    case SecaoVerso:
      return Acad::eOk;
    case Superior:
    case Inferior:
    case Esquerda:
    case Direita:
      return Acad::eNotApplicable;
    default:
      return Acad::eNotImplementedYet;
  }
}

int KrObject::vistaStr(KrVistas vista, ACHAR* buffer, unsigned size) {
  if (vista == -1) return 0;
  const bool known = vista >= 0 && vista < kNumVistas;
  const ACHAR* word = kViewWords[known ? static_cast<std::size_t>(vista) : static_cast<std::size_t>(VistaCorrente)];
  if (std::wcslen(word) >= size) return 0;
  std::wcscpy(buffer, word);
  return 1;
}

int KrObject::vistaStr(ACHAR* buffer, unsigned size, int real) const {
  assertReadEnabled();
  return vistaStr(Vista(real), buffer, size);
}

const ACHAR* KrObject::tipoBarraStr(TipoBarra tipo) {
  if (tipo < 0 || tipo >= kNumTiposBarra) return nullptr;
  return kRoleWords[static_cast<std::size_t>(tipo)];
}

const ACHAR* KrObject::nomeTipoBarra(int tipo) {
  const ACHAR* word = tipoBarraStr(static_cast<TipoBarra>(tipo));
  return word ? word : L"";
}

TipoBarra KrObject::tipoBarra(const ACHAR* texto) {
  for (int i = 0; i < kNumTiposBarra; ++i)
    if (_wcsicmp(kRoleWords[static_cast<std::size_t>(i)], texto) == 0) return static_cast<TipoBarra>(i);
  return static_cast<TipoBarra>(-1);
}

Acad::ErrorStatus KrObject::setVista(KrVistas vista) {
  return store(*this, vista_, vista);
}

Acad::ErrorStatus KrObject::Material(unsigned short& material) const {
  return fetch(*this, material_, material);
}
Acad::ErrorStatus KrObject::setMaterial(unsigned short material) {
  return store(*this, material_, material);
}

Acad::ErrorStatus KrObject::ObjectType(KrObjectType& tipo) const {
  return fetch(*this, objectType_, tipo);
}
KrObjectType KrObject::ObjectType() const {
  return value(*this, objectType_);
}
Acad::ErrorStatus KrObject::setObjectType(KrObjectType tipo) {
  return store(*this, objectType_, tipo);
}

Acad::ErrorStatus KrObject::AngleVista(double& angulo) const {
  return fetch(*this, angleVista_, angulo);
}
double KrObject::angleVista() const {
  return value(*this, angleVista_);
}
Acad::ErrorStatus KrObject::setAngleVista(double angulo) {
  return storeNumber(*this, angleVista_, angulo);
}

Acad::ErrorStatus KrObject::AngleSecao(double& angulo) const {
  return fetch(*this, angleSecao_, angulo);
}
double KrObject::angleSecao() const {
  return value(*this, angleSecao_);
}
Acad::ErrorStatus KrObject::setAngleSecao(double angulo) {
  return storeNumber(*this, angleSecao_, angulo);
}

Acad::ErrorStatus KrObject::Comprimento(double& comprimento) const {
  return fetch(*this, comprimento_, comprimento);
}
Acad::ErrorStatus KrObject::setComprimento(double comprimento) {
  return storeNumber(*this, comprimento_, comprimento);
}

Acad::ErrorStatus KrObject::StartPoint(AcGePoint3d& ponto) const {
  return fetch(*this, startPoint_, ponto);
}
AcGePoint3d KrObject::startPoint() const {
  return value(*this, startPoint_);
}
Acad::ErrorStatus KrObject::setStartPoint(const AcGePoint3d& ponto) {
  return storeNumber(*this, startPoint_, ponto);
}

Acad::ErrorStatus KrObject::endPoint(AcGePoint3d& ponto) const {
  return fetch(*this, endPoint_, ponto);
}
AcGePoint3d KrObject::endPoint() const {
  return value(*this, endPoint_);
}
Acad::ErrorStatus KrObject::setendPoint(const AcGePoint3d& ponto) {
  return storeNumber(*this, endPoint_, ponto);
}

Acad::ErrorStatus KrObject::Xscale(double& escala) const {
  return fetch(*this, xScale_, escala);
}
Acad::ErrorStatus KrObject::Yscale(double& escala) const {
  return fetch(*this, yScale_, escala);
}
Acad::ErrorStatus KrObject::Zscale(double& escala) const {
  return fetch(*this, zScale_, escala);
}
Acad::ErrorStatus KrObject::setXscale(double escala) {
  return storeScale(*this, xScale_, escala);
}
Acad::ErrorStatus KrObject::setYscale(double escala) {
  return storeScale(*this, yScale_, escala);
}
Acad::ErrorStatus KrObject::setZscale(double escala) {
  return storeScale(*this, zScale_, escala);
}

Acad::ErrorStatus KrObject::zCoordIni(double& z) const {
  return fetch(*this, zCoordIni_, z);
}
double KrObject::zCoordIni() const {
  return value(*this, zCoordIni_);
}
Acad::ErrorStatus KrObject::setZCoordIni(double z) {
  return storeNumber(*this, zCoordIni_, z);
}
Acad::ErrorStatus KrObject::zCoordEnd(double& z) const {
  return fetch(*this, zCoordEnd_, z);
}
double KrObject::zCoordEnd() const {
  return value(*this, zCoordEnd_);
}
Acad::ErrorStatus KrObject::setZCoordEnd(double z) {
  return storeNumber(*this, zCoordEnd_, z);
}

Acad::ErrorStatus KrObject::tipoBarra(TipoBarra& tipo) const {
  return fetch(*this, tipoBarra_, tipo);
}
TipoBarra KrObject::tipoBarra() const {
  return value(*this, tipoBarra_);
}
Acad::ErrorStatus KrObject::settipoBarra(TipoBarra tipo) {
  return store(*this, tipoBarra_, tipo);
}

Acad::ErrorStatus KrObject::KrObjectVersion(Version& versao) const {
  return fetch(*this, version_, versao);
}

Acad::ErrorStatus KrObject::GetSecao(KrGeratriz& secao) const {
  assertReadEnabled();
  secao = secao_;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::Furos(KrFuro& furos, int relativos) const {
  assertReadEnabled();
  furos = furos_;
  if (relativos != 0) furos.translateFuros(-secao_.GetRefOrigin());
  return Acad::eOk;
}

KrObjectSplitList KrObject::splitList() const {
  return value(*this, splits_);
}

int KrObject::numSplits() const {
  assertReadEnabled();
  return splits_.length();
}

int KrObject::numFuros() const {
  assertReadEnabled();
  return furos_.Qtd();
}

int KrObject::numCortes() const {
  assertReadEnabled();
  return cortes_.Qtd();
}

bool KrObject::GetFuracaoByTrelica(DclFuracao& furacao) const {
  assertReadEnabled();
  if (!furacaoTrelica_) return false;
  furacao = *furacaoTrelica_;
  return static_cast<std::int32_t>(furacao.words[2]) > 0;
}

Acad::ErrorStatus KrObject::SetFuracaoByTrelica(const DclFuracao& furacao) {
  assertWriteEnabled();
  furacaoTrelica_ = furacao;
  return Acad::eOk;
}

int KrObject::IsProjeto() const {
  return value(*this, projeto_);
}

Acad::ErrorStatus KrObject::setUserName(const ACHAR* nome) {
  assertWriteEnabled();
  if (nome == nullptr)
    userName_.reset();
  else
    userName_ = nome;
  return Acad::eOk;
}

const ACHAR* KrObject::userName() const {
  assertReadEnabled();
  return userName_ ? userName_->c_str() : nullptr;
}

Acad::ErrorStatus KrObject::UserName(ACHAR* buffer) const {
  assertReadEnabled();
  if (buffer == nullptr) return Acad::eNotApplicable;
  std::wcscpy(buffer, userName_ ? userName_->c_str() : L"");
  return Acad::eOk;
}

double KrObject::getComprimentoReal() const {
  assertReadEnabled();
  if (projeto_ != 0 && isSecao() == Acad::eNotApplicable) return startPoint_.distanceTo(endPoint_) / xScale_;
  return comprimento_ / xScale_;
}

Acad::ErrorStatus KrObject::setComprimentoReal(double d) {
  return storeNumber(*this, comprimento_, isSecao() == Acad::eNotApplicable ? xScale_ * d : d);
}

Acad::ErrorStatus KrObject::swapStartEnd() {
  assertWriteEnabled();
  const AcGeVector3d v = endPoint_ - startPoint_;
  std::swap(startPoint_, endPoint_);
  angleVista_ = std::atan2(v.y, v.x);
  if (angleVista_ < 0) angleVista_ += 2 * kPi;
  Gera_KrVector();
  return Acad::eOk;
}

double KrObject::visualRepStart() const {
  return value(*this, visualRepStart_);
}
double KrObject::visualRepEnd() const {
  return value(*this, visualRepEnd_);
}
double KrObject::visualRepScale() const {
  return value(*this, visualRepScale_);
}

Acad::ErrorStatus KrObject::setVisualRepStart(double inicio) {
  assertWriteEnabled();
  if (!(inicio < visualRepEnd_)) return Acad::eOk;
  visualRepStart_ = inicio <= 0.0 ? 0.0 : inicio;
  setToRegenAtClose();
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setVisualRepEnd(double fim) {
  assertWriteEnabled();
  if (!(fim > visualRepStart_)) return Acad::eOk;
  visualRepEnd_ = fim >= 1.0 ? 1.0 : fim;
  setToRegenAtClose();
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setVisualRepScale(double escala) {
  assertWriteEnabled();
  if (!std::isfinite(escala)) return Acad::eInvalidInput;
  visualRepScale_ = escala;
  setToRegenAtClose();
  return Acad::eOk;
}

void KrObject::setToRegenAtClose() {
  assertWriteEnabled();
  regenAtClose_ = 1;
}

Acad::ErrorStatus KrObject::subClose() {
  const Acad::ErrorStatus es = AcDbEntity::subClose();
  if (es != Acad::eOk) return es;
  const bool marked = regenAtClose_ != 0 || (isModified() && !croppingIds_.isEmpty());
  if (marked && isWriteEnabled() && !isErased() && !isUndoing()) Gera_KrVector();
  regenAtClose_ = 0;
  return Acad::eOk;
}

const KrObjectArray<KrVector>& KrObject::currentVertexList(KrVistas v) const {
  assertReadEnabled();
  return vertexLists_[static_cast<std::size_t>(v == VistaCorrente ? vista_ : v)];
}

KrObjectArray<KrVector>& KrObject::vertexList(KrVistas v) {
  return vertexLists_[static_cast<std::size_t>(v == VistaCorrente ? vista_ : v)];
}

int KrObject::GetNumVertex(KrVistas v) const {
  return currentVertexList(v).length();
}

int KrObject::GetVector(int i, KrVector& v) const {
  return GetVector(VistaCorrente, i, v);
}

int KrObject::GetVector(KrVistas vista, int i, KrVector& v) const {
  const KrObjectArray<KrVector>& lista = currentVertexList(vista);
  if (i >= lista.length()) return 0;
  v = lista[i];
  return 1;
}

int KrObject::UpdateVector(int i, const KrVector& v) {
  return UpdateVector(VistaCorrente, i, v);
}

int KrObject::UpdateVector(KrVistas vista, int i, const KrVector& v) {
  assertWriteEnabled();
  KrObjectArray<KrVector>& lista = vertexList(vista);
  if (i >= lista.length() || !isFinite(v)) return 0;
  lista[i] = v;
  return 1;
}

Acad::ErrorStatus KrObject::AddVertex(const KrVector& v, KrVistas vista) {
  assertWriteEnabled();
  if (!isFinite(v)) return Acad::eInvalidInput;
  vertexList(vista).append(v);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::ClearVertexes(KrVistas vista) {
  assertWriteEnabled();
  vertexList(vista).Clear();
  return Acad::eOk;
}

const KrVector* KrObject::findFirst(KrVistas v, KrVectorType tipo) const {
  const KrObjectArray<KrVector>& lista = currentVertexList(v);
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no))
    if (no->value->type() == tipo) return no->value;
  return nullptr;
}

KrVector* KrObject::findFirst(KrVistas v, KrVectorType tipo) {
  return const_cast<KrVector*>(std::as_const(*this).findFirst(v, tipo));
}

int KrObject::GetVectorEixo(KrVistas vista, KrVector& v) const {
  const KrVector* eixo = findFirst(vista, KR_VT_EIXO);
  if (eixo == nullptr) return 0;
  v = *eixo;
  return 1;
}

int KrObject::UpdateVectorEixo(KrVistas vista, const KrVector& v) {
  assertWriteEnabled();
  KrVector* eixo = findFirst(vista, KR_VT_EIXO);
  if (eixo == nullptr || !isFinite(v)) return 0;
  *eixo = v;
  // The bar's points follow the axis that is shown.
  if (isSecao() == Acad::eNotApplicable && v.type() == KR_VT_EIXO && findFirst(VistaCorrente, KR_VT_EIXO) == eixo) {
    startPoint_ = v.startPoint();
    endPoint_ = v.endPoint();
  }
  return 1;
}

Acad::ErrorStatus KrObject::GetPointsOfEixo(AcGePoint3d& a, AcGePoint3d& b, int qual) const {
  const KrVector* linha = findFirst(VistaCorrente, qual == 0 ? KR_VT_EIXO : KR_VT_REFERENCIA);
  if (linha == nullptr) return Acad::eNotApplicable;
  a = linha->startPoint();
  b = linha->endPoint();
  return Acad::eOk;
}

int KrObject::GetFuros(KrObjectArray<KrVector>& lista) const {
  const KrObjectArray<KrVector>& atual = currentVertexList(VistaCorrente);
  for (int i = 0; i < atual.length(); ++i)
    if (atual[i].type() == KR_VT_FURO) lista.append(atual[i]);
  return lista.length() > 0 ? 1 : 0;
}

int KrObject::GetNumFuros() const {
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  int n = 0;
  for (int i = 0; i < lista.length(); ++i) n += lista[i].type() == KR_VT_FURO ? 1 : 0;
  return n;
}
