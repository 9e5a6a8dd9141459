// Filing: one layout for file, copy, undo and clone. Only the list of the view shown is filed, so that a member read
// back draws at once. What version 9 leaves out (splits, visual limits, cropping objects, the other lists) the reader
// leaves as it is.

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <tuple>

#include "object/FiledNumbers.h"
#include "object/KrObject.h"
#include "records/ItemReader.h"
#include "support/Database.h"

namespace {

constexpr int kFirstWithModel = 1;
constexpr int kFirstWithLinks = 3;
constexpr int kFirstWithHoleAngle = 4;
constexpr int kFirstWithRole = 5;
constexpr int kFirstWithNotches = 6;
constexpr int kFirstWithOneList = 7;
constexpr int kFirstWithExtensions = 9;

/// What an audit answers for a member in which something was found: all of it mended, or not.
constexpr auto kAuditMended = static_cast<Acad::ErrorStatus>(120);
constexpr auto kAuditFound = static_cast<Acad::ErrorStatus>(122);
constexpr std::size_t kAuditText = 64;

/// How many lists a file held before only that of the view shown was filed: those of views 0 to 4.
constexpr int kOldLists = 5;

void writeIds(AcDbDwgFiler* filer, const AcDbObjectIdArray& ids) {
  filer->writeInt32(ids.length());
  for (int i = 0; i < ids.length(); ++i) filer->writeSoftPointerId(AcDbSoftPointerId(ids[i]));
}

void readIds(ItemReader& in, AcDbObjectIdArray& ids) {
  Adesk::Int32 count = 0;
  if (!in.take(count)) return;
  ids.setLogicalLength(0);
  AcDbSoftPointerId id;
  for (int i = 0; i < count && in.take(id); ++i) ids.append(id);
}

/// The ids that can be opened: a save drops those of erased or lost objects.
AcDbObjectIdArray living(const AcDbObjectIdArray& ids) {
  AcDbObjectIdArray kept;
  for (int i = 0; i < ids.length(); ++i) {
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, ids[i], AcDb::kForRead) != Acad::eOk) continue;
    object->close();
    kept.append(ids[i]);
  }
  return kept;
}

/// An end of the axis: in a file its level is the point's own.
void takeEnd(ItemReader& in, AcGePoint3d& end, double& level) {
  AcGePoint3d filed;
  if (!in.take(filed)) return;
  end.set(filed.x, filed.y, 0);
  level = filed.z;
}

AcGePoint3d atLevel(const AcGePoint3d& p, double z) {
  return {p.x, p.y, z};
}

}  // namespace

