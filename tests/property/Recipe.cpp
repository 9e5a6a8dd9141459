#include "property/Recipe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ostream>
#include <sstream>

#include "object/EveryClass.h"

namespace property {

const double kBarLength = everyclass::kLength;

namespace {

constexpr double kPi = 3.141592653589793;
/// Far outside of every section.
constexpr double kFar = 5000;

const std::vector<everyclass::Sample>& samples() {
  static const std::vector<everyclass::Sample> all = everyclass::samples();
  return all;
}

bool isUser(int profile) {
  return std::wstring(samples()[static_cast<std::size_t>(profile)].name) == L"KrUser";
}

bool isAllowed(Step::Kind kind, const Allowed& allowed) {
  switch (kind) {
    case Step::EdgeNotch:
    case Step::CornerNotch:
      return allowed.notches;
    case Step::Split:
      return allowed.splits;
    case Step::Limits:
      return allowed.limits;
    default:
      return true;
  }
}

Step randomStep(Random& random, const Allowed& allowed) {
  Step step;
  do {
    static constexpr Step::Kind kOften[] = {Step::Hole,      Step::Hole,        Step::Cut,   Step::Cut,
                                            Step::EdgeNotch, Step::CornerNotch, Step::Split, Step::Limits};
    step.kind = kOften[random.below(8)];
  } while (!isAllowed(step.kind, allowed));
  step.view = kElevations[random.below(4)];
  step.a = random.between(0.02, 0.98);
  step.b = std::min(0.99, step.a + random.between(0.02, 0.2));
  step.u = random.between(0.05, 0.95);
  step.w = random.between(0.05, 0.6);
  step.size = random.between(1, 40);
  step.atEnd = random.oneIn(2);
  step.onTop = random.oneIn(2);
  step.closed = random.oneIn(2);
  if (random.oneIn(3) && allowed.arcs) step.bulge = random.between(-0.6, 0.6);
  if (step.kind == Step::Cut) {
    step.a = step.atEnd ? random.between(0.7, 0.99) : random.between(0.01, 0.3);
    step.b = random.oneIn(2) ? step.a : step.a + random.between(-0.04, 0.04);
  }
  if (step.kind == Step::CornerNotch) step.a = step.atEnd ? random.between(0.85, 0.99) : random.between(0.01, 0.15);
  return step;
}

const char* nameOf(Step::Kind kind) {
  static constexpr const char* kNames[] = {"hole", "cut", "edge notch", "corner notch", "split", "limits"};
  return kNames[kind];
}

void tell(std::ostream& out, const Step& s) {
  out << "\n    " << nameOf(s.kind) << " in view " << s.view << ": a " << s.a << " b " << s.b << " u " << s.u << " w "
      << s.w << " size " << s.size << " bulge " << s.bulge << (s.atEnd ? " at end" : "") << (s.onTop ? " on top" : "")
      << (s.closed ? " closed" : "");
}

AcGePoint2d flat(const AcGePoint3d& p) {
  return {p.x, p.y};
}

/// Ever simpler recipes that still fail.
Recipe simplest(Recipe recipe, const Property& property) {
  const auto fails = [&](const Recipe& r) { return !property(r).empty(); };
  bool simpler = true;
  while (simpler) {
    simpler = false;
    const auto offer = [&](const Recipe& r) {
      if (!fails(r)) return;
      recipe = r;
      simpler = true;
    };
    for (std::size_t i = recipe.steps.size(); i-- > 0;) {
      Recipe r = recipe;
      r.steps.erase(r.steps.begin() + static_cast<std::ptrdiff_t>(i));
      offer(r);
    }
    const auto without = [&](auto change, bool already) {
      if (already) return;
      Recipe r = recipe;
      change(r);
      offer(r);
    };
    without([](Recipe& r) { r.angle = 0; }, recipe.angle == 0);
    without([](Recipe& r) { r.x = r.y = 0; }, recipe.x == 0 && recipe.y == 0);
    without([](Recipe& r) { r.scale = 1; }, recipe.scale == 1);
    without([](Recipe& r) { r.axisAlong = 0; }, recipe.axisAlong == 0);
    without([](Recipe& r) { r.axisAcross = 0; }, recipe.axisAcross == 0);
    without([](Recipe& r) { r.quarter = 0; }, recipe.quarter == 0);
    without([](Recipe& r) { r.profile = 2; }, recipe.profile == 2);
    without([](Recipe& r) { r.view = Superior; }, recipe.view == Superior);
    for (std::size_t i = 0; i < recipe.steps.size(); ++i) {
      without([i](Recipe& r) { r.steps[i].view = Superior; }, recipe.steps[i].view == Superior);
      without([i](Recipe& r) { r.steps[i].bulge = 0; }, recipe.steps[i].bulge == 0);
      without([i](Recipe& r) { r.steps[i].b = r.steps[i].a; },
              recipe.steps[i].kind != Step::Cut || recipe.steps[i].b == recipe.steps[i].a);
    }
  }
  return recipe;
}

long fromEnvironment(const char* name, long otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::strtol(text, nullptr, 10);
}

bool isInverted(KrVistas view) {
  return view == Inferior || view == Esquerda;
}

}  // namespace

std::uint64_t Random::next() {
  state_ += 0x9e3779b97f4a7c15ULL;
  std::uint64_t z = state_;
  z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
  z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
  return z ^ (z >> 31);
}

std::ostream& operator<<(std::ostream& out, const Recipe& r) {
  const std::wstring name = samples()[static_cast<std::size_t>(r.profile)].name;
  out << std::string(name.begin(), name.end()) << " (" << r.profile << ") view " << r.view << " quarter " << r.quarter
      << " angle " << r.angle << " scale " << r.scale << " at (" << r.x << ", " << r.y << ")";
  for (const Step& s : r.steps) tell(out, s);
  if (r.axisAlong != 0 || r.axisAcross != 0) out << "\n    axis moved by " << r.axisAlong << ", " << r.axisAcross;
  return out;
}

Recipe randomRecipe(Random& random, const Allowed& allowed) {
  Recipe r;
  do {
    r.profile = random.below(static_cast<int>(samples().size()));
  } while (!allowed.user && isUser(r.profile));
  r.view = kElevations[random.below(4)];
  r.quarter = random.below(4);
  r.angle = random.oneIn(3) ? random.below(4) * (kPi / 2) : random.between(0, 2 * kPi);
  r.scale = random.oneIn(2) ? 0.1 : 1.0;
  r.x = random.oneIn(3) ? 0 : random.between(-5000, 5000);
  r.y = random.oneIn(3) ? 0 : random.between(-5000, 5000);
  const int steps = random.below(allowed.mostSteps + 1);
  for (int i = 0; i < steps; ++i) r.steps.push_back(randomStep(random, allowed));
  if (random.oneIn(3)) {
    r.axisAlong = random.between(-100, 100);
    r.axisAcross = random.oneIn(2) ? 0 : random.between(-50, 50);
  }
  return r;
}

Sheet::Sheet(const Recipe& recipe, KrVistas view)
    : start_(recipe.x, recipe.y, 0),
      direction_(std::cos(recipe.angle), std::sin(recipe.angle), 0),
      scale_(recipe.scale) {
  left_.set(-direction_.y, direction_.x, 0);
  // Drawn from the end, left lies on the other side.
  if (isInverted(view)) left_.negate();
}

AcGePoint3d Sheet::at(double along, double up) const {
  return start_ + direction_ * (along * scale_) + left_ * (up * scale_);
}
double Sheet::along(const AcGePoint3d& p) const {
  return (p - start_).dotProduct(direction_) / scale_;
}
double Sheet::up(const AcGePoint3d& p) const {
  return (p - start_).dotProduct(left_) / scale_;
}

std::unique_ptr<KrObject> plain(const Recipe& recipe, KrVistas view) {
  std::unique_ptr<KrObject> member = samples()[static_cast<std::size_t>(recipe.profile)].make(view);
  member->setAngleSecao(recipe.quarter * (kPi / 2));
  member->Gera_KrVector();
  const bool section = KrObject::isSecao(view) == Acad::eOk;
  if (section) {
    // A section lies at the bar's start, upright.
    const AcGePoint3d at = member->startPoint();
    member->transformBy(AcGeMatrix3d::translation(AcGePoint3d(recipe.x, recipe.y, 0) - at));
    member->ObjectScale(recipe.scale, recipe.scale, recipe.scale);
    return member;
  }
  member->ObjectScale(recipe.scale, recipe.scale, recipe.scale);
  const Sheet sheet(recipe, view);
  KrObject::Position place;
  member->position(place, 0);
  place.ponto = sheet.at(isInverted(view) ? kBarLength : 0, 0);
  place.direcao = isInverted(view) ? -sheet.direction() : sheet.direction();
  member->setPosition(place, 0);
  return member;
}

std::unique_ptr<KrObject> seenIn(const Recipe& recipe, const KrObject& member, KrVistas view) {
  std::unique_ptr<KrObject> other = plain(recipe, view);
  other->copyModifiersFrom(member);
  AcGePoint3d start, end;
  if (member.GetPointsOfEixo(start, end, 1) != Acad::eOk) return other;
  if (KrObject::isSecao(view) == Acad::eOk) {
    other->setComprimentoReal(recipe.scale * member.getComprimentoReal());
    other->Gera_KrVector();
    return other;
  }
  if (member.verifyInversion(view)) std::swap(start, end);
  KrObject::Position place;
  other->position(place, 0);
  place.ponto = start;
  place.comprimento = start.distanceTo(end);
  place.inicio = 0;
  place.fim = place.comprimento;
  other->setPosition(place, 0);
  return other;
}

Width widthOf(const Recipe& recipe, const KrObject& member) {
  const Sheet sheet(recipe, member.Vista(0));
  AcGePoint3d e[4];
  member.GetExtremePoints(e, 0, 0);
  return {sheet.up(e[1]), sheet.up(e[0])};
}

CutPlaces cutOf(const Step& step, const Width& width) {
  const double low = width.low - 10;
  const double high = width.high + 10;
  return {{step.a * kBarLength, low},
          {step.b * kBarLength, high},
          {(step.atEnd ? 1.2 : -0.2) * kBarLength, (low + high) / 2}};
}

NotchPolygon notchOf(const Step& step, const Width& width) {
  const double wide = width.high - width.low;
  const double depth = step.w * wide;
  // From outside of the long edge into the bar.
  const double outer = step.onTop ? width.high + 10 : width.low - 10;
  const double inner = step.onTop ? width.high - depth : width.low + depth;
  const double sign = step.onTop ? 1 : -1;
  const double far = step.closed ? outer : outer + sign * kFar;
  NotchPolygon n;
  if (step.kind == Step::EdgeNotch) {
    const double a = step.a * kBarLength;
    const double b = step.b * kBarLength;
    n.points = {{a, outer}, {a, inner}, {b, inner}, {b, outer}};
    n.bulges = {0, step.bulge, 0, 0};
    n.side = {(a + b) / 2, step.onTop ? width.high - 1e-3 * wide : width.low + 1e-3 * wide};
    if (!step.closed) {
      n.points.push_back({b, far});
      n.points.push_back({a, far});
      n.bulges.insert(n.bulges.end(), {0, 0});
    }
    return n;
  }
  const double a = step.a * kBarLength;
  const double beyond = (step.atEnd ? 1 : 0) * kBarLength + (step.atEnd ? 50 : -50);
  const double farBeyond = step.closed ? beyond : (step.atEnd ? kBarLength + kFar : -kFar);
  n.points = {{a, outer}, {a, inner}, {beyond, inner}};
  n.bulges = {0, 0, 0};
  if (step.bulge != 0) {
    // A rounded inner corner.
    const double r = std::min(0.5 * depth, 0.5 * std::fabs(beyond - a));
    n.points = {{a, outer}, {a, inner + sign * r}, {a + (step.atEnd ? r : -r), inner}, {beyond, inner}};
    n.bulges = {0, step.bulge, 0, 0};
  }
  n.side = {(a + (step.atEnd ? 1 : 0) * kBarLength) / 2,
            step.onTop ? width.high - 1e-3 * wide : width.low + 1e-3 * wide};
  if (!step.closed) {
    n.points.push_back({farBeyond, inner});
    n.points.push_back({farBeyond, far});
    n.points.push_back({a, far});
    n.bulges.insert(n.bulges.end(), {0, 0, 0});
  } else {
    n.points.push_back({beyond, outer});
    n.bulges.push_back(0);
  }
  return n;
}

namespace {

bool notch(const Recipe& recipe, const Step& step, KrObject& member) {
  const Sheet sheet(recipe, member.Vista(0));
  const NotchPolygon n = notchOf(step, widthOf(recipe, member));
  // An open notch is given without what lies far outside.
  const std::size_t outside = step.closed ? 0 : (step.kind == Step::EdgeNotch ? 2 : 3);
  // The drawn sense of arcs: seen from behind, the sheet's frame is left-handed.
  const double sense = isInverted(member.Vista(0)) ? -1 : 1;
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  for (std::size_t i = 0; i + outside < n.points.size(); ++i) {
    points.append(flat(sheet.at(n.points[i].along, n.points[i].up)));
    bulges.append(sense * n.bulges[i]);
  }
  if (step.closed) {
    points.append(points.first());
    bulges.append(0.0);
  }
  AcGePoint2d side = flat(sheet.at(n.side.along, n.side.up));
  return member.Recorte(points, bulges, side) == Acad::eOk;
}

}  // namespace

bool apply(const Recipe& recipe, const Step& step, KrObject& member) {
  const Sheet sheet(recipe, member.Vista(0));
  const Width width = widthOf(recipe, member);
  switch (step.kind) {
    case Step::Hole: {
      const int before = member.numFuros();
      const double up = width.low + step.u * (width.high - width.low);
      const double stretch = step.onTop ? step.size : 0;
      member.FurarVista(sheet.at(step.a * kBarLength, up), 1000, step.size, stretch, step.closed ? 0.3 : 0.0, -1, 1);
      return member.numFuros() != before;
    }
    case Step::Cut: {
      const CutPlaces c = cutOf(step, width);
      AcGePoint3d p = sheet.at(c.p.along, c.p.up);
      AcGePoint3d q = sheet.at(c.q.along, c.q.up);
      AcGePoint3d side = sheet.at(c.side.along, c.side.up);
      return member.Corte(p, q, side, 0, step.closed ? 1 : 0) == Acad::eOk;
    }
    case Step::EdgeNotch:
    case Step::CornerNotch:
      return notch(recipe, step, member);
    case Step::Split: {
      KrObjectSplit split;
      split.setLength(step.size);
      if (member.adjustSplit(split, sheet.at(step.a * kBarLength, 0)) != Acad::eOk) return false;
      member.addSplit(split, 0);
      return true;
    }
    case Step::Limits:
      if (step.onTop || step.closed) member.setVisualRepStart(step.a);
      if (!step.onTop || step.closed) member.setVisualRepEnd(step.b);
      member.Gera_KrVector();
      return true;
  }
  return false;
}

std::unique_ptr<KrObject> make(const Recipe& recipe, std::vector<bool>* taken) {
  std::unique_ptr<KrObject> member = plain(recipe, recipe.view);
  for (const Step& step : recipe.steps) {
    if (member->Vista(0) != step.view) member = seenIn(recipe, *member, step.view);
    const bool took = apply(recipe, step, *member);
    if (taken != nullptr) taken->push_back(took);
    member->Gera_KrVector();
  }
  if (member->Vista(0) != recipe.view) member = seenIn(recipe, *member, recipe.view);
  const Sheet sheet(recipe, recipe.view);
  member->moveEixo(sheet.at(recipe.axisAlong, recipe.axisAcross) - sheet.at(0, 0));
  return member;
}

void hold(const Property& property, const Allowed& allowed, int cases) {
  const long count = fromEnvironment("KR_PROPERTY_CASES", cases);
  const long first = fromEnvironment("KR_PROPERTY_FIRST", 0);
  constexpr int kEnoughFailures = 3;
  int failures = 0;
  for (long i = first; i < first + count && failures < kEnoughFailures; ++i) {
    Random random(static_cast<std::uint64_t>(i) * 0x2545f4914f6cdd1dULL + 1);
    const Recipe recipe = randomRecipe(random, allowed);
    if (property(recipe).empty()) continue;
    ++failures;
    const Recipe least = simplest(recipe, property);
    std::ostringstream text;
    text << least;
    ADD_FAILURE() << "case " << i << ": " << property(least) << "\n  " << text.str();
  }
}

}  // namespace property
