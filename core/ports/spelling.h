#pragma once

#include <memory>
#include <vector>

#include "core/runtime_error.h"
#include "text/text.h"

namespace cuewright {

/// A spelling dictionary that is open.
class SpellDictionary {
 public:
  virtual ~SpellDictionary() = default;

  /// True for a word that is spelt right.
  virtual bool Knows(TextView word) = 0;
  /// Words that may be meant, the likeliest first.
  virtual std::vector<Text> Suggest(TextView word) = 0;
};

/// The spelling dictionaries of the system. This class is a system without any.
class SpellDictionaries {
 public:
  virtual ~SpellDictionaries() = default;

  /// Their names, as "en_US", in the order of the alphabet; none when what reads them is missing as well.
  virtual std::vector<Text> Installed() const { return {}; }

  /// Opens one; run-time error, with the reason for the user, when that fails.
  virtual std::unique_ptr<SpellDictionary> Open(TextView /*name*/) const {
    throw RuntimeError{kErrorFileNotFound, Missing()};
  }

  /// What the user should install when there is no dictionary at all.
  virtual Text Missing() const { return u"There are no spelling dictionaries."; }

  /// A dictionary's name in the words of the user's system; the name itself where that is not known.
  virtual Text DisplayName(TextView name) const { return Text(name); }
};

}  // namespace cuewright
