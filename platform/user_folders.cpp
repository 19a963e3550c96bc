#include "platform/user_folders.h"

#include <limits.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "core/paths.h"
#include "platform/descriptor.h"
#include "platform/posix_files.h"

namespace cuewright {
namespace {

std::string Environment(const char* name) {
  const char* value = ::getenv(name);
  return value == nullptr ? std::string() : value;
}

/// A folder variable of the desktop counts only when it is absolute.
std::string FolderFrom(const char* variable) {
  const std::string value = Environment(variable);
  return value.starts_with('/') ? value : std::string();
}

/// The folder that a variable names, or else this one of the user's home; empty without a home.
std::string FolderFrom(const char* variable, const char* below) {
  std::string folder = FolderFrom(variable);
  if (!folder.empty()) return folder;
  const std::string home = FolderFrom("HOME");
  return home.empty() ? std::string() : home + below;
}

/// What belongs to the program in a folder; empty where there is no such folder.
Text OwnPlace(const std::string& folder, const char* name) {
  return folder.empty() ? Text() : FromUtf8(folder + "/tessaly-cuewright/" + name);
}

Text ConfigurationFile(const char* name) { return OwnPlace(FolderFrom("XDG_CONFIG_HOME", "/.config"), name); }

}  // namespace

Text SettingsFilePath() { return ConfigurationFile("settings.ini"); }

Text RegistryFilePath() { return ConfigurationFile("registry"); }

Text WordsFolderPath() { return ConfigurationFile("words/"); }

Text JournalFolderPath() { return OwnPlace(FolderFrom("XDG_STATE_HOME", "/.local/state"), "journals"); }

Text SoundFolder() { return OwnPlace(FolderFrom("XDG_CACHE_HOME", "/.cache"), "sounds"); }

std::vector<std::string> RunFolderBases() {
  std::vector<std::string> bases;
  for (const std::string& base : {FolderFrom("XDG_RUNTIME_DIR"), FolderFrom("TMPDIR"), std::string("/tmp")}) {
    if (!base.empty()) bases.push_back(base);
  }
  return bases;
}

Text WineSystemFolder() {
  const std::string prefix = FolderFrom("WINEPREFIX", "/.wine");
  if (prefix.empty()) return {};
  const std::string windows = prefix + "/drive_c/windows/";
  std::error_code ignored;
  const bool wide = std::filesystem::is_directory(windows + "syswow64", ignored);
  return FromUtf8(windows + (wide ? "syswow64/" : "system32/"));
}

Text ProgramFolder() {
  const std::optional<std::string> file = TargetOfLink("/proc/self/exe");
  return file ? FromUtf8(file->substr(0, file->rfind('/') + 1)) : u"./";
}

Text DataFolder() {
  const std::filesystem::path own(ToUtf8(ProgramFolder()));
  std::error_code ignored;
  for (const char* place : {"", "../", CUEWRIGHT_DATA_FROM_BIN, CUEWRIGHT_DATA_FROM_LIBEXEC}) {
    const std::filesystem::path folder = (own / place).lexically_normal();
    if (std::filesystem::exists(folder / "formats.dat", ignored)) return WithSlash(FromUtf8(folder.string()));
  }
  return ProgramFolder();
}

Text AbsoluteIfExists(TextView path) {
  std::error_code error;
  const std::filesystem::path given(ToUtf8(path));
  if (path.empty() || !std::filesystem::exists(given, error)) return Text(path);
  const auto absolute = std::filesystem::absolute(given, error).lexically_normal();
  return error ? Text(path) : FromUtf8(absolute.string());
}

}  // namespace cuewright
