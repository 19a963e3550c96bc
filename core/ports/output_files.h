#pragma once

#include <memory>
#include <string_view>

#include "text/text.h"

namespace cuewright {

/// A file that another program writes. It stands beside its target until it is whole, and goes with this object unless
/// it was kept.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  /// The absolute path to write; an empty file is there already, private to the user.
  virtual const Text& Part() const = 0;

  /// Puts what was written in the target's place. Run-time error when that fails.
  virtual void Keep() = 0;
};

/// A folder for one piece of work, private to the user. It goes with this object, and all that stands in it.
class WorkFolder {
 public:
  virtual ~WorkFolder() = default;

  /// With a "/" at its end.
  virtual const Text& Path() const = 0;

  /// Makes a new file in it, private to the user. Run-time error when that fails.
  virtual void Write(std::string_view name, std::string_view bytes) = 0;
};

/// Makes them. Failures are run-time errors.
class OutputFiles {
 public:
  virtual ~OutputFiles() = default;

  /// A link at the target's place is kept, what it leads to is replaced.
  virtual std::unique_ptr<OutputFile> Begin(TextView target) = 0;

  virtual std::unique_ptr<WorkFolder> MakeWorkFolder() = 0;

  /// True when both paths lead to one file that exists.
  virtual bool SameFile(TextView a, TextView b) const = 0;

  /// The path as it is seen from the root.
  virtual Text Absolute(TextView path) const = 0;
};

}  // namespace cuewright
