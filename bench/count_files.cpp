// The instructions of a plain entity on its way from and to a file.
#include "Count.h"
#include "PlainDrawing.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dxf/Dxf.h"

namespace {

using Bytes = std::vector<std::byte>;

void demand(Acad::ErrorStatus es) {
  if (es != Acad::eOk) std::abort();
}

template <auto kWrite>
std::function<long()> writing() {
  const std::shared_ptr<AcDbDatabase> database = bench::plainDrawing();
  return [database] {
    Bytes bytes;
    krio::Report report;
    demand(kWrite(*database, bytes, report));
    return long{bench::kPlainEntities};
  };
}

template <auto kWrite, auto kRead>
std::function<long()> reading() {
  const auto bytes = std::make_shared<Bytes>();
  krio::Report written;
  demand(kWrite(*bench::plainDrawing(), *bytes, written));
  // Kept, so that taking it apart isn't counted.
  const auto drawings = std::make_shared<std::vector<std::unique_ptr<AcDbDatabase>>>();
  return [=] {
    drawings->push_back(std::make_unique<AcDbDatabase>(false, true));
    krio::Report report;
    demand(kRead(*bytes, *drawings->back(), report, {}));
    return long{bench::kPlainEntities};
  };
}

}  // namespace

int main(int argc, char** argv) {
  return bench::countMain(argc, argv,
                          {{"read_plain_dxf", reading<krio::writeDxf, krio::readDxf>},
                           {"write_plain_dxf", writing<krio::writeDxf>},
                           {"read_plain_dwg", reading<krio::writeDwg, krio::readDwg>},
                           {"write_plain_dwg", writing<krio::writeDwg>}});
}
