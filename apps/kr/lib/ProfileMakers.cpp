#include "ProfileMakers.h"

#include "profiles/KrBarraRedonda.h"
#include "profiles/KrTubo.h"

namespace kr {

KrObject* makeTubo(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values) {
  return new KrTubo(start, end, static_cast<KrVistas>(view), values[0], values[1]);
}

KrObject* makeBarraRedonda(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& values) {
  return new KrBarraRedonda(start, end, static_cast<KrVistas>(view), values[0]);
}

}  // namespace kr
