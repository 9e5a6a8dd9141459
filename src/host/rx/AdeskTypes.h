#pragma once

#include <cstdint>

/// A character of the host's interface: all its text is wide.
using ACHAR = wchar_t;

/// The host's own names for the plain types that cross its interface.
namespace Adesk {

using Boolean = int;  ///< kTrue or kFalse; any non-zero value reads as true.
inline constexpr Boolean kFalse = 0;
inline constexpr Boolean kTrue = 1;

using Int8 = std::int8_t;
using Int16 = std::int16_t;
using Int32 = std::int32_t;
using Int64 = std::int64_t;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UInt64 = std::uint64_t;

using IntPtr = std::intptr_t;
using UIntPtr = std::uintptr_t;
using IntDbId = std::intptr_t;  ///< The old, integral form of an object id.
using LongPtr = std::intptr_t;
using ULongPtr = std::uintptr_t;
using GsMarker = std::intptr_t;  ///< Selection marker of a drawn element; 0 marks none.

using uint8 = UInt8;
using uint16 = UInt16;
using uint32 = UInt32;

}  // namespace Adesk
