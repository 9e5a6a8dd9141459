#pragma once

#include <functional>
#include <string>

/// What the editor writes and where it goes. By default text goes to standard output and alerts to standard error,
/// both in UTF-8.
namespace edhost {

using TextSink = std::function<void(const std::wstring& text)>;

/// Replaces where acutPrintf and the prompts write, and returns the former sink. A null sink stands for the terminal.
TextSink setConsoleSink(TextSink sink);

/// Replaces where acedAlert's messages go, and returns the former sink. A null sink stands for standard error.
TextSink setAlertSink(TextSink sink);

/// Writes a text as it is, without reading it as a format.
void writeConsole(const std::wstring& text);
void writeAlert(const std::wstring& text);

/// Gathers what the editor writes for as long as it lives, then puts the former sinks back.
class ConsoleCapture {
 public:
  ConsoleCapture();
  ~ConsoleCapture();
  ConsoleCapture(const ConsoleCapture&) = delete;
  ConsoleCapture& operator=(const ConsoleCapture&) = delete;

  const std::wstring& text() const { return m_text; }
  const std::wstring& alerts() const { return m_alerts; }
  void clear() { m_text.clear(), m_alerts.clear(); }

 private:
  std::wstring m_text;
  std::wstring m_alerts;
  TextSink m_formerConsole;
  TextSink m_formerAlert;
};

}  // namespace edhost
