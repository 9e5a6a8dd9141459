#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/io/Report.h"
#include "host/rx/ErrorStatus.h"

class AcDbDatabase;

namespace krio {

/// What a fault is about. The hundreds of a finding's number tell it.
enum class AuditBand { Structure = 1, Links = 2, Content = 3, CustomObjects = 4 };

/// "structure", "links", "content" or "custom objects".
std::string_view nameOf(AuditBand band);

/// The kinds of faults, by number.
enum AuditNumber : int {
  kAuditLost = 101,             ///< the reader lost or couldn't read something
  kAuditMendedInReading = 102,  ///< the reader put something right
  kAuditOwner = 201,            ///< an object's owner isn't there
  kAuditLayer = 202,            ///< an entity's layer isn't there
  kAuditReference = 203,        ///< an object needs another that isn't there
  kAuditListing = 204,          ///< an entity and the block that it names as its own don't agree
  kAuditOwnerCycle = 205,       ///< an object owns itself, if by way of others
  kAuditSelfInsert = 206,       ///< a block inserts itself, if by way of others
  kAuditLinkOther = 299,        ///< another fault that an object of the host finds in itself
  kAuditNotFinite = 301,        ///< an entity reaches to infinity, or has coordinates that are no numbers
  kAuditCustom = 401            ///< a fault that an object of a module finds in itself
};

struct AuditFinding {
  int number = 0;
  std::uint64_t handle = 0;  ///< 0 for what is about no object
  std::string className;     ///< of the object; empty for none
  std::string what;          ///< one sentence
  std::string remedy;        ///< what mends it, or did; empty when nothing does
  bool fixed = false;

  AuditBand band() const { return AuditBand(number / 100); }
};

/// Looks at every object that isn't erased: where it hangs, what it names, how far it reaches, and what its own audit
/// says. With `fix` mends what has a remedy, through the objects' own audits and the lists of blocks. Objects that have
/// nothing wrong stay untouched. In the order of the numbers' bands, then of the objects.
std::vector<AuditFinding> auditDrawing(AcDbDatabase& db, bool fix);

/// What a reading found, as findings of an audit: notes left out.
std::vector<AuditFinding> auditFindings(const Report& reading);

}  // namespace krio
