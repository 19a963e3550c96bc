#pragma once

#include "core/ports/output_files.h"

namespace cuewright {

/// `OutputFiles` on the system's own calls.
class PosixOutputFiles final : public OutputFiles {
 public:
  std::unique_ptr<OutputFile> Begin(TextView target) override;
  std::unique_ptr<WorkFolder> MakeWorkFolder() override;
  bool SameFile(TextView a, TextView b) const override;
  Text Absolute(TextView path) const override;
};

}  // namespace cuewright
