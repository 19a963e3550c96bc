#include "forms/control_texts.h"

namespace cuewright {

void ShowTexts(std::span<const ControlText> rows, const LangStrings& strings) {
  for (const ControlText& row : rows) row.control.SetText(strings[row.message]);
}

void SpeakTexts(std::span<const ControlText> rows, const LangStrings& strings) {
  for (const ControlText& row : rows) row.control.SetSpokenName(WithoutAccessKey(strings[row.message]));
}

}  // namespace cuewright
