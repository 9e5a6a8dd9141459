#include "host/db/AcDbMemoryDwgFiler.h"

#include <cstring>
#include <cwchar>

enum class AcDbMemoryDwgFiler::Tag : Adesk::UInt8 {
  kHardOwner,
  kHardPointer,
  kSoftOwner,
  kSoftPointer,
  kInt8,
  kInt16,
  kInt32,
  kInt64,
  kUInt8,
  kUInt16,
  kUInt32,
  kUInt64,
  kBoolean,
  kDouble,
  kPoint2d,
  kPoint3d,
  kVector2d,
  kVector3d,
  kHandle,
  kAddress,
  kString,
  kChunk,
  kBytes
};

namespace {

using Length = Adesk::UInt32;

// Bytes of the values of fixed size, in the order of the tags.
constexpr std::size_t kFixedSizes[] = {8, 8, 8, 8, 1, 2, 4, 8, 1, 2, 4, 8, 1, 8, 16, 24, 16, 24, 8, 8};
constexpr std::size_t kFixedTags = sizeof kFixedSizes / sizeof kFixedSizes[0];

}  // namespace

AcDbMemoryDwgFiler::Buffer AcDbMemoryDwgFiler::takeBuffer() {
  position_ = 0;
  return std::exchange(buffer_, {});
}

Acad::ErrorStatus AcDbMemoryDwgFiler::fail(Acad::ErrorStatus status) {
  if (status_ == Acad::eOk) status_ = status;
  return status_;
}

Adesk::UInt8* AcDbMemoryDwgFiler::grow(std::size_t size) {
  // Writing after a seek goes over what stood there, as in a file.
  if (position_ + size > buffer_.size()) buffer_.resize(position_ + size);
  Adesk::UInt8* const place = buffer_.data() + position_;
  position_ += size;
  return place;
}

template <class T>
Acad::ErrorStatus AcDbMemoryDwgFiler::put(Tag tag, const T& value) {
  if (status_ != Acad::eOk) return status_;
  Adesk::UInt8* const place = grow(1 + sizeof value);
  *place = Adesk::UInt8(tag);
  std::memcpy(place + 1, &value, sizeof value);
  return Acad::eOk;
}

bool AcDbMemoryDwgFiler::expect(Tag tag) {
  if (status_ != Acad::eOk) return false;
  if (position_ >= buffer_.size()) {
    fail(Acad::eEndOfObject);
    return false;
  }
  if (buffer_[position_] != Adesk::UInt8(tag)) {
    fail(Acad::eFilerError);
    return false;
  }
  return true;
}

template <class T>
Acad::ErrorStatus AcDbMemoryDwgFiler::get(Tag tag, T* value) {
  *value = T();
  if (!expect(tag)) return status_;
  if (buffer_.size() - position_ <= sizeof *value) return fail(Acad::eEndOfObject);
  std::memcpy(static_cast<void*>(value), buffer_.data() + position_ + 1, sizeof *value);
  position_ += 1 + sizeof *value;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMemoryDwgFiler::putRun(Tag tag, const void* bytes, std::size_t length) {
  if (status_ != Acad::eOk) return status_;
  const auto count = Length(length);
  if (count != length) return fail(Acad::eInvalidInput);
  Adesk::UInt8* const place = grow(1 + sizeof count + length);
  *place = Adesk::UInt8(tag);
  std::memcpy(place + 1, &count, sizeof count);
  if (length > 0) std::memcpy(place + 1 + sizeof count, bytes, length);
  return Acad::eOk;
}

const Adesk::UInt8* AcDbMemoryDwgFiler::getRun(Tag tag, std::size_t& length) {
  length = 0;
  if (!expect(tag)) return nullptr;
  Length count = 0;
  const std::size_t left = buffer_.size() - position_ - 1;
  if (left >= sizeof count) std::memcpy(&count, buffer_.data() + position_ + 1, sizeof count);
  if (left < sizeof count + count) {
    fail(Acad::eEndOfObject);
    return nullptr;
  }
  const Adesk::UInt8* const bytes = buffer_.data() + position_ + 1 + sizeof count;
  position_ += 1 + sizeof count + count;
  length = count;
  return bytes;
}

bool AcDbMemoryDwgFiler::visitReferences(const std::function<void(AcDbReferenceKind, AcDbObjectId&)>& visit) {
  bool changed = false;
  for (std::size_t at = 0; at < buffer_.size();) {
    const std::size_t tag = buffer_[at];
    Adesk::UInt8* const value = buffer_.data() + at + 1;
    if (tag >= kFixedTags) {
      Length count = 0;
      std::memcpy(&count, value, sizeof count);
      at += 1 + sizeof count + count;
      continue;
    }
    if (tag <= std::size_t(Tag::kSoftPointer)) {
      AcDbObjectId id;
      std::memcpy(static_cast<void*>(&id), value, sizeof id);
      const AcDbObjectId before = id;
      if (!id.isNull()) visit(AcDbReferenceKind(tag), id);
      if (id != before) {
        std::memcpy(value, &id, sizeof id);
        changed = true;
      }
    }
    at += 1 + kFixedSizes[tag];
  }
  return changed;
}

Acad::ErrorStatus AcDbMemoryDwgFiler::seek(Adesk::Int64 offset, int method) {
  const Adesk::Int64 base = method == 0 ? 0 : Adesk::Int64(method == 1 ? position_ : buffer_.size());
  const Adesk::Int64 target = base + offset;
  if (method < 0 || method > 2 || target < 0 || target > Adesk::Int64(buffer_.size())) return Acad::eInvalidInput;
  position_ = std::size_t(target);
  return Acad::eOk;
}

#define KR_FILED_KIND(NAME, TYPE)                                 \
  Acad::ErrorStatus AcDbMemoryDwgFiler::write##NAME(TYPE value) { \
    return put(Tag::k##NAME, value);                              \
  }                                                               \
  Acad::ErrorStatus AcDbMemoryDwgFiler::read##NAME(TYPE* value) { \
    return get(Tag::k##NAME, value);                              \
  }
KR_FILED_KIND(Int8, Adesk::Int8)
KR_FILED_KIND(Int16, Adesk::Int16)
KR_FILED_KIND(Int32, Adesk::Int32)
KR_FILED_KIND(Int64, Adesk::Int64)
KR_FILED_KIND(UInt8, Adesk::UInt8)
KR_FILED_KIND(UInt16, Adesk::UInt16)
KR_FILED_KIND(UInt32, Adesk::UInt32)
KR_FILED_KIND(UInt64, Adesk::UInt64)
KR_FILED_KIND(Double, double)
#undef KR_FILED_KIND

#define KR_FILED_KIND(NAME, TAG, TYPE)                                   \
  Acad::ErrorStatus AcDbMemoryDwgFiler::write##NAME(const TYPE& value) { \
    return put(Tag::TAG, value);                                         \
  }                                                                      \
  Acad::ErrorStatus AcDbMemoryDwgFiler::read##NAME(TYPE* value) {        \
    return get(Tag::TAG, value);                                         \
  }
