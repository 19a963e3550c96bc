#pragma once

#include <dlfcn.h>

namespace cuewright {

/// Gets a function of a library that was opened at run time; false when the library has none of that name.
template <class Function>
bool FindFunction(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

}  // namespace cuewright
