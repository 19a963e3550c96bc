#pragma once

#include <functional>
#include <map>
#include <string>

namespace cuewright {

/// The windows beside the main one that are open now, by name.
class OpenForms {
 public:
  /// A window has opened; `close` closes it.
  void Opened(const std::string& name, std::function<void()> close) { closers_[name] = std::move(close); }
  /// A window has closed by itself.
  void Closed(const std::string& name) { closers_.erase(name); }

  /// Closes every window that works on the captions.
  void CloseTools() {
    for (const char* name : {"frmEmbed", "frmFind", "frmReplace", "frmReport", "frmRetime"}) UnloadForm(name);
  }

  bool IsFormLoaded(const std::string& name) const { return closers_.contains(name); }

  /// Closes a window; nothing happens when it isn't open.
  void UnloadForm(const std::string& name) {
    const auto at = closers_.find(name);
    if (at == closers_.end()) return;
    const auto close = std::move(at->second);
    closers_.erase(at);
    close();
  }

 private:
  std::map<std::string, std::function<void()>> closers_;
};

}  // namespace cuewright
