#include <cstdarg>
#include <memory>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/ed/promptState.h"
#include "host/ed/resbufTypes.h"

namespace {

struct ChainDeleter {
  void operator()(resbuf* chain) const { acutRelRb(chain); }
};
using Chain = std::unique_ptr<resbuf, ChainDeleter>;

Chain copied(const resbuf* list) {
  Chain head;
  resbuf* tail = nullptr;
  for (; list != nullptr; list = list->rbnext) {
    resbuf* const link = new resbuf(*list);
    link->rbnext = nullptr;
    if (edhost::valueKind(list->restype) == edhost::ValueKind::Text && list->resval.rstring != nullptr) {
      acutNewString(list->resval.rstring, link->resval.rstring);
    }
    if (edhost::valueKind(list->restype) == edhost::ValueKind::Binary) {
      const auto size = static_cast<std::size_t>(list->resval.rbinary.clen);
      link->resval.rbinary.buf = new char[size];
      std::copy_n(list->resval.rbinary.buf, size, link->resval.rbinary.buf);
    }
    if (tail == nullptr) {
      head.reset(link);
    } else {
      tail->rbnext = link;
    }
    tail = link;
  }
  return head;
}

Chain& returned() {
  static auto* const list = new Chain;
  return *list;
}

void queueSet(edhost::PromptQueue& queue, const ads_name set) {
  Adesk::Int32 length = 0;
  acedSSLength(set, &length);
  for (int i = 0; i < length; ++i) {
    ads_name entity = {0, 0};
    AcDbObjectId id;
    if (acedSSName(set, i, entity) == RTNORM && acdbGetObjectId(id, entity) == Acad::eOk) queue.entity(id);
  }
}

/// The argument as what a person would do; false for one that no prompt can be answered with.
bool queueArgument(edhost::PromptQueue& queue, const resbuf& argument) {
  switch (argument.restype) {
    case RTSTR:
      queue.text(argument.resval.rstring);
      return true;
    case RTPOINT:
      queue.point(argument.resval.rpoint[0], argument.resval.rpoint[1]);
      return true;
    case RT3DPOINT:
      queue.point(asPnt3d(argument.resval.rpoint));
      return true;
    case RTREAL:
    case RTANG:
    case RTORINT:
      queue.number(argument.resval.rreal);
      return true;
    case RTSHORT:
      queue.number(argument.resval.rint);
      return true;
    case RTLONG:
      queue.number(argument.resval.rlong);
      return true;
    case RTENAME: {
      AcDbObjectId id;
      if (acdbGetObjectId(id, argument.resval.rlname) != Acad::eOk) return false;
      queue.entity(id);
      return true;
    }
    case RTPICKS:
      queueSet(queue, argument.resval.rlname);
      return true;
    case RTNONE:
    case RTVOID:
    case RTLB:
    case RTLE:
      return true;
    default:
      return false;
  }
}

int run(const resbuf* arguments) {
  edhost::PromptQueue own;
  for (const resbuf* argument = arguments; argument != nullptr; argument = argument->rbnext) {
    if (!queueArgument(own, *argument)) return RTERROR;
  }
  // The answers given here come before what a script has queued, and none of them may be left for it.
  edhost::PromptQueue& queue = edhost::promptQueue();
  const edhost::PromptQueue former = std::exchange(queue, std::move(own));
  const bool wasCancelled = std::exchange(edhost::promptState().cancelled, false);
  int result = RTNORM;
  while (!queue.empty() && result == RTNORM) {
    const std::optional<edhost::PromptAnswer> answer = queue.next(L"");
    if (answer->kind != edhost::PromptAnswer::Kind::Text) continue;
    const edhost::CommandEnd end = edhost::runCommand(answer->text);
    if (end == edhost::CommandEnd::Cancelled) result = RTCAN;
    if (end == edhost::CommandEnd::Failed || end == edhost::CommandEnd::Unknown) result = RTERROR;
  }
  edhost::promptState().cancelled = wasCancelled;
  queue = former;
  return result;
}

}  // namespace

int acedCmd(const resbuf* arguments) {
  return run(arguments);
}

int acedCmdS(const resbuf* arguments) {
  return run(arguments);
}

int acedCommand(int type, ...) {
  edhost::ArgumentList list;
  va_start(list.arguments, type);
  const Chain chain(edhost::buildList(type, list));
  va_end(list.arguments);
  return run(chain.get());
}

int acedCommandS(int type, ...) {
  edhost::ArgumentList list;
  va_start(list.arguments, type);
  const Chain chain(edhost::buildList(type, list));
  va_end(list.arguments);
  return run(chain.get());
}

int acedRetList(const resbuf* list) {
  returned() = copied(list);
  return RTNORM;
}

namespace edhost {

const resbuf* returnedList() {
  return returned().get();
}

}  // namespace edhost
