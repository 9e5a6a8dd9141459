#include <algorithm>
#include <map>
#include <memory>

#include "host/db/db.h"
#include "host/ed/HitTest.h"
#include "host/ed/SelectionFilter.h"
#include "host/ed/ed.h"
#include "host/ed/entityChain.h"
#include "host/ed/promptState.h"
#include "host/os/os.h"

using edhost::HitTest;
using edhost::PromptAnswer;

namespace {

// How an entity came into a set.
enum Method : short { kByName = 0, kPicked = 1, kWindow = 2, kCrossing = 3, kFence = 4 };

// Values of ERRNO.
constexpr int kNothingFound = 7;
constexpr int kEmptyAnswer = 52;

struct Selected {
  AcDbObjectId id;
  Method method = kByName;
  Adesk::GsMarker marker = 0;
  AcGePoint3d point;
};
using Members = std::vector<Selected>;

struct Sets {
  std::map<std::int64_t, Members> open;
  std::int64_t lastNumber = 0;
  Members previous;
  Selected lastPick;
  bool hasLastPick = false;
};
Sets& sets() {
  static auto* const all = new Sets;
  return *all;
}

Members* membersOf(const ads_name set) {
  if (set == nullptr) return nullptr;
  const auto found = sets().open.find(set[1]);
  return found == sets().open.end() ? nullptr : &found->second;
}

void openSet(Members members, ads_name set) {
  const std::int64_t number = ++sets().lastNumber;
  sets().open.emplace(number, std::move(members));
  set[0] = 0;
  set[1] = number;
}

void add(Members& members, const Selected& selected) {
  const auto same = [&](const Selected& member) { return member.id == selected.id; };
  if (std::none_of(members.begin(), members.end(), same)) members.push_back(selected);
}

AcGePoint3d toWorld(const AcGePoint3d& p) {
  AcGePoint3d world;
  acdbUcs2Wcs(asDblArray(p), asDblArray(world), false);
  return world;
}

/// What of the layer's state keeps an entity from being chosen.
struct LayerState {
  bool hidden = false;
  bool frozen = false;
  bool locked = false;
};
LayerState layerState(const AcDbEntity& entity) {
  AcDbObjectPointer<AcDbLayerTableRecord> layer(entity.layerId(), AcDb::kForRead);
  if (layer.openStatus() != Acad::eOk) return {};
  return {layer->isFrozen() || layer->isOff(), layer->isFrozen(), layer->isLocked()};
}

/// What a choice looks for.
struct Search {
  const resbuf* filter = nullptr;
  bool notLocked = false;

  bool admits(const AcDbEntity& entity, bool visibleOnly) const {
    const LayerState state = layerState(entity);
    if (visibleOnly && (state.hidden || entity.visibility() == AcDb::kInvisible)) return false;
    return !(notLocked && state.locked) && edhost::passesFilter(entity, filter);
  }
};

double pickReach() {
  resbuf screen{};
  acedGetVar(L"SCREENSIZE", &screen);
  return edhost::varInt(L"PICKBOX") * edhost::varReal(L"VIEWSIZE") / screen.resval.rpoint[1];
}

HitTest pickBox(const AcGePoint3d& world) {
  const AcGeVector3d reach(pickReach(), pickReach(), 0.0);
  return HitTest::box(world - reach, world + reach);
}

/// The entities, the last drawn first, at a point of the UCS.
Members pickedAt(const AcGePoint3d& point, const Search& search, bool everything) {
  const AcGePoint3d world = toWorld(point);
  Members found;
  std::vector<AcDbObjectId> ids = edhost::entitiesOfSpace();
  const Sets& all = sets();
  // A pick again at the point of the last one means the same entity, whatever else lies there.
  if (all.hasLastPick && all.lastPick.point == point) ids.push_back(all.lastPick.id);
  for (auto id = ids.rbegin(); id != ids.rend() && (everything || found.empty()); ++id) {
    AcDbObjectPointer<AcDbEntity> entity(*id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk || !search.admits(*entity, true)) continue;
    HitTest test = pickBox(world);
    test.drawWhole(*entity);
    const bool again = all.hasLastPick && *id == all.lastPick.id && all.lastPick.point == point;
    const Adesk::GsMarker marker = again && all.lastPick.marker != 0 ? all.lastPick.marker : test.marker();
    if (test.touches() || again) add(found, {*id, kPicked, marker, point});
  }
  return found;
}

Members inRegion(const std::vector<AcGePoint2d>& region, Method method, const Search& search) {
  Members found;
  for (const AcDbObjectId& id : edhost::entitiesOfSpace()) {
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk || !search.admits(*entity, true)) continue;
    HitTest test(region, method != kFence);
    test.drawWhole(*entity);
    if (method == kWindow ? test.holdsAll() : test.touches()) add(found, {id, method, test.marker(), {}});
  }
  return found;
}

