#pragma once

#include "host/rx/rx.h"

/// \file
/// A parameter of a class of the catalogue: a number in the field `NAME_`, read through `NAME(double&)` and written
/// through `setNAME(double)`. Both always answer `Acad::eOk`; a setter stores and regenerates nothing.

#define KR_PARAMETER_ACCESSORS(SPECIFIER, NAME)           \
  SPECIFIER Acad::ErrorStatus NAME(double& valor) const { \
    assertReadEnabled();                                  \
    valor = NAME##_;                                      \
    return Acad::eOk;                                     \
  }                                                       \
  SPECIFIER Acad::ErrorStatus set##NAME(double valor) {   \
    assertWriteEnabled();                                 \
    NAME##_ = valor;                                      \
    return Acad::eOk;                                     \
  }

/// Accessors of a parameter as ordinary members.
#define KR_PARAMETER(NAME) KR_PARAMETER_ACCESSORS(, NAME)

/// Accessors of a parameter as virtual members, the getter's place before the setter's.
#define KR_VIRTUAL_PARAMETER(NAME) KR_PARAMETER_ACCESSORS(virtual, NAME)
