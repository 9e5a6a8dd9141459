#include <cstdio>

#include "host/ge/ge.h"
#include "records/KrGeratriz.h"

int main() {
  const AcGePoint3d start(0, 0, 0), end(3000, 4000, 0);
  std::printf("%.0f\n", start.distanceTo(end));
  return start.distanceTo(end) == 5000 ? 0 : 1;
}
