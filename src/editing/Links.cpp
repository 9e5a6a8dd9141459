// Links between the members that show one bar: each names all the others by id, and what changes one is carried to the
// others by the code that made the change.

#include "editing/Links.h"

#include "object/KrObject.h"

namespace {

/// `copyDataToLinked` of a member that is in no database.
constexpr auto kNotInDatabase = static_cast<Acad::ErrorStatus>(137);

}  // namespace

Acad::ErrorStatus KrObject::RelativeObj(AcDbObjectIdArray& ids) const {
  assertReadEnabled();
  ids = relativeObj_;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::RelativeDim(AcDbObjectIdArray& ids) const {
  assertReadEnabled();
  ids = relativeDim_;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::RelativePos(AcDbObjectIdArray& ids) const {
  assertReadEnabled();
  ids = relativePos_;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setRelativeObj(const AcDbObjectIdArray* ids) {
  assertWriteEnabled();
  relativeObj_ = *ids;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setRelativeDim(const AcDbObjectIdArray* ids) {
  assertWriteEnabled();
  relativeDim_ = *ids;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setRelativePos(const AcDbObjectIdArray* ids) {
  assertWriteEnabled();
  relativePos_ = *ids;
  return Acad::eOk;
}

bool KrObject::isLinkedTo(const AcDbObjectId& id) const {
  assertReadEnabled();
  return relativeObj_.contains(id);
}

Acad::ErrorStatus KrObject::krOpenSon(KrObject*& filho, int indice, AcDb::OpenMode modo, int abrirApagado,
                                      unsigned long opcoes) {
  constexpr unsigned long kMarkThis = 1;
  constexpr unsigned long kDropDead = 2;
  filho = nullptr;
  if (!hasValidId()) return Acad::eNotApplicable;
  if (indice < 0 || indice >= relativeObj_.length()) return Acad::eInvalidIndex;
  const AcDbObjectId id = relativeObj_[indice];
  const Acad::ErrorStatus es = acdbOpenObject(filho, id, modo, abrirApagado != 0);
  if (modo != AcDb::kForWrite) return es;
  if (es == Acad::eOk && (opcoes & kMarkThis) != 0) assertWriteEnabled();
  if (es != Acad::eOk && (opcoes & kDropDead) != 0) {
    // Only the dead link goes: the list keeps the members that live.
    assertWriteEnabled();
    relativeObj_.removeAt(indice);
  }
  return es;
}

Acad::ErrorStatus KrObject::UnLink(AcDbObjectId id) {
  assertWriteEnabled();
  for (int i = 0; i < relativeObj_.length(); ++i) {
    KrObject* linked = nullptr;
    if (krOpenSon(linked, i, AcDb::kForWrite, 0, 0) != Acad::eOk) continue;
    linked->assertWriteEnabled();
    linked->relativeObj_.remove(id);
    linked->close();
  }
  relativeObj_.setLogicalLength(0);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::UnLinkMeObj() {
  assertWriteEnabled();
  for (int i = 0; i < relativeObj_.length(); ++i) {
    KrObject* linked = nullptr;
    if (krOpenSon(linked, i, AcDb::kForWrite, 0, 1) != Acad::eOk) continue;
    linked->assertWriteEnabled();
    linked->relativeObj_.remove(objectId());
    linked->close();
  }
  relativeObj_.setLogicalLength(0);
  return Acad::eOk;
}

void KrObject::opDataCopyTo(KrObject& destino) const {
  destino.assertWriteEnabled();
  destino.furos_ = furos_;
  destino.cortes_ = cortes_;
  destino.recortes_ = recortes_;
  const double length = comprimento_ / xScale_;
  const bool section = destino.isSecao() == Acad::eOk;
  // A section's length is set as it is given, and read over its scale: what goes in is the scaled length.
  destino.setComprimentoReal(section ? destino.xScale_ * length : length);
  if (!section) return;
  const AcGeVector3d along = (destino.endPoint_ - destino.startPoint_).normal();
  destino.endPoint_ = destino.startPoint_ + along * comprimento_;
}

Acad::ErrorStatus KrObject::copyModifiersFrom(const KrObject& origem) {
  assertWriteEnabled();
  furos_ = origem.furos_;
  cortes_ = origem.cortes_;
  recortes_ = origem.recortes_;
  splits_ = origem.splits_;
  // The limits count along the reference line as it is drawn: in a view from behind that runs the other way.
  const bool turned = verifyInversion(origem.vista_);
  visualRepStart_ = turned ? 1 - origem.visualRepEnd_ : origem.visualRepStart_;
  visualRepEnd_ = turned ? 1 - origem.visualRepStart_ : origem.visualRepEnd_;
  visualRepScale_ = origem.visualRepScale_;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::copyDataToLinked(unsigned long mascara, int regenerar, int comprimento, int secao) {
  if (mascara == 0 && comprimento == 0) return Acad::eInvalidInput;
  if (!hasValidId()) return kNotInDatabase;
  const double length = getComprimentoReal();
  forEachLinked([&](KrObject& linked) {
    linked.assertWriteEnabled();
    if (secao != 0) linked.secao_ = secao_;
    if (comprimento != 0) {
      const bool elevation = linked.isSecao() == Acad::eNotApplicable;
      const double drawn = linked.xScale_ * length;
      linked.setComprimentoReal(elevation ? length : drawn);
      KrVector* reference = nullptr;
      if (elevation && linked.getVectorEixo(linked.vista_, reference, 1) == Acad::eOk)
        reference->setLength(drawn, linked.isInverted() == 0 ? 1 : 0);
    }
    linked.furos_ = furos_;
    linked.cortes_ = cortes_;
    linked.recortes_ = recortes_;
    if (regenerar != 0) linked.Gera_KrVector();
  });
  return Acad::eOk;
}
