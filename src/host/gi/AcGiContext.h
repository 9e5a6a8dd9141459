#pragma once

#include "host/rx/AcRxObject.h"

class AcDbDatabase;

/// For what a drawing is made.
class AcGiContext : public AcRxObject {
 public:
  /// The drawing that is drawn; null when there is none.
  virtual AcDbDatabase* database() const = 0;
  /// Whether the result goes to a printer language.
  virtual bool isPsOut() const = 0;
  /// Whether a page is made, not a screen.
  virtual bool isPlotGeneration() const = 0;
};
