// The two lines along a bar: the axis, which the user grips, and the reference, which measures the steel.

#include <utility>

#include "object/KrObject.h"

Acad::ErrorStatus KrObject::getVectorEixo(KrVistas vista, const KrVector*& e, int barra) const {
  e = findFirst(vista, barra == 0 ? KR_VT_EIXO : KR_VT_REFERENCIA);
  return e == nullptr ? Acad::eNotApplicable : Acad::eOk;
}

Acad::ErrorStatus KrObject::getVectorEixo(KrVistas vista, KrVector*& e, int barra) {
  const KrVector* found = nullptr;
  const Acad::ErrorStatus es = std::as_const(*this).getVectorEixo(vista, found, barra);
  e = const_cast<KrVector*>(found);
  return es;
}
