#pragma once

#include "host/ge/ge.h"
#include "host/rx/rx.h"
#include "records/NodeChain.h"

class AcDbDwgFiler;
class KrObjectModCData;

/// One cut of a member, in the member's coordinates, in real size.
struct NoPlano {
  NoPlano() = default;
  /// Copies the pointer to the data as it is: both nodes hold the same, so take it from one of them before they go.
  NoPlano(const NoPlano& other);
  /// Copies plane and side, deletes the present data and takes a clone of the other's, or null. `next` stays.
  NoPlano& operator=(const NoPlano& other);
  /// Deletes the data.
  ~NoPlano();

  /// Transforms plane and side. `Acad::eOk`.
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);

  AcGePlane plane;                    ///< the cutting plane
  AcGePoint3d side;                   ///< a point on the side that is thrown away
  NoPlano* next = nullptr;            ///< next cut of the list
  KrObjectModCData* cdata = nullptr;  ///< modification data, owned; null for none
};

/// The cut planes of a member. Positions are found in constant time, and a node stays where it is while others are
/// added. Positions are not tested against the end, where the operation doesn't say so.
class KrPlanoCorte {
 public:
  KrPlanoCorte() = default;
  KrPlanoCorte(const KrPlanoCorte& other);
  ~KrPlanoCorte();
  /// Takes the other's cuts without their modification data.
  KrPlanoCorte& operator=(const KrPlanoCorte& other);

  /// Adds a cut without data.
  void Add(const AcGePlane& plane, const AcGePoint3d& side);
  /// Adds a copy of the node with a clone of its data.
  void Add(const NoPlano& node);
  void Clear();
  /// Number of cuts.
  unsigned short Qtd() const { return static_cast<unsigned short>(chain_.size()); }
  /// Removes the first cut, which must exist.
  void removeFirst();
  /// Removes cut `i`; outside the list it does nothing.
  void removeAt(int i);

  NoPlano& GetNo(int i) const { return *chain_.at(i); }
  AcGePlane& GetPlane(int i) const { return GetNo(i).plane; }
  AcGePoint3d& GetSide(int i) const { return GetNo(i).side; }
  NoPlano& first() const { return GetNo(0); }
  NoPlano& last() const { return GetNo(Qtd() - 1); }
  /// Overwrites plane and side of cut `i`; its data stays.
  void Troca(const AcGePlane& plane, const AcGePoint3d& side, int i);

  /// Data of cut `i`, null if it has none or `i` is past the end. A negative index gives the first cut's.
  KrObjectModCData* accessCData(int i) const;
  /// Replaces the data of cut `i` by a clone of `data`, which must not be null: 1, or 0 past the end.
  int setCData(int i, const KrObjectModCData* data);
  /// Deletes the data of all cuts (a null class), or where it is of a kind of that class; then every cut must have
  /// data.
  void purgeCData(AcRxClass* classe);

  /// Makes room for cuts that a file announces, `count` in all, as far as those already there vouch for them.
  void expect(int count) { chain_.expect(count); }

  /// Transforms every cut. `Acad::eOk`.
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);
  /// Moves every cut by -d along the bar.
  void movePlanes(double d);
  /// The same for the cuts whose index is in `which`.
  void movePlanes(const AcArray<int>& which, double d);
  /// Moves the first cut by -d along the bar if `i` isn't 0, and none if it is. Use `movePlanes`.
  void movePlane(int i, double d);
  /// Mirrors every cut in the plane across the bar at Z = -comprimento / 2.
  void invertePlanos(double comprimento);

  /// Files the list, each cut with its data. The filer's status.
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
  /// Replaces the list by a filed one. `Acad::eMakeMeProxy` for a version that isn't known, with the list as it was. An
  /// error of the data of a cut ends reading and keeps the cuts read so far.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);

 private:
  bool isValidPos(int i) const { return i < chain_.size(); }
  NoPlano* accessNode(int i) const { return chain_.find(i); }

  NodeChain<NoPlano> chain_;
};
