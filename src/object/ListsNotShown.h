#pragma once

#include "object/KrObject.h"

/// Empties the lists of the views that a member doesn't show, for whoever changes its placement: they are made on
/// demand, and an old one tells where the axis was and would pull the member back there.
inline void dropListsNotShown(KrObject& member) {
  for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso})
    if (view != member.Vista(0) && member.GetNumVertex(view) != 0) member.ClearVertexes(view);
}
