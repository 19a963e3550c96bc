#include "formats/encoding_rules.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "text/encoding_names.h"

namespace cuewright {
namespace {

constexpr std::array<TextView, 5> kUtf8Formats = {u"WEBVTT", u"WEBVTT_RSS", u"YOUTUBESBV", u"TTML", u"TRANSCRIPTJSON"};

/// Bytes in which a declaration must end; anything longer is no declaration.
constexpr std::size_t kLongestDeclaration = 200;

}  // namespace

bool IsUtf8UnlessAsked(TextView identifier) {
  return std::ranges::find(kUtf8Formats, identifier) != kUtf8Formats.end();
}

Stretch DeclaredEncoding(std::string_view bytes) {
  constexpr std::string_view kKey = "encoding";
  constexpr std::string_view kBlanks = " \t\r\n";
  if (!bytes.starts_with("<?xml") || bytes.size() < 6 || kBlanks.find(bytes[5]) == std::string_view::npos) return {};
  const std::string_view head = bytes.substr(0, kLongestDeclaration);
  const std::string_view declaration = head.substr(0, head.find("?>"));
  if (declaration.size() == head.size()) return {};
  const std::size_t key = declaration.find(kKey);
  if (key == std::string_view::npos) return {};
  const std::size_t equals = declaration.find_first_not_of(kBlanks, key + kKey.size());
  if (equals == std::string_view::npos || declaration[equals] != '=') return {};
  const std::size_t quote = declaration.find_first_not_of(kBlanks, equals + 1);
  if (quote == std::string_view::npos || (declaration[quote] != '"' && declaration[quote] != '\'')) return {};
  const std::size_t end = declaration.find(declaration[quote], quote + 1);
  return end == std::string_view::npos ? Stretch() : Stretch::Between(quote + 1, end);
}

std::optional<int> DeclaredCodePage(std::string_view bytes) {
  const Stretch name = DeclaredEncoding(bytes);
  const std::optional<DocumentEncoding> named = EncodingByName(FromUtf8(name.In(bytes)));
  if (!named || !MarkOf(named->codePage).empty()) return {};
  return named->codePage;
}

Text WithEncodingDeclared(TextView header, int codePage) {
  std::string bytes = ToUtf8(header);
  const Stretch name = DeclaredEncoding(bytes);
  if (name.Empty()) return Text(header);
  const std::optional<DocumentEncoding> named = EncodingByName(FromUtf8(name.In(bytes)));
  const std::string other = DeclaredName(codePage);
  if (named && DeclaredName(named->codePage) == other) return Text(header);
  return FromUtf8(bytes.replace(name.at, name.size, other));
}

}  // namespace cuewright
