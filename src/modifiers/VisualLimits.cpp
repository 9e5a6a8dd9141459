// Visual limits: the part of a member that is shown, between break lines.

#include "object/KrObject.h"

void KrObject::AplicaRepLimits() {}
