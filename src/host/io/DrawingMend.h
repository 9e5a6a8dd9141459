#pragma once

struct AcDbStub;
class AcDbDatabase;

// What an audit does about references that lead to nothing.

namespace krio {

/// The dictionary, among the named objects, of objects whose owner was lost; each under its handle.
inline constexpr const wchar_t* kRecoveredDictionary = L"KR_RECOVERED";

/// Gives an object something else for what it needs and the drawing lacks: ByLayer or Continuous for a linetype, an
/// empty block named after the lost one's handle for the block of an insert, and else nothing; entries of dictionaries
/// that lead nowhere are taken out. Of a module's object only what every entity has can be mended. Whether it needs
/// nothing now that isn't there.
bool mendReferences(AcDbDatabase& db, AcDbStub& stub);

/// Gives an object whose owner isn't there another: the dictionary that lists it, model space for an entity, and
/// kRecoveredDictionary for the rest. False for records of tables, which only their table can own.
bool adoptOrphan(AcDbDatabase& db, AcDbStub& stub);

}  // namespace krio
