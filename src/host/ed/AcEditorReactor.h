#pragma once

#include "host/rx/rx.h"

class AcDbDatabase;
class AcApDocument;
struct resbuf;

/// Hears of what the editor does. Each form does nothing by default. Names of commands are global names.
class AcEditorReactor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEditorReactor);

  virtual void commandWillStart(const ACHAR* /*command*/) {}
  virtual void commandEnded(const ACHAR* /*command*/) {}
  virtual void commandCancelled(const ACHAR* /*command*/) {}
  virtual void commandFailed(const ACHAR* /*command*/) {}
  virtual void unknownCommand(const ACHAR* /*command*/) {}

  virtual void beginDwgOpen(const ACHAR* /*fileName*/) {}
  virtual void endDwgOpen(const ACHAR* /*fileName*/) {}
  virtual void initialDwgFileOpenComplete(AcDbDatabase* /*database*/) {}
  virtual void databaseConstructed(AcDbDatabase* /*database*/) {}
  virtual void databaseToBeDestroyed(AcDbDatabase* /*database*/) {}
  virtual void beginClose(AcDbDatabase* /*database*/) {}

  virtual void beginSave(AcDbDatabase* /*database*/, const ACHAR* /*intendedName*/) {}
  virtual void saveComplete(AcDbDatabase* /*database*/, const ACHAR* /*actualName*/) {}
  virtual void abortSave(AcDbDatabase* /*database*/) {}

  virtual void beginDxfIn(AcDbDatabase* /*database*/) {}
  virtual void abortDxfIn(AcDbDatabase* /*database*/) {}
  virtual void dxfInComplete(AcDbDatabase* /*database*/) {}
  virtual void beginDxfOut(AcDbDatabase* /*database*/) {}
  virtual void abortDxfOut(AcDbDatabase* /*database*/) {}
  virtual void dxfOutComplete(AcDbDatabase* /*database*/) {}

  virtual void sysVarWillChange(const ACHAR* /*name*/) {}
  virtual void sysVarChanged(const ACHAR* /*name*/, bool /*success*/) {}
};
