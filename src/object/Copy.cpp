// The ways of copying a member, with their different reach.

#include "object/KrObject.h"

namespace {

/// Sets the mark that keeps the entity's own part out of the filers, for the life of the guard.
class WithoutEntity {
 public:
  explicit WithoutEntity(int& flag) : flag_(flag) { flag_ = 1; }
  ~WithoutEntity() { flag_ = 0; }
  WithoutEntity(const WithoutEntity&) = delete;
  WithoutEntity& operator=(const WithoutEntity&) = delete;

 private:
  int& flag_;
};

}  // namespace

Acad::ErrorStatus KrObject::CopiaDados(const KrObject* origem, int completo) {
  assertWriteEnabled();
  if (origem == nullptr) return Acad::eInvalidInput;
  origem->assertReadEnabled();
  setUserName(origem->userName());
  vista_ = origem->vista_;
  material_ = origem->material_;
  objectType_ = origem->objectType_;
  normal_ = origem->normal_;
  angleVista_ = origem->angleVista_;
  startPoint_ = origem->startPoint_;
  endPoint_ = origem->endPoint_;
  comprimento_ = origem->comprimento_;
  angleSecao_ = origem->angleSecao_;
  projeto_ = origem->projeto_;
  projetoFator_ = origem->projetoFator_;
  furacaoTrelica_ = origem->furacaoTrelica_;
  secao_ = origem->secao_;
  if (completo != 1) return Acad::eOk;

  for (std::size_t i = 0; i < vertexLists_.size(); ++i) vertexLists_[i] = origem->vertexLists_[i];
  xScale_ = origem->xScale_;
  yScale_ = origem->yScale_;
  zScale_ = origem->zScale_;
  relativeObj_ = origem->relativeObj_;
  relativeDim_ = origem->relativeDim_;
  relativePos_ = origem->relativePos_;
  furos_ = origem->furos_;
  cortes_ = origem->cortes_;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::copyDataFrom(KrObject* origem) {
  assertWriteEnabled();
  if (origem == nullptr) return Acad::eInvalidInput;
  const WithoutEntity here(semEntidade_);
  const WithoutEntity there(origem->semEntidade_);
  return copyFrom(origem);
}

Acad::ErrorStatus KrObject::dwgOutFieldsData(AcDbDwgFiler* filer) {
  const WithoutEntity guard(semEntidade_);
  return dwgOutFields(filer);
}

Acad::ErrorStatus KrObject::dwgInFieldsData(AcDbDwgFiler* filer) {
  const WithoutEntity guard(semEntidade_);
  return dwgInFields(filer);
}

Acad::ErrorStatus KrObject::applyPartialUndo(AcDbDwgFiler* filer, AcRxClass* classe) {
  assertWriteEnabled(false);
  return AcDbEntity::applyPartialUndo(filer, classe);
}

Acad::ErrorStatus KrObject::decomposeForSave(AcDb::AcDbDwgVersion version, AcDbObject*& replacement,
                                             AcDbObjectId& replacementId, Adesk::Boolean& exchangeXData) {
  assertReadEnabled();
  return AcDbEntity::decomposeForSave(version, replacement, replacementId, exchangeXData);
}

Acad::ErrorStatus KrObject::subWblockClone(AcRxObject* owner, AcDbObject*& copia, AcDbIdMapping& idMap,
                                           bool isPrimary) const {
  assertReadEnabled();
  return AcDbEntity::subWblockClone(owner, copia, idMap, isPrimary);
}

Acad::ErrorStatus KrObject::subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copia) const {
  assertReadEnabled();
  return AcDbEntity::subGetTransformedCopy(xform, copia);
}
