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
  /// `further` is what the constructor of each takes behind the name.
  template <class... Further>
  ControlArray(Form& form, const std::string& name, Further... further)
      : ControlArray(std::make_index_sequence<N>(), form, name, further...) {}

 private:
  template <std::size_t... Index, class... Further>
  ControlArray(std::index_sequence<Index...>, Form& form, const std::string& name, Further... further)
      : std::array<C, N>{C(form, name + "(" + std::to_string(Index) + ")", further...)...} {}
};

}  // namespace cuewright
