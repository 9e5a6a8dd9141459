// The places of what a regeneration calls and no other source of this folder fills yet: a regeneration passes through
// them.

#include "object/KrObject.h"

void KrObject::SetToProjeto(int, double) {}
void KrObject::AplicaCropping() {}