Acad::ErrorStatus KrObject::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  if (semEntidade_ == 0)
    if (const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer); es != Acad::eOk) return es;

  filer->writeInt16(static_cast<Adesk::Int16>(kKrObjectVersion));
  filer->writeString(userName_ ? userName_->c_str() : L"");
  filer->writeUInt16(static_cast<Adesk::UInt16>(vista_));
  filer->writeUInt16(material_);
  filer->writeUInt16(static_cast<Adesk::UInt16>(objectType_));
  if (const Acad::ErrorStatus es = currentVertexList(VistaCorrente).dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeVector3d(normal_);
  filer->writeDouble(angleVista_);
  filer->writePoint3d(atLevel(startPoint_, zCoordIni_));
  filer->writePoint3d(atLevel(endPoint_, zCoordEnd_));
  filer->writeDouble(comprimento_);
  filer->writeDouble(angleSecao_);
  const DclFuracao pattern = furacaoTrelica_.value_or(DclFuracao{});
  filer->writeBytes(&pattern, sizeof pattern);
  filer->writeBoolean(projeto_ != 0);
  filer->writeDouble(projetoFator_);

  filer->writeInt32(cortes_.Qtd());
  for (int i = 0; i < cortes_.Qtd(); ++i) {
    double a = 0, b = 0, c = 0, d = 0;
    cortes_.GetPlane(i).getCoefficients(a, b, c, d);
    for (const double k : {a, b, c, d}) filer->writeDouble(k);
    filer->writePoint3d(cortes_.GetSide(i));
  }

  writeIds(filer, relativeObj_);
  const int lastNode = secao_.lastFiled();
  filer->writeInt32(secao_.Qtd() != 0 ? lastNode : 0);
  if (secao_.Qtd() != 0) {
    // The reference node goes with the counted ones; an outline that has none gets the one at its frame's origin.
    const NoGeratriz atOrigin{AcGeVector3d(), KrGeratriz::kReferenceBulge};
    for (int i = 0; i <= lastNode; ++i) {
      const NoGeratriz& node = i < secao_.numNodes() ? secao_.GetNo(i) : atOrigin;
      filer->writeVector3d(node.vertex);
      filer->writeDouble(node.bulge);
    }
  }
  filer->writeInt32(furos_.Qtd());
  for (int i = 0; i < furos_.Qtd(); ++i) {
    filer->writeVector3d(furos_.getIni(i));
    filer->writeVector3d(furos_.getFim(i));
    filer->writeDouble(furos_.getDiametro(i));
    filer->writeDouble(furos_.getStretch(i));
    filer->writeDouble(furos_.getAngle(i));
  }
  filer->writeDouble(xScale_);
  filer->writeDouble(yScale_);
  filer->writeDouble(zScale_);
  const bool save = filer->filerType() == AcDb::kFileFiler;
  writeIds(filer, save ? living(relativeDim_) : relativeDim_);
  writeIds(filer, relativePos_);
  filer->writeInt16(static_cast<Adesk::Int16>(tipoBarra_));
  for (const KrObjectRecorteArray& notches : recortes_) notches.dwgOutFields(filer);

  // The layers go with the member: filed as hard pointers, they can't be purged.
  loadLayersIds();
  for (const AcDbHardPointerId* layer : {&kr_laHiddenId, &kr_laHideFace, &kr_laEixoId}) {
    // They were looked up in the working drawing. None of its layers goes into the file of another.
    const bool elsewhere = database() != nullptr && layer->database() != database();
    filer->writeHardPointerId(elsewhere ? AcDbHardPointerId() : *layer);
  }
  filer->writeInt32(static_cast<Adesk::Int32>(extensions_.size()));
  for (const KrObjectExtension* e : extensions_) {
    filer->writeString(e != nullptr ? e->isA()->name() : L"");
    if (e != nullptr) e->dwgOutFieldsExtension(filer);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus KrObject::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  if (semEntidade_ == 0)
    if (const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer); es != Acad::eOk) return es;

  ItemReader in(filer);
  Adesk::Int16 version = 0;
  if (!in.take(version)) return in.status();
  version_ = static_cast<Version>(version);
  if (version_ > kKrObjectVersion) return Acad::eMakeMeProxy;
  if (version_ >= kFirstWithModel)
    if (const Acad::ErrorStatus es = readModel(filer); es != Acad::eOk) return es;
  if (version_ >= kFirstWithLinks)
    if (const Acad::ErrorStatus es = readLinksAndOutline(filer); es != Acad::eOk) return es;
  if (version_ >= kFirstWithRole) {
    Adesk::Int16 role = 0;
    if (!in.take(role)) return in.status();
    tipoBarra_ = static_cast<TipoBarra>(static_cast<Adesk::UInt16>(role));
  }
  if (version_ >= kFirstWithNotches)
    for (KrObjectRecorteArray& notches : recortes_)
      if (const Acad::ErrorStatus es = notches.dwgInFields(filer); es != Acad::eOk) return es;
  if (version_ >= kFirstWithExtensions) {
    bool complete = true;
    if (const Acad::ErrorStatus es = readExtensions(filer, complete); es != Acad::eOk || !complete) return es;
  }
  // What broke off isn't of the newest version, and nothing is drawn from it.
  if (filer->filerStatus() != Acad::eOk) return filer->filerStatus();

  const bool fromFile = filer->filerType() == AcDb::kFileFiler;
  if (fromFile && !isFinite(*this)) return Acad::eInvalidInput;

  version_ = kKrObjectVersion;
  const auto placed = std::tuple(startPoint_, endPoint_, comprimento_, angleVista_);
  AcGePoint3d p[4];
  GetExtremePoints(p, 0, 0);
  if ((p[2] - p[0]).isZeroLength()) Gera_KrVector(vista_);
  generateEixoBarra();
  if (fromFile && !isFinite(*this)) {
    // Measures that can be reckoned with may make a drawing that can't: then there is none.
    for (KrObjectArray<KrVector>& lista : vertexLists_) lista.Clear();
    std::tie(startPoint_, endPoint_, comprimento_, angleVista_) = placed;
  }
  return filer->filerStatus();
}

