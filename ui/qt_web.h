#pragma once

#include <QPointer>
#include <cstdint>

#include "core/ports/web.h"

class QNetworkReply;

namespace cuewright {

/// The web by the toolkit. A reply is bytes and nothing else: no cookies, no cache, no passwords.
class QtWeb final : public Web {
 public:
  struct Limits {
    std::uint64_t bytes = std::uint64_t{1} << 20;  ///< of a body
    int ms = 30000;                                ///< from the request to the last byte
    int redirects = 5;
  };
  QtWeb() = default;
  explicit QtWeb(const Limits& limits) : limits_(limits) {}

  int ConnectionState() const override;
  std::string Get(TextView url) override;
  void Abort() override;

 private:
  Limits limits_;
  QPointer<QNetworkReply> reply_;
};

}  // namespace cuewright
