#include "runner/script_call.h"

#include "text/digits.h"

#include <charconv>
#include <optional>

namespace cuewright {
namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

/// Goes along a line; what doesn't fit throws its problem.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : left_(line) {}

  ScriptLine Read() {
    SkipBlanks();
    if (AtEnd()) return std::monostate();
    ScriptCall call;
    ReadName(call);
    Take('(', "\"(\" behind the name of the command");
    SkipBlanks();
    if (!left_.empty() && left_.front() != ')') ReadArguments(call);
    Take(')', "\",\" or \")\" behind an argument");
    Take(';', "\";\" behind the command");
    SkipBlanks();
    if (!AtEnd()) Fail("the end of the line");
    return call;
  }

 private:
  [[noreturn]] void Fail(const std::string& expected) const {
    const std::string found = left_.empty() ? "the line ends" : "found \"" + std::string(left_.substr(0, 20)) + "\"";
    throw ScriptProblem{0, "expected " + expected + ", but " + found};
  }

  void SkipBlanks() { left_.remove_prefix(std::min(left_.find_first_not_of(" \t"), left_.size())); }
  bool AtEnd() const { return left_.empty() || left_.starts_with("//"); }

  void Take(char wanted, const std::string& expected) {
    SkipBlanks();
    if (left_.empty() || left_.front() != wanted) Fail(expected);
    left_.remove_prefix(1);
  }

  void ReadName(ScriptCall& call) {
    if (!IsLetter(left_.front())) Fail("the name of a command");
    while (!left_.empty()) {
      const char c = left_.front();
      if (c == '[') {
        left_.remove_prefix(1);
        if (call.index >= 0) Fail("one number in brackets");
        SkipBlanks();
        call.index = ReadNumber();
        if (call.index < 0) Fail("a number from 0 on in the brackets");
        Take(']', "\"]\" behind the number");
        call.name += "[]";
      } else if (IsLetter(c) || IsDigit(c) || c == '.') {
        call.name += c;
        left_.remove_prefix(1);
      } else {
        return;
      }
    }
  }

  void ReadArguments(ScriptCall& call) {
    for (;;) {
      SkipBlanks();
      if (!left_.empty() && left_.front() == '"') {
        call.arguments.emplace_back(ReadString());
      } else {
        call.arguments.emplace_back(ReadNumber());
      }
      SkipBlanks();
      if (left_.empty() || left_.front() != ',') return;
      left_.remove_prefix(1);
    }
  }

  std::int64_t ReadNumber() {
    std::string_view digits = left_;
    const bool negative = digits.starts_with('-');
    if (negative) digits.remove_prefix(1);
    const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
    if (hexadecimal) digits.remove_prefix(2);
    std::uint32_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
    if (error == std::errc::result_out_of_range) Fail("a number of at most 32 bits");
    if (error != std::errc()) Fail("a number or a text in quotes");
    left_.remove_prefix(end - left_.data());
    return negative ? -std::int64_t{value} : std::int64_t{value};
  }

  std::string ReadString() {
    std::string text;
    left_.remove_prefix(1);
    while (!left_.empty() && left_.front() != '"') {
      if (left_.front() == '\\') {
        left_.remove_prefix(1);
        if (left_.empty() || left_.front() != '\\') Fail("a second backslash, as every backslash stands twice");
      }
      text += left_.front();
      left_.remove_prefix(1);
    }
    if (left_.empty()) Fail("a quote at the end of the text");
    left_.remove_prefix(1);
    return text;
  }

  std::string_view left_;
};

}  // namespace

ScriptLine ReadScriptLine(std::string_view line) {
  try {
    return LineReader(line).Read();
  } catch (const ScriptProblem& problem) {
    return problem;
  }
}

}  // namespace cuewright
