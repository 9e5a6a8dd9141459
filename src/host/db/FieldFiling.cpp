#include "host/db/FieldFiling.h"

void fields::get(AcDbDwgFiler& f, std::vector<std::byte>& v) {
  // A count that no record has comes from a broken one.
  constexpr Adesk::Int32 kMost = 1 << 28;
  Adesk::Int32 count = 0;
  f.readInt32(&count);
  v.clear();
  if (f.filerStatus() != Acad::eOk || count == 0) return;
  if (count < 0 || count > kMost) {
    f.setFilerStatus(Acad::eInvalidInput);
    return;
  }
  v.resize(std::size_t(count));
  f.readBytes(v.data(), v.size());
}
