// There and back: what a member shows and stores after a way round is what it showed and stored before.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "property/Compare.h"
#include "property/Model.h"
#include "property/Recipe.h"

namespace {

using namespace property;

const Allowed kAll;

// What all properties rest on: a member that refuses what is done to it would hold them idly.
TEST(Recipes, AreMostlyTaken) {
  int given[6] = {};
  int taken[6] = {};
  hold(
      [&](const Recipe& recipe) {
        std::vector<bool> took;
        make(recipe, &took);
        for (std::size_t i = 0; i < took.size(); ++i) {
          ++given[recipe.steps[i].kind];
          taken[recipe.steps[i].kind] += took[i] ? 1 : 0;
        }
        return std::string();
      },
      kAll, 200);
  for (int kind = 0; kind < 6; ++kind) EXPECT_GE(2 * taken[kind], given[kind]) << "steps of kind " << kind;
}

TEST(RoundTrip, ARegenerationMoreChangesNothing) {
  hold(
      [](const Recipe& recipe) {
        const auto member = make(recipe);
        member->Gera_KrVector();
        const Elements once = shown(*member);
        const Model model(*member);
        member->Gera_KrVector();
        std::string wrong = sameList("made twice", shown(*member), once);
        if (wrong.empty()) wrong = model.differenceTo(Model(*member));
        return wrong;
      },
      kAll, 300);
}

TEST(RoundTrip, ThroughTheFourViewsGivesTheSameListAndModel) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        const Elements before = shown(*member);
        const Model model(*member);
        int order = static_cast<int>(recipe.steps.size());
        for (const KrVistas view : kElevations) {
          const KrVistas next = kElevations[(static_cast<int>(view) - 1 + order) % 4];
          member->switchToVista(next);
          // The picture stays, whatever it is called.
          std::string wrong = samePicture("switched to " + std::to_string(next), shown(*member), before);
          if (!wrong.empty()) return wrong;
        }
        member->switchToVista(recipe.view);
        std::string wrong = sameList("switched back", shown(*member), before);
        if (wrong.empty()) wrong = model.differenceTo(Model(*member));
        return wrong;
      },
      kAll, 300);
}

TEST(RoundTrip, FromTheSectionToTheDrawingAndBackIsTheIdentity) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        for (const AcGePoint3d& p : {AcGePoint3d(12, -34, -560), AcGePoint3d(-1200, 7, 3000)}) {
          AcGePoint3d q = p;
          if (member->secaoToVistaXForm(q) != Acad::eOk) return "no frame";
          if (member->vistaToSecaoXForm(q) != Acad::eOk) return "no way back";
          if (q.distanceTo(p) > kNear) return "another point";
        }
        return {};
      },
      kAll, 200);
}

TEST(RoundTrip, ToAnyScaleAndBackLeavesModelAndList) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        const Elements before = shown(*member);
        const Model model(*member);
        for (const double scale : {0.5, 0.05, 2.5}) {
          member->ObjectScale(scale, scale, scale);
          member->ObjectScale(recipe.scale, recipe.scale, recipe.scale);
          std::string wrong = sameList("scaled by " + std::to_string(scale), shown(*member), before);
          if (!wrong.empty()) return wrong;
          // Made anew at the other scale, and back.
          member->ObjectScale(scale, scale, scale);
          member->Gera_KrVector();
          member->ObjectScale(recipe.scale, recipe.scale, recipe.scale);
          member->Gera_KrVector();
          wrong = sameList("made at " + std::to_string(scale), shown(*member), before);
          if (wrong.empty()) wrong = model.differenceTo(Model(*member));
          if (!wrong.empty()) return wrong;
        }
        return {};
      },
      kAll, 200);
}

AcGeMatrix3d mirrorAbout(double angle, const AcGePoint3d& p) {
  return AcGeMatrix3d::mirroring(AcGePlane(p, AcGeVector3d(-std::sin(angle), std::cos(angle), 0)));
}

TEST(RoundTrip, AMotionMovesWhatARegenerationMakes) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        Elements want = shown(*member);
        const AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(310, -120, 0)) *
                               AcGeMatrix3d::rotation(2.1 + recipe.angle, AcGeVector3d::kZAxis, AcGePoint3d(70, 4, 0));
        member->transformBy(m);
        lists::transform(want, m);
        std::string wrong = sameList("moved", shown(*member), want);
        if (!wrong.empty()) return wrong;
        member->Gera_KrVector();
        return sameList("moved and made", shown(*member), want);
      },
      kAll, 200);
}

TEST(RoundTrip, AnEnlargementIsADrawingScaleOfTheSameBar) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        const double length = member->getComprimentoReal();
        for (const double factor : {2.0, 0.25}) {
          member->transformBy(AcGeMatrix3d::scaling(factor, AcGePoint3d(-300, 55, 0)));
          Elements want = shown(*member);
          member->Gera_KrVector();
          Elements got = shown(*member);
          // The mark of a hole has one size at every scale.
          for (Elements* all : {&got, &want})
            std::erase_if(*all, [](const KrVector& v) { return v.type() == KR_VT_FURO_EIXO; });
          const std::string wrong = sameList("enlarged and made", got, want);
          if (!wrong.empty()) return wrong;
          if (std::fabs(member->getComprimentoReal() - length) > kNear) return "another real length";
        }
        return {};
      },
      kAll, 200);
}

