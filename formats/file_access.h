#pragma once

#include "core/ports/files.h"
#include "text/encodings.h"

namespace cuewright {

/// The files of documents, and how text stands in them.
struct FileAccess {
  Files& files;
  const Encodings& encodings;
};

}  // namespace cuewright
