#include "form/control.h"

#include <algorithm>

namespace cuewright {

Control::Control(Form& form, std::string name) : name_(std::move(name)) { form.controls_.push_back(this); }

void Control::SetText(TextView text) {
  if (text_ == text) return;
  text_ = text;
  Changed();
}

void Control::SetToolTip(TextView text) {
  if (toolTip_ == text) return;
  toolTip_ = text;
  Changed();
}

void Control::SetSpokenName(TextView name) {
  if (spokenName_ == name) return;
  spokenName_ = name;
  Changed();
}

void Form::SetAllRightToLeft(bool on) {
  SetRightToLeft(on);
  for (Control* control : controls_) control->SetRightToLeft(on);
}

Control* Form::Find(const std::string& name) const {
  const auto at = std::find_if(controls_.begin(), controls_.end(), [&](const Control* c) { return c->Name() == name; });
  return at == controls_.end() ? nullptr : *at;
}

}  // namespace cuewright
