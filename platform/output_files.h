#pragma once

#include <string>

#include "core/ports/output_files.h"

namespace cuewright {

/// Gives a file another name once all of it is on the disk. Run-time error when either fails; `shown` stands in it.
void RenameFlushed(const std::string& from, const std::string& to, TextView shown);

/// `OutputFiles` on the system's own calls.
class PosixOutputFiles final : public OutputFiles {
 public:
  std::unique_ptr<OutputFile> Begin(TextView target) override;
  std::unique_ptr<WorkFolder> MakeWorkFolder() override;
  bool SameFile(TextView a, TextView b) const override;
  Text Absolute(TextView path) const override;
};

}  // namespace cuewright
