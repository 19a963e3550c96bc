#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "text/text.h"

namespace cuewright::testing {

/// A folder of its own for one test, gone with it.
class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "cuewright-test-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& Path() const { return path_; }
  std::string Bytes(const std::string& name) const { return (path_ / name).string(); }
  /// The path of a file in the folder, as program text.
  Text operator/(const std::string& name) const { return FromUtf8(Bytes(name)); }

  Text Write(const std::string& name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
    return *this / name;
  }
  std::string Read(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
  }

 private:
  std::filesystem::path path_;
};

}  // namespace cuewright::testing
