#include "host/ed/sysvars.h"

#include <cmath>
#include <map>
#include <optional>
#include <variant>

#include "host/db/db.h"
#include "host/ed/AcEditor.h"
#include "host/os/os.h"

// One table tells of every variable: its type, home and range, and either a default value, kept here, or the pair of
// functions that reach it in the database.

namespace {

using edhost::VarHome;
using Value = std::variant<int, double, std::wstring, AcGePoint3d>;
using Getter = Value (*)(const AcDbDatabase&);
using Setter = Acad::ErrorStatus (*)(AcDbDatabase&, const Value&);

constexpr double kAny = 1e300;
constexpr double kShort = 32767;

struct Variable {
  const wchar_t* name;
  short type;
  VarHome home;
  bool readOnly;
  double low;
  double high;
  Value initial;
  Getter get = nullptr;
  Setter set = nullptr;
};

std::wstring recordName(AcDbObjectId id) {
  AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead, true);
  const ACHAR* name = nullptr;
  return record.openStatus() == Acad::eOk && record->getName(name) == Acad::eOk ? name : L"";
}

template <class Table>
AcDbObjectId recordNamed(AcDbDatabase& database, const Value& name) {
  Table* table = nullptr;
  AcDbObjectId id;
  if (database.getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return id;
  if (table->getAt(std::get<std::wstring>(name).c_str(), id) != Acad::eOk) id = AcDbObjectId::kNull;
  table->close();
  return id;
}

std::wstring colorText(const AcCmColor& color) {
  if (color.isByLayer()) return L"BYLAYER";
  if (color.isByBlock()) return L"BYBLOCK";
  return std::to_wstring(color.colorIndex());
}

Acad::ErrorStatus setColor(AcDbDatabase& database, const Value& value) {
  const std::wstring& text = std::get<std::wstring>(value);
  AcCmColor color;
  int index = AcCmColor::kACIbyLayer;
  if (os::compareNoCase(text, L"BYBLOCK") == 0) {
    index = AcCmColor::kACIbyBlock;
  } else if (os::compareNoCase(text, L"BYLAYER") != 0) {
    index = _wtoi(text.c_str());
    if (index < 1 || index > AcCmColor::kACImaximum) return Acad::eInvalidInput;
  }
  color.setColorIndex(index);
  return database.setCecolor(color);
}

AcGePoint3d lifted(const AcGePoint2d& p) {
  return {p.x, p.y, 0.0};
}

AcGePoint2d flat(const Value& value) {
  const auto& p = std::get<AcGePoint3d>(value);
  return {p.x, p.y};
}

/// Ranges of the integers and reals in a drawing's header.
std::pair<double, double> headerRange(std::wstring_view name) {
  if (name == L"LTSCALE" || name == L"CELTSCALE" || name == L"TEXTSIZE") return {1e-99, kAny};
  if (name == L"TILEMODE" || name == L"MEASUREMENT" || name == L"PSLTSCALE" || name == L"MIRRTEXT" || name == L"ANGDIR")
    return {0, 1};
  if (name == L"LUNITS") return {1, 5};
  if (name == L"LUPREC" || name == L"AUPREC") return {0, 8};
  if (name == L"AUNITS") return {0, 4};
  if (name == L"INSUNITS") return {0, 20};
  if (name == L"DIMASSOC") return {0, 2};
  if (name == L"CELWEIGHT") return {-3, 211};
  return name == L"FILLETRAD" ? std::pair{0.0, kAny} : std::pair{-kAny, kAny};
}

void addHeaderVariables(std::vector<Variable>& table) {
#define KR_REAL(getter, setter, name, value)                                                                        \
  table.push_back({name, RTREAL, VarHome::Drawing, false, headerRange(name).first, headerRange(name).second, value, \
                   [](const AcDbDatabase& d) -> Value { return d.getter(); },                                       \
                   [](AcDbDatabase& d, const Value& v) { return d.setter(std::get<double>(v)); }});
  KR_DB_HEADER_REALS(KR_REAL)
#undef KR_REAL
#define KR_INT(getter, setter, name, value)                                                                          \
  table.push_back({name, RTSHORT, VarHome::Drawing, false, headerRange(name).first, headerRange(name).second, value, \
                   [](const AcDbDatabase& d) -> Value { return d.getter(); },                                        \
                   [](AcDbDatabase& d, const Value& v) { return d.setter(std::get<int>(v)); }});
  KR_DB_HEADER_INTS(KR_INT)
#undef KR_INT
}

void addDatabaseVariables(std::vector<Variable>& table) {
  using D = AcDbDatabase;
  const auto text = [&](const wchar_t* name, Getter get, Setter set) {
    table.push_back({name, RTSTR, VarHome::Drawing, set == nullptr, 0, 0, std::wstring(), get, set});
  };
  const auto point = [&](const wchar_t* name, short type, Getter get, Setter set) {
    table.push_back({name, type, set == nullptr ? VarHome::Computed : VarHome::Drawing, set == nullptr, 0, 0,
                     AcGePoint3d(), get, set});
  };
  text(
      L"CLAYER", [](const D& d) -> Value { return recordName(d.clayer()); },
      [](D& d, const Value& v) { return d.setClayer(recordNamed<AcDbLayerTable>(d, v)); });
  text(
      L"CELTYPE", [](const D& d) -> Value { return recordName(d.celtype()); },
      [](D& d, const Value& v) { return d.setCeltype(recordNamed<AcDbLinetypeTable>(d, v)); });
  text(
      L"TEXTSTYLE", [](const D& d) -> Value { return recordName(d.textstyle()); },
      [](D& d, const Value& v) { return d.setTextstyle(recordNamed<AcDbTextStyleTable>(d, v)); });
  text(
      L"CECOLOR", [](const D& d) -> Value { return colorText(d.cecolor()); }, setColor);
  text(
      L"DIMSTYLE", [](const D& d) -> Value { return recordName(d.dimstyle()); }, nullptr);
  table.push_back({L"DIMSCALE", RTREAL, VarHome::Drawing, false, 0, kAny, 1.0,
                   [](const D& d) -> Value { return d.dimscale(); },
                   [](D& d, const Value& v) { return d.setDimscale(std::get<double>(v)); }});
  point(
      L"LIMMIN", RTPOINT, [](const D& d) -> Value { return lifted(d.limmin()); },
      [](D& d, const Value& v) { return d.setLimmin(flat(v)); });
  point(
      L"LIMMAX", RTPOINT, [](const D& d) -> Value { return lifted(d.limmax()); },
      [](D& d, const Value& v) { return d.setLimmax(flat(v)); });
  point(
      L"EXTMIN", RT3DPOINT, [](const D& d) -> Value { return d.extmin(); }, nullptr);
  point(
      L"EXTMAX", RT3DPOINT, [](const D& d) -> Value { return d.extmax(); }, nullptr);
  point(
      L"UCSORG", RT3DPOINT, [](const D& d) -> Value { return d.ucsorg(); }, nullptr);
  point(
      L"UCSXDIR", RT3DPOINT, [](const D& d) -> Value { return d.ucsxdir().asPoint(); }, nullptr);
  point(
      L"UCSYDIR", RT3DPOINT, [](const D& d) -> Value { return d.ucsydir().asPoint(); }, nullptr);
}

void addOwnVariables(std::vector<Variable>& table) {
  const auto whole = [&](const wchar_t* name, VarHome home, double low, double high, int initial,
                         bool readOnly = false) {
    table.push_back({name, RTSHORT, home, readOnly, low, high, initial});
  };
  const auto text = [&](const wchar_t* name, const wchar_t* initial, bool readOnly) {
    table.push_back({name, RTSTR, VarHome::Session, readOnly, 0, 0, std::wstring(initial)});
  };
  whole(L"CMDACTIVE", VarHome::Session, 0, kShort, 0, true);
  text(L"CMDNAMES", L"", true);
  whole(L"ERRNO", VarHome::Session, 0, kShort, 0, true);
  text(L"DWGNAME", L"", true);
  text(L"DWGPREFIX", L"", true);
  whole(L"DWGTITLED", VarHome::Session, 0, 1, 0, true);
  whole(L"CMDECHO", VarHome::Session, 0, 1, 1);
  whole(L"FILEDIA", VarHome::Session, 0, 1, 0);
  whole(L"EXPERT", VarHome::Session, 0, 5, 0);
  whole(L"HIGHLIGHT", VarHome::Session, 0, 1, 1);
  whole(L"PICKBOX", VarHome::Session, 0, 50, 3);
  whole(L"APERTURE", VarHome::Session, 1, 50, 10);
  whole(L"PICKADD", VarHome::Session, 0, 1, 1);
  whole(L"PICKFIRST", VarHome::Session, 0, 1, 0);
  whole(L"OSMODE", VarHome::Session, 0, kShort, 0);
  whole(L"SAVETIME", VarHome::Session, 0, kShort, 10);
  // What a pick box covers follows from the size of the view, though there is no screen.
  table.push_back({L"VIEWSIZE", RTREAL, VarHome::Session, true, 0, kAny, 1080.0});
  table.push_back({L"VIEWCTR", RT3DPOINT, VarHome::Session, true, 0, 0, AcGePoint3d()});
  table.push_back({L"SCREENSIZE", RTPOINT, VarHome::Session, true, 0, 0, AcGePoint3d(1920.0, 1080.0, 0.0)});
  table.push_back({L"LASTPOINT", RT3DPOINT, VarHome::Session, false, 0, 0, AcGePoint3d()});
  whole(L"CVPORT", VarHome::Drawing, 1, kShort, 2);
  whole(L"DIMZIN", VarHome::Drawing, 0, 15, 0);
  whole(L"UNITMODE", VarHome::Drawing, 0, 1, 0);
  whole(L"FILLMODE", VarHome::Drawing, 0, 1, 1);
  whole(L"ORTHOMODE", VarHome::Drawing, 0, 1, 0);
  whole(L"REGENMODE", VarHome::Drawing, 0, 1, 1);
  whole(L"LIMCHECK", VarHome::Drawing, 0, 1, 0);
  static constexpr const wchar_t* kUserInts[] = {L"USERI1", L"USERI2", L"USERI3", L"USERI4", L"USERI5"};
  static constexpr const wchar_t* kUserReals[] = {L"USERR1", L"USERR2", L"USERR3", L"USERR4", L"USERR5"};
  static constexpr const wchar_t* kUserTexts[] = {L"USERS1", L"USERS2", L"USERS3", L"USERS4", L"USERS5"};
  for (const wchar_t* name : kUserInts) whole(name, VarHome::Drawing, -kShort - 1, kShort, 0);
  for (const wchar_t* name : kUserReals) table.push_back({name, RTREAL, VarHome::Drawing, false, -kAny, kAny, 0.0});
  for (const wchar_t* name : kUserTexts) text(name, L"", false);
}

struct NoCase {
  bool operator()(std::wstring_view a, std::wstring_view b) const { return os::compareNoCase(a, b) < 0; }
};
using Values = std::map<std::wstring_view, Value, NoCase>;

/// Forgets what was kept for a drawing when it goes.
class DrawingValues : public AcDbDatabaseReactor {
 public:
  Values& of(AcDbDatabase* database) {
    const auto [place, added] = m_values.try_emplace(database);
    if (added) database->addReactor(this);
    return place->second;
  }
  void goodbye(const AcDbDatabase* database) override { m_values.erase(const_cast<AcDbDatabase*>(database)); }

 private:
  std::map<AcDbDatabase*, Values> m_values;
};

struct Variables {
  std::map<std::wstring_view, Variable, NoCase> table;
  Values session;
  DrawingValues drawings;

  Variables() {
    std::vector<Variable> all;
    addHeaderVariables(all);
    addDatabaseVariables(all);
    addOwnVariables(all);
    for (const Variable& variable : all) table.emplace(variable.name, variable);
  }
};

// Built at first use and never destroyed: drawings may go after it would have.
Variables& variables() {
  static auto* const all = new Variables;
  return *all;
}

const Variable* find(const wchar_t* name) {
  if (name == nullptr) return nullptr;
  const auto found = variables().table.find(name);
  return found == variables().table.end() ? nullptr : &found->second;
}

AcDbDatabase* workingDatabase() {
  return acdbHostApplicationServices()->workingDatabase();
}

/// Where the value of a variable that isn't in the database itself is kept; the session's for want of a drawing.
Values& valuesFor(const Variable& variable) {
  AcDbDatabase* const database = workingDatabase();
  return variable.home == VarHome::Drawing && database != nullptr ? variables().drawings.of(database)
                                                                  : variables().session;
}

Value valueOf(const Variable& variable) {
  const AcDbDatabase* const database = workingDatabase();
  if (variable.get != nullptr) return database != nullptr ? variable.get(*database) : variable.initial;
  const Values& values = valuesFor(variable);
  if (const auto kept = values.find(variable.name); kept != values.end()) return kept->second;
  constexpr int kPaperViewport = 1;
  const bool inPaper = database != nullptr && database->tilemode() == 0;
  if (inPaper && variable.name == std::wstring_view(L"CVPORT")) return kPaperViewport;
  return variable.initial;
}

std::optional<double> numberIn(const resbuf& value) {
  switch (value.restype) {
    case RTREAL:
    case RTANG:
    case RTORINT:
      return value.resval.rreal;
    case RTSHORT:
      return value.resval.rint;
    case RTLONG:
      return value.resval.rlong;
    default:
      return std::nullopt;
  }
}

/// The value that a resbuf gives to the variable, when it suits its type and range.
std::optional<Value> accepted(const Variable& variable, const resbuf& value) {
  if (variable.type == RTSTR) {
    if (value.restype != RTSTR || value.resval.rstring == nullptr) return std::nullopt;
    return Value(std::wstring(value.resval.rstring));
  }
  if (variable.type == RTPOINT || variable.type == RT3DPOINT) {
    if (value.restype != RTPOINT && value.restype != RT3DPOINT) return std::nullopt;
    const double z = value.restype == RT3DPOINT ? value.resval.rpoint[2] : 0.0;
    return Value(AcGePoint3d(value.resval.rpoint[0], value.resval.rpoint[1], z));
  }
  const std::optional<double> number = numberIn(value);
  if (!number || !(*number >= variable.low && *number <= variable.high)) return std::nullopt;
  if (variable.type == RTREAL) return Value(*number);
  if (*number != std::floor(*number)) return std::nullopt;
  return Value(static_cast<int>(*number));
}

}  // namespace

