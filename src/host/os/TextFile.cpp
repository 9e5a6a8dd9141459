#include "host/os/TextFile.h"

#include <cstdarg>
#include <cstring>
#include <cwchar>

#include "host/os/Format.h"
#include "host/os/Path.h"
#include "host/os/ReplaceFile.h"
#include "host/os/Text.h"

std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode) {
  std::string letters;
  for (const wchar_t each : std::wstring_view(mode)) {
    if (each == L',') break;
    if (each != L't') letters.push_back(static_cast<char>(each));
  }
  return std::fopen(os::resolvePath(path).c_str(), letters.c_str());
}

namespace os {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// False when the file can't be opened or a read fails (a folder opens but doesn't read).
bool readWhole(const wchar_t* path, std::string& bytes) {
  std::FILE* file = _wfopen(path, L"rb");
  if (file == nullptr) return false;
  char block[1 << 14];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file)) bytes.append(block, count);
  const bool isSound = std::ferror(file) == 0;
  std::fclose(file);
  return isSound;
}

void dropReturnsBeforeLineFeeds(std::string& bytes) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
    bytes[kept++] = bytes[i];
  }
  bytes.resize(kept);
}

}  // namespace

bool TextReader::open(const wchar_t* path) {
  text_.clear();
  place_ = 0;
  std::string bytes;
  open_ = readWhole(path, bytes);
  if (!open_) return false;
  if (bytes.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) bytes.erase(0, kByteOrderMark.size());
  dropReturnsBeforeLineFeeds(bytes);
  text_ = toWide(bytes);
  return true;
}

bool TextReader::line(wchar_t* buffer, int capacity) {
  if (place_ == text_.size() || capacity < 2) return false;
  const std::size_t most = static_cast<std::size_t>(capacity) - 1;
  const std::size_t end = text_.find(L'\n', place_);
  std::size_t length = (end == std::wstring::npos ? text_.size() : end + 1) - place_;
  if (length > most) length = most;
  std::wmemcpy(buffer, text_.data() + place_, length);
  buffer[length] = 0;
  place_ += length;
  return true;
}

bool TextReader::line(std::wstring& text) {
  if (place_ == text_.size()) return false;
  const std::size_t end = text_.find(L'\n', place_);
  text.assign(text_, place_, end == std::wstring::npos ? std::wstring::npos : end - place_);
  place_ = end == std::wstring::npos ? text_.size() : end + 1;
  return true;
}

bool TextReader::seekFromEnd(int count) {
  if (count < 0 || static_cast<std::size_t>(count) > text_.size()) return false;
  place_ = text_.size() - static_cast<std::size_t>(count);
  return true;
}

bool TextWriter::open(const wchar_t* path) {
  path_ = resolvePath(path);
  bytes_.clear();
  open_ = canReplaceFile(path_);
  return open_;
}

void TextWriter::write(std::wstring_view text) {
  for (const char each : toUtf8(text)) {
    if (each == '\n') bytes_.push_back('\r');
    bytes_.push_back(each);
  }
}

void TextWriter::print(const wchar_t* format, ...) {
  std::wstring text;
  std::va_list arguments;
  va_start(arguments, format);
  formatWide(text, format, arguments);
  va_end(arguments);
  write(text);
}

bool TextWriter::close() {
  if (!open_) return false;
  open_ = false;
  return static_cast<bool>(replaceFile(path_, bytes_));
}

}  // namespace os
