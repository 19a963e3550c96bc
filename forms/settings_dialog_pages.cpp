#include <algorithm>

#include "core/numbers.h"
#include "external/common_dialogs.h"
#include "forms/settings_dialog.h"

// What the controls of the pages do.

namespace cuewright {
namespace {

constexpr int kLeastSeconds = 2;
constexpr int kMostSeconds = 600;
constexpr int kLeastFontSize = 8;
constexpr int kMostFontSize = 48;
constexpr int kBoldWeight = 700;
constexpr int kPlainWeight = 400;
/// Behind the sample while a film is open, the colour that lets the picture through elsewhere.
constexpr std::int32_t kFilmBackground = 0x100010;
constexpr std::array<TextView, 3> kUiModes = {u"none", u"mini", u"full"};

std::uint8_t Flag(const CheckBox& check) { return check.Value() ? 1 : 0; }

bool IsUpperLetter(char16_t c) { return c >= u'A' && c <= u'Z'; }

}  // namespace

void SettingsDialog::WireRules() {
  chkAutoSplit.Clicked.Connect([this] { options_.autoSplit = Flag(chkAutoSplit); });
  chkCollision.Clicked.Connect([this] { options_.avoidCollision = Flag(chkCollision); });
  chkAutoJoin.Clicked.Connect([this] {
    options_.autoJoin = Flag(chkAutoJoin);
    EnableRuleControls();
  });
  chkDuration.Clicked.Connect([this] {
    options_.limitDuration = Flag(chkDuration);
    EnableRuleControls();
    parts_.capture.ShowModeTexts();
  });
  chkCredits.Clicked.Connect([this] {
    options_.removeCredits = Flag(chkCredits);
    EnableRuleControls();
  });
  sldAutoJoin.Scrolled.Connect([this] {
    options_.nearMs = sldAutoJoin.Value() * 10;
    ShowRuleLabels();
  });
  for (std::size_t k = 0; k < 3; ++k) {
    sldDuration[k].Scrolled.Connect([this, k] {
      options_.durationPerCharacter[k] = static_cast<std::int16_t>(sldDuration[k].Value() * 10);
      ShowRuleLabels();
    });
    sldTolerance[k].Scrolled.Connect([this, k] {
      options_.durationTolerance[k] = static_cast<std::int16_t>(sldTolerance[k].Value() * 10);
      ShowRuleLabels();
    });
  }
  cmbApply.Chosen.Connect([this] {
    options_.applyWhen = static_cast<std::uint8_t>(std::max(cmbApply.Index(), 0));
    parts_.capture.ShowModeTexts();
  });
  chkRulesOnLoad.Clicked.Connect([this] { options_.changeOnLoad = chkRulesOnLoad.Value(); });
  txtCredits.Edited.Connect([this] {
    options_.creditWords = TrimBlanks(txtCredits.GetText());
    creditsOpen_ = true;
  });
  txtCredits.LostFocus.Connect([this] { TakeCredits(); });
}

void SettingsDialog::EnableRuleControls() {
  for (Control* control : std::initializer_list<Control*>{&lblAutoJoin, &sldAutoJoin}) {
    control->SetEnabled(chkAutoJoin.Value());
  }
  for (Label* label : {&lblShort, &lblMedium, &lblLong}) label->SetEnabled(chkDuration.Value());
  for (std::size_t k = 0; k < 3; ++k) {
    for (Control* control :
         std::initializer_list<Control*>{&lblDuration[k], &sldDuration[k], &lblTolerance[k], &sldTolerance[k]}) {
      control->SetEnabled(chkDuration.Value());
    }
  }
  lblCredits.SetEnabled(chkCredits.Value());
  txtCredits.SetEnabled(chkCredits.Value());
}

void SettingsDialog::TakeCredits() {
  creditsOpen_ = false;
  Text credits(TrimBlanks(ReplaceAll(txtCredits.GetText(), u",,", u",")));
  if (credits.starts_with(u',')) credits.erase(0, 1);
  if (credits.ends_with(u',')) credits.pop_back();
  txtCredits.SetText(credits);
  options_.creditWords = credits;
}

void SettingsDialog::WireKeys() {
  chkKeys.Clicked.Connect([this] {
    options_.hotkeysOn = Flag(chkKeys);
    EnableKeyControls();
  });
  for (std::size_t k = 0; k < txtHotkey.size(); ++k) {
    TextBox& box = txtHotkey[k];
    const auto select = [&box] { box.Select(0, static_cast<int>(box.GetText().size())); };
    box.KeyPress.Connect([this, k](KeyEvent& key) { TakeHotkey(k, key); });
    box.Edited.Connect([this, k] { TakeHotkeyText(k); });
    box.GotFocus.Connect(select);
    box.MouseUp.Connect([select](const MouseEvent&) { select(); });
  }
  for (std::size_t i = 0; i < txtPosition.size(); ++i) {
    txtPosition[i].KeyPress.Connect([](KeyEvent& key) {
      if (key.character < u'0' || key.character > u'9') key.handled = true;
    });
    txtPosition[i].Edited.Connect([this, i] { positionOpen_[i] = true; });
    txtPosition[i].LostFocus.Connect([this, i] { TakePosition(i); });
  }
}

void SettingsDialog::EnableKeyControls() {
  const bool on = chkKeys.Value();
  for (Control* control : std::initializer_list<Control*>{&fraKeys, &lblPlayback, &lblCaptioning}) {
    control->SetEnabled(on);
  }
  for (Label& label : lblHotkey) label.SetEnabled(on);
  for (TextBox& box : txtHotkey) box.SetEnabled(on);
  for (TextBox& box : txtPosition) box.SetEnabled(on);
  for (Label& label : lblSeconds) label.SetEnabled(on);
}

void SettingsDialog::TakeHotkey(std::size_t index, KeyEvent& key) {
  key.handled = true;
  const char16_t letter = key.character >= u'a' && key.character <= u'z'
                              ? static_cast<char16_t>(key.character - u'a' + u'A')
                              : key.character;
  if (!IsUpperLetter(letter)) {
    parts_.ports.messages.Show({strings_[Message::KeyFromAToZ], BoxIcon::Information});
    return;
  }
  txtHotkey[index].SetText(Text(1, letter));
  TakeHotkeyText(index);
}

void SettingsDialog::TakeHotkeyText(std::size_t index) {
  TextBox& box = txtHotkey[index];
  const Text text = ToUpper(box.GetText());
  // What isn't one letter came by another way than the keys: the letter in force comes back.
  if (text.size() == 1 && IsUpperLetter(text[0])) {
    letters_[index] = text;
    OptionOf(box.Name()).field.take(options_, Decimal(text[0]));
  }
  box.SetText(letters_[index]);
  box.Select(0, static_cast<int>(box.GetText().size()));
}

void SettingsDialog::TakePosition(std::size_t index) {
  positionOpen_[index] = false;
  const double typed = LeadingNumber(txtPosition[index].GetText());
  const int seconds = static_cast<int>(std::clamp<double>(typed, kLeastSeconds, kMostSeconds));
  txtPosition[index].SetText(Decimal(seconds));
  (index == 0 ? options_.rewindSeconds : options_.forwardSeconds) = static_cast<std::int16_t>(seconds);
}

void SettingsDialog::WirePlayer() {
  chkStretch.Clicked.Connect([this] {
    options_.stretchVideo = Flag(chkStretch);
    ApplyPlayerSettings();
  });
  cmbUImode.Chosen.Connect([this] {
    TakeUiMode();
    ApplyPlayerSettings();
  });
  const auto choose = [this](std::uint8_t mode) {
    options_.filterMode = mode;
    FillFilterControls();
  };
  optVSDisable.Clicked.Connect([choose] { choose(0); });
  optVSHide.Clicked.Connect([choose] { choose(1); });
  cmdVSFilter.Clicked.Connect([this] { parts_.filter.Configure(); });
}

void SettingsDialog::TakeUiMode() {
  options_.playerControls = kUiModes[static_cast<std::size_t>(std::max(cmbUImode.Index(), 0))];
}

void SettingsDialog::FillFilterControls() {
  optVSDisable.SetValue(options_.filterMode == 0);
  optVSHide.SetValue(options_.filterMode != 0);
  const bool installed = parts_.filter.Installed();
  for (Control* control : std::initializer_list<Control*>{&lblVSFilter, &lblVSNotice, &optVSDisable, &optVSHide}) {
    control->SetEnabled(installed);
  }
  cmdVSFilter.SetEnabled(parts_.filter.CanConfigure());
}

void SettingsDialog::ApplyPlayerSettings() {
  parts_.ports.player.SetStretchToFit(options_.stretchVideo != 0);
  parts_.ports.player.SetUiMode(options_.playerControls);
}

void SettingsDialog::WirePreview() {
  cmdFont.Clicked.Connect([this] { PickFont(); });
  cmdColor.Clicked.Connect([this] { PickColor(); });
  const auto choose = [this](bool opaque) {
    options_.previewOpaque = opaque;
    options_.previewShadow = !opaque;
    optOpaque.SetValue(opaque);
    optShadow.SetValue(!opaque);
    DrawSample();
  };
  optOpaque.Clicked.Connect([choose] { choose(true); });
  optShadow.Clicked.Connect([choose] { choose(false); });
  sldShadow.Scrolled.Connect([this] {
    options_.previewShadowDepth = static_cast<std::uint8_t>(sldShadow.Value());
    ShowPreviewLabels();
    DrawSample();
  });
  sldHeight.Scrolled.Connect([this] {
    options_.previewHeight = static_cast<std::uint8_t>(sldHeight.Value());
    ShowPreviewLabels();
    parts_.preview.PlacePreview();
  });
  chkFollow.Clicked.Connect([this] { options_.followCaptions = chkFollow.Value(); });
}

void SettingsDialog::PickFont() {
  FontChoice font;
  font.Name = options_.previewFontName;
  font.Size = options_.previewFontSize;
  font.Bold = options_.previewFontBold;
  font.Weight = font.Bold ? kBoldWeight : kPlainWeight;
  if (!ShowFontDialog(parts_.ports.pickers, font, kLeastFontSize, kMostFontSize)) return;
  options_.previewFontName = font.Name;
  options_.previewFontSize = static_cast<std::uint8_t>(RoundHalfEven(font.Size));
  options_.previewFontBold = font.Bold;
  DrawSample();
  parts_.preview.PlacePreview();
}

void SettingsDialog::PickColor() {
  const std::int32_t color = ShowColorDialog(parts_.ports.pickers, options_.previewColor);
  if (color == kNoColor) return;
  options_.previewColor = color;
  DrawSample();
}

void SettingsDialog::DrawSample() {
  const bool opaque = options_.previewOpaque;
  Sample sample;
  sample.fontName = options_.previewFontName;
  sample.fontSize = options_.previewFontSize;
  sample.bold = options_.previewFontBold;
  sample.color = options_.previewColor;
  sample.shadowShift = options_.previewShadowDepth;
  sample.windowBackground = !opaque && !parts_.document.HasVideo();
  sample.background = opaque ? 0 : kFilmBackground;
  lblSampleShadow.SetVisible(!opaque);
  lblShadow.SetEnabled(!opaque);
  sldShadow.SetEnabled(!opaque);
  if (sample_ != sample) {
    sample_ = std::move(sample);
    SampleChanged();
  }
  parts_.preview.DrawPreviewStyle();
}

}  // namespace cuewright