TEST(RoundTrip, APlaceGivenByValueOrByTheReferenceLineIsTheOneThatAMotionLeadsTo) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        const AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(-90, 4200, 0)) *
                               AcGeMatrix3d::rotation(4 - recipe.angle, AcGeVector3d::kZAxis, AcGePoint3d(5, 40, 0));
        KrObject::Position place;
        AcGePoint3d start, end;
        if (member->position(place, 1) != Acad::eOk || member->GetPointsOfEixo(start, end, 1) != Acad::eOk)
          return "no place";
        const AcGeMatrix3d elsewhere = AcGeMatrix3d::rotation(1, AcGeVector3d::kZAxis, member->startPoint());
        member->transformBy(m);
        member->Gera_KrVector();
        const Elements want = shown(*member);
        const Model model(*member);
        member->transformBy(elsewhere);
        place.ponto = m * place.ponto;
        place.direcao = m * place.direcao;
        if (member->setPosition(place, 1) != Acad::eOk) return "not placed";
        std::string wrong = sameList("placed by value", shown(*member), want);
        if (wrong.empty()) wrong = model.differenceTo(Model(*member));
        if (!wrong.empty()) return wrong;
        member->transformBy(elsewhere);
        if (member->SetPointsOfEixoBarra(m * start, m * end) != Acad::eOk) return "not placed by its line";
        wrong = sameList("placed by its line", shown(*member), want);
        return wrong.empty() ? model.differenceTo(Model(*member)) : wrong;
      },
      kAll, 200);
}

/// A mirror is told of the widths of holes seen edge on: an oblong's follows the stored angle.
bool hasSlottedHole(const KrObject& member) {
  KrFuro holes;
  member.Furos(holes, 0);
  for (int i = 0; i < holes.Qtd(); ++i)
    if (holes.getStretch(i) > 0) return true;
  return false;
}

void dropBands(Elements& all) {
  std::erase_if(all, [](const KrVector& v) { return v.type() == KR_VT_FURO_LINHA || v.type() == KR_VT_FURO_EIXO; });
}

TEST(RoundTrip, AMirrorShowsTheMirroredPictureAndTwiceIsTheIdentity) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        const Elements before = shown(*member);
        const Model model(*member);
        const AcGeMatrix3d m = mirrorAbout(0.7 + recipe.angle, AcGePoint3d(40, 30, 0));
        member->transformBy(m);
        Elements want = before;
        lists::transform(want, m);
        std::string wrong = samePicture("mirrored", shown(*member), want);
        if (!wrong.empty()) return wrong;
        member->Gera_KrVector();
        Elements got = shown(*member);
        if (hasSlottedHole(*member)) {
          dropBands(got);
          dropBands(want);
        }
        // The zigzag of a limit has a sense of its own, and hides accordingly.
        const auto isBreak = [](const KrVector& v) { return v.tipo() == KR_VF_LIMITE; };
        if (std::none_of(want.begin(), want.end(), isBreak)) wrong = samePicture("mirrored and made", got, want);
        if (!wrong.empty()) return wrong;
        member->transformBy(m);
        wrong = model.differenceTo(Model(*member));
        if (!wrong.empty()) return wrong;
        member->Gera_KrVector();
        return sameList("mirrored twice", shown(*member), before);
      },
      kAll, 300);
}

TEST(RoundTrip, AMemberReadBackRegeneratesToTheSameList) {
  // Splits and visual limits aren't filed.
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        AcDbMemoryDwgFiler out(AcDb::kFileFiler);
        if (member->dwgOutFields(&out) != Acad::eOk) return "not written";
        AcDbMemoryDwgFiler in(AcDb::kFileFiler, out.takeBuffer());
        const std::unique_ptr<KrObject> back(KrObject::cast(member->isA()->create()));
        if (back->dwgInFields(&in) != Acad::eOk || !in.atEnd()) return "not read";
        std::string wrong = sameList("read", shown(*back), shown(*member));
        if (wrong.empty()) wrong = Model(*member).differenceTo(Model(*back));
        if (!wrong.empty()) return wrong;
        back->Gera_KrVector();
        return sameList("read and made", shown(*back), shown(*member));
      },
      {.splits = false, .limits = false, .user = false}, 200);
}

TEST(RoundTrip, AnotherViewMadeOnTheSideLeavesTheOneShown) {
  hold(
      [](const Recipe& recipe) -> std::string {
        const auto member = make(recipe);
        member->Gera_KrVector();
        const Elements before = shown(*member);
        const Model model(*member);
        for (const KrVistas view : kElevations) {
          if (view == recipe.view) continue;
          member->Gera_KrVector(view);
          std::string wrong = sameList("beside " + std::to_string(view), shown(*member), before);
          if (wrong.empty()) wrong = model.differenceTo(Model(*member));
          if (!wrong.empty()) return wrong;
          const Elements other = lists::of(*member, view);
          member->Gera_KrVector(view);
          wrong = sameList("twice beside " + std::to_string(view), lists::of(*member, view), other);
          if (!wrong.empty()) return wrong;
        }
        member->Gera_KrVector();
        return sameList("made after the others", shown(*member), before);
      },
      kAll, 200);
}

}  // namespace
