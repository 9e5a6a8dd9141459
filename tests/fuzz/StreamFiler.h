#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "host/db/db.h"

namespace fuzz {

/// Fields one behind the other without anything between them, so that any bytes are fields of any types: numbers as
/// they lie in memory, a text or a run behind its length in two bytes, a reference as a byte that picks one of the ids
/// given. What every object has is not filed. Reading beyond the end gives zeros and eEndOfObject.
class StreamFiler : public AcDbDwgFiler {
 public:
  StreamFiler() = default;
  StreamFiler(std::span<const std::uint8_t> bytes, std::vector<AcDbObjectId> ids)
      : bytes_(bytes.begin(), bytes.end()), ids_(std::move(ids)) {}

  const std::vector<std::uint8_t>& bytes() const { return bytes_; }
  /// Where among the bytes written the real numbers begin, in ascending order.
  const std::vector<std::size_t>& reals() const { return reals_; }

  bool framesObjects() const override { return true; }
  Acad::ErrorStatus filerStatus() const override { return status_; }
  void setFilerStatus(Acad::ErrorStatus status) override { status_ = status; }
  AcDb::FilerType filerType() const override { return AcDb::kFileFiler; }
  Adesk::Int64 tell() const override { return Adesk::Int64(place_); }
  Acad::ErrorStatus seek(Adesk::Int64 offset, int method) override {
    const Adesk::Int64 base = method == 0 ? 0 : method == 1 ? tell() : Adesk::Int64(bytes_.size());
    if (offset < -base || offset > Adesk::Int64(bytes_.size()) - base) return Acad::eInvalidInput;
    place_ = std::size_t(base + offset);
    return Acad::eOk;
  }

#define KR_FUZZ_FIELD(NAME, GIVEN, HELD)                \
  Acad::ErrorStatus write##NAME(GIVEN value) override { \
    return put(&value, sizeof(HELD));                   \
  }                                                     \
  KR_FUZZ_READ(NAME, HELD)
#define KR_FUZZ_REALS(NAME, GIVEN, HELD)                                                                \
  Acad::ErrorStatus write##NAME(GIVEN value) override {                                                 \
    for (std::size_t i = 0; i < sizeof(HELD); i += sizeof(double)) reals_.push_back(bytes_.size() + i); \
    return put(&value, sizeof(HELD));                                                                   \
  }                                                                                                     \
  KR_FUZZ_READ(NAME, HELD)
#define KR_FUZZ_READ(NAME, HELD)                       \
  Acad::ErrorStatus read##NAME(HELD* value) override { \
    *value = HELD();                                   \
    return get(value, sizeof(HELD));                   \
  }
  KR_FUZZ_FIELD(Int8, Adesk::Int8, Adesk::Int8)
  KR_FUZZ_FIELD(Int16, Adesk::Int16, Adesk::Int16)
  KR_FUZZ_FIELD(Int32, Adesk::Int32, Adesk::Int32)
  KR_FUZZ_FIELD(Int64, Adesk::Int64, Adesk::Int64)
  KR_FUZZ_FIELD(UInt8, Adesk::UInt8, Adesk::UInt8)
  KR_FUZZ_FIELD(UInt16, Adesk::UInt16, Adesk::UInt16)
  KR_FUZZ_FIELD(UInt32, Adesk::UInt32, Adesk::UInt32)
  KR_FUZZ_FIELD(UInt64, Adesk::UInt64, Adesk::UInt64)
  KR_FUZZ_REALS(Double, double, double)
  KR_FUZZ_REALS(Point2d, const AcGePoint2d&, AcGePoint2d)
  KR_FUZZ_REALS(Point3d, const AcGePoint3d&, AcGePoint3d)
  KR_FUZZ_REALS(Vector2d, const AcGeVector2d&, AcGeVector2d)
  KR_FUZZ_REALS(Vector3d, const AcGeVector3d&, AcGeVector3d)
  KR_FUZZ_FIELD(AcDbHandle, const AcDbHandle&, AcDbHandle)
#undef KR_FUZZ_FIELD
#undef KR_FUZZ_REALS
#undef KR_FUZZ_READ

