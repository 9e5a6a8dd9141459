#pragma once

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Outlines.h"
#include "object/ArcGeometry.h"
#include "object/KrObject.h"
#include "support/Layers.h"
#include "support/SideLibrary.h"

namespace bench {

/// The layer of the members that are measured.
inline constexpr const wchar_t* kMemberLayer = L"PERFIL";

/// Binds the side library, as the module's start does, and opens a drawing with the layers that members draw on; once
/// per program.
inline void start() {
  ::setenv("KRTRAMA_BRICSV17", KR_INSTALL_FOLDER, 1);
  bindSideLibrary();
  if (sideLibrary().krIsBulge6000 == nullptr) std::abort();
  static AcDbDatabase drawing;
  acdbHostApplicationServices()->setWorkingDatabase(&drawing);
  for (const wchar_t* layer : {L"L-HIDDEN", L"EIXO", L"KR_HIDE_FACE", kMemberLayer})
    if (krCriaLayer(layer, 7, L"continuous", 0, 0, 0, 0) != RTNORM) std::abort();
}

/// A member of any outline.
class OutlineMember : public KrObject {
 public:
  OutlineMember(const Outline& contour, KrVistas view, const std::vector<Hole>& holes = {}) {
    for (const Node& node : contour) outline().Add({node.x, node.y, 0}, node.bulge * ArcGeometry::kBulgeUnit);
    // The contour is closed by its first node.
    outline().Add({contour.front().x, contour.front().y, 0}, 0);
    outline().Add({0, 0, 0}, KrGeratriz::kReferenceBulge);
    setComprimento(kLength);
    KrFuro drilled;
    for (const Hole& h : holes) drilled.Add({h.x0, h.y0, h.z}, {h.x1, h.y1, h.z}, kHoleDiameter, 0, 0);
    setFurosSemLink(drilled);
    KrGeratriz none;
    Gera_KrVector(AcGePoint3d(0, 0, 0), none, view, 0, 1);
  }
};

/// What a section with several contours is.
enum class Contours {
  kSolids,  ///< each contour is a bar of its own
  kHollow   ///< the contours behind the first are holes in it
};

/// What is measured: a name, and a way to make the member new in a view, from the origin along X.
struct Subject {
  std::string name;
  std::function<std::unique_ptr<KrObject>(KrVistas view)> make;
  Contours contours = Contours::kSolids;
  std::vector<Hole> holes = {};
};

inline Subject outlineSubject(std::string name, const Outline& outline) {
  return {std::move(name), [outline](KrVistas view) { return std::make_unique<OutlineMember>(outline, view); }};
}

/// Members of outlines that no class writes.
inline std::vector<Subject> outlineSubjects() {
  std::vector<Subject> all = {outlineSubject("rolledI", rolledI())};
  for (const int nodes : {20, 100, 500}) all.push_back(outlineSubject("wheel" + std::to_string(nodes), wheel(nodes)));
  return all;
}

/// The rolled I with so many holes.
inline Subject drilledSubject(int count) {
  const std::vector<Hole> holes = holesOfRolledI(count);
  return {"drilledI" + std::to_string(count),
          [holes](KrVistas view) { return std::make_unique<OutlineMember>(rolledI(), view, holes); }, Contours::kSolids,
          holes};
}

/// The solids of a member for the peers: for each its outer contour, then its holes. Edges of no length are left out.
inline std::vector<Solid> solidsOf(const Subject& subject) {
  // As wide as the tolerance within which nodes are one point.
  constexpr double kSamePoint = 1e-7;
  KrGeratriz section;
  subject.make(Secao)->GetSecao(section);
  std::vector<Outline> contours(1);
  for (int i = 0; i < section.Qtd(); ++i) {
    const AcGeVector3d& at = section.GetVertex(i);
    const double bulge = section.GetBulge(i);
    Outline& contour = contours.back();
    if (!contour.empty() && std::hypot(contour.back().x - at.x, contour.back().y - at.y) < kSamePoint)
      contour.pop_back();
    const bool ends = KrGeratriz::isContourEnd(bulge) || i + 1 == section.Qtd();
    // The node that closes a contour repeats its first.
    if (!ends) contour.push_back({at.x, at.y, bulge / ArcGeometry::kBulgeUnit});
    if (ends && i + 1 < section.Qtd()) contours.emplace_back();
  }
  if (subject.contours == Contours::kHollow) return {contours};
  std::vector<Solid> solids;
  for (const Outline& contour : contours) solids.push_back({contour});
  return solids;
}

}  // namespace bench
