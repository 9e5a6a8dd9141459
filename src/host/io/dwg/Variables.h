#pragma once

#include <cstdint>

#include "host/io/dwg/Codec.h"

namespace krio::dwg {

/// Reads the header variables into the database's header. False when they end early; what was read till then counts.
bool readVariables(ReadContext& context, BitReader bits, AcDbHeader& header);
/// HANDSEED of the header variables; 0 when they end before it.
std::uint64_t readHandseed(BitReader bits);
/// Writes the data of the header variables' section.
void writeVariables(const AcDbDatabase& database, const os::CodePage& page, BitWriter& to);

}  // namespace krio::dwg
