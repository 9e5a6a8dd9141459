#pragma once

#include <cstdint>

#include "host/os/os.h"

namespace krio::dwg {

/// The code page of a drawing file by its number; Windows-1252 for an unknown one.
const os::CodePage& codePageOf(std::uint16_t number);

/// Windows-1252, which drawings are written in that weren't read from a file in another.
inline constexpr std::uint16_t kWesternCodePage = 30;

}  // namespace krio::dwg
