#include "text/encoding_names.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace cuewright {
namespace {

struct NamedPage {
  int codePage;
  std::string_view converter;
  bool oneByte;
};

/// Encodings with ASCII in them and without states. Where two names are one converter, the first counts.
constexpr std::array kPages = {
    NamedPage{874, "windows-874", true},
    NamedPage{932, "windows-932", false},
    NamedPage{936, "windows-936", false},
    NamedPage{949, "windows-949", false},
    NamedPage{950, "windows-950", false},
    NamedPage{1250, "windows-1250", true},
    NamedPage{1251, "windows-1251", true},
    NamedPage{1252, "windows-1252", true},
    NamedPage{1253, "windows-1253", true},
    NamedPage{1254, "windows-1254", true},
    NamedPage{1255, "windows-1255", true},
    NamedPage{1256, "windows-1256", true},
    NamedPage{1257, "windows-1257", true},
    NamedPage{1258, "windows-1258", true},
    NamedPage{28591, "ISO-8859-1", true},
    NamedPage{28592, "ISO-8859-2", true},
    NamedPage{28593, "ISO-8859-3", true},
    NamedPage{28594, "ISO-8859-4", true},
    NamedPage{28595, "ISO-8859-5", true},
    NamedPage{28596, "ISO-8859-6", true},
    NamedPage{28597, "ISO-8859-7", true},
    NamedPage{28598, "ISO-8859-8", true},
    NamedPage{28599, "ISO-8859-9", true},
    NamedPage{28600, "ISO-8859-10", true},
    NamedPage{28601, "ISO-8859-11", true},
    NamedPage{28603, "ISO-8859-13", true},
    NamedPage{28604, "ISO-8859-14", true},
    NamedPage{28605, "ISO-8859-15", true},
    NamedPage{20866, "KOI8-R", true},
    NamedPage{21866, "KOI8-U", true},
    NamedPage{437, "ibm-437", true},
    NamedPage{850, "ibm-850", true},
    NamedPage{852, "ibm-852", true},
    NamedPage{855, "ibm-855", true},
    NamedPage{857, "ibm-857", true},
    NamedPage{858, "ibm-858", true},
    NamedPage{862, "ibm-862", true},
    NamedPage{866, "ibm-866", true},
    NamedPage{10000, "macintosh", true},
    NamedPage{10007, "x-mac-cyrillic", true},
    NamedPage{10029, "x-mac-centraleurroman", true},
    NamedPage{51932, "EUC-JP", false},
    NamedPage{51949, "EUC-KR", false},
    NamedPage{54936, "gb18030", false},
    NamedPage{20936, "GB2312", false},
    NamedPage{951, "Big5-HKSCS", false},
};

/// The library's one name for a converter of many; empty for a name that it doesn't know.
std::string CanonicalName(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  UConverter* const converter = ucnv_open(name.c_str(), &status);
  if (U_FAILURE(status)) return {};
  const char* const canonical = ucnv_getName(converter, &status);
  std::string result = U_SUCCESS(status) ? canonical : "";
  ucnv_close(converter);
  return result;
}

bool SameName(const std::string& name, const char* other) { return ucnv_compareNames(name.c_str(), other) == 0; }

}  // namespace

std::optional<DocumentEncoding> EncodingByName(TextView name) {
  const std::string asked = ToUtf8(TrimBlanks(name));
  const bool plain = std::ranges::all_of(asked, [](char c) { return c > ' ' && c < '\x7F' && c != ','; });
  constexpr std::size_t kLongestName = 60;
  if (asked.empty() || asked.size() > kLongestName || !plain) return {};
  if (SameName(asked, "UTF-8")) return DocumentEncoding{kCodePageUtf8, false};
  if (SameName(asked, "UTF-16") || SameName(asked, "UTF-16LE")) return DocumentEncoding{kCodePageUtf16Le, true};
  if (SameName(asked, "UTF-16BE")) return DocumentEncoding{kCodePageUtf16Be, true};
  if (SameName(asked, "Johab") || SameName(asked, "cp1361")) return DocumentEncoding{kCodePageJohab, false};
  const std::string canonical = CanonicalName(asked);
  if (canonical.empty()) return {};
  for (const NamedPage& page : kPages) {
    if (canonical == CanonicalName(std::string(page.converter))) return DocumentEncoding{page.codePage, false};
  }
  return {};
}

std::string ConverterOfCodePage(int codePage) {
  const auto page = std::ranges::find(kPages, codePage, &NamedPage::codePage);
  return page == kPages.end() ? std::string() : std::string(page->converter);
}

bool HasOneByteCharacters(int codePage) {
  const auto page = std::ranges::find(kPages, codePage, &NamedPage::codePage);
  return page != kPages.end() && page->oneByte;
}

}  // namespace cuewright
