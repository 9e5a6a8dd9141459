// Notches: polygons taken out of a member.

#include "object/KrObject.h"

Acad::ErrorStatus KrObject::AplicaRecortes() {
  return isSecao() == Acad::eNotApplicable ? Acad::eOk : Acad::eNotApplicable;
}
