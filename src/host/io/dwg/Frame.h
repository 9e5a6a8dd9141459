#pragma once

#include <optional>

#include "host/io/dwg/Codec.h"
#include "host/io/dwg/Container.h"

namespace krio::dwg {

/// Type numbers of objects that have the same number in every file, and of the two kinds of proxies.
enum TypeNumber : std::uint16_t {
  kText = 0x01,
  kAttribute = 0x02,
  kAttributeDefinition = 0x03,
  kBlockBegin = 0x04,
  kBlockEnd = 0x05,
  kSequenceEnd = 0x06,
  kInsert = 0x07,
  kMInsert = 0x08,
  kVertex2d = 0x0A,
  kVertex3d = 0x0B,
  kPolyline2d = 0x0F,
  kPolyline3d = 0x10,
  kArc = 0x11,
  kCircle = 0x12,
  kLine = 0x13,
  kDimensionOrdinate = 0x14,
  kDimensionRotated = 0x15,
  kDimensionAligned = 0x16,
  kDimension3Point = 0x17,
  kDimension2Line = 0x18,
  kDimensionRadius = 0x19,
  kDimensionDiameter = 0x1A,
  kPoint = 0x1B,
  kSolid = 0x1F,
  kTrace = 0x20,
  kViewport = 0x22,
  kDictionary = 0x2A,
  kMText = 0x2C,
  kLeader = 0x2D,
  kBlockControl = 0x30,
  kBlockRecord = 0x31,
  kLayerControl = 0x32,
  kLayer = 0x33,
  kStyleControl = 0x34,
  kStyle = 0x35,
  kLinetypeControl = 0x38,
  kLinetype = 0x39,
  kViewControl = 0x3C,
  kView = 0x3D,
  kUcsControl = 0x3E,
  kUcs = 0x3F,
  kViewportControl = 0x40,
  kViewportRecord = 0x41,
  kAppIdControl = 0x42,
  kAppId = 0x43,
  kDimStyleControl = 0x44,
  kDimStyle = 0x45,
  kViewportHeaderControl = 0x46,
  kViewportHeader = 0x47,
  kGroup = 0x48,
  kMlineStyle = 0x49,
  kOle2Frame = 0x4A,
  kLwPolyline = 0x4D,
  kHatch = 0x4E,
  kXrecord = 0x4F,
  kProxyEntity = 0x1F2,
  kProxyObject = 0x1F3,
  kFirstClass = 500
};

/// Whether objects of a fixed type number are entities, also of those types that the host has no class for.
constexpr bool isEntityType(unsigned type) {
  return (type >= kText && type <= 0x29) || (type >= 0x2B && type <= 0x2F) || type == kOle2Frame ||
         type == kLwPolyline || type == kHatch || type == kProxyEntity;
}

/// Whether a type is one of what belongs to another entity: vertices, attributes, ends of sequences.
constexpr bool isPartType(unsigned type) {
  return type == kAttribute || type == kSequenceEnd || type == kVertex2d || type == kVertex3d;
}

/// One object's stretch of the file taken apart as far as every object has the same parts.
struct Frame {
  std::uint16_t type = 0;
  std::uint64_t handle = 0;
  std::size_t place = 0;         ///< byte address of the object
  std::size_t extendedData = 0;  ///< bit position of its extended data
  bool hasExtendedData = false;
  BitReader data;     ///< stands behind the extended data, ends with the data
  BitReader handles;  ///< the handle part with its filler bits
};

/// Nothing when the parts don't fit into each other.
inline std::optional<Frame> readFrame(ByteSpan file, const Section& object) {
  Frame frame;
  frame.place = object.address;
  const std::size_t head = (file[object.address + 1] & 0x80) != 0 ? 4 : 2;
  const std::size_t first = 8 * (object.address + head);
  const std::size_t end = 8 * (std::size_t(object.address) + object.size);
  BitReader bits(file, first, end);
  frame.type = bits.bs();
  const std::uint32_t bitSize = bits.rl();
  if (bits.failed() || bitSize > end - first) return {};
  frame.handles = BitReader(file, first + bitSize, end);
  bits.setEnd(first + bitSize);
  const HandleRef own = bits.h();
  if (own.code != kOwn) return {};
  frame.handle = own.value;
  frame.extendedData = bits.position();
  for (std::size_t size = bits.bs(); size != 0 && !bits.failed(); size = bits.bs()) {
    frame.hasExtendedData = true;
    bits.h();
    bits.skip(8 * size);
  }
  if (bits.failed()) return {};
  frame.data = bits;
  return frame;
}

/// The common data of an entity.
struct EntityHead {
  enum Mode : unsigned { kOwned = 0, kInPaperSpace = 1, kInModelSpace = 2 };
  std::size_t graphics = 0;  ///< bit position of the proxy graphics
  std::size_t graphicsBytes = 0;
  bool hasGraphics = false;
  unsigned mode = kOwned;
  bool adjacent = false;  ///< no links: the neighbours have the handles below and above
  AcCmColor color;
  double linetypeScale = 1.0;
  unsigned linetypeForm = 0;
  unsigned plotStyleForm = 0;
  bool invisible = false;
  std::uint8_t lineWeight = 29;
  std::uint64_t owner = 0;
  std::uint32_t reactors = 0;
  std::size_t reactorsAt = 0;  ///< bit position of the reactors' handles
  std::uint64_t extensionDictionary = 0;
  std::uint64_t previous = 0;
  std::uint64_t next = 0;
  std::uint64_t layer = 0;
  std::uint64_t linetype = 0;
  std::uint64_t plotStyle = 0;
};

/// Reads the common data and the common handles; the readers stand at the type's own afterwards.
inline void readHead(Decoder& d, EntityHead& head) {
  BitReader& bits = d.data;
  BitReader& handles = d.handles;
  head.hasGraphics = bits.b();
  if (head.hasGraphics) {
    head.graphicsBytes = bits.rl();
    head.graphics = bits.position();
    if (!bits.fits(head.graphicsBytes, 8)) return;
    bits.skip(8 * head.graphicsBytes);
  }
  head.mode = bits.bb();
  head.reactors = bits.bl();
  head.adjacent = bits.b();
  d.color(head.color);
  d.bd(head.linetypeScale);
  head.linetypeForm = bits.bb();
  head.plotStyleForm = bits.bb();
  head.invisible = (bits.bs() & 1) != 0;
  head.lineWeight = bits.rc();

  const auto handle = [&] { return absoluteHandle(handles.h(), d.own()); };
  if (head.mode == EntityHead::kOwned) head.owner = handle();
  if (head.reactors != 0) {
    if (!handles.fits(head.reactors, 8)) return;
    head.reactorsAt = handles.position();
    for (std::uint32_t i = 0; i < head.reactors; ++i) handles.h();
  }
  head.extensionDictionary = handle();
  if (head.adjacent) {
    head.previous = d.own() - 1;
    head.next = d.own() + 1;
  } else {
    head.previous = handle();
    head.next = handle();
  }
  head.layer = handle();
  if (head.linetypeForm == 3) head.linetype = handle();
  if (head.plotStyleForm == 3) head.plotStyle = handle();
}

/// The common data of another object.
struct ObjectHead {
  std::uint64_t owner = 0;
  std::uint32_t reactors = 0;
  std::size_t reactorsAt = 0;
  std::uint64_t extensionDictionary = 0;
};

inline void readHead(Decoder& d, ObjectHead& head) {
  head.reactors = d.data.bl();
  const auto handle = [&] { return absoluteHandle(d.handles.h(), d.own()); };
  head.owner = handle();
  if (!d.handles.fits(head.reactors, 8)) return;
  head.reactorsAt = d.handles.position();
  for (std::uint32_t i = 0; i < head.reactors; ++i) d.handles.h();
  head.extensionDictionary = handle();
}

}  // namespace krio::dwg
