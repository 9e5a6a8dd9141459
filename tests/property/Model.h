#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "object/KrObject.h"

namespace property {

/// All that a member stores of itself but its elements, as named numbers.
class Model {
 public:
  explicit Model(const KrObject& member) {
    add("view", member.Vista(0));
    double length = 0;
    member.Comprimento(length);
    add("length", length);
    addPoint("start", member.startPoint());
    addPoint("end", member.endPoint());
    addAngle("angleVista", member.angleVista());
    addAngle("angleSecao", member.angleSecao());
    double x = 0, y = 0, z = 0;
    member.Xscale(x);
    member.Yscale(y);
    member.Zscale(z);
    addPoint("scale", {x, y, z});
    add("limit at start", member.visualRepStart());
    add("limit at end", member.visualRepEnd());
    addHoles(member);
    addCuts(member);
    addNotches(member);
    const KrObjectSplitList splits = member.splitList();
    add("splits", splits.length());
    for (int i = 0; i < splits.length(); ++i) {
      add("split place", splits[i].zPos());
      add("split gap", splits[i].length());
    }
  }

  /// What differs, or nothing.
  std::string differenceTo(const Model& other) const {
    constexpr double kSame = 1e-6;
    if (values_.size() != other.values_.size()) return "another number of modifiers";
    for (std::size_t i = 0; i < values_.size(); ++i) {
      const Value& a = values_[i];
      const Value& b = other.values_[i];
      double d = a.number - b.number;
      if (a.angle) d = std::remainder(d, 6.283185307179586);
      // Also what is no number fails.
      if (!(std::fabs(d) < kSame))
        return "model: " + a.name + " was " + std::to_string(a.number) + ", is " + std::to_string(b.number);
    }
    return {};
  }

 private:
  struct Value {
    std::string name;
    double number;
    bool angle;
  };
  void add(const std::string& name, double number) { values_.push_back({name, number, false}); }
  void addAngle(const std::string& name, double number) { values_.push_back({name, number, true}); }
  void addPoint(const std::string& name, const AcGePoint3d& p) {
    add(name + " x", p.x);
    add(name + " y", p.y);
    add(name + " z", p.z);
  }

  void addHoles(const KrObject& member) {
    KrFuro holes;
    member.Furos(holes, 0);
    add("holes", holes.Qtd());
    for (int i = 0; i < holes.Qtd(); ++i) {
      addPoint("hole start", AcGePoint3d::kOrigin + holes.getIni(i));
      addPoint("hole end", AcGePoint3d::kOrigin + holes.getFim(i));
      add("hole diameter", holes.getDiametro(i));
      add("hole stretch", holes.getStretch(i));
      addAngle("hole angle", holes.getAngle(i));
    }
  }
  void addCuts(const KrObject& member) {
    KrPlanoCorte cuts;
    member.getCortes(cuts, 0);
    add("cuts", cuts.Qtd());
    for (int i = 0; i < cuts.Qtd(); ++i) {
      double a = 0, b = 0, c = 0, d = 0;
      cuts.GetPlane(i).getCoefficients(a, b, c, d);
      for (const double n : {a, b, c, d}) add("cut", n);
      // Only the side that it lies on counts, and how far.
      add("cut side", cuts.GetPlane(i).signedDistanceTo(cuts.GetSide(i)));
    }
  }
  /// Both arrays: the notches that the view shows, and those that the view from the next side does.
  void addNotches(const KrObject& member) {
    if (KrObject::isSecao(member.Vista(0)) != Acad::eNotApplicable) return;
    addNotchesShown(member);
    const std::unique_ptr<AcRxObject> copy(member.clone());
    KrObject& turned = *KrObject::cast(copy.get());
    turned.setVista(member.Vista(0) <= Inferior ? Direita : Superior);
    turned.Gera_KrVector();
    addNotchesShown(turned);
  }
  void addNotchesShown(const KrObject& member) {
    KrObjectRecorteArray notches;
    member.getRecortesWCS(notches);
    add("notches", notches.length());
    for (int i = 0; i < notches.length(); ++i) {
      for (const AcGePoint2d& p : notches[i].points()) addPoint("notch", {p.x, p.y, 0});
      for (const double b : notches[i].bulges()) add("notch bulge", b);
      addPoint("notch side", {notches[i].lado().x, notches[i].lado().y, 0});
    }
  }

  std::vector<Value> values_;
};

}  // namespace property
