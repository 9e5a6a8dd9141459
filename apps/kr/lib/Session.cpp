#include "Session.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "Suggest.h"
#include "frame/KrObjects.h"
#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/os/os.h"
#include "support/Layers.h"
#include "support/SideLibrary.h"

namespace kr {
namespace {

namespace fs = std::filesystem;

constexpr const char* kInstallVariable = "KRTRAMA_BRICSV17";
constexpr const wchar_t* kModuleName = L"KrObjectsB16";

// What the module wrote, in one line: its messages begin with a line break.
std::string inOneLine(const std::wstring& text) {
  std::string out;
  for (const char c : os::toUtf8(text)) {
    if (c != '\n' && c != '\r')
      out += c;
    else if (!out.empty() && out.back() != ' ')
      out += ' ';
  }
  while (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}

// The lines of a file of the install folder; none when it can't be read.
std::vector<std::string> linesOf(const fs::path& path) {
  std::ifstream file(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

bool sideLibraryWhole(const std::string& said, Report& report) {
  const SideLibrary& side = sideLibrary();
  if (side.module == nullptr) {
    report.error(Exit::kBadInput, said.empty() ? "the side library can't be loaded" : said);
    return false;
  }
  const std::pair<const char*, bool> symbols[] = {{"krAppendEntity", side.krAppendEntity != nullptr},
                                                  {"krOrientacaoVetor", side.krOrientacaoVetor != nullptr},
                                                  {"krMidArco", side.krMidArco != nullptr},
                                                  {"krIsBulge6000", side.krIsBulge6000 != nullptr}};
  std::string missing;
  for (const auto& [name, there] : symbols) {
    if (!there) missing += (missing.empty() ? "" : ", ") + std::string(name);
  }
  if (missing.empty()) return true;
  report.error(Exit::kBadInput, "the side library lacks " + missing + ": install it anew");
  return false;
}

bool loadLayers(const std::string& folder, Report& report) {
  const edhost::ConsoleCapture said;
  UsrLayerInit();
  if (UsrLayerMain() == RTNORM) return true;
  report.error(Exit::kBadInput, "the layer files " + inQuotes(folder + "/Prototipo/LayersKR.cfg") + " and " +
                                    inQuotes("LayersUSR.cfg") + " can't be used: " + inOneLine(said.text()));
  return false;
}

}  // namespace

std::string findInstallFolder(const std::string& given) {
  if (!given.empty()) return given;
  if (const char* value = std::getenv(kInstallVariable); value != nullptr && *value != '\0') return value;
  std::error_code ignored;
  const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
  return (program.parent_path().parent_path() / "share" / "krobjects").string();
}

KnownNames knownNames(const std::string& installFolder) {
  const fs::path prototypes = fs::path(installFolder) / "Prototipo";
  KnownNames known;
  for (const std::string& line : linesOf(prototypes / "LayersKR.cfg")) {
    if (!line.empty() && static_cast<unsigned char>(line[0]) > ' ' && line[0] != '$') known.layers.push_back(line);
  }
  known.linetypes.emplace_back("CONTINUOUS");
  for (const std::string& line : linesOf(prototypes / "KR_Linhas.lin")) {
    if (line.starts_with('*')) known.linetypes.push_back(line.substr(1, line.find(',') - 1));
  }
  return known;
}

std::unique_ptr<Session> Session::startModule(const std::string& installFolder, Report& report) {
  std::error_code ignored;
  if (!fs::is_directory(installFolder, ignored)) {
    report.error(Exit::kBadInput, "the install folder " + inQuotes(installFolder) +
                                      " isn't there: name it with --data or " + kInstallVariable);
    return nullptr;
  }
  setenv(kInstallVariable, fs::absolute(installFolder, ignored).c_str(), 1);
  acDocManagerPtr()->newDocument();
  void* module = edhost::loadModule(kModuleName, acrxEntryPoint);
  if (module == nullptr) {
    report.error(Exit::kJobFailed, "the module can't be started");
    return nullptr;
  }
  return std::unique_ptr<Session>(new Session(module));
}

std::unique_ptr<Session> Session::start(const std::string& installFolder, Report& report) {
  const edhost::ConsoleCapture said;
  std::unique_ptr<Session> session = startModule(installFolder, report);
  if (session == nullptr || !sideLibraryWhole(inOneLine(said.text()), report)) return nullptr;
  if (!loadLayers(installFolder, report)) return nullptr;
  return session;
}

Session::~Session() {
  const edhost::ConsoleCapture said;  // what is said at the end is of no use to anyone
  UsrLayerExit();
  acDocManagerPtr()->closeAllDocuments();
  edhost::unloadModule(module_);
}

AcDbDatabase* Session::database() const {
  return acDocManagerPtr()->curDocument()->database();
}

bool Session::run(const std::string& command, std::string& output, Report& report) {
  const edhost::ConsoleCapture said;
  const edhost::CommandEnd end = edhost::runCommand(os::toWide(command));
  output = os::toUtf8(said.text());
  if (end == edhost::CommandEnd::Done) return true;
  report.error(Exit::kJobFailed, "the command " + command + " failed: " + inOneLine(said.text()));
  return false;
}

}  // namespace kr
