#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "host/db/db.h"
#include "host/db/entities/AcDbSequenceEnd.h"
#include "host/db/entities/entities.h"
#include "host/io/Report.h"
#include "host/io/dwg/BitReader.h"
#include "host/io/dwg/BitWriter.h"
#include "host/os/os.h"

// The items of a drawing in both directions. A type's fields are told once, as a template over the direction: a Decoder
// fills them, an Encoder writes them.

namespace krio::dwg {

/// What the objects of one file have in common while they are read.
class ReadContext {
 public:
  ReadContext(AcDbDatabase& database, const os::CodePage& codePage, std::size_t fileSize)
      : database_(database), codePage_(codePage), nameBudget_(kNamesPerByte * fileSize + kNamesAtLeast) {}

  AcDbDatabase& database() { return database_; }
  const os::CodePage& codePage() const { return codePage_; }
  /// Handles from here on name nothing: what refers to them becomes null.
  void setHandseed(std::uint64_t seed) { handseed_ = seed; }

  /// The id of a handle; null for 0 and for a handle that can't be one of this drawing.
  AcDbStub* resolve(std::uint64_t handle) {
    if (handle == lastHandle_) return lastStub_;
    lastHandle_ = handle;
    lastStub_ = handle != 0 ? database_.handleTable().find(handle) : nullptr;
    if (lastStub_ == nullptr && handle != 0) [[unlikely]]
      lastStub_ = unknown(handle);
    return lastStub_;
  }
  /// Whether a text that stands once in the file may be copied to one more place that names it. The copies are
  /// limited in proportion to the file: a long name under many short references would grow without bounds.
  bool mayCopy(std::size_t characters) {
    const std::size_t bytes = sizeof(wchar_t) * characters;
    if (bytes > nameBudget_) return false;
    nameBudget_ -= bytes;
    return true;
  }
  /// How many references named objects that the file doesn't have.
  std::size_t dangling() const { return dangling_; }

 private:
  /// A reference to an object that isn't there keeps its handle, as long as new objects can't get that handle.
  [[gnu::noinline]] AcDbStub* unknown(std::uint64_t handle) {
    ++dangling_;
    if (handle >= handseed_) return nullptr;
    AcDbObjectId id;
    database_.getAcDbObjectId(id, true, AcDbHandle(handle));
    return id.stub();
  }

  static constexpr std::size_t kNamesPerByte = 16;
  static constexpr std::size_t kNamesAtLeast = 1 << 20;

  AcDbDatabase& database_;
  const os::CodePage& codePage_;
  std::size_t nameBudget_;
  std::uint64_t handseed_ = 0;
  std::uint64_t lastHandle_ = 0;
  AcDbStub* lastStub_ = nullptr;
  std::size_t dangling_ = 0;
};

/// The handle that a reference means: absolute, or reckoned from that of the object that holds it.
inline std::uint64_t absoluteHandle(const HandleRef& ref, std::uint64_t own) {
  switch (ref.code) {
    case 6:
      return own + 1;
    case 8:
      return own - 1;
    case 0xA:
      return own + ref.value;
    case 0xC:
      return own - ref.value;
    default:
      return ref.value;
  }
}

/// Reads the fields of one object: items from the data, references from the handle part.
class Decoder {
 public:
  static constexpr bool kReading = true;
  template <class T>
  using Field = T;

  Decoder(ReadContext& context, const BitReader& dataBits, const BitReader& handleBits, std::uint64_t own)
      : data(dataBits), handles(handleBits), context_(context), own_(own) {}

  BitReader data;
  BitReader handles;
  ReadContext& context() { return context_; }
  std::uint64_t own() const { return own_; }
  bool failed() const { return data.failed() || handles.failed(); }
  /// Whether every number read so far was finite.
  bool finite() const { return finite_; }

