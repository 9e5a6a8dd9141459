#include "host/ed/AcEditor.h"

Acad::ErrorStatus AcEditor::addReactor(AcEditorReactor* reactor) {
  if (reactor == nullptr) return Acad::eInvalidInput;
  if (std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end()) return Acad::eDuplicateKey;
  m_reactors.push_back(reactor);
  return Acad::eOk;
}

Acad::ErrorStatus AcEditor::removeReactor(AcEditorReactor* reactor) {
  return std::erase(m_reactors, reactor) != 0 ? Acad::eOk : Acad::eKeyNotFound;
}
