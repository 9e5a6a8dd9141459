#pragma once

#include "object/Finite.h"
#include "object/KrObject.h"

/// What a file may tell of a member, in both of its forms.

/// More than this the counters of cuts, holes and outline nodes can't hold.
inline constexpr Adesk::Int32 kMostCounted = 65535;

/// Sets a cut's plane from the coefficients of a file. False for a cut that can't be reckoned with, as told or as the
/// plane of a unit normal. A plane without a direction is none, and cuts nothing.
inline bool setCutPlane(double a, double b, double c, double d, const AcGePoint3d& side, AcGePlane& plane) {
  if (!isFinite(AcGeVector3d(a, b, c)) || !isFinite(d) || !isFinite(side)) return false;
  plane.set(a, b, c, d);
  plane.getCoefficients(a, b, c, d);
  return isFinite(d);
}

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
