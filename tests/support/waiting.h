#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <string>

#include "core/ports/processes.h"

// What another process does is waited for by the system's own word. A wait that is in vain ends after half a minute.
namespace cuewright::testing {

/// All that a child wrote to both streams until its end.
struct Ended {
  int status = -1;
  std::string output;
  std::string errors;
};
Ended RunToEnd(ChildProcess& child);

/// Waits for the end of a process that need not be a child of this one; false when it still runs.
bool WaitForEndOf(pid_t process);

/// A pipe by name, by which a script tells that it has come to a place, or is told to go on.
class NamedPipe {
 public:
  explicit NamedPipe(std::filesystem::path path);
  NamedPipe(const NamedPipe&) = delete;
  NamedPipe& operator=(const NamedPipe&) = delete;
  ~NamedPipe();

  /// The next line that is written to it, with its end; what came so far when nothing more comes.
  std::string ReadLine() const;
  void Write(const std::string& bytes) const;

 private:
  int descriptor_;
};

/// Looks at a folder whenever something in it changed, until `holds` says so; false when it never did.
bool WaitForChange(const std::filesystem::path& folder, const std::function<bool()>& holds);

}  // namespace cuewright::testing
