#include "host/ed/SelectionFilter.h"

#include <cmath>
#include <memory>
#include <string>

#include "host/ed/acut.h"
#include "host/ed/entityChain.h"
#include "host/ed/resbufTypes.h"
#include "host/os/os.h"

// A filter is read as an expression: items one after the other are joined by and; "<OR" ... "OR>" and their like group
// them. Reading goes on past what is settled already, to find each group's end.

namespace {

struct ChainDeleter {
  void operator()(resbuf* chain) const { acutRelRb(chain); }
};

std::wstring upper(const wchar_t* text) {
  std::wstring result = text != nullptr ? text : L"";
  for (wchar_t& c : result) c = os::upperCase(c);
  return result;
}

// Groups that an entity leaves out when they have their default.
constexpr int kLinetypeCode = 6;
constexpr int kColorCode = 62;
constexpr int kColorByLayer = 256;

class Filter {
 public:
  Filter(const resbuf* items, const resbuf* entity) : m_item(items), m_entity(entity) {}

  bool all() {
    bool passed = true;
    while (m_item != nullptr) passed = next() && passed;
    return passed;
  }

 private:
  bool isOperator(const wchar_t*& text) const {
    text = m_item->resval.rstring;
    return m_item->restype == AcDb::kDxfOperator && text != nullptr;
  }

  /// The verdict of the next item or group.
  bool next() {
    const wchar_t* text = nullptr;
    if (!isOperator(text)) {
      const bool passed = itemPasses(*m_item);
      m_item = m_item->rbnext;
      return passed;
    }
    const std::wstring opening = upper(text);
    m_item = m_item->rbnext;
    if (opening.empty() || opening.front() != L'<') return false;
    const std::wstring name = opening.substr(1);
    int total = 0;
    int passed = 0;
    while (m_item != nullptr && !(isOperator(text) && upper(text) == name + L">")) {
      ++total;
      passed += next() ? 1 : 0;
    }
    if (m_item != nullptr) m_item = m_item->rbnext;
    if (name == L"OR") return passed > 0;
    if (name == L"XOR") return passed == 1;
    if (name == L"NOT") return passed == 0;
    return name == L"AND" && passed == total;
  }

  bool itemPasses(const resbuf& item) const {
    bool met = false;
    for (const resbuf* group = m_entity; group != nullptr; group = group->rbnext) {
      if (group->restype != item.restype) continue;
      met = true;
      if (sameValue(item, *group)) return true;
    }
    if (met) return false;
    if (item.restype == kColorCode) return item.resval.rint == kColorByLayer;
    return item.restype == kLinetypeCode && upper(item.resval.rstring) == L"BYLAYER";
  }

  static bool sameValue(const resbuf& wanted, const resbuf& group) {
    constexpr double kSame = 1e-9;
    switch (edhost::valueKind(wanted.restype)) {
      case edhost::ValueKind::Text:
        return acutWcMatch(upper(group.resval.rstring).c_str(), upper(wanted.resval.rstring).c_str()) == RTNORM;
      case edhost::ValueKind::Short:
        return group.resval.rint == wanted.resval.rint;
      case edhost::ValueKind::Long:
        return group.resval.rlong == wanted.resval.rlong;
      case edhost::ValueKind::Real:
        return std::fabs(group.resval.rreal - wanted.resval.rreal) <= kSame;
      case edhost::ValueKind::Point:
        return acutDistance(group.resval.rpoint, wanted.resval.rpoint) <= kSame;
      case edhost::ValueKind::Name:
        return ads_name_equal(group.resval.rlname, wanted.resval.rlname);
      default:
        return false;
    }
  }

  const resbuf* m_item;
  const resbuf* m_entity;
};

}  // namespace

namespace edhost {

bool passesFilter(const AcDbEntity& entity, const resbuf* filter) {
  if (filter == nullptr) return true;
  const std::unique_ptr<resbuf, ChainDeleter> groups(chainOf(entity));
  return Filter(filter, groups.get()).all();
}

}  // namespace edhost
