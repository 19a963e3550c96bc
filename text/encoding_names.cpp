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
  EncodingRegion region;
};

/// Encodings that ASCII is a part of and that need no shift state. Where two names are one converter, the first counts.
constexpr std::array kPages = {
    NamedPage{874, "windows-874", true, EncodingRegion::Thai},
    NamedPage{932, "windows-932", false, EncodingRegion::Japanese},
    NamedPage{936, "windows-936", false, EncodingRegion::ChineseSimplified},
    NamedPage{949, "windows-949", false, EncodingRegion::Korean},
    NamedPage{950, "windows-950", false, EncodingRegion::ChineseTraditional},
    NamedPage{1250, "windows-1250", true, EncodingRegion::CentralEuropean},
    NamedPage{1251, "windows-1251", true, EncodingRegion::Cyrillic},
    NamedPage{1252, "windows-1252", true, EncodingRegion::WesternEuropean},
    NamedPage{1253, "windows-1253", true, EncodingRegion::Greek},
    NamedPage{1254, "windows-1254", true, EncodingRegion::Turkish},
    NamedPage{1255, "windows-1255", true, EncodingRegion::Hebrew},
    NamedPage{1256, "windows-1256", true, EncodingRegion::Arabic},
    NamedPage{1257, "windows-1257", true, EncodingRegion::Baltic},
    NamedPage{1258, "windows-1258", true, EncodingRegion::Vietnamese},
    NamedPage{28591, "ISO-8859-1", true, EncodingRegion::WesternEuropean},
    NamedPage{28592, "ISO-8859-2", true, EncodingRegion::CentralEuropean},
    NamedPage{28593, "ISO-8859-3", true, EncodingRegion::SouthEuropean},
    NamedPage{28594, "ISO-8859-4", true, EncodingRegion::Baltic},
    NamedPage{28595, "ISO-8859-5", true, EncodingRegion::Cyrillic},
    NamedPage{28596, "ISO-8859-6", true, EncodingRegion::Arabic},
    NamedPage{28597, "ISO-8859-7", true, EncodingRegion::Greek},
    NamedPage{28598, "ISO-8859-8", true, EncodingRegion::Hebrew},
    NamedPage{28599, "ISO-8859-9", true, EncodingRegion::Turkish},
    NamedPage{28600, "ISO-8859-10", true, EncodingRegion::Nordic},
    NamedPage{28601, "ISO-8859-11", true, EncodingRegion::Thai},
    NamedPage{28603, "ISO-8859-13", true, EncodingRegion::Baltic},
    NamedPage{28604, "ISO-8859-14", true, EncodingRegion::Celtic},
    NamedPage{28605, "ISO-8859-15", true, EncodingRegion::WesternEuropean},
    NamedPage{20866, "KOI8-R", true, EncodingRegion::Cyrillic},
    NamedPage{21866, "KOI8-U", true, EncodingRegion::Cyrillic},
    NamedPage{437, "ibm-437", true, EncodingRegion::WesternEuropean},
    NamedPage{850, "ibm-850", true, EncodingRegion::WesternEuropean},
    NamedPage{852, "ibm-852", true, EncodingRegion::CentralEuropean},
    NamedPage{855, "ibm-855", true, EncodingRegion::Cyrillic},
    NamedPage{857, "ibm-857", true, EncodingRegion::Turkish},
    NamedPage{858, "ibm-858", true, EncodingRegion::WesternEuropean},
    NamedPage{862, "ibm-862", true, EncodingRegion::Hebrew},
    NamedPage{866, "ibm-866", true, EncodingRegion::Cyrillic},
    NamedPage{10000, "macintosh", true, EncodingRegion::WesternEuropean},
    NamedPage{10007, "x-mac-cyrillic", true, EncodingRegion::Cyrillic},
    NamedPage{10029, "x-mac-centraleurroman", true, EncodingRegion::CentralEuropean},
    NamedPage{737, "ibm-737", true, EncodingRegion::Greek},
    NamedPage{869, "ibm-869", true, EncodingRegion::Greek},
    NamedPage{775, "ibm-775", true, EncodingRegion::Baltic},
    NamedPage{860, "ibm-860", true, EncodingRegion::WesternEuropean},
    NamedPage{863, "ibm-863", true, EncodingRegion::WesternEuropean},
    NamedPage{861, "ibm-861", true, EncodingRegion::Nordic},
    NamedPage{865, "ibm-865", true, EncodingRegion::Nordic},
    NamedPage{10006, "x-mac-greek", true, EncodingRegion::Greek},
    NamedPage{10081, "x-mac-turkish", true, EncodingRegion::Turkish},
    NamedPage{51932, "EUC-JP", false, EncodingRegion::Japanese},
    NamedPage{51949, "EUC-KR", false, EncodingRegion::Korean},
    NamedPage{54936, "gb18030", false, EncodingRegion::ChineseSimplified},
    NamedPage{20936, "GB2312", false, EncodingRegion::ChineseSimplified},
    NamedPage{951, "Big5-HKSCS", false, EncodingRegion::ChineseTraditional},
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

std::string DeclaredName(int codePage) {
  if (codePage == kCodePageUtf8) return "UTF-8";
  if (codePage == kCodePageUtf16Le || codePage == kCodePageUtf16Be) return "UTF-16";
  std::string converter = ConverterOfCodePage(codePage);
  for (const char* standard : {"MIME", "IANA"}) {
    UErrorCode status = U_ZERO_ERROR;
    const char* const name = ucnv_getStandardName(converter.c_str(), standard, &status);
    if (U_SUCCESS(status) && name != nullptr) return name;
  }
  return converter;
}

std::vector<ListedEncoding> ListedEncodings() {
  std::vector<ListedEncoding> all;
  for (const DocumentEncoding& encoding : {DocumentEncoding{kCodePageUtf8, false},
                                           {kCodePageUtf8, true},
                                           {kCodePageUtf16Le, true},
                                           {kCodePageUtf16Be, true},
                                           {kCodePageUtf16Le, false},
                                           {kCodePageUtf16Be, false}}) {
    all.push_back({encoding, EncodingRegion::Unicode});
  }
  for (const NamedPage& page : kPages) all.push_back({{page.codePage, false}, page.region});
  all.push_back({{kCodePageJohab, false}, EncodingRegion::Korean});
  std::ranges::stable_sort(all, {}, &ListedEncoding::region);
  return all;
}

bool HasOneByteCharacters(int codePage) {
  const auto page = std::ranges::find(kPages, codePage, &NamedPage::codePage);
  return page != kPages.end() && page->oneByte;
}

}  // namespace cuewright
