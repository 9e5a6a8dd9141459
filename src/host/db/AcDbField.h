#pragma once

#include <string>
#include <tuple>

#include "host/rx/ErrorStatus.h"

// Accessors of plain values, as nearly every class of the database has them, and lists of fields.

/// A value read under an open for read.
#define KR_DB_GET(Type, get, field) \
  Type get() const {                \
    assertReadEnabled();            \
    return field;                   \
  }
/// As above, and set under an open for write.
#define KR_DB_FIELD(Type, get, set, field)   \
  KR_DB_GET(Type, get, field)                \
  Acad::ErrorStatus set(const Type& value) { \
    assertWriteEnabled();                    \
    field = value;                           \
    return Acad::eOk;                        \
  }
/// A reference: the getter gives a plain id.
#define KR_DB_ID(get, set, field)             \
  KR_DB_GET(AcDbObjectId, get, field)         \
  Acad::ErrorStatus set(AcDbObjectId value) { \
    assertWriteEnabled();                     \
    field = value;                            \
    return Acad::eOk;                         \
  }
/// A text: the getter gives the object's own, which lasts until it is set again.
#define KR_DB_TEXT(get, set, field)           \
  KR_DB_GET(const ACHAR*, get, field.c_str()) \
  Acad::ErrorStatus set(const ACHAR* value) { \
    assertWriteEnabled();                     \
    field = value != nullptr ? value : L"";   \
    return Acad::eOk;                         \
  }

/// Inside a struct of fields: tie() lists them in the order in which they are filed.
#define KR_DB_TIE(...)            \
  auto tie() {                    \
    return std::tie(__VA_ARGS__); \
  }                               \
  auto tie() const {              \
    return std::tie(__VA_ARGS__); \
  }

/// Inside a class whose fields are one struct `data_` as a file holds them: readers and writers of files get at it
/// whatever the open state, without checks and without changing a bit.
#define KR_DB_DATA(Data)                         \
  const Data& data() const {                     \
    return data_;                                \
  }                                              \
  Data& dataAsRead() {                           \
    return data_;                                \
  }                                              \
  Acad::ErrorStatus setData(const Data& value) { \
    assertWriteEnabled();                        \
    data_ = value;                               \
    return Acad::eOk;                            \
  }