// Behind a break nothing is stored: what the file told until then stays, and so does all else that the member held.
Acad::ErrorStatus KrObject::readModel(AcDbDwgFiler* filer) {
  ItemReader in(filer);
  ACHAR* name = nullptr;
  if (!in.take(name)) return in.status();
  setUserName(name != nullptr && *name != L'\0' ? name : nullptr);
  acutDelString(name);
  KrVistas view = vista_;
  if (!in.takeWord(view)) return in.status();
  // A list of no view can't be held; the word comes from a file.
  if (view < 0 || view >= kNumVistas) return Acad::eInvalidInput;
  vista_ = view;
  in.take(material_);
  if (!in.takeWord(objectType_)) return in.status();
  const bool oneList = version_ >= kFirstWithOneList;
  for (int v = 0; v < (oneList ? 1 : kOldLists); ++v) {
    KrObjectArray<KrVector>& lista = vertexList(oneList ? VistaCorrente : static_cast<KrVistas>(v));
    if (const Acad::ErrorStatus es = lista.dwgInFields(filer); es != Acad::eOk) return es;
    if (filer->filerStatus() != Acad::eOk) return filer->filerStatus();
  }
  in.take(normal_);
  in.take(angleVista_);
  takeEnd(in, startPoint_, zCoordIni_);
  takeEnd(in, endPoint_, zCoordEnd_);
  in.take(comprimento_);
  in.take(angleSecao_);
  DclFuracao pattern;
  if (in.takeBytes(pattern)) furacaoTrelica_ = pattern;
  bool projeto = false;
  if (in.take(projeto)) projeto_ = projeto ? 1 : 0;
  in.take(projetoFator_);
  return in.status() == Acad::eOk ? readCuts(filer) : in.status();
}

Acad::ErrorStatus KrObject::readCuts(AcDbDwgFiler* filer) {
  ItemReader in(filer);
  Adesk::Int32 cuts = 0;
  if (!in.take(cuts)) return in.status();
  cortes_.Clear();
  if (cuts > kMostCounted) return Acad::eInvalidInput;
  for (int i = 0; i < cuts; ++i) {
    double k[4] = {};
    for (double& coefficient : k) in.take(coefficient);
    AcGePoint3d side;
    if (!in.take(side)) break;
    AcGePlane plane;
    if (!setCutPlane(k[0], k[1], k[2], k[3], side, plane)) return Acad::eInvalidInput;
    cortes_.expect(cuts);
    cortes_.Add(plane, side);
  }
  return in.status();
}

