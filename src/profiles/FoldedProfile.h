#pragma once

#include "profiles/MiddleLine.h"
#include "profiles/ProfileHelpers.h"

/// \file
/// What the classes made from a middle line do word for word alike, defined in each one's source. A class has its
/// parameters in `filed`, in the order of the file, its thickness in `espessura_`, its line in `linhaMedia_`, and its
/// version in `kVersion` and `versao_`.

/// The empty constructor, the two that copy, and what ends every other one.
#define KR_FOLDED_DEFINE_LIFE(CLASS)                                            \
  CLASS::CLASS() = default;                                                     \
  CLASS::CLASS(const CLASS* source, int completo) {                             \
    CopiaDados(source, completo);                                               \
    ProfileHelpers::copyParameters(filed(*this), filed(*source));               \
    linhaMedia_ = source->linhaMedia_;                                          \
    if (completo != 1) MiddleLine::thicken(*this, linhaMedia_, espessura_);     \
  }                                                                             \
  CLASS::CLASS(const CLASS& source, int completo) : CLASS(&source, completo) {} \
  void CLASS::generate(double AngleSecao) {                                     \
    setAngleSecao(AngleSecao);                                                  \
    Define_geratriz(linhaMedia_);                                               \
    MiddleLine::thicken(*this, linhaMedia_, espessura_);                        \
  }

/// What is measured on the middle line.
#define KR_FOLDED_DEFINE_MEASURES(CLASS)                  \
  double CLASS::getArea() const {                         \
    assertReadEnabled();                                  \
    return Calcula_AreaGeratriz(linhaMedia_, espessura_); \
  }                                                       \
  double CLASS::getEspessura() {                          \
    assertReadEnabled();                                  \
    return espessura_;                                    \
  }                                                       \
  AcArray<double> CLASS::GeratrizLength() {               \
    assertReadEnabled();                                  \
    return MiddleLine::strips(linhaMedia_, espessura_);   \
  }

/// Filing behind the base: the version, the parameters and the line. A drawing that holds no outline gets it back.
#define KR_FOLDED_DEFINE_DWG(CLASS)                                                             \
  Acad::ErrorStatus CLASS::dwgOutFields(AcDbDwgFiler* filer) const {                            \
    assertReadEnabled();                                                                        \
    if (const Acad::ErrorStatus es = KrObject::dwgOutFields(filer); es != Acad::eOk) return es; \
    ProfileHelpers::writeFields(filer, versao_, filed(*this));                                  \
    MiddleLine::writeNodes(filer, linhaMedia_);                                                 \
    return filer->filerStatus();                                                                \
  }                                                                                             \
  Acad::ErrorStatus CLASS::dwgInFields(AcDbDwgFiler* filer) {                                   \
    assertWriteEnabled();                                                                       \
    if (const Acad::ErrorStatus es = KrObject::dwgInFields(filer); es != Acad::eOk) return es;  \
    Acad::ErrorStatus es = ProfileHelpers::readFields(filer, versao_, kVersion, filed(*this));  \
    if (es == Acad::eOk) es = MiddleLine::readNodes(filer, linhaMedia_);                        \
    if (es != Acad::eOk) return es;                                                             \
    MiddleLine::restoreOutline(outline(), linhaMedia_, espessura_);                             \
    versao_ = kVersion;                                                                         \
    return Acad::eOk;                                                                           \
  }

/// The same in DXF.
#define KR_FOLDED_DEFINE_DXF(CLASS)                                                             \
  Acad::ErrorStatus CLASS::dxfOutFields(AcDbDxfFiler* filer) const {                            \
    assertReadEnabled();                                                                        \
    if (const Acad::ErrorStatus es = KrObject::dxfOutFields(filer); es != Acad::eOk) return es; \
    return MiddleLine::writeGroups(filer, L## #CLASS, versao_, filed(*this), linhaMedia_);      \
  }                                                                                             \
  Acad::ErrorStatus CLASS::dxfInFields(AcDbDxfFiler* filer) {                                   \
    assertWriteEnabled();                                                                       \
    if (const Acad::ErrorStatus es = KrObject::dxfInFields(filer); es != Acad::eOk) return es;  \
    return MiddleLine::readGroups(filer, L## #CLASS, versao_, filed(*this), linhaMedia_);       \
  }

/// No DXF form: nothing is written or read, not even of the base.
#define KR_DEFINE_NO_DXF(CLASS)                                      \
  Acad::ErrorStatus CLASS::dxfOutFields(AcDbDxfFiler* filer) const { \
    assertReadEnabled();                                             \
    return filer->filerStatus();                                     \
  }                                                                  \
  Acad::ErrorStatus CLASS::dxfInFields(AcDbDxfFiler* filer) {        \
    assertWriteEnabled();                                            \
    return filer->filerStatus();                                     \
  }
