#include "core/file_helpers.h"

#include <algorithm>

#include "core/paths.h"

namespace cuewright {
namespace {

constexpr int kPollMs = 100;
constexpr int kLongestWaitMs = 3000;

bool IsPlainUnit(char16_t unit) {
  return unit >= 0x20 && unit != 0x7F && unit != u'"' && unit != u'\\' && !(unit >= 0xDC80 && unit <= 0xDCFF);
}

}  // namespace

bool DeleteFileWait(Files& files, EventQueue& events, TextView path, bool wait) {
  if (!files.Exists(path)) return true;
  bool gone = files.Remove(path);
  for (int waited = 0; wait && !gone && waited < kLongestWaitMs; waited += kPollMs) {
    events.WaitMs(kPollMs);
    gone = !files.Exists(path);
  }
  return gone;
}

bool IsPlainPath(TextView path) {
  for (std::size_t i = 0; i < path.size(); ++i) {
    // The second half of a pair lies in the range of escaped bytes.
    const bool pair = path[i] >= 0xD800 && path[i] <= 0xDBFF && i + 1 < path.size();
    if (!IsPlainUnit(path[i])) return false;
    if (pair) ++i;
  }
  return true;
}

Text ShortPathOf(Files& files, TextView path, TextView tempFolder) {
  if (IsPlainPath(path)) return Text(path);
  // The extension stays, since tools choose by it; it goes too when it is what isn't plain.
  const Text name = FileNameOf(path);
  const std::size_t dot = name.rfind(u'.');
  Text extension = dot == Text::npos ? Text() : name.substr(dot);
  if (!IsPlainPath(extension)) extension.clear();
  for (int number = 1;; ++number) {
    Text link = Text(tempFolder) + u"link" + Decimal(number) + extension;
    if (files.MakeLink(link, path)) return link;
  }
}

}  // namespace cuewright
