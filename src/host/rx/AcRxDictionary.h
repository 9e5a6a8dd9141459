#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/rx/AcRxMacros.h"

/// Walks the entries of a dictionary. Entries removed on the way are passed over; entries added aren't met.
class AcRxDictionaryIterator {
 public:
  virtual ~AcRxDictionaryIterator() = default;
  virtual bool done() const = 0;
  virtual bool next() = 0;
  virtual AcRxObject* object() const = 0;
  virtual const ACHAR* key() const = 0;
  virtual Adesk::UInt32 id() const = 0;
};

/// Objects by name. Names compare with or without regard to case, as told at construction. Each entry has an id, which
/// stays its own until it is removed; ids count from 0.
class AcRxDictionary : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDictionary);

  /// `deletesObjects`: the dictionary owns its objects. `ignoreCase`: names differing in case only are one name.
  explicit AcRxDictionary(bool deletesObjects = false, bool ignoreCase = false);
  AcRxDictionary(const AcRxDictionary&) = delete;
  AcRxDictionary& operator=(const AcRxDictionary&) = delete;
  ~AcRxDictionary() override;

  /// The object under a key or an id; null when there is none.
  AcRxObject* at(const ACHAR* key) const;
  AcRxObject* at(Adesk::UInt32 id) const;

  /// Sets the object under `key`, adding the key when new, and gives the entry's id. Returns the object that stood
  /// there before; an owning dictionary deletes that one and returns null.
  AcRxObject* atPut(const ACHAR* key, AcRxObject* object, Adesk::UInt32& id);

  /// Removes an entry. Returns its object; an owning dictionary deletes it and returns null, as for an unknown key.
  AcRxObject* remove(const ACHAR* key);
  AcRxObject* remove(Adesk::UInt32 id);

  bool has(const ACHAR* key) const;
  bool has(Adesk::UInt32 id) const;
  /// The id of a key; kNoId when there is none.
  Adesk::UInt32 idAt(const ACHAR* key) const;
  /// The key of an id; null when there is none.
  const ACHAR* keyAt(Adesk::UInt32 id) const;
  /// Renames an entry. False for an unknown id and for a name in use by another entry.
  bool resetKey(Adesk::UInt32 id, const ACHAR* newKey);

  Adesk::UInt32 numEntries() const;
  bool deletesObjects() const { return deletesObjects_; }
  bool isCaseSensitive() const { return !ignoreCase_; }

  /// A new iterator, owned by the caller, at the first entry.
  AcRxDictionaryIterator* newIterator(AcRx::DictIterType order = AcRx::kDictCollated) const;

  static constexpr Adesk::UInt32 kNoId = 0xffffffffU;

 private:
  friend class AcRxDictionaryWalk;
  struct Entry {
    std::wstring key;
    AcRxObject* object = nullptr;
    bool present = false;
  };
  std::wstring folded(const ACHAR* key) const;
  const Entry* entry(Adesk::UInt32 id) const;

  bool deletesObjects_;
  bool ignoreCase_;
  std::vector<Entry> entries_;
  std::unordered_map<std::wstring, Adesk::UInt32> index_;
};

/// Names of the host's entries in the system registry.
#define ACRX_CLASS_DICTIONARY L"ClassDictionary"
#define ACRX_SERVICE_DICTIONARY L"ServiceDictionary"

/// The registry of everything the host offers by name. Names are case sensitive. It lasts as long as the process.
AcRxDictionary* acrxSysRegistry();

/// The dictionary of run-time classes, by class name, case sensitive. deleteAcRxClass is the way to take one out.
AcRxDictionary* acrxClassDictionaryOf(AcRxDictionary* registry);
#define acrxClassDictionary acrxClassDictionaryOf(acrxSysRegistry())
