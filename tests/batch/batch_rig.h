#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/run_process.h"

namespace cuewright::test {

/// A folder of its own for each test, and the program run in it.
class BatchTest : public testing::Test {
 protected:
  BatchTest();
  ~BatchTest() override;

  /// Runs cuewright-batch in the folder with these arguments, in a locale whose code page is 1252.
  ProcessResult Batch(const std::vector<std::string>& arguments, ProcessOptions options = {},
                      const std::string& locale = "C.UTF-8") const;

  /// Writes a file below the folder; the bytes as they stand.
  void Write(const std::string& name, std::string_view bytes) const;
  std::string Read(const std::string& name) const;
  bool Exists(const std::string& name) const;
  std::string PathOf(const std::string& name) const { return folder_ + "/" + name; }

 private:
  std::string folder_;
};

/// The same for lines of the shell.
class ShellTest : public BatchTest {
 protected:
  /// Runs a line of the shell in the folder; $B is the program.
  ProcessResult Shell(const std::string& line) const;
};

/// Two captions, one of two lines and in italics.
inline constexpr std::string_view kSubRip =
    "1\r\n00:00:12,400 --> 00:00:15,200\r\nGood evening, Inspector.\r\n\r\n"
    "2\r\n00:00:16,000 --> 00:00:19,800\r\n<i>Nobody leaves this house\r\nuntil the storm has passed.</i>\r\n\r\n";

inline constexpr std::string_view kMicroDvd =
    "{310}{380}Good evening, Inspector.\r\n"
    "{400}{495}{Y:i}Nobody leaves this house|until the storm has passed.\r\n";

/// The same two captions as `dump` prints them.
inline constexpr std::string_view kDumped =
    "1\t12400\t15200\tGood evening, Inspector.\n"
    "2\t16000\t19800\t<i>Nobody leaves this house|until the storm has passed.\n";

std::vector<std::string> LinesOf(std::string_view text);
std::vector<std::string> FieldsOf(std::string_view line);

}  // namespace cuewright::test
