#include "batch/json.h"

#include "text/units.h"

namespace cuewright {
namespace {

std::string Escaped(char16_t unit) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string result = "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) result += kDigits[(unit >> shift) & 0xF];
  return result;
}

/// True when a whole pair stands at `at`.
bool IsPair(TextView text, std::size_t at) { return IsLead(text[at]) && at + 1 < text.size() && IsTrail(text[at + 1]); }

}  // namespace

JsonObject& JsonObject::Add(std::string_view key, TextView value) { return AddRaw(key, JsonText(value)); }

JsonObject& JsonObject::AddRaw(std::string_view key, std::string_view json) {
  if (!body_.empty()) body_ += ',';
  body_ += '"';
  body_ += key;
  body_ += "\":";
  body_ += json;
  return *this;
}

std::string JsonText(TextView text) {
  std::string result = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit == u'"' || unit == u'\\') {
      result += '\\';
      result += LowByte(unit);
    } else if (unit < 0x20 || unit == 0x7F) {
      result += Escaped(unit);
    } else if (unit < 0x7F) {
      result += LowByte(unit);
    } else if (!IsLead(unit) && !IsTrail(unit)) {
      result += ToUtf8(text.substr(i, 1));
    } else if (IsPair(text, i)) {
      result += ToUtf8(text.substr(i, 2));
      ++i;
    } else {
      result += Escaped(unit);
    }
  }
  return result + '"';
}

std::string JsonList(const std::vector<std::string>& values) {
  std::string result = "[";
  for (const std::string& value : values) {
    if (result.size() > 1) result += ',';
    result += value;
  }
  return result + ']';
}

std::string JsonList(const std::vector<Text>& texts) {
  std::vector<std::string> values;
  values.reserve(texts.size());
  for (const Text& text : texts) values.push_back(JsonText(text));
  return JsonList(values);
}

}  // namespace cuewright
