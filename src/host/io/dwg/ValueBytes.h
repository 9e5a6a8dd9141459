#pragma once

#include <string>
#include <vector>

#include "host/io/dwg/Codec.h"

// Chains of values in the byte forms that extended data and XRECORDs have in a drawing file.

namespace krio::dwg {

/// The items of an XRECORD that stand in `bits`, to the end. False, and no chain, when they can't be understood.
bool readXrecordItems(ReadContext& context, BitReader bits, resbuf*& chain);
/// Items that a file has no form for are left out; how many there were.
int writeXrecordItems(const resbuf* chain, const os::CodePage& page, std::uint16_t codePage, BitWriter& to);

/// One application's extended data, of which `bits` are the items, to the end; appended to a chain behind `tail`,
/// headed by the application's name. False when they can't be understood; what was read till then stays.
bool readExtendedData(ReadContext& context, const std::wstring& application, BitReader bits, resbuf**& tail);
/// The items between `first`, which names the application, and the next that names one, or the end. What doesn't fit
/// (texts above 255 bytes) is cut; how many items were.
int writeExtendedData(const resbuf* first, AcDbDatabase& database, const os::CodePage& page, std::uint16_t codePage,
                      BitWriter& to);

}  // namespace krio::dwg
