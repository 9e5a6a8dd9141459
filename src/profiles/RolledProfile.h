#pragma once

#include "profiles/ProfileHelpers.h"

/// \file
/// What the rolled classes do word for word alike, defined in each one's source. A class has its parameters in `filed`,
/// in the order of the file, and its version in `kVersion` and `versao_`.

/// The empty constructor and the two that copy.
#define KR_ROLLED_DEFINE_COPYING(CLASS)                           \
  CLASS::CLASS() = default;                                       \
  CLASS::CLASS(const CLASS* source, int completo) {               \
    ProfileHelpers::copyParameters(filed(*this), filed(*source)); \
    CopiaDados(source, completo);                                 \
    if (completo != 1) Calcule();                                 \
  }                                                               \
  CLASS::CLASS(const CLASS& source) : KrObject() {                \
    ProfileHelpers::copyParameters(filed(*this), filed(source));  \
    setAngleSecao(source.angleSecao());                           \
    Calcule();                                                    \
  }

/// Writes the outline anew and regenerates the view shown.
#define KR_ROLLED_DEFINE_CALCULE(CLASS)                            \
  void CLASS::Calcule() {                                          \
    assertWriteEnabled();                                          \
    outline().Clear();                                             \
    CalculeSecao();                                                \
    KrGeratriz none;                                               \
    Gera_KrVector(startPoint(), none, KrObject::Vista(0), 0.0, 1); \
  }

/// The elevations made by hand, from the edges that the class names in `edgesByHand`.
#define KR_ROLLED_DEFINE_ELEVATIONS(CLASS)                   \
  void CLASS::CalculeDireita() {                             \
    HandMadeElevation::fill(*this, Direita, edgesByHand());  \
  }                                                          \
  void CLASS::CalculeEsquerda() {                            \
    HandMadeElevation::fill(*this, Esquerda, edgesByHand()); \
  }                                                          \
  void CLASS::CalculeSuperior() {                            \
    HandMadeElevation::fill(*this, Superior, edgesByHand()); \
  }                                                          \
  void CLASS::CalculeInferior() {                            \
    HandMadeElevation::fill(*this, Inferior, edgesByHand()); \
  }

/// Filing behind the base: the version and the parameters. A drawing that holds no outline gets it back.
#define KR_ROLLED_DEFINE_FILING(CLASS)                                                               \
  Acad::ErrorStatus CLASS::dwgOutFields(AcDbDwgFiler* filer) const {                                 \
    assertReadEnabled();                                                                             \
    if (const Acad::ErrorStatus es = KrObject::dwgOutFields(filer); es != Acad::eOk) return es;      \
    return ProfileHelpers::writeFields(filer, versao_, filed(*this));                                \
  }                                                                                                  \
  Acad::ErrorStatus CLASS::dwgInFields(AcDbDwgFiler* filer) {                                        \
    assertWriteEnabled();                                                                            \
    if (const Acad::ErrorStatus es = KrObject::dwgInFields(filer); es != Acad::eOk) return es;       \
    const Acad::ErrorStatus es = ProfileHelpers::readFields(filer, versao_, kVersion, filed(*this)); \
    if (es == Acad::eOk && outline().Qtd() == 0) {                                                   \
      CalculeSecao();                                                                                \
      ProfileHelpers::dropUnlessFinite(outline());                                                   \
    }                                                                                                \
    return es;                                                                                       \
  }                                                                                                  \
  Acad::ErrorStatus CLASS::dxfOutFields(AcDbDxfFiler* filer) const {                                 \
    assertReadEnabled();                                                                             \
    if (const Acad::ErrorStatus es = KrObject::dxfOutFields(filer); es != Acad::eOk) return es;      \
    return ProfileHelpers::writeGroups(filer, L## #CLASS, versao_, filed(*this));                    \
  }                                                                                                  \
  Acad::ErrorStatus CLASS::dxfInFields(AcDbDxfFiler* filer) {                                        \
    assertWriteEnabled();                                                                            \
    if (const Acad::ErrorStatus es = KrObject::dxfInFields(filer); es != Acad::eOk) return es;       \
    return ProfileHelpers::readGroups(filer, L## #CLASS, versao_, filed(*this));                     \
  }
