#include "host/io/dwg/FileFiler.h"

#include <cwchar>

namespace krio::dwg {

template <class Put>
Acad::ErrorStatus FileFiler::write(Put put) {
  if (status_ != Acad::eOk) return status_;
  if (out_ == nullptr) return status_ = Acad::eNotApplicable;
  put(*out_);
  return status_;
}

template <class T, class Get>
Acad::ErrorStatus FileFiler::read(T* value, Get get) {
  *value = T();
  if (status_ != Acad::eOk) return status_;
  if (in_ == nullptr) return status_ = Acad::eNotApplicable;
  get(*in_, *value);
  if (in_->failed()) {
    *value = T();
    return status_ = Acad::eEndOfObject;
  }
  // No object can do with a number that isn't finite, and not all would notice.
  if (!in_->finite()) status_ = Acad::eFilerError;
  return status_;
}

Acad::ErrorStatus FileFiler::writeId(unsigned code, AcDbObjectId id) {
  return write([&](Encoder& out) { out.id(code, id); });
}

template <class Id>
Acad::ErrorStatus FileFiler::readId(Id* id) {
  return read(id, [](Decoder& in, Id& v) { in.id(0, v); });
}

Acad::ErrorStatus FileFiler::readHardOwnershipId(AcDbHardOwnershipId* id) {
  return readId(id);
}
Acad::ErrorStatus FileFiler::readHardPointerId(AcDbHardPointerId* id) {
  return readId(id);
}
Acad::ErrorStatus FileFiler::readSoftOwnershipId(AcDbSoftOwnershipId* id) {
  return readId(id);
}
Acad::ErrorStatus FileFiler::readSoftPointerId(AcDbSoftPointerId* id) {
  return readId(id);
}

Acad::ErrorStatus FileFiler::seek(Adesk::Int64 offset, int method) {
  if (in_ == nullptr) return Acad::eNotApplicable;
  const auto base = method == 0 ? 0 : Adesk::Int64(method == 1 ? in_->data.position() : in_->data.end());
  if (offset + base < 0) return status_ = Acad::eInvalidInput;
  in_->data.seek(std::size_t(offset + base));
  return in_->failed() ? status_ = Acad::eEndOfObject : status_;
}

Adesk::Int64 FileFiler::tell() const {
  return Adesk::Int64(in_ != nullptr ? in_->data.position() : out_->data.position());
}

// --- Writing
// ----------------------------------------------------------------------------------------------------------

Acad::ErrorStatus FileFiler::writeInt8(Adesk::Int8 value) {
  return write([&](Encoder& out) { out.rc(value); });
}
Acad::ErrorStatus FileFiler::writeUInt8(Adesk::UInt8 value) {
  return write([&](Encoder& out) { out.rc(value); });
}
Acad::ErrorStatus FileFiler::writeInt16(Adesk::Int16 value) {
  return write([&](Encoder& out) { out.bs(value); });
}
Acad::ErrorStatus FileFiler::writeUInt16(Adesk::UInt16 value) {
  return write([&](Encoder& out) { out.bs(value); });
}
Acad::ErrorStatus FileFiler::writeInt32(Adesk::Int32 value) {
  return write([&](Encoder& out) { out.bl(value); });
}
Acad::ErrorStatus FileFiler::writeUInt32(Adesk::UInt32 value) {
  return write([&](Encoder& out) { out.bl(value); });
}
Acad::ErrorStatus FileFiler::writeInt64(Adesk::Int64 value) {
  return write([&](Encoder& out) { out.data.rll(std::uint64_t(value)); });
}
Acad::ErrorStatus FileFiler::writeUInt64(Adesk::UInt64 value) {
  return write([&](Encoder& out) { out.data.rll(value); });
}
Acad::ErrorStatus FileFiler::writeBoolean(Adesk::Boolean value) {
  return write([&](Encoder& out) { out.b(value); });
}
Acad::ErrorStatus FileFiler::writeBool(bool value) {
  return write([&](Encoder& out) { out.b(value); });
}
Acad::ErrorStatus FileFiler::writeDouble(double value) {
  return write([&](Encoder& out) { out.bd(value); });
}
Acad::ErrorStatus FileFiler::writePoint2d(const AcGePoint2d& value) {
  return write([&](Encoder& out) { out.rd2(value); });
}
Acad::ErrorStatus FileFiler::writeVector2d(const AcGeVector2d& value) {
  return write([&](Encoder& out) { out.rd2(value); });
}
Acad::ErrorStatus FileFiler::writePoint3d(const AcGePoint3d& value) {
  return write([&](Encoder& out) { out.bd3(value); });
}
Acad::ErrorStatus FileFiler::writeVector3d(const AcGeVector3d& value) {
  return write([&](Encoder& out) { out.bd3(value); });
}
Acad::ErrorStatus FileFiler::writeAcDbHandle(const AcDbHandle& handle) {
  return write([&](Encoder& out) { out.data.h(kOwn, handle.value()); });
}
Acad::ErrorStatus FileFiler::writeAddress(const void*) {
  return status_ = Acad::eNotApplicable;
}

Acad::ErrorStatus FileFiler::writeString(const ACHAR* text) {
  return write([&](Encoder& out) {
    constexpr std::size_t kMostBytes = 0xffff;
    const std::string bytes = out.codePage().encode(text != nullptr ? text : L"");
    if (bytes.size() > kMostBytes) status_ = Acad::eFilerError;
    out.data.tv(bytes);
  });
}

Acad::ErrorStatus FileFiler::writeBChunk(const ads_binary& chunk) {
  return write([&](Encoder& out) {
    const auto length = std::size_t(chunk.clen > 0 ? chunk.clen : 0);
    out.data.bl(std::uint32_t(length));
    out.data.bytes(chunk.buf, length);
  });
}

Acad::ErrorStatus FileFiler::writeBytes(const void* bytes, Adesk::UIntPtr length) {
  return write([&](Encoder& out) { out.data.bytes(bytes, length); });
}

// --- Reading
// ----------------------------------------------------------------------------------------------------------

Acad::ErrorStatus FileFiler::readInt8(Adesk::Int8* value) {
  return read(value, [](Decoder& in, auto& v) { in.rc(v); });
}
Acad::ErrorStatus FileFiler::readUInt8(Adesk::UInt8* value) {
  return read(value, [](Decoder& in, auto& v) { in.rc(v); });
}
Acad::ErrorStatus FileFiler::readInt16(Adesk::Int16* value) {
  return read(value, [](Decoder& in, auto& v) { in.bs(v); });
}
Acad::ErrorStatus FileFiler::readUInt16(Adesk::UInt16* value) {
  return read(value, [](Decoder& in, auto& v) { in.bs(v); });
}
Acad::ErrorStatus FileFiler::readInt32(Adesk::Int32* value) {
  return read(value, [](Decoder& in, auto& v) { in.bl(v); });
}
Acad::ErrorStatus FileFiler::readUInt32(Adesk::UInt32* value) {
  return read(value, [](Decoder& in, auto& v) { in.bl(v); });
}
Acad::ErrorStatus FileFiler::readInt64(Adesk::Int64* value) {
  return read(value, [](Decoder& in, auto& v) { v = Adesk::Int64(in.data.rll()); });
}
Acad::ErrorStatus FileFiler::readUInt64(Adesk::UInt64* value) {
  return read(value, [](Decoder& in, auto& v) { v = in.data.rll(); });
}
Acad::ErrorStatus FileFiler::readBoolean(Adesk::Boolean* value) {
  return read(value, [](Decoder& in, auto& v) { v = in.data.b(); });
}
Acad::ErrorStatus FileFiler::readBool(bool* value) {
  return read(value, [](Decoder& in, auto& v) { v = in.data.b(); });
}
Acad::ErrorStatus FileFiler::readDouble(double* value) {
  return read(value, [](Decoder& in, auto& v) { in.bd(v); });
}
Acad::ErrorStatus FileFiler::readPoint2d(AcGePoint2d* value) {
  return read(value, [](Decoder& in, auto& v) { in.rd2(v); });
}
Acad::ErrorStatus FileFiler::readVector2d(AcGeVector2d* value) {
  return read(value, [](Decoder& in, auto& v) { in.rd2(v); });
}
Acad::ErrorStatus FileFiler::readPoint3d(AcGePoint3d* value) {
  return read(value, [](Decoder& in, auto& v) { in.bd3(v); });
}
Acad::ErrorStatus FileFiler::readVector3d(AcGeVector3d* value) {
  return read(value, [](Decoder& in, auto& v) { in.bd3(v); });
}
Acad::ErrorStatus FileFiler::readAcDbHandle(AcDbHandle* handle) {
  return read(handle, [](Decoder& in, auto& v) { v = AcDbHandle(absoluteHandle(in.data.h(), in.own())); });
}
Acad::ErrorStatus FileFiler::readAddress(void** value) {
  *value = nullptr;
  return status_ = Acad::eNotApplicable;
}

Acad::ErrorStatus FileFiler::readString(ACHAR** text) {
  std::wstring value;
  *text = nullptr;
  if (read(&value, [](Decoder& in, auto& v) { in.tv(v); }) == Acad::eOk) acutNewString(value.c_str(), *text);
  return status_;
}

Acad::ErrorStatus FileFiler::readBChunk(ads_binary* chunk) {
  *chunk = {};
  return read(chunk, [](Decoder& in, ads_binary& v) {
    const std::uint32_t length = in.data.bl();
    constexpr std::uint32_t kMostBytes = 0x7fff;  // what a chunk can say of its length
    if (length > kMostBytes || !in.data.fits(length, 8)) return in.data.fail();
    v.clen = short(length);
    v.buf = static_cast<char*>(odrxAlloc(std::max<std::size_t>(length, 1)));
    in.data.bytes(v.buf, length);
  });
}

Acad::ErrorStatus FileFiler::readBytes(void* bytes, Adesk::UIntPtr length) {
  std::memset(bytes, 0, length);
  if (status_ != Acad::eOk) return status_;
  if (in_ == nullptr) return status_ = Acad::eNotApplicable;
  return in_->data.bytes(bytes, length) ? status_ : status_ = Acad::eEndOfObject;
}

}  // namespace krio::dwg
