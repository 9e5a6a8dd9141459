#pragma once

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Outlines.h"
#include "object/KrObject.h"
#include "profiles/KrTubo.h"
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

/// The outer diameter and the wall of the tube that is measured.
inline constexpr double kTubeDiameter = 88.9;
inline constexpr double kTubeWall = 4.5;

/// A member of any outline.
class OutlineMember : public KrObject {
 public:
  OutlineMember(const std::vector<Outline>& contours, KrVistas view) {
    for (std::size_t c = 0; c < contours.size(); ++c) {
      for (const Node& node : contours[c]) outline().Add({node.x, node.y, 0}, node.bulge * kBulgeUnit);
      // Each contour is closed by its first node; all but the last end there.
      const Node& first = contours[c].front();
      outline().Add({first.x, first.y, 0}, c + 1 < contours.size() ? KrGeratriz::kContourEnd : 0);
    }
    outline().Add({0, 0, 0}, KrGeratriz::kReferenceBulge);
    setComprimento(kLength);
    KrGeratriz none;
    Gera_KrVector(AcGePoint3d(0, 0, 0), none, view, 0, 1);
  }

 private:
  static constexpr double kBulgeUnit = 127;
};

/// What is measured: a name, and a way to make the member new in a view.
struct Subject {
  std::string name;
  std::function<std::unique_ptr<KrObject>(KrVistas view)> make;
  std::vector<Outline> contours;  ///< for the peers
};

inline Subject outlineSubject(std::string name, const Outline& outline) {
  return {std::move(name),
          [outline](KrVistas view) { return std::make_unique<OutlineMember>(std::vector<Outline>{outline}, view); },
          {outline}};
}

inline std::vector<Subject> subjects() {
  const auto makeTube = [](KrVistas view) {
    return std::make_unique<KrTubo>(AcGePoint3d(0, 0, 0), AcGePoint3d(kLength, 0, 0), view, kTubeDiameter,
                                    kTubeDiameter - 2 * kTubeWall);
  };
  std::vector<Subject> all = {{"tube", makeTube, tube(kTubeDiameter, kTubeWall)}, outlineSubject("rolledI", rolledI())};
  for (const int nodes : {20, 100, 500}) all.push_back(outlineSubject("wheel" + std::to_string(nodes), wheel(nodes)));
  return all;
}

}  // namespace bench
