#include "host/ed/Console.h"

#include <cstdio>
#include <utility>

#include "host/db/AcDbHostApplicationServices.h"
#include "host/ed/acut.h"
#include "host/os/os.h"

namespace {

// Built at first use and never destroyed: a module may still print while the process ends.
edhost::TextSink& consoleSink() {
  static auto* const sink = new edhost::TextSink;
  return *sink;
}

edhost::TextSink& alertSink() {
  static auto* const sink = new edhost::TextSink;
  return *sink;
}

void writeTo(std::FILE* stream, const std::wstring& text) {
  const std::string bytes = os::toUtf8(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stream);
  std::fflush(stream);
}

// What the database layer tells (an entity's list, an audit's lines) stands among what the editor's services write.
[[maybe_unused]] const bool kDatabaseSpeaksHere = [] {
  acdbSetDisplayFunction([](const ACHAR* text, int length) {
    edhost::writeConsole(std::wstring(text, static_cast<std::size_t>(length)));
  });
  return true;
}();

}  // namespace

namespace edhost {

TextSink setConsoleSink(TextSink sink) {
  return std::exchange(consoleSink(), std::move(sink));
}

TextSink setAlertSink(TextSink sink) {
  return std::exchange(alertSink(), std::move(sink));
}

void writeConsole(const std::wstring& text) {
  if (consoleSink()) return consoleSink()(text);
  writeTo(stdout, text);
}

void writeAlert(const std::wstring& text) {
  if (alertSink()) return alertSink()(text);
  writeTo(stderr, text + L"\n");
}

ConsoleCapture::ConsoleCapture()
    : m_formerConsole(setConsoleSink([this](const std::wstring& text) { m_text += text; })),
      m_formerAlert(setAlertSink([this](const std::wstring& text) { m_alerts += text; })) {}

ConsoleCapture::~ConsoleCapture() {
  setConsoleSink(std::move(m_formerConsole));
  setAlertSink(std::move(m_formerAlert));
}

}  // namespace edhost

int acutVPrintf(const wchar_t* format, std::va_list arguments) {
  if (format == nullptr) return RTERROR;
  std::wstring text;
  os::formatWide(text, format, arguments);
  edhost::writeConsole(text);
  return RTNORM;
}

int acutPrintf(const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int result = acutVPrintf(format, arguments);
  va_end(arguments);
  return result;
}
