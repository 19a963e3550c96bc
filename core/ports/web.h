#pragma once

#include <cstdint>
#include <string>

#include "core/runtime_error.h"
#include "text/text.h"

namespace cuewright {

/// In the flags of the connection: the system knows that there is none.
inline constexpr int kConnectionOffline = 32;

/// Pages fetched over the network. This class is a system without one.
class Web {
 public:
  virtual ~Web() = default;

  /// Flags of the system's connection, `kConnectionOffline` among them.
  virtual int ConnectionState() const { return kConnectionOffline; }

  /// The body of a page, fetched by one GET over HTTP or HTTPS and never from a cache. Events go on being handled
  /// meanwhile. Run-time error, with the reason for the user, when it can't be had, is too large, takes too long, is
  /// redirected too often or less safely, or was given up.
  virtual std::string Get(TextView /*url*/) {
    throw RuntimeError{kErrorDeviceIo, u"There is no access to the network."};
  }

  /// Gives up the fetch that is on its way.
  virtual void Abort() {}
};

}  // namespace cuewright
