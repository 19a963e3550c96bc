#include "forms/hand_window.h"

#include <algorithm>
#include <array>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/runtime_error.h"
#include "forms/control_texts.h"
#include "text/labels.h"
#include "voice/hand_exercise.h"

namespace cuewright {
namespace {

/// Languages that are offered; any other code that the synthesiser knows may be typed.
constexpr std::array<TextView, 16> kLanguages = {u"ca", u"da", u"de", u"el", u"en", u"es", u"fi", u"fr",
                                                 u"it", u"nl", u"pl", u"pt", u"ro", u"ru", u"sv", u"tr"};
constexpr TextView kLanguageOfNumbers = u"en";

/// The language that the box names; empty for none.
Text LanguageIn(const ComboBox& box, const LangStrings& strings) {
  return box.GetText() == strings[Message::FitWithoutWords] ? Text() : Text(box.GetText());
}

int Typed(const TextBox& box) { return RoundToInt32(LeadingNumber(box.GetText())); }

}  // namespace

HandWindow::HandWindow(Workbench bench, const HandParts& parts, OpenForms& openForms)
    : ToolForm("frmHand", openForms), bench_(bench), parts_(parts) {
  cboLanguage.SetEditable(true);
  bench_.window.mnuHand.Clicked.Connect([this] { Show(); });
  cboHand.Chosen.Connect([this] { ShowTimes(HandTimesOf(bench_.options, std::max(cboHand.Index(), 0))); });
  cmdExercise.Clicked.Connect([this] { StartExercise(); });
  cmdOK.Clicked.Connect([this] { Apply(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
  parts_.capture.Held.Connect([this](Row) { OnHeld(); });
}

void HandWindow::ShowItem() { bench_.window.mnuHand.SetVisible(bench_.options.manner.FitsToTheVoice()); }

void HandWindow::Load() {
  ApplyLanguage(parts_.languages.IsRightToLeft());
  ShowTimes(HandTimesOf(bench_.options, bench_.options.hand));
}

void HandWindow::ApplyLanguage(bool rightToLeft) {
  const LangStrings& strings = bench_.strings;
  SetTitle(WithoutDots(strings[Message::HandItem]));
  SetAllRightToLeft(rightToLeft);
  const ControlText rows[] = {{lblHand, Message::HandLabel},
                              {lblLate, Message::HandLate},
                              {lblSpread, Message::HandSpread},
                              {lblPress, Message::HandPress},
                              {lblRelease, Message::HandRelease},
                              {lblExercise, Message::HandExerciseHint},
                              {cmdExercise, Message::HandExerciseItem},
                              {lblLanguage, Message::FitLanguageLabel},
                              {lblLanguageHint, Message::FitLanguageHint},
                              {cmdOK, Message::Ok},
                              {cmdCancel, Message::Cancel}};
  ShowTexts(rows, strings);
  const ControlText spoken[] = {{txtPress, Message::HandPress},     {txtPressSpread, Message::SpokenPressSpread},
                                {txtRelease, Message::HandRelease}, {txtReleaseSpread, Message::SpokenReleaseSpread},
                                {cboHand, Message::HandLabel},      {cboLanguage, Message::FitLanguageLabel}};
  SpeakTexts(spoken, strings);
  const int hand = cboHand.Index();
  cboHand.SetItems({strings[Message::HandOfKeys], strings[Message::HandOfMouse], strings[Message::HandOfPedal]});
  cboHand.SetIndex(hand >= 0 ? hand : bench_.options.hand);
  const Text none = strings[Message::FitWithoutWords];
  std::vector<Text> languages = {none};
  languages.insert(languages.end(), kLanguages.begin(), kLanguages.end());
  const int place = PlaceOf(languages, bench_.options.fitLanguage);
  cboLanguage.SetItems(languages);
  if (bench_.options.fitLanguage.empty()) {
    cboLanguage.SetIndex(0);
  } else if (place >= 0) {
    cboLanguage.SetIndex(place);
  } else {
    cboLanguage.SetText(bench_.options.fitLanguage);
  }
}

void HandWindow::ShowTimes(const HandTimes& times) {
  txtPress.SetText(Decimal(times.pressLate));
  txtPressSpread.SetText(Decimal(times.pressSpread));
  txtRelease.SetText(Decimal(times.releaseLate));
  txtReleaseSpread.SetText(Decimal(times.releaseSpread));
}

HandTimes HandWindow::TypedTimes() const {
  return {Typed(txtPress), Typed(txtPressSpread), Typed(txtRelease), Typed(txtReleaseSpread)};
}

void HandWindow::Apply() {
  bench_.options.hand = Checked8(std::max(cboHand.Index(), 0));
  KeepHandTimes(bench_.options, bench_.options.hand, TypedTimes());
  bench_.options.fitLanguage = LanguageIn(cboLanguage, bench_.strings);
  Close();
}

void HandWindow::StartExercise() {
  const Text language = LanguageIn(cboLanguage, bench_.strings);
  HandExercise exercise = MakeHandExercise(parts_.processes, language.empty() ? Text(kLanguageOfNumbers) : language);
  const Text film = WithSlash(parts_.folders.TempFolder) + u"numbers.wav";
  const Text text = WithSlash(parts_.folders.TempFolder) + u"numbers.txt";
  std::string lines;
  for (const Text& line : exercise.lines) lines += ToUtf8(line) + "\n";
  CarryOn steps;
  steps([&] { parts_.files.WritePrivate(film, exercise.wave); });
  steps([&] { parts_.files.WritePrivate(text, lines); });
  if (steps.Last()) return lblExercise.SetText(steps.Last()->description);
  // The exercise is held with the device that is chosen here.
  Apply();
  parts_.router.OpenAs(FileKind::Subtitle, text);
  // The question about unsaved changes may have been cancelled.
  if (bench_.document.SubtitlePath != text) return;
  film_ = film;
  text_ = text;
  truth_ = std::move(exercise.truth);
  parts_.router.OpenAs(FileKind::Film, film);
}

bool HandWindow::Exercising() const {
  return !film_.empty() && bench_.document.VideoPath == film_ && bench_.document.SubtitlePath == text_;
}

void HandWindow::OnHeld() {
  if (!Exercising()) return;
  std::vector<int> presses;
  std::vector<int> releases;
  for (std::size_t place = 0; place < truth_.size(); ++place) {
    const CaptionTimes times = bench_.list.TimesAt(Row::OfIndex(place));
    if (times.end <= times.start) return;
    presses.push_back((times.start - truth_[place].start).Count());
    releases.push_back((times.end - truth_[place].end).Count());
  }
  KeepHandTimes(bench_.options, bench_.options.hand,
                {MedianLateness(presses), LatenessSpread(presses), MedianLateness(releases), LatenessSpread(releases)});
  Show();
}

}  // namespace cuewright
