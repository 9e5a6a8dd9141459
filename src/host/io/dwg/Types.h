#pragma once

#include <span>

#include "host/io/dwg/Frame.h"

namespace krio::dwg {

/// A class of the host that a drawing stores in a form of its own: how to make, read and write one.
struct TypeInfo {
  std::uint16_t number = 0;  ///< 0: a class record tells of it
  AcRxClass* (*desc)() = nullptr;
  AcDbObject* (*make)() = nullptr;
  void (*read)(Decoder&, AcDbObject&) = nullptr;
  void (*write)(Encoder&, const AcDbObject&) = nullptr;
  const wchar_t* dxfName = nullptr;  ///< of those without a number
};

/// Null for a number that the host has no class for. The most usual entities aren't among these: they have a path of
/// their own.
const TypeInfo* typeOfNumber(unsigned number);
/// By the names that a class record has; null when the host has no such class.
const TypeInfo* typeOfClass(std::wstring_view dxfName);
/// By the object's own class; null when it files itself.
const TypeInfo* typeOf(const AcRxClass* aClass);
/// The registered class of a record that files itself: it has the record's names and makes objects of the right kind.
/// Null when there is none.
AcRxClass* customClassOf(const AcDbClassRecord& record);

}  // namespace krio::dwg