#define KR_FUZZ_REFERENCE(NAME)                                                                \
  Acad::ErrorStatus write##NAME(const AcDb##NAME&) override {                                  \
    return writeUInt8(0);                                                                      \
  }                                                                                            \
  Acad::ErrorStatus read##NAME(AcDb##NAME* id) override {                                      \
    Adesk::UInt8 which = 0;                                                                    \
    const Acad::ErrorStatus status = readUInt8(&which);                                        \
    *static_cast<AcDbObjectId*>(id) = which < ids_.size() ? ids_[which] : AcDbObjectId::kNull; \
    return status;                                                                             \
  }
  KR_FUZZ_REFERENCE(HardOwnershipId)
  KR_FUZZ_REFERENCE(HardPointerId)
  KR_FUZZ_REFERENCE(SoftOwnershipId)
  KR_FUZZ_REFERENCE(SoftPointerId)
#undef KR_FUZZ_REFERENCE

  Acad::ErrorStatus writeBoolean(Adesk::Boolean value) override {
    return writeUInt8(value != 0);
  }
  Acad::ErrorStatus readBoolean(Adesk::Boolean* value) override {
    Adesk::UInt8 byte = 0;
    const Acad::ErrorStatus status = readUInt8(&byte);
    *value = byte;
    return status;
  }
  Acad::ErrorStatus writeBool(bool value) override {
    return writeUInt8(value);
  }
  Acad::ErrorStatus readBool(bool* value) override {
    Adesk::UInt8 byte = 0;
    const Acad::ErrorStatus status = readUInt8(&byte);
    *value = byte != 0;
    return status;
  }
  Acad::ErrorStatus writeAddress(const void*) override {
    return Acad::eNotApplicable;
  }
  Acad::ErrorStatus readAddress(void** value) override {
    *value = nullptr;
    return Acad::eNotApplicable;
  }

  Acad::ErrorStatus writeString(const ACHAR* text) override {
    std::string bytes;
    for (; text != nullptr && *text != L'\0'; ++text) bytes.push_back(char(*text));
    return putRun(bytes.data(), bytes.size());
  }
  Acad::ErrorStatus readString(ACHAR** text) override {
    *text = nullptr;
    const std::string_view run = getRun();
    if (status_ == Acad::eOk) {
      std::wstring wide;
      for (const char c : run) wide.push_back(wchar_t(static_cast<unsigned char>(c)));
      acutNewString(wide.c_str(), *text);
    }
    return status_;
  }
  Acad::ErrorStatus writeBChunk(const ads_binary& chunk) override {
    return putRun(chunk.buf, std::size_t(chunk.clen));
  }
  Acad::ErrorStatus readBChunk(ads_binary* chunk) override {
    *chunk = ads_binary{};
    const std::string_view run = getRun().substr(0, 0x7FFF);
    if (status_ != Acad::eOk) return status_;
    chunk->clen = short(run.size());
    chunk->buf = static_cast<char*>(odrxAlloc(run.size()));
    std::memcpy(chunk->buf, run.data(), run.size());
    return status_;
  }
  Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UIntPtr length) override {
    return put(bytes, length);
  }
  Acad::ErrorStatus readBytes(void* bytes, Adesk::UIntPtr length) override {
    std::memset(bytes, 0, length);
    return get(bytes, length);
  }

 private:
  Acad::ErrorStatus put(const void* from, std::size_t size) {
    if (status_ != Acad::eOk) return status_;
    const auto* const first = static_cast<const std::uint8_t*>(from);
    bytes_.insert(bytes_.end(), first, first + size);
    return status_;
  }
  Acad::ErrorStatus putRun(const void* from, std::size_t size) {
    writeUInt16(Adesk::UInt16(size));
    return size != 0 ? put(from, Adesk::UInt16(size)) : status_;
  }
  Acad::ErrorStatus get(void* to, std::size_t size) {
    if (status_ == Acad::eOk && size > bytes_.size() - place_) status_ = Acad::eEndOfObject;
    if (status_ != Acad::eOk || size == 0) return status_;
    std::memcpy(to, bytes_.data() + place_, size);
    place_ += size;
    return status_;
  }
  std::string_view getRun() {
    Adesk::UInt16 size = 0;
    readUInt16(&size);
    if (status_ == Acad::eOk && size > bytes_.size() - place_) status_ = Acad::eEndOfObject;
    if (status_ != Acad::eOk) return {};
    place_ += size;
    return {reinterpret_cast<const char*>(bytes_.data()) + place_ - size, size};
  }

  std::vector<std::uint8_t> bytes_;
  std::vector<std::size_t> reals_;
  std::vector<AcDbObjectId> ids_;
  std::size_t place_ = 0;
  Acad::ErrorStatus status_ = Acad::eOk;
};

}  // namespace fuzz
