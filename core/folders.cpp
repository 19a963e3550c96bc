#include "core/folders.h"

namespace cuewright {
namespace {

constexpr std::size_t kShortestPath = 8;

}  // namespace

Text StartFileOf(TextView commandLine) {
  const bool isPath = commandLine.size() >= kShortestPath && commandLine.find(u'/') != TextView::npos &&
                      commandLine.find(u'.') != TextView::npos;
  return isPath ? ReplaceAll(commandLine, u"\"", {}) : Text();
}

}  // namespace cuewright
