#include "forms/settings_page.h"

#include "core/numbers.h"

namespace cuewright {
namespace {

int Number(const Option& option, const AppOptions& options) { return LeadingInt(option.field.stored(options)); }

}  // namespace

SettingsPage::SettingsPage(const Place& place, const Heading& heading)
    : window_(place.window),
      details_(place.details),
      options_(place.options),
      strings_(place.strings),
      heading_(heading) {
  details_.Add(heading.overEntry);
  details_.Add(heading.overPage);
}

void SettingsPage::Shows(Control& control, Message text, const std::optional<Hint>& hint) {
  texts_.push_back({control, text});
  if (hint) details_.Explain(control, *hint);
}

void SettingsPage::Shows(CheckBox& check, Message text, const std::optional<Hint>& hint) {
  Control& control = check;
  Shows(control, text, hint);
  checks_.push_back(&check);
  check.Clicked.Connect(
      [this, &check, &option = OptionOf(check.Name())] { option.field.take(options_, check.Value() ? u"1" : u"0"); });
}

void SettingsPage::Follows(Slider& slider) {
  const Option& option = OptionOf(slider.Name());
  const Option::Range& range = option.range;
  slider.SetRange(range.least / range.step, range.most / range.step);
  sliders_.push_back(&slider);
  slider.Scrolled.Connect(
      [this, &slider, &option] { option.field.take(options_, Decimal(slider.Value() * option.range.step)); });
}

void SettingsPage::ShowItems(ComboBox& box, std::initializer_list<Message> items) const {
  std::vector<Text> texts;
  texts.reserve(items.size());
  for (const Message item : items) texts.push_back(strings_[item]);
  const int chosen = box.Index();
  box.SetItems(std::move(texts));
  box.SetIndex(chosen);
}

void SettingsPage::Fill() {
  for (CheckBox* check : checks_) check->SetValue(Number(OptionOf(check->Name()), options_) != 0);
  for (Slider* slider : sliders_) {
    const Option& option = OptionOf(slider->Name());
    slider->SetValue(Number(option, options_) / option.range.step);
  }
}

void SettingsPage::ApplyLanguage() {
  ShowTexts(texts_, strings_);
  SpeakTexts(spoken_, strings_);
}

}  // namespace cuewright