KR_FILED_KIND(HardOwnershipId, kHardOwner, AcDbHardOwnershipId)
KR_FILED_KIND(HardPointerId, kHardPointer, AcDbHardPointerId)
KR_FILED_KIND(SoftOwnershipId, kSoftOwner, AcDbSoftOwnershipId)
KR_FILED_KIND(SoftPointerId, kSoftPointer, AcDbSoftPointerId)
KR_FILED_KIND(AcDbHandle, kHandle, AcDbHandle)
KR_FILED_KIND(Point2d, kPoint2d, AcGePoint2d)
KR_FILED_KIND(Point3d, kPoint3d, AcGePoint3d)
KR_FILED_KIND(Vector2d, kVector2d, AcGeVector2d)
KR_FILED_KIND(Vector3d, kVector3d, AcGeVector3d)
#undef KR_FILED_KIND

Acad::ErrorStatus AcDbMemoryDwgFiler::writeBoolean(Adesk::Boolean value) {
  return put(Tag::kBoolean, Adesk::UInt8(value != 0));
}

Acad::ErrorStatus AcDbMemoryDwgFiler::readBoolean(Adesk::Boolean* value) {
  Adesk::UInt8 byte = 0;
  const Acad::ErrorStatus es = get(Tag::kBoolean, &byte);
  *value = byte;
  return es;
}

Acad::ErrorStatus AcDbMemoryDwgFiler::writeBool(bool value) {
  return put(Tag::kBoolean, Adesk::UInt8(value));
}

Acad::ErrorStatus AcDbMemoryDwgFiler::readBool(bool* value) {
  Adesk::UInt8 byte = 0;
  const Acad::ErrorStatus es = get(Tag::kBoolean, &byte);
  *value = byte != 0;
  return es;
}

Acad::ErrorStatus AcDbMemoryDwgFiler::writeAddress(const void* value) {
  return put(Tag::kAddress, value);
}

Acad::ErrorStatus AcDbMemoryDwgFiler::readAddress(void** value) {
  return get(Tag::kAddress, value);
}

Acad::ErrorStatus AcDbMemoryDwgFiler::writeString(const ACHAR* text) {
  return putRun(Tag::kString, text, text != nullptr ? std::wcslen(text) * sizeof(ACHAR) : 0);
}

Acad::ErrorStatus AcDbMemoryDwgFiler::readString(ACHAR** text) {
  *text = nullptr;
  std::size_t length = 0;
  const Adesk::UInt8* const bytes = getRun(Tag::kString, length);
  if (bytes == nullptr) return status_;
  std::wstring copy(length / sizeof(ACHAR), L'\0');
  if (length > 0) std::memcpy(copy.data(), bytes, length);
  acutNewString(copy.c_str(), *text);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMemoryDwgFiler::writeBChunk(const ads_binary& chunk) {
  if (chunk.clen < 0) return fail(Acad::eInvalidInput);
  return putRun(Tag::kChunk, chunk.buf, std::size_t(chunk.clen));
}

Acad::ErrorStatus AcDbMemoryDwgFiler::readBChunk(ads_binary* chunk) {
  *chunk = ads_binary{};
  std::size_t length = 0;
  const Adesk::UInt8* const bytes = getRun(Tag::kChunk, length);
  if (bytes == nullptr) return status_;
  chunk->clen = short(length);
  chunk->buf = static_cast<char*>(odrxAlloc(length));
  if (length > 0) std::memcpy(chunk->buf, bytes, length);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMemoryDwgFiler::writeBytes(const void* bytes, Adesk::UIntPtr length) {
  return putRun(Tag::kBytes, bytes, length);
}

Acad::ErrorStatus AcDbMemoryDwgFiler::readBytes(void* bytes, Adesk::UIntPtr length) {
  std::size_t stored = 0;
  const Adesk::UInt8* const run = getRun(Tag::kBytes, stored);
  if (run == nullptr || stored != length) {
    std::memset(bytes, 0, length);
    return fail(Acad::eFilerError);
  }
  if (length > 0) std::memcpy(bytes, run, length);
  return Acad::eOk;
}
