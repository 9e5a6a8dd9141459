#pragma once

#include "host/db/resbuf.h"
#include "host/rx/ErrorStatus.h"

class AcDbDwgFiler;
class AcDbDxfFiler;

/// Chains of values under group codes: what extended data and records of values consist of.
namespace valuechain {

/// A copy that acutRelRb frees; null for null, and when a code has no kind of value.
resbuf* copy(const resbuf* chain);
/// A copy of one link, without what follows it.
resbuf* copyLink(const resbuf& link);
/// Whether every code lies in the range and has a kind of value.
bool codesWithin(const resbuf* chain, int first, int last);
/// Bytes that the values take in a file, about.
int size(const resbuf* chain);

Acad::ErrorStatus write(AcDbDwgFiler& filer, const resbuf* chain);
/// `chain` is null on failure.
Acad::ErrorStatus read(AcDbDwgFiler& filer, resbuf*& chain);
Acad::ErrorStatus write(AcDbDxfFiler& filer, const resbuf* chain);

}  // namespace valuechain
