// The places of the modifiers in a regeneration, in their order. Each fills its own when its records take effect; until
// then a regeneration passes through them.

#include "object/KrObject.h"

void KrObject::AplicaSplits() {}
void KrObject::AplicaCortes() {}
void KrObject::AplicaRecortes() {}
void KrObject::AplicaRepLimits() {}
void KrObject::SetToProjeto(int, double) {}
void KrObject::AplicaCropping() {}
