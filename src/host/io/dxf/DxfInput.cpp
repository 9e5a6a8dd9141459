#include "host/io/dxf/DxfInput.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/HandleLimit.h"
#include "host/io/dxf/DxfText.h"

namespace krio::dxf {

bool Input::nextBehindFault() {
  while (!stopped_ && scanner_.fault()) {
    if (!fault("a line that should be a group code isn't one")) return false;
    scanner_.skipLine();
    if (scanner_.next()) return true;
  }
  return false;
}

int Input::peekCode() {
  if (!next()) return -1;
  scanner_.pushBack();
  return scanner_.code();
}

void Input::readText(std::wstring& to) {
  decodeText(page_, value(), to);
}

std::uint64_t Input::handle() {
  std::uint64_t number = 0;
  if (!parseHandle(value(), number)) badValue("no handle");
  return number;
}

AcDbObjectId Input::reference() {
  return reference(handle());
}

AcDbObjectId Input::reference(std::uint64_t handle) {
  AcDbObjectId id;
  if (handle == 0) return id;
  if (database_.getAcDbObjectId(id, true, AcDbHandle(handle)) != Acad::eOk) {
    warn("a reference is beyond all handles; it was dropped");
  }
  return id;
}

void Input::badValue(const char* what) {
  constexpr std::size_t kShown = 40;
  std::string shown;
  for (const char c : value().substr(0, kShown)) shown.push_back(c >= ' ' && c < '\x7f' ? c : '?');
  fault("the value \"" + shown + "\" of group " + std::to_string(code()) + " is " + what);
}

bool Input::roomForFinding() {
  if (++findings_ == kMaxFindings) report_.warn("there are more findings than are listed");
  return findings_ < kMaxFindings;
}

bool Input::fault(std::string what, std::uint64_t handle, Acad::ErrorStatus status) {
  if (stopped_) return false;
  if (!recover_) {
    stopped_ = true;
    status_ = status;
  }
  // A line is told by counting those ahead of it: done for what is listed only.
  if (roomForFinding() || stopped_) report_.error(std::move(what), handle, scanner_.lineNumber(), recover_);
  return !stopped_;
}

void Input::stop(std::string what) {
  if (stopped_) return;
  stopped_ = true;
  status_ = Acad::eInvalidInput;
  report_.error(std::move(what), 0, scanner_.lineNumber());
}

void Input::warn(std::string what, std::uint64_t handle, bool fixed) {
  if (roomForFinding()) report_.warn(std::move(what), handle, scanner_.lineNumber(), fixed);
}

void Input::note(std::string what, std::uint64_t handle) {
  if (roomForFinding()) report_.note(std::move(what), handle, scanner_.lineNumber());
}

}  // namespace krio::dxf
