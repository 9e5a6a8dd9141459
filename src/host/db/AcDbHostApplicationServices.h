#pragma once

#include <string>

#include "host/rx/rx.h"

class AcDbDatabase;

/// Shows text of the database layer.
using AcDbDisplayFunction = void (*)(const ACHAR* text, int length);
/// Tells the host's own services where to show text; null: the standard output. The editor puts its console here.
void acdbSetDisplayFunction(AcDbDisplayFunction display);

/// What the database layer asks of the program around it.
class AcDbHostApplicationServices {
 public:
  virtual ~AcDbHostApplicationServices() = default;

  /// The database that commands work on; null when there is none. Destroying that database sets it to null.
  AcDbDatabase* workingDatabase() const { return workingDatabase_; }
  void setWorkingDatabase(AcDbDatabase* database) { workingDatabase_ = database; }

  /// Shows a report of the database layer (an entity's list, an audit's lines). By default through the
  /// display function.
  virtual void displayString(const ACHAR* text, int length);

 private:
  AcDbDatabase* workingDatabase_ = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
/// Puts another one in place and returns the former; null restores the host's own. The working database goes along.
AcDbHostApplicationServices* acdbSetHostApplicationServices(AcDbHostApplicationServices* services);
