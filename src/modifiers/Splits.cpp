// Splits: gaps that shorten a long member on the sheet.

#include "object/KrObject.h"

void KrObject::AplicaSplits() {}
