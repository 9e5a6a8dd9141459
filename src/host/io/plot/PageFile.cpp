#include "host/io/plot/PageFile.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <fmt/format.h>

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>

namespace plot {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kPointsPerMm = 72.0 / kMmPerInch;
/// Letters are rounded to 1/64 of a unit: a tenth of a millimetre keeps that out of sight.
constexpr double kSvgUnitsPerMm = 10.0;

cairo_status_t append(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

/// The moment that the file says it was made, the same for the same input.
std::string fileDate() {
  constexpr const char* kFixed = "2000-01-01T00:00:00Z";
  const char* text = std::getenv("SOURCE_DATE_EPOCH");
  if (text == nullptr) return kFixed;
  std::int64_t seconds = 0;
  const char* end = text + std::char_traits<char>::length(text);
  const auto [stop, failure] = std::from_chars(text, end, seconds);
  const auto moment = static_cast<std::time_t>(seconds);
  std::tm parts{};
  if (failure != std::errc() || stop != end || gmtime_r(&moment, &parts) == nullptr) return kFixed;
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return date.data();
}

/// The page library numbers a page's group through the life of the program: the same drawing must give the same bytes.
void fixSurfaceNumber(std::string& svg) {
  constexpr std::string_view kStart = "<g id=\"surface";
  const std::size_t at = svg.find(kStart);
  if (at == std::string::npos) return;
  const std::size_t from = at + kStart.size();
  std::size_t to = from;
  while (to < svg.size() && std::isdigit(static_cast<unsigned char>(svg[to])) != 0) ++to;
  svg.replace(from, to - from, "1");
}

/// The picture is drawn in finer units than it is told to be large in.
void setSizeInMm(std::string& svg, PaperSize size) {
  const std::size_t from = svg.find(" width=\"");
  const std::size_t to = svg.find(" viewBox=");
  if (from == std::string::npos || to == std::string::npos || to < from) return;
  svg.replace(from, to - from, fmt::format(" width=\"{}mm\" height=\"{}mm\"", size.width, size.height));
}

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '<') {
      result += "&lt;";
    } else if (c == '&') {
      result += "&amp;";
    } else if (static_cast<unsigned char>(c) >= 0x20) {
      result += c;
    }
  }
  return result;
}

/// The title goes into the picture's own element: viewers show it, and readers read it out.
void addTitle(std::string& svg, const PlotOptions& options) {
  std::string head;
  if (!options.title.empty()) head += "<title>" + escaped(options.title) + "</title>\n";
  if (!options.subject.empty()) head += "<desc>" + escaped(options.subject) + "</desc>\n";
  const std::size_t svgTag = svg.find("<svg");
  const std::size_t end = svgTag == std::string::npos ? svgTag : svg.find('>', svgTag);
  if (end == std::string::npos || head.empty()) return;
  svg.insert(end + 1, "\n" + head);
}

