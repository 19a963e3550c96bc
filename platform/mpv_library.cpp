#include "platform/mpv_library.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/library_function.h"

namespace cuewright {
namespace {

constexpr unsigned long kInterfaceMajor = 2;
constexpr char kUsualFileName[] = "libmpv.so.2";

/// Name of the first function that the library lacks; null when all are there.
const char* FillTable(void* library, MpvApi& api) {
#define CUEWRIGHT_FIND(name) \
  if (!FindFunction(library, "mpv_" #name, api.name)) return "mpv_" #name
  CUEWRIGHT_FIND(client_api_version);
  CUEWRIGHT_FIND(error_string);
  CUEWRIGHT_FIND(create);
  CUEWRIGHT_FIND(initialize);
  CUEWRIGHT_FIND(terminate_destroy);
  CUEWRIGHT_FIND(set_option_string);
  CUEWRIGHT_FIND(command_async);
  CUEWRIGHT_FIND(set_property_async);
  CUEWRIGHT_FIND(get_property);
  CUEWRIGHT_FIND(free);
  CUEWRIGHT_FIND(observe_property);
  CUEWRIGHT_FIND(request_log_messages);
  CUEWRIGHT_FIND(wait_event);
  CUEWRIGHT_FIND(wakeup);
  CUEWRIGHT_FIND(render_context_create);
  CUEWRIGHT_FIND(render_context_set_update_callback);
  CUEWRIGHT_FIND(render_context_update);
  CUEWRIGHT_FIND(render_context_render);
  CUEWRIGHT_FIND(render_context_free);
#undef CUEWRIGHT_FIND
  return nullptr;
}

/// True when the system's loader finds a library with the interface version that this program was built for.
bool IsInstalled(const std::string& fileName) {
  if (fileName != kUsualFileName || std::getenv("LD_LIBRARY_PATH") != nullptr) return false;
  for (const std::string folder : {"/usr/lib/" CUEWRIGHT_MULTIARCH "/", "/usr/lib64/", "/usr/lib/"}) {
    if (access((folder + fileName).c_str(), R_OK) == 0) return true;
  }
  return false;
}

}  // namespace

std::string MpvLibrary::DefaultFileName() {
  const char* chosen = std::getenv("CUEWRIGHT_MPV_LIBRARY");
  return chosen && *chosen ? chosen : kUsualFileName;
}

MpvLibrary::MpvLibrary(const std::string& fileName) : MpvLibrary(fileName, Load::Now) {}

MpvLibrary::MpvLibrary(const std::string& fileName, Load load) : fileName_(FromUtf8(fileName)) {
  if (load == Load::Now || !IsInstalled(fileName)) Ensure();
}

void MpvLibrary::Ensure() const {
  if (loaded_) return;
  loaded_ = true;
  // Never unloaded: the library's own threads and thread-local values may outlive the last player.
  void* library = dlopen(ToUtf8(fileName_).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (!library) {
    const char* reason = dlerror();
    error_ = FromUtf8(reason ? reason : "the library can't be loaded");
    return;
  }
  if (const char* missing = FillTable(library, api_)) {
    error_ = fileName_ + u" has no function " + FromUtf8(missing);
    return;
  }
  const unsigned long version = api_.client_api_version();
  if (version >> 16 != kInterfaceMajor) {
    error_ = fileName_ + u" has version " + FromUtf8(std::to_string(version >> 16)) + u" of the interface";
  }
}

}  // namespace cuewright
