#pragma once

#include "host/db/AcDbEnums.h"

/// The merge style that a file has as a number; one that doesn't exist is that of new records, so that no value is held
/// that the type doesn't have.
constexpr AcDb::DuplicateRecordCloning acdbMergeStyleOf(int filed) {
  const bool exists = filed >= AcDb::kDrcNotApplicable && filed <= AcDb::kDrcUnmangleName;
  return exists ? AcDb::DuplicateRecordCloning(filed) : AcDb::kDrcIgnore;
}