std::vector<AcGePoint2d> rectangle(const AcGePoint3d& a, const AcGePoint3d& b) {
  const AcGePoint3d p = toWorld(a);
  const AcGePoint3d q = toWorld(b);
  return {{p.x, p.y}, {q.x, p.y}, {q.x, q.y}, {p.x, q.y}};
}

std::vector<AcGePoint2d> polygon(const resbuf* chain) {
  std::vector<AcGePoint2d> points;
  for (; chain != nullptr; chain = chain->rbnext) {
    if (chain->restype != RTPOINT && chain->restype != RT3DPOINT) continue;
    const double z = chain->restype == RT3DPOINT ? chain->resval.rpoint[2] : 0.0;
    const AcGePoint3d p = toWorld({chain->resval.rpoint[0], chain->resval.rpoint[1], z});
    points.emplace_back(p.x, p.y);
  }
  return points;
}

Members everything(const Search& search, bool withFrozen) {
  Members found;
  for (const AcDbObjectId& id : edhost::entitiesOfSpace()) {
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk || !search.admits(*entity, false)) continue;
    if (withFrozen || !layerState(*entity).frozen) add(found, {id, kByName, 0, {}});
  }
  return found;
}

Members theseOf(const Members& members, const Search& search) {
  Members found;
  for (const Selected& member : members) {
    AcDbObjectPointer<AcDbEntity> entity(member.id, AcDb::kForRead);
    if (entity.openStatus() == Acad::eOk && search.admits(*entity, false)) add(found, member);
  }
  return found;
}

Members lastEntity(const Search& search) {
  const std::vector<AcDbObjectId> ids = edhost::entitiesOfSpace();
  return ids.empty() ? Members() : theseOf({{ids.back(), kByName, 0, {}}}, search);
}

/// The pick that an answer means; an entity named without a point is picked at some point of it.
Selected namedPick(const PromptAnswer& answer) {
  Selected pick{answer.id, kPicked, answer.marker, answer.point};
  AcDbObjectPointer<AcDbEntity> entity(answer.id, AcDb::kForRead);
  if (entity.openStatus() != Acad::eOk) return pick;
  HitTest test = answer.hasPoint ? pickBox(toWorld(answer.point)) : HitTest({}, true);
  test.drawWhole(*entity);
  if (pick.marker == 0) pick.marker = test.marker();
  if (!answer.hasPoint && test.somePoint()) {
    acdbWcs2Ucs(asDblArray(*test.somePoint()), asDblArray(pick.point), false);
  }
  return pick;
}

bool isOption(const std::wstring& typed, std::wstring_view option, std::size_t least) {
  return typed.size() >= least && typed.size() <= option.size() &&
         os::compareNoCase(typed, option.substr(0, typed.size())) == 0;
}

/// Two corners, the first given or asked for. RTNORM, or why there are none.
int askedCorners(const PromptAnswer* first, AcGePoint3d& a, AcGePoint3d& b) {
  if (first != nullptr) {
    a = first->point;
  } else if (const int status = acedGetPoint(nullptr, L"\nFirst corner: ", asDblArray(a)); status != RTNORM) {
    return status;
  }
  return acedGetCorner(asDblArray(a), L"\nOpposite corner: ", asDblArray(b));
}

/// Adds what one answer chooses. RTCAN when a corner is cancelled.
int choose(const PromptAnswer& answer, const Search& search, bool everythingThere, Members& members) {
  Members found;
  AcGePoint3d a;
  AcGePoint3d b;
  const std::wstring& typed = answer.text;
  if (answer.kind == PromptAnswer::Kind::Entity) {
    found = theseOf({namedPick(answer)}, search);
  } else if (answer.kind == PromptAnswer::Kind::Point) {
    found = pickedAt(answer.point, search, everythingThere);
    if (found.empty()) {
      // Off everything, a point is the corner of a window, drawn to the right, or of a crossing, to the left.
      const int status = askedCorners(&answer, a, b);
      if (status != RTNORM) return status;
      found = inRegion(rectangle(a, b), b.x >= a.x ? kWindow : kCrossing, search);
    }
  } else if (isOption(typed, L"Window", 1) || isOption(typed, L"Crossing", 1)) {
    const int status = askedCorners(nullptr, a, b);
    if (status != RTNORM) return status;
    found = inRegion(rectangle(a, b), isOption(typed, L"Window", 1) ? kWindow : kCrossing, search);
  } else if (isOption(typed, L"ALL", 3)) {
    found = everything(search, false);
  } else if (isOption(typed, L"Last", 1)) {
    found = lastEntity(search);
  } else if (isOption(typed, L"Previous", 1)) {
    found = theseOf(sets().previous, search);
  } else {
    edhost::writeConsole(L"\nObjects, a window, Last, Previous or ALL are required.");
    return RTNORM;
  }
  edhost::writeConsole(L" " + std::to_wstring(found.size()) + L" found");
  for (const Selected& selected : found) add(members, selected);
  return RTNORM;
}

