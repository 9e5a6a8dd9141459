#pragma once

#include "object/Finite.h"
#include "object/KrObject.h"

/// Whether what a file told of a member's drawing can be reckoned with: its lists, its end points and its measures. One
/// that can't be would be drawn anew at each opening, never the same.
inline bool isFinite(const KrObject& member) {
  double length = 0;
  member.Comprimento(length);
  for (const double number : {length, member.angleVista(), member.angleSecao(), member.zCoordIni(), member.zCoordEnd()})
    if (!isFinite(number)) return false;
  for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, VistaCorrente, SecaoVerso}) {
    const KrObjectArray<KrVector>& lista = member.currentVertexList(view);
    for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no))
      if (!isFinite(*no->value)) return false;
  }
  return isFinite(member.startPoint()) && isFinite(member.endPoint());
}
