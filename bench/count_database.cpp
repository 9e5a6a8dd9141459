// The instructions of opening and closing, of filing a member, and of a member's whole way from a job.
#include "Count.h"
#include "JobText.h"
#include "Profiles.h"
#include "lib/Drawing.h"
#include "lib/Session.h"

namespace {

constexpr int kCalls = 1000;
constexpr int kJobMembers = 2000;

std::function<long()> openClose() {
  const auto database = std::make_shared<AcDbDatabase>();
  AcDbObjectId id;
  AcDbEntity* member = bench::tubeSubject().make(Superior).release();
  if (database->addAcDbObject(id, member) != Acad::eOk) std::abort();
  member->close();
  return [database, id] {
    for (int i = 0; i < kCalls; ++i) {
      AcDbObject* object = nullptr;
      acdbOpenAcDbObject(object, id, AcDb::kForRead);
      object->close();
    }
    return long{kCalls};
  };
}

std::function<long()> fileMember() {
  const std::shared_ptr<KrObject> member = bench::tubeSubject().make(Superior);
  return [member] {
    for (int i = 0; i < kCalls; ++i) {
      AcDbMemoryDwgFiler filer;
      member->dwgOutFields(&filer);
    }
    return long{kCalls};
  };
}

std::function<long()> job() {
  const auto known = std::make_shared<kr::KnownNames>(kr::knownNames(KR_INSTALL_FOLDER));
  const auto text = std::make_shared<std::string>(bench::jobText(kJobMembers));
  // Kept, so that taking it apart isn't counted.
  const auto drawings = std::make_shared<std::vector<std::unique_ptr<AcDbDatabase>>>();
  return [=] {
    drawings->push_back(std::make_unique<AcDbDatabase>(true, true));
    acdbHostApplicationServices()->setWorkingDatabase(drawings->back().get());
    kr::Job read;
    std::vector<AcDbObjectId> members;
    std::vector<kr::Problem> problems;
    std::string why;
    if (!kr::drawJob(*text, *known, read, *drawings->back(), members, problems, why)) std::abort();
    return static_cast<long>(members.size());
  };
}

}  // namespace

int main(int argc, char** argv) {
  kr::Report report;
  const std::unique_ptr<kr::Session> session = kr::Session::start(KR_INSTALL_FOLDER, report);
  if (session == nullptr) return 1;
  return bench::countMain(argc, argv,
                          {{"open_close", openClose}, {"file_member_in_memory", fileMember}, {"job_member", job}});
}
