#pragma once

#include <cstdint>

#include "core/ports/sound_store.h"

namespace cuewright {

/// `SoundStore` in a folder. The folder is made when the first sound is written, for this user alone.
class FolderSoundStore final : public SoundStore {
 public:
  /// `most`: how many bytes the sounds may take together; the newest one is kept however large it is.
  FolderSoundStore(TextView folder, std::uint64_t most);

  Text PathFor(TextView film, int track) override;
  bool Has(TextView path) override;
  Text Begin(TextView path) override;
  void Keep(TextView path) override;
  void Discard(TextView path) override;
  void Empty() override;

 private:
  Text folder_;
  std::uint64_t most_;
};

}  // namespace cuewright