Acad::ErrorStatus KrObject::readLinksAndOutline(AcDbDwgFiler* filer) {
  ItemReader in(filer);
  readIds(in, relativeObj_);
  Adesk::Int32 nodes = 0;
  if (!in.take(nodes)) return in.status();
  secao_.Clear();
  if (nodes > kMostCounted) return Acad::eInvalidInput;
  for (int i = 0; nodes > 0 && i <= nodes; ++i) {
    AcGeVector3d vertex;
    double bulge = 0;
    in.take(vertex);
    if (!in.take(bulge)) return in.status();
    if (!isFinite(vertex) || !isFinite(bulge)) return Acad::eInvalidInput;
    secao_.Add(vertex, bulge);
  }
  // An outline is measured from its reference node: without that it is none.
  if (!secao_.isEmpty() && secao_.numNodes() <= secao_.Qtd()) return Acad::eInvalidInput;
  if (const Acad::ErrorStatus es = readHoles(filer); es != Acad::eOk) return es;
  for (double* scale : {&xScale_, &yScale_, &zScale_}) in.take(*scale);
  readIds(in, relativeDim_);
  readIds(in, relativePos_);
  if (in.status() != Acad::eOk) return in.status();
  tipoBarra_ = Barra;
  return canBeUndone(xScale_) && canBeUndone(yScale_) && canBeUndone(zScale_) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus KrObject::readHoles(AcDbDwgFiler* filer) {
  ItemReader in(filer);
  Adesk::Int32 holes = 0;
  if (!in.take(holes)) return in.status();
  furos_.Clear();
  if (holes > kMostCounted) return Acad::eInvalidInput;
  for (int i = 0; i < holes; ++i) {
    AcGeVector3d ini, fim;
    double diametro = 0, stretch = 0, angle = 0;
    in.take(ini);
    in.take(fim);
    in.take(diametro);
    in.take(stretch);
    if (version_ >= kFirstWithHoleAngle) in.take(angle);
    if (in.status() != Acad::eOk) break;
    for (const double number : {ini.x, ini.y, ini.z, fim.x, fim.y, fim.z, diametro, stretch, angle})
      if (!isFinite(number)) return Acad::eInvalidInput;
    furos_.expect(holes);
    furos_.Add(ini, fim, diametro, stretch, angle);
  }
  return in.status();
}

// Without an extension's class nothing more is read: the rest of the object is then left as it was.
Acad::ErrorStatus KrObject::readExtensions(AcDbDwgFiler* filer, bool& complete) {
  ItemReader in(filer);
  AcDbHardPointerId unused;
  for (int i = 0; i < 3; ++i) in.take(unused);
  Adesk::Int32 count = 0;
  if (!in.take(count)) return in.status();
  if (count > kMostCounted) return Acad::eInvalidInput;
  deleteExtensions();
  extensions_.resize(static_cast<std::size_t>(std::max(count, 0)));
  for (KrObjectExtension*& slot : extensions_) {
    ACHAR* name = nullptr;
    if (!in.take(name)) return in.status();
    const std::wstring className = name != nullptr ? name : L"";
    acutDelString(name);
    if (className.empty()) continue;
    AcRxClass* cls = AcRxClass::cast(acrxClassDictionary->at(className.c_str()));
    complete = cls != nullptr;
    if (!complete) return Acad::eOk;
    AcRxObject* const made = cls->create();
    slot = KrObjectExtension::cast(made);
    complete = slot != nullptr;
    if (!complete) {
      delete made;
      return Acad::eOk;
    }
    slot->dwgInFieldsExtension(filer);
    slot->setCurExtendedObj(this);
  }
  return filer->filerStatus();
}

// The host's own audit comes last, and only for a member in which nothing was found.
Acad::ErrorStatus KrObject::audit(AcDbAuditInfo* info) {
  assertReadEnabled();
  Acad::ErrorStatus result = auditRole(info);
  if (const Acad::ErrorStatus es = auditReactors(info); es != Acad::eOk) result = es;
  return result != Acad::eOk ? result : AcDbEntity::audit(info);
}

Acad::ErrorStatus KrObject::auditRole(AcDbAuditInfo* info) {
  if (tipoBarra_ >= 0 && tipoBarra_ < kNumTiposBarra) return Acad::eOk;
  ACHAR text[kAuditText];
  std::swprintf(text, kAuditText, L"Tipo de Barra - %d", static_cast<int>(tipoBarra_));
  info->errorsFound(1);
  info->printError(this, L"Invalido", text, L"Setado para \"Barra\"");
  if (!info->fixErrors()) return kAuditFound;
  assertWriteEnabled();
  tipoBarra_ = Barra;
  info->errorsFixed(1);
  return kAuditMended;
}

// A member that crops this one hears of it by no reactor of its own: it is this member that listens to the other.
Acad::ErrorStatus KrObject::auditReactors(AcDbAuditInfo* info) {
  Acad::ErrorStatus result = Acad::eOk;
  for (int i = 0; reactors() != nullptr && i < reactors()->length(); ++i) {
    const AcDbObjectId id = acdbPersistentReactorObjectId((*reactors())[i]);
    if (id.isNull() || !croppingIds_.contains(id)) continue;
    ACHAR text[kAuditText];
    std::swprintf(text, kAuditText, L"id - 0x%08x", static_cast<unsigned>(id.asOldId()));
    info->errorsFound(1);
    info->printError(this, L"Invalid Persistent Reactor (Cropping Object)", text, L"Persistent Reactor Removed");
    result = info->fixErrors() ? kAuditMended : kAuditFound;
    if (!info->fixErrors()) continue;
    removePersistentReactor(id);
    --i;
    info->errorsFixed(1);
  }
  return result;
}
