#include "core/paths.h"

namespace cuewright {
namespace {

constexpr std::size_t kMenuPathLength = 33;

}  // namespace

Text StripExtension(TextView path) { return Text(path.substr(0, path.rfind(u'.'))); }

Text FileNameOf(TextView path) {
  const std::size_t slash = path.rfind(u'/');
  return Text(slash == TextView::npos ? path : path.substr(slash + 1));
}

Text FolderOfPath(TextView path) {
  const std::size_t slash = path.rfind(u'/');
  return slash == TextView::npos ? Text() : Text(path.substr(0, slash + 1));
}

Text WithSlash(TextView folder) { return folder.ends_with(u'/') ? Text(folder) : Text(folder) + u"/"; }

Text ShortenPath(TextView path) {
  // On this system the first separator is the root itself.
  const std::size_t first = path.find(u'/');
  const std::size_t last = path.rfind(u'/');
  if (path.size() < kMenuPathLength || first == TextView::npos || first == last) return Text(path);
  return Text(path.substr(0, first + 1)) + u"..." + Text(path.substr(last));
}

Text StartExtension(TextView path) {
  const std::size_t dot = path.find(u'.');
  return dot == TextView::npos ? Text() : ToLower(path.substr(dot + 1));
}

}  // namespace cuewright
