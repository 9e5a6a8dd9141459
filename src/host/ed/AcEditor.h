#pragma once

#include <algorithm>
#include <vector>

#include "host/ed/AcEditorReactor.h"

/// The editor: the one object that editor reactors are added to. It lives under "AcEditor" in acrxSysRegistry.
class AcEditor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEditor);

  /// Reactors aren't owned. eInvalidInput for null; eDuplicateKey for one that is there already.
  Acad::ErrorStatus addReactor(AcEditorReactor* reactor);
  /// eKeyNotFound for one that isn't there. A reactor may be removed while reactors are being told.
  Acad::ErrorStatus removeReactor(AcEditorReactor* reactor);

  /// Tells every reactor, in the order they came. Those added on the way aren't told, those removed neither.
  template <class... Parameters, class... Arguments>
  void tell(void (AcEditorReactor::*slot)(Parameters...), Arguments... arguments) {
    const std::vector<AcEditorReactor*> told = m_reactors;
    for (AcEditorReactor* reactor : told) {
      if (std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end()) (reactor->*slot)(arguments...);
    }
  }

 private:
  std::vector<AcEditorReactor*> m_reactors;
};

/// The editor.
AcEditor* acedEditorObject();
#define acedEditor acedEditorObject()
