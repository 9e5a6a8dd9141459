#pragma once

#include "host/ge/ge.h"
#include "host/rx/rx.h"
#include "records/NodeChain.h"

class AcDbDwgFiler;
class KrObjectModCData;

/// One hole of a member, in the section's coordinates with Z along the bar, in real size.
struct NoFuro {
  NoFuro() = default;
  /// Copies the pointer to the data as it is: both nodes hold the same, so take it from one of them before they go.
  NoFuro(const NoFuro& other);
  /// Copies the measures, deletes the present data and takes a clone of the other's, or null. `next` stays.
  NoFuro& operator=(const NoFuro& other);
  /// Deletes the data.
  ~NoFuro();

  AcGeVector3d Ini;                   ///< one end of the hole's axis
  AcGeVector3d Fim;                   ///< other end of the hole's axis
  double Diametro = 0.0;              ///< diameter
  double Stretch = 0.0;               ///< stretch of an oblong hole, 0 for a round one
  double Angle = 0.0;                 ///< angle of an oblong hole, radians
  NoFuro* next = nullptr;             ///< next hole of the list
  KrObjectModCData* cdata = nullptr;  ///< modification data, owned; null for none
};

/// The holes of a member. Positions are found in constant time, and a node stays where it is while others are added.
class KrFuro {
 public:
  KrFuro() = default;
  KrFuro(const KrFuro& other);
  ~KrFuro();
  /// Takes the other's holes without their modification data.
  KrFuro& operator=(const KrFuro& other);

  /// Adds a hole without data.
  void Add(const AcGeVector3d& ini, const AcGeVector3d& fim, double diametro, double stretch, double angle);
  /// Adds a copy of the node that takes over its data: the caller lets go of it, or passes a node without.
  void Add(const NoFuro& node);
  /// Adds the other's holes with clones of their data; into an empty list that is an assignment, which drops the data.
  void Add(const KrFuro& other);
  void Clear();
  /// Number of holes.
  unsigned short Qtd() const { return qtd_; }

  /// Values of hole `i`, which must exist.
  const AcGeVector3d& getIni(int i) const { return accessNode(i)->Ini; }
  const AcGeVector3d& getFim(int i) const { return accessNode(i)->Fim; }
  double getDiametro(int i) const { return accessNode(i)->Diametro; }
  double getStretch(int i) const { return accessNode(i)->Stretch; }
  double getAngle(int i) const { return accessNode(i)->Angle; }
  /// The measures of hole `i`, which must exist, in a node of its own without data.
  NoFuro getNo(int i) const;

  /// Store into hole `i`; past the end they do nothing.
  void setIni(int i, const AcGeVector3d& ini);
  void setFim(int i, const AcGeVector3d& fim);
  void setDiametro(int i, double diametro);
  void setStretch(int i, double stretch);
  void setAngle(int i, double angle);
  /// Assigns the measures and a clone of the data.
  void setNode(int i, const NoFuro& node);

  /// The node of hole `i`: the first for a negative index, null past the end.
  NoFuro* accessNode(int i) const { return chain_.find(i); }
  NoFuro* getNode(int i) const { return chain_.find(i); }

  /// 1 if a hole has the node's two ends, within the global tolerance; diameter and the rest aren't compared.
  int contain(const NoFuro& node) const;

  /// Removes hole `i`. 1 if it was removed, but 0 for the first hole, which is removed too; 0 without change outside
  /// the list.
  int removeAt(int i);
  /// Removes the first hole. The list must have one: on an empty list the count wraps to 65535.
  void removeFirst();

  /// Data of hole `i`, null if it has none or `i` is past the end. A negative index gives the first hole's.
  KrObjectModCData* accessCData(int i) const;
  /// Replaces the data of hole `i` by a clone of `data`, or by none: 1, or 0 past the end.
  int setCData(int i, const KrObjectModCData* data);
  /// Deletes the data of all holes (a null class), or where it is of a kind of that class; then every hole must have
  /// data.
  void purgeCData(AcRxClass* classe);

  /// Moves the holes along the bar.
  void moveFuros(double d);
  void translateFuros(const AcGeVector3d& v);
  /// Turns the holes about the Z axis through the origin.
  void rotateFuros(double angle);
  /// Turns the holes end for end on a bar of length `comprimento`: `Ini` and `Angle` are mirrored, `Fim` stays.
  void inverteFuros(double comprimento);

  /// Makes room for holes that a file announces, `count` in all, as far as those already there vouch for them.
  void expect(int count) { chain_.expect(count); }

  /// Files the list, each hole with its data. The filer's status.
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
  /// Replaces the list by a filed one. `Acad::eMakeMeProxy` for a version that isn't known; with the first of the two
  /// versions the list stays as it was. An error of the data of a hole ends reading and keeps the holes read so far.
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);

 private:
  bool isValidPos(int i) const { return i < static_cast<int>(qtd_); }
  NoFuro* newTail();

  unsigned short qtd_ = 0;
  NodeChain<NoFuro> chain_;
};
