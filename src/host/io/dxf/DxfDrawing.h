#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/db/AcDbDatabase.h"
#include "host/io/dxf/DxfInput.h"

namespace krio::dxf {

/// The records of one table by their names as these stand in the file.
class NameIndex {
 public:
  /// Null for a name that isn't known yet.
  AcDbStub* find(std::string_view name) const {
    if (name == lastName_ && last_ != nullptr) return last_;
    return findOther(name);
  }
  /// The name must last as long as the index.
  void add(std::string_view name, AcDbStub* record);

 private:
  struct Slot {
    std::string_view name;
    AcDbStub* record = nullptr;
  };
  AcDbStub* findOther(std::string_view name) const;
  std::size_t slotOf(std::string_view name) const;

  std::vector<Slot> slots_;  // a power of two of them, at most half in use
  std::size_t count_ = 0;
  mutable std::string_view lastName_;
  mutable AcDbStub* last_ = nullptr;
};

/// The database that a file is read into.
class Drawing {
 public:
  explicit Drawing(Input& input) : in_(input), db_(input.database()) {}
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  Input& in() { return in_; }
  AcDbDatabase& db() { return db_; }
  AcDbDatabase::Roots& roots() { return roots_; }

  /// Puts an object under its handle; one that has none, or one that is taken, gets a new handle. Null when the reading
  /// has stopped: the object is gone then. `weight` is about the memory that it takes.
  AcDbStub* put(std::unique_ptr<AcDbObject> object, std::uint64_t handle, AcDbStub* owner, std::size_t weight);
  /// As above, typed.
  template <class T>
  T* put(std::unique_ptr<T> object, std::uint64_t handle, AcDbStub* owner) {
    T* const raw = object.get();
    return put(std::unique_ptr<AcDbObject>(std::move(object)), handle, owner, sizeof(T)) != nullptr ? raw : nullptr;
  }
  /// A handle above all those of the file.
  std::uint64_t freshHandle();
  /// A handle below the next one that no object has and nothing refers to; 0 when there is none.
  std::uint64_t unusedHandle() const;

  // Records by name. One that isn't there is made where a drawing can do with a plain one, and reported.
  AcDbStub* layer(std::string_view name);
  AcDbStub* linetype(std::string_view name);
  AcDbStub* textStyle(std::string_view name);
  AcDbStub* dimStyle(std::string_view name);
  AcDbBlockTableRecord* block(const std::wstring& name);
  AcDbBlockTableRecord* makeBlock(const std::wstring& name, std::uint64_t handle);
  AcDbStub* recordNamed(AcDbObjectId table, const std::wstring& name) const;

  /// Makes what entities can't do without, where the file hasn't told of it: tables, spaces, layer 0, linetypes.
  void makeBasics();
  /// Makes the rest of what a drawing needs.
  void makeRest();

  /// The class record of a name in the file; null when the list of classes doesn't have it.
  const AcDbClassRecord* classRecord(const std::wstring& dxfName) const;

 private:
  template <class Table>
  void makeTable(AcDbObjectId& root);
  template <class Record>
  AcDbObjectId makeRecord(AcDbObjectId table, const wchar_t* name);
  template <class Record>
  AcDbObjectId findOrMake(AcDbObjectId table, const wchar_t* name);
  /// Makes the dimension style of a drawing that has none.
  void makeDimStyle();

  Input& in_;
  AcDbDatabase& db_;
  AcDbDatabase::Roots roots_;
  NameIndex layers_, linetypes_, textStyles_, dimStyles_;
  bool seedKnown_ = false;
  bool basicsMade_ = false;
  std::size_t weight_ = 0;
};

}  // namespace krio::dxf
