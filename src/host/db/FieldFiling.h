#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/dbtext.h"
#include "host/ge/AcGeScale.h"

/// Files structs of fields by their tie(), so that one list serves writing and reading.
namespace fields {

template <class T>
concept Tied = requires(T& t) {
  t.tie();
};

inline void put(AcDbDwgFiler& f, bool v) {
  f.writeBool(v);
}
inline void put(AcDbDwgFiler& f, Adesk::UInt8 v) {
  f.writeUInt8(v);
}
inline void put(AcDbDwgFiler& f, Adesk::Int16 v) {
  f.writeInt16(v);
}
inline void put(AcDbDwgFiler& f, Adesk::UInt16 v) {
  f.writeUInt16(v);
}
inline void put(AcDbDwgFiler& f, Adesk::Int32 v) {
  f.writeInt32(v);
}
inline void put(AcDbDwgFiler& f, Adesk::UInt32 v) {
  f.writeUInt32(v);
}
inline void put(AcDbDwgFiler& f, double v) {
  f.writeDouble(v);
}
inline void put(AcDbDwgFiler& f, const std::wstring& v) {
  f.writeString(v.c_str());
}
inline void put(AcDbDwgFiler& f, const AcGePoint2d& v) {
  f.writePoint2d(v);
}
inline void put(AcDbDwgFiler& f, const AcGeVector2d& v) {
  f.writeVector2d(v);
}
inline void put(AcDbDwgFiler& f, const AcGePoint3d& v) {
  f.writePoint3d(v);
}
inline void put(AcDbDwgFiler& f, const AcGeVector3d& v) {
  f.writeVector3d(v);
}
inline void put(AcDbDwgFiler& f, const AcGeScale3d& v) {
  f.writePoint3d({v.sx, v.sy, v.sz});
}
inline void put(AcDbDwgFiler& f, const AcDbHardPointerId& v) {
  f.writeHardPointerId(v);
}
inline void put(AcDbDwgFiler& f, const AcDbSoftPointerId& v) {
  f.writeSoftPointerId(v);
}
inline void put(AcDbDwgFiler& f, const AcDbHardOwnershipId& v) {
  f.writeHardOwnershipId(v);
}
inline void put(AcDbDwgFiler& f, const AcDbSoftOwnershipId& v) {
  f.writeSoftOwnershipId(v);
}

inline void get(AcDbDwgFiler& f, bool& v) {
  f.readBool(&v);
}
inline void get(AcDbDwgFiler& f, Adesk::UInt8& v) {
  f.readUInt8(&v);
}
inline void get(AcDbDwgFiler& f, Adesk::Int16& v) {
  f.readInt16(&v);
}
inline void get(AcDbDwgFiler& f, Adesk::UInt16& v) {
  f.readUInt16(&v);
}
inline void get(AcDbDwgFiler& f, Adesk::Int32& v) {
  f.readInt32(&v);
}
inline void get(AcDbDwgFiler& f, Adesk::UInt32& v) {
  f.readUInt32(&v);
}
inline void get(AcDbDwgFiler& f, double& v) {
  f.readDouble(&v);
}
inline void get(AcDbDwgFiler& f, std::wstring& v) {
  v = dbtext::readText(f);
}
inline void get(AcDbDwgFiler& f, AcGePoint2d& v) {
  f.readPoint2d(&v);
}
inline void get(AcDbDwgFiler& f, AcGeVector2d& v) {
  f.readVector2d(&v);
}
inline void get(AcDbDwgFiler& f, AcGePoint3d& v) {
  f.readPoint3d(&v);
}
inline void get(AcDbDwgFiler& f, AcGeVector3d& v) {
  f.readVector3d(&v);
}
inline void get(AcDbDwgFiler& f, AcGeScale3d& v) {
  AcGePoint3d p;
  f.readPoint3d(&p);
  v.set(p.x, p.y, p.z);
}
inline void get(AcDbDwgFiler& f, AcDbHardPointerId& v) {
  f.readHardPointerId(&v);
}
inline void get(AcDbDwgFiler& f, AcDbSoftPointerId& v) {
  f.readSoftPointerId(&v);
}
inline void get(AcDbDwgFiler& f, AcDbHardOwnershipId& v) {
  f.readHardOwnershipId(&v);
}
inline void get(AcDbDwgFiler& f, AcDbSoftOwnershipId& v) {
  f.readSoftOwnershipId(&v);
}

inline void put(AcDbDwgFiler& f, const std::vector<std::byte>& v) {
  f.writeInt32(Adesk::Int32(v.size()));
  if (!v.empty()) f.writeBytes(v.data(), v.size());
}
void get(AcDbDwgFiler& f, std::vector<std::byte>& v);

template <class E>
requires std::is_enum_v<E>
void put(AcDbDwgFiler& f, E v) {
  f.writeInt32(Adesk::Int32(v));
}
template <class E>
requires std::is_enum_v<E>
void get(AcDbDwgFiler& f, E& v) {
  Adesk::Int32 n = 0;
  f.readInt32(&n);
  v = E(n);
}

template <class T>
void put(AcDbDwgFiler& f, const std::vector<T>& v);
template <class T>
void get(AcDbDwgFiler& f, std::vector<T>& v);
template <class T, std::size_t N>
void put(AcDbDwgFiler& f, const std::array<T, N>& v) {
  for (const T& each : v) put(f, each);
}
template <class T, std::size_t N>
void get(AcDbDwgFiler& f, std::array<T, N>& v) {
  for (T& each : v) get(f, each);
}
template <Tied T>
void put(AcDbDwgFiler& f, const T& v) {
  std::apply([&f](const auto&... each) { (put(f, each), ...); }, v.tie());
}
template <Tied T>
void get(AcDbDwgFiler& f, T& v) {
  std::apply([&f](auto&... each) { (get(f, each), ...); }, v.tie());
}
template <class T>
void put(AcDbDwgFiler& f, const std::vector<T>& v) {
  f.writeInt32(Adesk::Int32(v.size()));
  for (const T& each : v) put(f, each);
}
template <class T>
void get(AcDbDwgFiler& f, std::vector<T>& v) {
  Adesk::Int32 count = 0;
  f.readInt32(&count);
  v.clear();
  for (Adesk::Int32 i = 0; i < count && f.filerStatus() == Acad::eOk; ++i) get(f, v.emplace_back());
}

/// Writes all fields; the filer's status.
template <Tied T>
Acad::ErrorStatus write(AcDbDwgFiler* filer, const T& data) {
  put(*filer, data);
  return filer->filerStatus();
}
/// Reads all fields; on a failure `data` stays as it was.
template <Tied T>
Acad::ErrorStatus read(AcDbDwgFiler* filer, T& data) {
  T fresh = data;
  get(*filer, fresh);
  if (filer->filerStatus() == Acad::eOk) data = std::move(fresh);
  return filer->filerStatus();
}

}  // namespace fields
