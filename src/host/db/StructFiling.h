#pragma once

#include "host/db/FieldFiling.h"

/// The bodies of dwgOutFields and dwgInFields of a class whose fields are one struct.
#define KR_DB_FILE_STRUCT(Class, Base, data)                         \
  Acad::ErrorStatus Class::dwgOutFields(AcDbDwgFiler* filer) const { \
    const Acad::ErrorStatus es = Base::dwgOutFields(filer);          \
    return es == Acad::eOk ? fields::write(filer, data) : es;        \
  }                                                                  \
  Acad::ErrorStatus Class::dwgInFields(AcDbDwgFiler* filer) {        \
    const Acad::ErrorStatus es = Base::dwgInFields(filer);           \
    return es == Acad::eOk ? fields::read(filer, data) : es;         \
  }