int askedSet(const std::wstring& prompt, const Search& search, bool single, bool everythingThere, Members& members) {
  edhost::promptState().init = {};
  while (true) {
    const PromptAnswer answer = edhost::ask(prompt.c_str());
    if (answer.kind == PromptAnswer::Kind::Cancel) return RTCAN;
    if (answer.kind == PromptAnswer::Kind::Enter) break;
    const int status = choose(answer, search, everythingThere, members);
    if (status == RTCAN) return status;
    if (single && !members.empty()) break;
  }
  return members.empty() ? RTERROR : RTNORM;
}

/// The mode of acedSSGet, taken apart.
struct Mode {
  std::wstring how;
  bool single = false;
  bool everything = false;
  bool notLocked = false;
  bool prompts = false;

  explicit Mode(const wchar_t* text) {
    for (const wchar_t* c = text; c != nullptr && *c != L'\0'; ++c) {
      if (*c == L'_') continue;
      if (*c != L':' || c[1] == L'\0') {
        how += os::upperCase(*c);
        continue;
      }
      const wchar_t option = os::upperCase(*++c);
      single = single || option == L'S';
      everything = everything || option == L'E';
      notLocked = notLocked || option == L'L';
      prompts = prompts || option == L'$';
    }
  }
};

std::wstring promptOf(const Mode& mode, const void* texts) {
  const auto* const first = mode.prompts && texts != nullptr ? *static_cast<const wchar_t* const*>(texts) : nullptr;
  return first != nullptr ? first : L"\nSelect objects: ";
}

/// The members that a mode chooses. RTERROR for an unknown mode and for nothing.
int chosen(const Mode& mode, const void* pt1, const void* pt2, const Search& search, Members& members) {
  const auto pointAt = [](const void* p) { return asPnt3d(static_cast<const ads_real*>(p)); };
  const auto* const chain = static_cast<const resbuf*>(pt1);
  const bool byCorners = mode.how == L"W" || mode.how == L"C";
  const bool byChain = mode.how == L"WP" || mode.how == L"CP" || mode.how == L"F";
  if (mode.how.empty()) {
    if (pt1 == nullptr || mode.prompts) {
      return askedSet(promptOf(mode, pt1), search, mode.single, mode.everything, members);
    }
    members = pickedAt(pointAt(pt1), search, mode.everything);
  } else if (byCorners && pt1 != nullptr && pt2 != nullptr) {
    members = inRegion(rectangle(pointAt(pt1), pointAt(pt2)), mode.how == L"W" ? kWindow : kCrossing, search);
  } else if (byChain && pt1 != nullptr) {
    const std::vector<AcGePoint2d> region = polygon(chain);
    const Method method = mode.how == L"F" ? kFence : (mode.how == L"WP" ? kWindow : kCrossing);
    if (region.size() < (method == kFence ? 2U : 3U)) return RTERROR;
    members = inRegion(region, method, search);
  } else if (mode.how == L"X" || mode.how == L"A") {
    members = everything(search, mode.how == L"X");
  } else if (mode.how == L"L") {
    members = lastEntity(search);
  } else if (mode.how == L"P") {
    members = theseOf(sets().previous, search);
  }
  return members.empty() ? RTERROR : RTNORM;
}

/// Drops erased entities: they don't count in a set.
Members* present(const ads_name set) {
  Members* const members = membersOf(set);
  if (members != nullptr) std::erase_if(*members, [](const Selected& s) { return s.id.isErased(); });
  return members;
}

void appendLink(resbuf*& tail, int type, const auto& fill) {
  resbuf* const link = acutNewRb(type);
  fill(link->resval);
  tail = tail->rbnext = link;
}

void appendMember(resbuf*& tail, const Selected& member) {
  const auto nothing = [](ads_u_val&) {};
  appendLink(tail, RTLB, nothing);
  appendLink(tail, RTSHORT, [&](ads_u_val& value) { value.rint = member.method; });
  appendLink(tail, RTENAME, [&](ads_u_val& value) { acdbGetAdsName(value.rlname, member.id); });
  appendLink(tail, RTLONG, [&](ads_u_val& value) { value.rlong = static_cast<std::int32_t>(member.marker); });
  if (member.method == kPicked) {
    appendLink(tail, RTSHORT, [](ads_u_val& value) { value.rint = 0; });
    appendLink(tail, RT3DPOINT, [&](ads_u_val& value) { asPnt3d(value.rpoint) = member.point; });
  }
  appendLink(tail, RTLE, nothing);
}

}  // namespace

