#pragma once

#include <mpv/client.h>
#include <mpv/render.h>
#include <mpv/render_gl.h>

#include <string>

#include "text/text.h"

namespace cuewright {

/// The functions of libmpv in use. All are set when the library is there.
struct MpvApi {
  decltype(&::mpv_client_api_version) client_api_version = nullptr;
  decltype(&::mpv_error_string) error_string = nullptr;
  decltype(&::mpv_create) create = nullptr;
  decltype(&::mpv_initialize) initialize = nullptr;
  decltype(&::mpv_terminate_destroy) terminate_destroy = nullptr;
  decltype(&::mpv_set_option_string) set_option_string = nullptr;
  decltype(&::mpv_command_async) command_async = nullptr;
  decltype(&::mpv_set_property_async) set_property_async = nullptr;
  decltype(&::mpv_get_property) get_property = nullptr;
  decltype(&::mpv_free) free = nullptr;
  decltype(&::mpv_observe_property) observe_property = nullptr;
  decltype(&::mpv_request_log_messages) request_log_messages = nullptr;
  decltype(&::mpv_wait_event) wait_event = nullptr;
  decltype(&::mpv_wakeup) wakeup = nullptr;
  decltype(&::mpv_render_context_create) render_context_create = nullptr;
  decltype(&::mpv_render_context_set_update_callback) render_context_set_update_callback = nullptr;
  decltype(&::mpv_render_context_update) render_context_update = nullptr;
  decltype(&::mpv_render_context_render) render_context_render = nullptr;
  decltype(&::mpv_render_context_free) render_context_free = nullptr;
};

/// libmpv, loaded at run time: the program starts without it and tells what lacks.
class MpvLibrary {
 public:
  /// The library's usual file name, or the one that the environment variable CUEWRIGHT_MPV_LIBRARY names.
  static std::string DefaultFileName();

  /// Loads the library; one that lacks a function or has another version of the interface counts as missing.
  explicit MpvLibrary(const std::string& fileName = DefaultFileName());

  enum class Load { Now, WhenUsed };
  /// With `WhenUsed` a library that stands in one of the system's folders, its version in its name, counts as available
  /// and is loaded by the first call of `Api` or `Error`: it and what it needs take time and memory that a start
  /// without a film has no use for. Any other is loaded at once.
  MpvLibrary(const std::string& fileName, Load load);

  bool Available() const { return error_.empty(); }

  /// The library's file name, for telling the user what is missing.
  const Text& FileName() const { return fileName_; }

  /// Why the library can't be used; empty when it can.
  const Text& Error() const {
    Ensure();
    return error_;
  }

  /// The functions; only to be used when `Available` says so behind this call.
  const MpvApi& Api() const {
    Ensure();
    return api_;
  }

 private:
  void Ensure() const;

  Text fileName_;
  mutable bool loaded_ = false;
  mutable Text error_;
  mutable MpvApi api_;
};

}  // namespace cuewright
