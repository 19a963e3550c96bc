#include "tests/batch/batch_rig.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace cuewright::test {
namespace {

std::vector<std::string> SplitAt(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (std::size_t at; (at = text.find(separator)) != std::string_view::npos; text.remove_prefix(at + 1)) {
    pieces.emplace_back(text.substr(0, at));
  }
  pieces.emplace_back(text);
  return pieces;
}

}  // namespace

BatchTest::BatchTest() {
  std::string name = (std::filesystem::temp_directory_path() / "cuewright-batch-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  folder_ = name;
}

BatchTest::~BatchTest() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

ProcessResult BatchTest::Batch(const std::vector<std::string>& arguments, ProcessOptions options,
                               const std::string& locale) const {
  std::vector<std::string> command = {"/usr/bin/env", "LC_ALL=" + locale, CUEWRIGHT_BIN_DIR "/cuewright-batch"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  if (options.folder.empty()) options.folder = folder_;
  return RunProcess(command, options);
}

void BatchTest::Write(const std::string& name, std::string_view bytes) const {
  std::ofstream(PathOf(name), std::ios::binary) << bytes;
}

std::string BatchTest::Read(const std::string& name) const {
  std::ifstream file(PathOf(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool BatchTest::Exists(const std::string& name) const { return std::filesystem::exists(PathOf(name)); }

ProcessResult ShellTest::Shell(const std::string& line) const {
  ProcessOptions options;
  options.folder = PathOf("");
  return RunProcess(
      {"/usr/bin/env", "LC_ALL=C.UTF-8", "B=" CUEWRIGHT_BIN_DIR "/cuewright-batch", "/bin/sh", "-c", line}, options);
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines = SplitAt(text, '\n');
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

std::vector<std::string> FieldsOf(std::string_view line) { return SplitAt(line, '\t'); }

}  // namespace cuewright::test