std::uint32_t crc32(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

void appendBig(std::string& bytes, std::uint32_t value) {
  for (const unsigned int shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(value >> shift & 0xFFU);
}

/// Says how many dots make a metre, so that a viewer shows and prints the sheet in its size.
void addResolution(std::string& png, double dpi) {
  constexpr std::size_t kAfterHeader = 8 + 25;
  if (png.size() < kAfterHeader) return;
  std::string chunk = "pHYs";
  const auto perMetre = static_cast<std::uint32_t>(std::lround(dpi * 1000.0 / kMmPerInch));
  appendBig(chunk, perMetre);
  appendBig(chunk, perMetre);
  chunk += '\1';
  std::string whole;
  appendBig(whole, static_cast<std::uint32_t>(chunk.size() - 4));
  whole += chunk;
  appendBig(whole, crc32(chunk));
  png.insert(kAfterHeader, whole);
}

}  // namespace

PageFile::PageFile(PlotFormat format, PaperSize firstPage, const PlotOptions& options)
    : format_(format), options_(options) {
  open(firstPage);
}

PageFile::~PageFile() {
  if (context_ != nullptr) cairo_destroy(context_);
  if (surface_ != nullptr) cairo_surface_destroy(surface_);
}

void PageFile::open(PaperSize size) {
  if (format_ == PlotFormat::png) {
    unitsPerMm_ = options_.pngDpi / kMmPerInch;
    const int wide = static_cast<int>(std::lround(size.width * unitsPerMm_));
    const int high = static_cast<int>(std::lround(size.height * unitsPerMm_));
    surface_ = cairo_image_surface_create(CAIRO_FORMAT_RGB24, wide, high);
    return;
  }
  unitsPerMm_ = kPointsPerMm;
  const double wide = size.width * kPointsPerMm;
  const double high = size.height * kPointsPerMm;
  if (format_ == PlotFormat::pdf) {
    surface_ = cairo_pdf_surface_create_for_stream(append, &bytes_, wide, high);
    describe();
  } else {
    unitsPerMm_ = kSvgUnitsPerMm;
    surface_ =
        cairo_svg_surface_create_for_stream(append, &bytes_, size.width * kSvgUnitsPerMm, size.height * kSvgUnitsPerMm);
    cairo_svg_surface_set_document_unit(surface_, CAIRO_SVG_UNIT_USER);
    svgSize_ = size;
  }
}

void PageFile::describe() {
  const auto set = [this](cairo_pdf_metadata_t key, const std::string& text) {
    if (!text.empty()) cairo_pdf_surface_set_metadata(surface_, key, text.c_str());
  };
  set(CAIRO_PDF_METADATA_TITLE, options_.title);
  set(CAIRO_PDF_METADATA_AUTHOR, options_.author);
  set(CAIRO_PDF_METADATA_SUBJECT, options_.subject);
  const std::string date = fileDate();
  set(CAIRO_PDF_METADATA_CREATE_DATE, date);
  set(CAIRO_PDF_METADATA_MOD_DATE, date);
}

cairo_t* PageFile::beginPage(PaperSize size) {
  endPage();
  if (format_ == PlotFormat::pdf) {
    cairo_pdf_surface_set_size(surface_, size.width * kPointsPerMm, size.height * kPointsPerMm);
  }
  context_ = cairo_create(surface_);
  if (format_ != PlotFormat::pdf) {
    cairo_set_source_rgb(context_, 1.0, 1.0, 1.0);
    cairo_paint(context_);
  }
  ++pages_;
  return context_;
}

void PageFile::endPage() {
  if (context_ == nullptr) return;
  if (format_ != PlotFormat::png) cairo_show_page(context_);
  const cairo_status_t status = cairo_status(context_);
  if (status != CAIRO_STATUS_SUCCESS && !error_) {
    error_ = PlotError{status == CAIRO_STATUS_NO_MEMORY ? PlotErrorKind::outOfMemory : PlotErrorKind::output,
                       "page " + std::to_string(pages_) + " could not be drawn: " + cairo_status_to_string(status)};
  }
  cairo_destroy(context_);
  context_ = nullptr;
}

std::optional<PlotError> PageFile::finish(std::string& bytes) {
  endPage();
  if (format_ == PlotFormat::png && !error_) cairo_surface_write_to_png_stream(surface_, append, &bytes_);
  cairo_surface_finish(surface_);
  const cairo_status_t status = cairo_surface_status(surface_);
  if (status != CAIRO_STATUS_SUCCESS && !error_) {
    error_ = PlotError{status == CAIRO_STATUS_NO_MEMORY ? PlotErrorKind::outOfMemory : PlotErrorKind::output,
                       std::string("the file could not be made: ") + cairo_status_to_string(status)};
  }
  if (error_) return error_;
  if (format_ == PlotFormat::png) addResolution(bytes_, options_.pngDpi);
  if (format_ == PlotFormat::svg) {
    fixSurfaceNumber(bytes_);
    setSizeInMm(bytes_, svgSize_);
    addTitle(bytes_, options_);
  }
  bytes = std::move(bytes_);
  return std::nullopt;
}

}  // namespace plot
