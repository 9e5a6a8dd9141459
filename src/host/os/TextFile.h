#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Opens a file by its wide path, resolved as os::resolvePath does. The letters b and t of the mode change nothing
/// here: text is read and written through os::TextReader and os::TextWriter. Null on failure.
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);

namespace os {

/// Reads a text file: UTF-8, or Windows-1252 when it isn't well-formed UTF-8; a carriage return before a line feed is
/// dropped, as is a byte order mark.
class TextReader {
 public:
  /// Opens and decodes the whole file. False when it can't be read; the reader is then at its end.
  bool open(const wchar_t* path);
  bool isOpen() const { return open_; }

  /// Reads up to the end of the line, its line feed included, but at most `capacity` - 1 characters, and ends the
  /// buffer with 0. False at the end of the file; the buffer is then untouched.
  bool line(wchar_t* buffer, int capacity);
  /// Reads a whole line without its line feed. False at the end of the file.
  bool line(std::wstring& text);

  void rewind() { place_ = 0; }
  /// Goes `count` characters back from the end. False, and no move, when the file is shorter.
  bool seekFromEnd(int count);

 private:
  std::wstring text_;
  std::size_t place_ = 0;
  bool open_ = false;
};

/// Writes a text file in UTF-8, in text mode as the product's platform knows it: each line feed is written as carriage
/// return and line feed. The file is replaced in one step by close().
class TextWriter {
 public:
  TextWriter() = default;
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  /// False when no file can be written at that place.
  bool open(const wchar_t* path);
  void write(std::wstring_view text);
  void print(const wchar_t* format, ...);
  /// Puts the file in place. False when that failed; the file that stood there before is then untouched.
  bool close();

 private:
  std::string path_;
  std::string bytes_;
  bool open_ = false;
};

}  // namespace os
