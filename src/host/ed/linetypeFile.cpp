#include <charconv>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/os/os.h"

// A file of linetypes: lines "*NAME,description", each followed by a line "A,dash,gap,..."; a semicolon begins a
// comment. Dashes are positive, gaps negative, dots 0. A pattern begins with a dash or a dot.

namespace {

struct Definition {
  std::wstring name;
  std::wstring description;
  std::vector<double> dashes;
  int line = 0;
};

std::wstring trimmed(const std::wstring& text) {
  const std::size_t start = text.find_first_not_of(L" \t");
  if (start == std::wstring::npos) return {};
  return text.substr(start, text.find_last_not_of(L" \t") - start + 1);
}

std::optional<double> number(const std::wstring& text) {
  const std::string bytes = os::toUtf8(text);
  const char* first = bytes.data();
  const char* const last = first + bytes.size();
  if (first != last && *first == '+') ++first;
  double value = 0.0;
  const auto [end, error] = std::from_chars(first, last, value);
  if (error != std::errc() || end != last) return std::nullopt;
  return value;
}

void report(const wchar_t* file, int line, const wchar_t* what) {
  acutPrintf(L"\n%s, line %d: %s", file, line, what);
}

/// Reads "A,0.5,-0.25". The message says what is wrong.
Acad::ErrorStatus readPattern(const std::wstring& text, std::vector<double>& dashes, const wchar_t*& message) {
  message = L"";
  if (text.find(L'[') != std::wstring::npos) {
    message = L"linetypes with shapes or texts aren't known.";
    return Acad::eUndefineShapeName;
  }
  if (text.size() < 2 || os::upperCase(text[0]) != L'A' || text[1] != L',') {
    message = L"a pattern that begins with \"A,\" is missing.";
    return Acad::eBadLinetypeName;
  }
  for (std::size_t start = 2; start <= text.size();) {
    const std::size_t end = std::min(text.find(L',', start), text.size());
    const std::optional<double> dash = number(trimmed(text.substr(start, end - start)));
    if (!dash) {
      message = L"a dash is no number.";
      return Acad::eBadLinetypeName;
    }
    dashes.push_back(*dash);
    start = end + 1;
  }
  if (dashes.size() < 2 || dashes.size() > AcDbLinetypeTableRecord::kMaxDashes) {
    message = L"a pattern has 2 to 12 dashes.";
    return Acad::eBadLinetypeName;
  }
  if (dashes.front() < 0.0) {
    message = L"a pattern begins with a dash or a dot, not with a gap.";
    return Acad::eBadLinetypeName;
  }
  return Acad::eOk;
}

Acad::ErrorStatus addLinetype(AcDbLinetypeTable& table, const Definition& definition) {
  if (table.has(definition.name.c_str())) return Acad::eDuplicateRecordName;
  auto record = std::make_unique<AcDbLinetypeTableRecord>();
  record->setName(definition.name.c_str());
  record->setComments(definition.description.c_str());
  record->setNumDashes(static_cast<int>(definition.dashes.size()));
  double length = 0.0;
  for (std::size_t i = 0; i < definition.dashes.size(); ++i) {
    record->setDashLengthAt(static_cast<int>(i), definition.dashes[i]);
    length += std::abs(definition.dashes[i]);
  }
  record->setPatternLength(length);
  const Acad::ErrorStatus status = table.add(record.get());
  if (status == Acad::eOk) record.release()->close();
  return status;
}

/// Walks the file and gives each definition that is asked for, read or not, to `take`; stops when it answers false.
template <class Take>
void forEachDefinition(os::TextReader& reader, const wchar_t* wanted, Take take) {
  std::wstring text;
  int line = 0;
  std::optional<Definition> open;
  const bool all = std::wstring_view(wanted) == L"*";
  while (reader.line(text)) {
    ++line;
    text = trimmed(text);
    if (text.empty() || text.front() == L';') continue;
    if (text.front() == L'*') {
      if (open && !take(*open, std::wstring())) return;
      const std::size_t comma = std::min(text.find(L','), text.size());
      open = Definition{trimmed(text.substr(1, comma - 1)),
                        comma < text.size() ? trimmed(text.substr(comma + 1)) : std::wstring(),
                        {},
                        line};
      if (!all && os::compareNoCase(open->name, wanted) != 0) open.reset();
      continue;
    }
    if (!open) continue;
    open->line = line;
    if (!take(*open, text)) return;
    open.reset();
  }
  if (open) take(*open, std::wstring());
}

}  // namespace

Acad::ErrorStatus acdbLoadLineTypeFile(const wchar_t* linetype, const wchar_t* file, AcDbDatabase* database) {
  if (linetype == nullptr || file == nullptr || *linetype == L'\0') return Acad::eInvalidInput;
  if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr) return Acad::eNoDatabase;
  os::TextReader reader;
  if (!reader.open(file)) {
    acutPrintf(L"\nThe linetype file %s can't be read.", file);
    return Acad::eFileNotFound;
  }
  AcDbLinetypeTable* table = nullptr;
  Acad::ErrorStatus result = database->getLinetypeTable(table, AcDb::kForWrite);
  if (result != Acad::eOk) return result;
  const bool all = std::wstring_view(linetype) == L"*";
  bool found = false;
  // With "*" the file is read to its end whatever one linetype is like; the first failure is the answer.
  forEachDefinition(reader, linetype, [&](Definition& definition, const std::wstring& pattern) {
    const wchar_t* message = L"";
    Acad::ErrorStatus status = readPattern(pattern, definition.dashes, message);
    if (status != Acad::eOk) {
      report(file, definition.line, message);
    } else {
      status = addLinetype(*table, definition);
      if (all && status == Acad::eDuplicateRecordName) status = Acad::eOk;
    }
    found = true;
    if (result == Acad::eOk) result = status;
    return all;
  });
  table->close();
  if (found) return result;
  acutPrintf(L"\n%s has no linetype %s.", file, linetype);
  return Acad::eUndefinedLineType;
}