int acedGetVar(const wchar_t* name, resbuf* result) {
  const Variable* const variable = find(name);
  if (variable == nullptr || result == nullptr) return RTERROR;
  const Value value = valueOf(*variable);
  result->rbnext = nullptr;
  result->restype = variable->type;
  if (const int* whole = std::get_if<int>(&value)) {
    if (variable->type == RTLONG) {
      result->resval.rlong = *whole;
    } else {
      result->resval.rint = static_cast<short>(*whole);
    }
  } else if (const double* real = std::get_if<double>(&value)) {
    result->resval.rreal = *real;
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    acutNewString(text->c_str(), result->resval.rstring);
  } else {
    const auto& p = std::get<AcGePoint3d>(value);
    result->resval.rpoint[0] = p.x;
    result->resval.rpoint[1] = p.y;
    result->resval.rpoint[2] = p.z;
  }
  return RTNORM;
}

int acedSetVar(const wchar_t* name, const resbuf* value) {
  const Variable* const variable = find(name);
  if (variable == nullptr || value == nullptr || variable->readOnly) return RTERROR;
  const std::optional<Value> wanted = accepted(*variable, *value);
  if (!wanted) return RTERROR;
  acedEditorObject()->tell(&AcEditorReactor::sysVarWillChange, variable->name);
  bool done = true;
  if (variable->set == nullptr) {
    valuesFor(*variable)[variable->name] = *wanted;
  } else {
    AcDbDatabase* const database = workingDatabase();
    done = database != nullptr && variable->set(*database, *wanted) == Acad::eOk;
  }
  acedEditorObject()->tell(&AcEditorReactor::sysVarChanged, variable->name, done);
  return done ? RTNORM : RTERROR;
}

