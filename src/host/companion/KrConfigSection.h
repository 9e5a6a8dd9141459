#pragma once

#include <string>
#include <unordered_map>

#include "host/companion/KrString.h"

/// One named section of a configuration file: values by key.
///
/// The file is text in UTF-8 or Windows-1252. A line "[Name]" begins a section, a line "key=value" gives a value of the
/// section it stands in; blanks around names, keys and values don't count. A line that begins with ';' or '#' is a
/// comment, and a line without '=' is passed over. Names of sections and keys compare without regard to case. A section
/// may stand in several pieces; of two values for a key the later counts.
class KrConfigSection {
 public:
  explicit KrConfigSection(const wchar_t* name = L"") : name_(name) {}

  void setName(const wchar_t* name) { name_ = name; }
  const KrString& name() const { return name_; }

  /// Adds the values that the file has for this section. 1, or 0 when the file can't be read or has no such section;
  /// the values held are then as before.
  int Load(const wchar_t* path);

  /// Sets `value` to the value of `key`; 1, or 0, with `value` as it was, when there is none.
  int getVar(const KrString& key, KrString& value) const;

  /// The number of keys.
  int count() const { return static_cast<int>(values_.size()); }

 private:
  KrString name_;
  std::unordered_map<std::wstring, std::wstring> values_;
};