  void b(bool& v) { v = data.b(); }
  template <class T>
  void bb(T& v) {
    v = T(data.bb());
  }
  template <class T>
  void rc(T& v) {
    v = T(data.rc());
  }
  template <class T>
  void rs(T& v) {
    v = T(data.rs());
  }
  template <class T>
  void bs(T& v) {
    v = T(data.sbs());
  }
  template <class T>
  void bl(T& v) {
    v = T(data.sbl());
  }
  void rd(double& v) { v = checked(data.rd()); }
  void bd(double& v) { v = checked(data.bd()); }
  void dd(double& v, double preset) { v = checked(data.dd(preset)); }
  void bt(double& v) { v = checked(data.bt()); }
  template <class P>
  void bd3(P& p) {
    bd(p.x), bd(p.y), bd(p.z);
  }
  void bd3(AcGeScale3d& s) { bd(s.sx), bd(s.sy), bd(s.sz); }
  template <class P>
  void bd2(P& p) {
    bd(p.x), bd(p.y);
  }
  template <class P>
  void rd2(P& p) {
    rd(p.x), rd(p.y);
  }
  void be(AcGeVector3d& v) {
    if (data.b()) {
      v = AcGeVector3d::kZAxis;
    } else {
      bd3(v);
    }
  }
  void color(AcCmColor& color) {
    if (color.setColorIndex(data.sbs()) != Acad::eOk) color = AcCmColor();
  }
  void tv(std::wstring& text);
  /// A reference of the handle part.
  template <class Id>
  void id(unsigned, Id& id) {
    id = AcDbObjectId(context_.resolve(absoluteHandle(handles.h(), own_)));
  }
  /// The number of items of a list, of which each takes `bitsEach` at least. 0, and a failure, when they can't all be
  /// there.
  template <class List>
  bool count(List& list, std::size_t bitsEach) {
    const std::uint32_t n = data.bl();
    return sized(list, n, bitsEach);
  }
  template <class List>
  bool sized(List& list, std::uint32_t n, std::size_t bitsEach) {
    if (!data.fits(n, bitsEach)) return false;
    list.resize(n);
    return true;
  }

 private:
  double checked(double v) {
    constexpr std::uint64_t kExponent = 0x7ff0000000000000U;
    finite_ &= (std::bit_cast<std::uint64_t>(v) & kExponent) != kExponent;
    return v;
  }

  ReadContext& context_;
  std::uint64_t own_;
  bool finite_ = true;
};

/// Writes the fields of one object. References are held back until the data are complete.
class Encoder {
 public:
  static constexpr bool kReading = false;
  template <class T>
  using Field = const T;

  Encoder(BitWriter& writer, const os::CodePage& codePage) : data(writer), codePage_(codePage) {}

  BitWriter& data;
  const os::CodePage& codePage() const { return codePage_; }

  void b(bool v) { data.b(v); }
  template <class T>
  void bb(T v) {
    data.bb(unsigned(v));
  }
  template <class T>
  void rc(T v) {
    data.rc(std::uint8_t(v));
  }
  template <class T>
  void rs(T v) {
    data.rs(std::uint16_t(v));
  }
  template <class T>
  void bs(T v) {
    data.bs(std::uint16_t(v));
  }
  template <class T>
  void bl(T v) {
    data.bl(std::uint32_t(v));
  }
  void rd(double v) { data.rd(v); }
  void bd(double v) { data.bd(v); }
  void dd(double v, double preset) { data.dd(v, preset); }
  void bt(double v) { data.bt(v); }
  template <class P>
  void bd3(const P& p) {
    bd(p.x), bd(p.y), bd(p.z);
  }
  void bd3(const AcGeScale3d& s) { bd(s.sx), bd(s.sy), bd(s.sz); }
  template <class P>
  void bd2(const P& p) {
    bd(p.x), bd(p.y);
  }
  template <class P>
  void rd2(const P& p) {
    rd(p.x), rd(p.y);
  }
  void be(const AcGeVector3d& v) {
    const bool usual = std::bit_cast<std::uint64_t>(v.x) == 0 && std::bit_cast<std::uint64_t>(v.y) == 0 && v.z == 1.0;
    data.b(usual);
    if (!usual) bd3(v);
  }
  void color(const AcCmColor& color) { data.bs(color.colorIndex()); }
  void tv(const std::wstring& text) { data.tv(codePage_.encode(text)); }
  void id(unsigned code, AcDbObjectId id) { ref(code, id.isErased() ? 0 : id.handle().value()); }
  void ref(unsigned code, std::uint64_t handle) { refs_.push_back({std::uint8_t(code), handle}); }
  template <class List>
  bool count(const List& list, std::size_t) {
    data.bl(std::uint32_t(list.size()));
    return true;
  }

  /// Writes the references, which end the object.
  void flushRefs() {
    for (const HandleRef& ref : refs_) data.h(ref.code, ref.value);
    refs_.clear();
  }

 private:
  const os::CodePage& codePage_;
  std::vector<HandleRef> refs_;
};

}  // namespace krio::dwg
