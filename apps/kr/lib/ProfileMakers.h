#pragma once

#include "ProfileClasses.h"

namespace kr {

// One function a class: the parameters in constructor order, to a new member.
KrObject* makeTubo(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values);
KrObject* makeBarraRedonda(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values);

}  // namespace kr
