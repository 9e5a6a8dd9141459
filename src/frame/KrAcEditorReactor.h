#pragma once

#include "host/ed/ed.h"

/// Warns of a clash between the host's automatic save and the product. The module has one, added to the editor.
class KrAcEditorReactor : public AcEditorReactor {
 public:
  /// A save inside a script or an automatic action, with no command named, gets an alert.
  void beginSave(AcDbDatabase* database, const ACHAR* intendedName) override;
};
