#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// One JSON object on one line, built key by key in the order of the calls.
class JsonObject {
 public:
  JsonObject& Add(std::string_view key, TextView value);
  JsonObject& Add(std::string_view key, std::integral auto value) {
    if constexpr (std::same_as<decltype(value), bool>) {
      return AddRaw(key, value ? "true" : "false");
    } else {
      return AddRaw(key, std::to_string(value));
    }
  }
  JsonObject& AddNull(std::string_view key) { return AddRaw(key, "null"); }
  /// A value that is JSON already.
  JsonObject& AddRaw(std::string_view key, std::string_view json);

  /// The object and a line end.
  std::string Line() const { return "{" + body_ + "}\n"; }

 private:
  std::string body_;
};

/// A text in quotes. A lone surrogate, and so a byte of a file name that is no UTF-8, is written as an escape.
std::string JsonText(TextView text);

/// A list of values that are JSON already, and one of texts.
std::string JsonList(const std::vector<std::string>& values);
std::string JsonList(const std::vector<Text>& texts);

}  // namespace cuewright
