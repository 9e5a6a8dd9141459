// Cuts: planes that trim a member.

#include "object/KrObject.h"

Acad::ErrorStatus KrObject::Corte(KrObjectArray<KrVector>&, AcGePoint3d&) {
  return Acad::eNotImplementedYet;
}

Acad::ErrorStatus KrObject::Corte(AcGePoint3d&, AcGePoint3d&, AcGePoint3d&, int, int) {
  return Acad::eNotImplementedYet;
}

Acad::ErrorStatus KrObject::CorteVista(AcGePoint3d&, AcGePoint3d&, AcGePoint3d&, KrVistas, int, int, int) {
  return Acad::eNotImplementedYet;
}

Acad::ErrorStatus KrObject::CorteVista(AcGePoint3d&, AcGePoint3d&, AcGePoint3d&, KrVistas, int, int) {
  return Acad::eNotImplementedYet;
}

Acad::ErrorStatus KrObject::CorteArestaVista(AcGePoint3d&, AcGePoint3d&, AcGePoint3d&, KrVistas, int, int) {
  return Acad::eNotImplementedYet;
}

void KrObject::AplicaCortes(int) {}
