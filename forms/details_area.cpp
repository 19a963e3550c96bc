#include "forms/details_area.h"

namespace cuewright {

Text Hint::In(const LangStrings& strings) const {
  Text text = filled.empty() ? strings[message] : Fill(strings[message], filled);
  return further ? text.append(kLineEnd).append(kLineEnd).append(strings[*further]) : text;
}

void DetailsArea::Show(TextView text) {
  lblDetails.SetText(text);
  for (Control* control : std::initializer_list<Control*>{&lblDetailsTitle, &fraDetails, &lblDetails}) {
    control->SetVisible(!text.empty());
  }
}

void DetailsArea::Explain(Control& control, const Hint& hint) {
  Add(hint);
  control.Hovered.Connect([this, hint] { Show(hint); });
}

std::vector<Text> DetailsArea::Texts() const {
  std::vector<Text> texts;
  texts.reserve(hints_.size());
  for (const Hint& hint : hints_) texts.push_back(hint.In(strings_));
  return texts;
}

}  // namespace cuewright