namespace edhost {

std::vector<SysVarInfo> sysVars() {
  std::vector<SysVarInfo> all;
  for (const auto& [name, v] : variables().table) {
    all.push_back({std::wstring(name), v.type, v.home, v.readOnly, v.low, v.high});
  }
  return all;
}

int varInt(const wchar_t* name) {
  const Variable* const variable = find(name);
  const Value value = variable != nullptr ? valueOf(*variable) : Value(0);
  const int* const whole = std::get_if<int>(&value);
  return whole != nullptr ? *whole : 0;
}

double varReal(const wchar_t* name) {
  const Variable* const variable = find(name);
  const Value value = variable != nullptr ? valueOf(*variable) : Value(0.0);
  const double* const real = std::get_if<double>(&value);
  return real != nullptr ? *real : 0.0;
}

std::wstring varText(const wchar_t* name) {
  const Variable* const variable = find(name);
  const Value value = variable != nullptr ? valueOf(*variable) : Value(std::wstring());
  const auto* const text = std::get_if<std::wstring>(&value);
  return text != nullptr ? *text : std::wstring();
}

void setVarInternally(const wchar_t* name, int value) {
  const Variable* const variable = find(name);
  if (variable != nullptr) valuesFor(*variable)[variable->name] = value;
}

void setVarInternally(const wchar_t* name, const std::wstring& value) {
  const Variable* const variable = find(name);
  if (variable != nullptr) valuesFor(*variable)[variable->name] = value;
}

}  // namespace edhost
