// The linetype file takes any bytes: loading all of its linetypes answers a status and leaves a drawing whose table can
// be walked.
#include <memory>

#include "InputFile.h"
#include "host/db/db.h"
#include "host/ed/ed.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const InputFile file("linetypes");
  const std::wstring input = file.write(data, size);
  const auto database = std::make_unique<AcDbDatabase>(true, true);
  acdbLoadLineTypeFile(L"*", input.c_str(), database.get());
  acdbLoadLineTypeFile(L"DASHED", input.c_str(), database.get());
  if (database->numOpenObjects() != 0) std::abort();
  return 0;
}
