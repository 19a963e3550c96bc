#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/ports/spelling.h"

namespace cuewright {

struct HunspellApi;

/// The dictionaries of Hunspell that are installed. Its library is loaded when they are first asked for, so that the
/// program starts without it.
class HunspellDictionaries final : public SpellDictionaries {
 public:
  /// The library's usual file names, or the one that the environment variable CUEWRIGHT_HUNSPELL_LIBRARY names.
  static std::vector<std::string> DefaultLibraries();
  /// The folders in which programs look for dictionaries: those of DICPATH, the user's own, the system's.
  static std::vector<std::string> DefaultFolders();

  explicit HunspellDictionaries(std::vector<std::string> folders = DefaultFolders(),
                                std::vector<std::string> libraries = DefaultLibraries());
  ~HunspellDictionaries() override;

  std::vector<Text> Installed() const override;
  std::unique_ptr<SpellDictionary> Open(TextView name) const override;
  Text Missing() const override;
  Text DisplayName(TextView name) const override;

 private:
  /// The functions; null where the library is missing.
  const std::shared_ptr<const HunspellApi>& Api() const;
  /// Names and the paths of their files without the ending; of dictionaries with the same name the first counts.
  std::map<std::string, std::string> Find() const;

  std::vector<std::string> folders_;
  std::vector<std::string> libraries_;
  mutable bool loaded_ = false;
  mutable std::shared_ptr<const HunspellApi> api_;
};

}  // namespace cuewright
