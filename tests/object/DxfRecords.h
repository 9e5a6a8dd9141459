#pragma once

#include <vector>

#include "host/db/db.h"

/// What the tests of a member's DXF share.
namespace dxfrecords {

/// The groups of one element of a list.
inline constexpr std::size_t kGroupsPerElement = 13;

/// A member's groups with its elements told in the record version that is read, 1, in place of the one written, 3.
inline std::vector<AcDbMemoryDxfFiler::Group> withReadableElements(std::vector<AcDbMemoryDxfFiler::Group> groups) {
  const auto isMarker = [](const AcDbMemoryDxfFiler::Group& g) {
    const auto* name = std::get_if<std::wstring>(&g.value);
    return g.code == 100 && name != nullptr && *name == L"KrObject";
  };
  std::size_t place = 0;
  while (place < groups.size() && !isMarker(groups[place])) ++place;
  // Version, name, view, material, kind, and the number of elements.
  place += 6;
  if (place >= groups.size()) return groups;
  const auto count = static_cast<std::size_t>(std::get<Adesk::Int64>(groups[place].value));
  for (std::size_t i = 0; i < count; ++i) groups[place + 2 + i * kGroupsPerElement].value = Adesk::Int64(1);
  return groups;
}

}  // namespace dxfrecords
