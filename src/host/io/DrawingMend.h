#pragma once

#include <unordered_map>
#include <vector>

struct AcDbStub;
class AcDbDatabase;
class AcDbObject;

// What an audit does about references that lead to nothing.

namespace krio {

/// The dictionary, among the named objects, of objects whose owner was lost; each under its handle. Further ones have a
/// number behind the name.
inline constexpr const wchar_t* kRecoveredDictionary = L"KR_RECOVERED";

/// Gives an object something else for what it needs and the drawing lacks: ByLayer or Continuous for a linetype, an
/// empty block named after the lost one's handle for the block of an insert, and else nothing; entries of dictionaries
/// that lead nowhere are taken out. Of a module's object only what every entity has can be mended. Whether it needs
/// nothing now that isn't there.
bool mendReferences(AcDbDatabase& db, AcDbStub& stub);

/// Gives a layout whose block isn't there the one that names it as its layout, or else erases it: a layout shows a
/// block and is nothing without. False where it can't be opened.
bool mendLayout(AcDbDatabase& db, AcDbStub& stub);
/// Takes erased layouts out of the dictionaries that list them.
void forgetLayouts(AcDbDatabase& db);

/// Gives objects whose owner isn't there another: the dictionary that lists one, model space for an entity, none for a
/// table or the dictionary of named objects, and kRecoveredDictionary for the rest. Records of tables, and what belongs
/// to another entity or a block, have no other.
class Orphanage {
 public:
  explicit Orphanage(AcDbDatabase& db) : db_(db) {}

  /// Where an orphan goes, in words; empty for one that can't be helped.
  static const char* remedyFor(const AcDbObject& orphan);
  /// Gives it an owner; false as above. Those for kRecoveredDictionary wait for close().
  bool take(AcDbStub& orphan);
  /// Fills kRecoveredDictionary. False when that can't be had.
  bool close();

 private:
  AcDbDatabase& db_;
  bool looked_ = false;
  std::unordered_map<const AcDbStub*, AcDbStub*> listers_;  // what stands in a dictionary, by the dictionary
  std::vector<AcDbStub*> waiting_;
};

}  // namespace krio