int acedSSGet(const wchar_t* modeText, const void* pt1, const void* pt2, const resbuf* filter, ads_name set) {
  ads_name_clear(set);
  const Mode mode(modeText);
  Members members;
  const int status = chosen(mode, pt1, pt2, {filter, mode.notLocked}, members);
  if (status != RTNORM) {
    if (status == RTERROR) edhost::setVarInternally(L"ERRNO", kNothingFound);
    return status;
  }
  // What a program picks at a point isn't the user's choice.
  if (!(mode.how.empty() && pt1 != nullptr && !mode.prompts)) sets().previous = members;
  openSet(std::move(members), set);
  return RTNORM;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
  const Members* const members = present(set);
  if (members == nullptr || length == nullptr) return RTERROR;
  *length = static_cast<Adesk::Int32>(members->size());
  return RTNORM;
}

int acedSSName(const ads_name set, int index, ads_name entity) {
  const Members* const members = present(set);
  if (members == nullptr || index < 0 || std::size_t(index) >= members->size()) return RTERROR;
  ads_name found = {0, 0};
  if (acdbGetAdsName(found, (*members)[std::size_t(index)].id) != Acad::eOk) return RTERROR;
  ads_name_set(found, entity);
  return RTNORM;
}

int acedSSNameX(resbuf** chain, const ads_name set, int index) {
  const Members* const members = present(set);
  if (chain == nullptr || members == nullptr || members->empty()) return RTERROR;
  if (index < -1 || index >= static_cast<int>(members->size())) return RTERROR;
  resbuf head{};
  resbuf* tail = &head;
  for (std::size_t i = 0; i < members->size(); ++i) {
    if (index == -1 || std::size_t(index) == i) appendMember(tail, (*members)[i]);
  }
  *chain = head.rbnext;
  return RTNORM;
}

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
  AcDbObjectId id;
  const bool hasEntity = entity != nullptr && !ads_name_nil(entity);
  if (hasEntity && acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  if (set == nullptr || ads_name_nil(set)) {
    Members members;
    if (hasEntity) members.push_back({id, kByName, 0, {}});
    openSet(std::move(members), result);
    return RTNORM;
  }
  Members* const members = membersOf(set);
  if (members == nullptr || !hasEntity) return RTERROR;
  add(*members, {id, kByName, 0, {}});
  if (result != set) ads_name_set(set, result);
  return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name set) {
  Members* const members = present(set);
  AcDbObjectId id;
  if (members == nullptr || acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  return std::erase_if(*members, [&](const Selected& member) { return member.id == id; }) != 0 ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name entity, const ads_name set) {
  const Members* const members = present(set);
  AcDbObjectId id;
  if (members == nullptr || acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
  const bool is =
      std::any_of(members->begin(), members->end(), [&](const Selected& member) { return member.id == id; });
  return is ? RTNORM : RTERROR;
}

int acedSSFree(const ads_name set) {
  return set != nullptr && sets().open.erase(set[1]) != 0 ? RTNORM : RTERROR;
}

int acedEntSel(const wchar_t* prompt, ads_name entity, ads_real* point) {
  const edhost::PromptInit init = std::exchange(edhost::promptState().init, {});
  edhost::promptState().hasInput = false;
  const PromptAnswer answer = edhost::ask(prompt != nullptr ? prompt : L"\nSelect object: ");
  const int common = edhost::commonAnswer(init, answer);
  if (common == RTCAN || common == RTKWORD) return common;
  Selected pick;
  if (answer.kind == PromptAnswer::Kind::Entity) {
    const Members named = theseOf({namedPick(answer)}, {});
    if (!named.empty()) pick = named.front();
  } else if (answer.kind == PromptAnswer::Kind::Point) {
    const Members found = pickedAt(answer.point, {}, false);
    if (!found.empty()) pick = found.front();
  }
  ads_name found = {0, 0};
  if (pick.id.isNull() || acdbGetAdsName(found, pick.id) != Acad::eOk) {
    const bool empty = answer.kind == PromptAnswer::Kind::Enter;
    edhost::setVarInternally(L"ERRNO", empty ? kEmptyAnswer : kNothingFound);
    return RTERROR;
  }
  sets().lastPick = pick;
  sets().hasLastPick = true;
  ads_name_set(found, entity);
  asPnt3d(point) = pick.point;
  return RTNORM;
}
