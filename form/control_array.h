#pragma once

#include <array>
#include <string>
#include <utility>

#include "form/control.h"

namespace cuewright {

/// Controls that share a name, each with its number behind it: "lblMenu(0)", "lblMenu(1)" and so on.
template <class C, std::size_t N>
class ControlArray : public std::array<C, N> {
 public:
  ControlArray(Form& form, const std::string& name) : ControlArray(form, name, std::make_index_sequence<N>()) {}

 private:
  template <std::size_t... Index>
  ControlArray(Form& form, const std::string& name, std::index_sequence<Index...>)
      : std::array<C, N>{C(form, name + "(" + std::to_string(Index) + ")")...} {}
};

}  // namespace cuewright
