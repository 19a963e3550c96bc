#pragma once

#include <span>

#include "core/lang_strings.h"
#include "form/control.h"

namespace cuewright {

/// A row of a window's table of texts: what a control shows, or what a screen reader says for it.
struct ControlText {
  Control& control;
  Message message;
};

/// Sets the texts of controls in the language in force.
void ShowTexts(std::span<const ControlText> rows, const LangStrings& strings);
/// Sets what a screen reader says for controls, in the language in force.
void SpeakTexts(std::span<const ControlText> rows, const LangStrings& strings);

}  // namespace cuewright
