#pragma once

#include <bit>
#include <cstdint>

/// What the stream of a picture is made of: an item of 32 bits with the size of all, one with the number of chunks,
/// then the chunks, each with its size, its type and its content. Little-endian, every item a multiple of 4 bytes.
namespace krio::proxy {

static_assert(std::endian::native == std::endian::little, "values are copied as they lie in memory");

enum class Chunk : std::uint32_t {
  kExtents = 1,
  kCircle = 2,
  kCircleByPoints = 3,
  kArc = 4,
  kArcByPoints = 5,
  kPolyline = 6,
  kPolygon = 7,
  kMesh = 8,
  kShell = 9,
  kText = 10,
  kStyledText = 11,
  kColor = 14,
  kLayer = 16,
  kLinetype = 18,
  kMarker = 19,
  kFill = 20,
  kTrueColor = 22,
  kLineWeight = 23,
  kLinetypeScale = 24,
  kPushMatrix = 29,
  kPushMatrix2 = 30,
  kPopMatrix = 31,
  kPolylineWithNormal = 32,
  kLightPolyline = 33,
  kWideText = 36,
  kWideStyledText = 38,
  kEllipseArc = 44
};

inline constexpr std::size_t kStreamHead = 8;
inline constexpr std::size_t kChunkHead = 8;

/// Linetypes that stand in no table.
inline constexpr std::uint32_t kLinetypeByLayer = 32767;
inline constexpr std::uint32_t kLinetypeByBlock = 32766;

inline constexpr std::uint32_t kFillOn = 1;
inline constexpr std::uint32_t kFillOff = 2;

/// Of a styled text: whether %% codes stand for something.
inline constexpr std::uint32_t kTextRaw = 0;
inline constexpr std::uint32_t kTextWithCodes = 1;
/// Of a styled text: the text ends at its zero.
inline constexpr std::uint32_t kToTheZero = 0xffffffffU;

}  // namespace krio::proxy
