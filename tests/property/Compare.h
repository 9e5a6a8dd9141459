#pragma once

#include <algorithm>
#include <sstream>
#include <string>

#include "object/ElementLists.h"

/// Lists of elements against each other, for properties: what is wrong with one, or nothing.
namespace property {

using lists::Elements;

/// Millimetres on a sheet some metres wide.
inline constexpr double kNear = 1e-6;

/// What is wrong with a list, or nothing. In `ordered` the elements stand in the same order.
inline std::string compare(const std::string& what, const Elements& got, const Elements& want, bool ordered) {
  std::ostringstream text;
  if (got.size() != want.size()) text << what << ": " << got.size() << " elements for " << want.size();
  Elements rest = want;
  for (std::size_t i = 0; text.str().empty() && i < got.size(); ++i) {
    if (ordered) {
      if (!lists::same(got[i], want[i], kNear)) text << what << ": element " << i << " differs";
      continue;
    }
    const auto like =
        std::find_if(rest.begin(), rest.end(), [&](const KrVector& w) { return lists::looksLike(got[i], w, kNear); });
    if (like == rest.end())
      text << what << ": element " << i << " has no like";
    else
      rest.erase(like);
  }
  if (text.str().empty()) return {};
  text << "\n got";
  lists::print(text, got);
  text << "\n want";
  lists::print(text, want);
  return text.str();
}

inline std::string sameList(const std::string& what, const Elements& got, const Elements& want) {
  return compare(what, got, want, true);
}
inline std::string samePicture(const std::string& what, const Elements& got, const Elements& want) {
  return compare(what, got, want, false);
}

inline Elements shown(const KrObject& member) {
  return lists::of(member, member.Vista(0));
}

}  // namespace property
