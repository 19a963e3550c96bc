#pragma once

#include <set>

#include "text/text.h"

namespace cuewright {

/// Gives the captions of one window access keys, each letter once.
class AccessKeys {
 public:
  /// The caption with the mark "&" before its key. Its own key is kept where that is still free, else the first free
  /// letter of the caption becomes the key; in a script whose letters are on no key, a Latin one is put behind it.
  Text Give(TextView caption);

 private:
  std::set<char16_t> taken_;
};

}  // namespace cuewright
