#pragma once

#include <string>

/// Wide text of the product's libraries. Null counts as the empty text.
class KrString {
 public:
  KrString() = default;
  KrString(const wchar_t* text) : text_(text != nullptr ? text : L"") {}

  KrString& operator=(const wchar_t* text);
  KrString& operator+=(const wchar_t* text);
  KrString operator+(const wchar_t* text) const;

  /// The text, ended with 0; it lasts until the string changes.
  operator const wchar_t*() const { return text_.c_str(); }
  const wchar_t* c_str() const { return text_.c_str(); }

  int length() const { return static_cast<int>(text_.size()); }
  bool isEmpty() const { return text_.empty(); }

 private:
  std::wstring text_;
};
