// Linked members show one bar: what is done to one of them is done to all.

#include <gtest/gtest.h>

#include <vector>

#include "object/Drawing.h"
#include "property/Compare.h"
#include "property/Model.h"
#include "property/Recipe.h"

namespace {

using namespace property;

/// The bar of a recipe in all four elevations and both sections, each at its place on one sheet, linked to the others.
class Group {
 public:
  explicit Group(const Recipe& recipe) {
    for (const KrVistas view : kElevations) add(recipe, view);
    for (const KrVistas view : kSections) add(recipe, view);
    for (const Linked& one : all_) {
      AcDbObjectIdArray others;
      for (const Linked& other : all_)
        if (other.id != one.id) others.append(other.id);
      in(one.view, [&](KrObject& member) { member.setRelativeObj(&others); });
    }
  }

  template <class Use>
  void in(KrVistas view, Use use) {
    for (const Linked& one : all_) {
      if (one.view != view) continue;
      const AcDbObjectPointer<KrObject> member(one.id, AcDb::kForWrite);
      ASSERT_EQ(member.openStatus(), Acad::eOk);
      use(*member);
    }
  }

 private:
  struct Linked {
    KrVistas view;
    AcDbObjectId id;
  };
  void add(const Recipe& recipe, KrVistas view) {
    all_.push_back({view, drawing_.append(plain(recipe, view).release())});
  }

  Drawing drawing_;
  std::vector<Linked> all_;
};

/// The picture without what a member shows in its own way: its axis line, which edge a modifier made (a later one may
/// have split it), and the centre lines of holes, which keep their size at any scale and so meet more of the cuts the
/// smaller the drawing.
Elements steelAndHoles(const KrObject& member) {
  Elements all = shown(member);
  std::erase_if(all, [](const KrVector& v) { return v.type() == KR_VT_EIXO || v.type() == KR_VT_FURO_EIXO; });
  for (KrVector& v : all) {
    if (v.isFuro()) continue;
    v.setTypeEx(KR_VTX_NENHUM);
    v.setIndexFur(-1);
  }
  return all;
}

// Splits and limits are of one view each. A cut takes the arcs of the notches before it by their chords, and only a
// regeneration puts them behind it.
const Allowed kCarried{.splits = false, .limits = false, .arcs = false};
// A notch at an end shortens the bar in the views that show it.
const Allowed kSeenFromAllSides{.splits = false, .limits = false, .notches = false};

TEST(Group, WhatIsDoneToOneMemberIsDoneToAll) {
  hold(
      [](const Recipe& recipe) {
        Group group(recipe);
        std::string wrong;
        for (std::size_t k = 0; k < recipe.steps.size() && wrong.empty(); ++k) {
          const Step& step = recipe.steps[k];
          group.in(step.view, [&](KrObject& member) { apply(recipe, step, member); });
          const std::string when = "after step " + std::to_string(k) + " in view ";
          for (const KrVistas view : kElevations) {
            group.in(view, [&](KrObject& member) {
              const Elements carried = steelAndHoles(member);
              const Model model(member);
              member.Gera_KrVector();
              if (wrong.empty()) wrong = samePicture(when + std::to_string(view), carried, steelAndHoles(member));
              if (wrong.empty()) wrong = model.differenceTo(Model(member));
            });
          }
        }
        return wrong;
      },
      kCarried, 150);
}

TEST(Group, AllOfItShowOneBar) {
  hold(
      [](const Recipe& recipe) {
        Group group(recipe);
        for (const Step& step : recipe.steps)
          group.in(step.view, [&](KrObject& member) { apply(recipe, step, member); });
        std::string wrong;
        std::vector<std::unique_ptr<KrObject>> want;
        group.in(recipe.view, [&](KrObject& member) {
          for (const KrVistas view : kElevations) want.push_back(seenIn(recipe, member, view));
          for (const KrVistas view : kSections) want.push_back(seenIn(recipe, member, view));
        });
        for (const auto& one : want) {
          const KrVistas view = one->Vista(0);
          group.in(view, [&](KrObject& member) {
            member.Gera_KrVector();
            if (!wrong.empty()) return;
            wrong = samePicture("view " + std::to_string(view), steelAndHoles(member), steelAndHoles(*one));
            if (wrong.empty() && member.numFuros() != one->numFuros()) wrong = "another number of holes";
            if (wrong.empty() && member.numCortes() != one->numCortes()) wrong = "another number of cuts";
          });
        }
        return wrong;
      },
      kSeenFromAllSides, 150);
}

}  // namespace
