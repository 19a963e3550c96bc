#include "forms/embed_wizard.h"

#include <algorithm>
#include <cmath>

#include "core/counting.h"
#include "core/file_helpers.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "external/embed_script.h"
#include "forms/web.h"

namespace cuewright {
namespace {

constexpr int kWaitMs = 1000;
constexpr std::int64_t kSecondMs = 1000;
constexpr std::int64_t kMinuteMs = 60000;
constexpr int kOutputStep = 0;
constexpr int kToolStep = 1;
constexpr int kTargetStep = 2;
constexpr std::array<Hint, 4> kStepHints = {Message::EmbedHint, Message::VirtualDubFolderHint,
                                            Message::OutputFileNameHint,
                                            Hint{Message::FilesWillBeClosed, Message::OkBeginsProcess}};

constexpr std::int64_t kShortestPreview = 120;  // seconds
constexpr int kLeastSize = 32;
constexpr int kMostSize = 2048;
constexpr TextView kQuantizerKey = u"VDQUANT";
constexpr int kDefaultQuantizer = 4;
constexpr int kLeastQuantizer = 1;
constexpr int kMostQuantizer = 31;
constexpr int kOriginalSize = 0;
constexpr int kCustomSize = 9;

struct Resolution {
  TextView entry;
  TextView width;
  TextView height;
};
// The names of the first and the last are translated, and so filled in later.
constexpr std::array<Resolution, 10> kResolutions = {Resolution{},
                                                     {u"352x240 - VCD NTSC", u"352", u"240"},
                                                     {u"352x288 - VCD PAL", u"352", u"288"},
                                                     {u"480x480 - SVCD NTSC", u"480", u"480"},
                                                     {u"480x576 - SVCD PAL", u"480", u"576"},
                                                     {u"704x480 - DVD NTSC", u"704", u"480"},
                                                     {u"704x576 - DVD PAL", u"704", u"576"},
                                                     {u"640x480 - VGA 4:3", u"640", u"480"},
                                                     {u"1024x768 - XGA 4:3", u"1024", u"768"},
                                                     {}};

Text LastThree(TextView path) { return ToLower(path.substr(path.size() - std::min<std::size_t>(path.size(), 3))); }

bool OneOf(TextView text, std::initializer_list<TextView> endings) {
  return std::find(endings.begin(), endings.end(), text) != endings.end();
}

/// Keys that a box of digits drops; the two signs behind the digits come through.
bool Drops(const KeyEvent& key) {
  return key.character != 0 && key.code != kKeyBackspace && (key.character < u'0' || key.character > u';');
}

}  // namespace

EmbedWizard::EmbedWizard(WizardParts parts)
    : Wizard("frmEmbed", parts, {Message::EmbedSubtitles, u"embedsub.vcf", Message::OutputFileName, u".avi"}) {
  cmbResolution.SetEditable(false);
  sldPreview.SetRange(1, 1);
  Wire();
  WireHints();
}

void EmbedWizard::Wire() {
  cmdConfigure.Clicked.Connect([this] { Configure(); });
  cmbResolution.Chosen.Connect([this] { ChooseResolution(); });
  chkPreview.Clicked.Connect([this] { TogglePreview(); });
  sldPreview.Scrolled.Connect([this] { ShowPreview(); });
  for (TextBox* box : {&txtWidth, &txtHeight}) {
    box->KeyPress.Connect([](KeyEvent& key) { key.handled = key.handled || Drops(key); });
    box->GotFocus.Connect([box] { box->Select(0, CountOf(box->GetText())); });
    box->LostFocus.Connect([this, box] { TakeSize(*box); });
  }
  lblConvert.Clicked.Connect([this] { OpenWebPage(p_.ports.desktop, u"guides.php", p_.options.language); });
  imgConfigure.Clicked.Connect([this] {
    const bool spanish = p_.options.language == u"SPANISH";
    p_.ports.desktop.ShellOpen(Text(kWebSite) + (spanish ? u"/go.php?es=1&id=9" : u"/go.php?id=9"));
  });
  imgDrag.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left) DragRequested();
  });
}

void EmbedWizard::WireHints() {
  const ControlText hints[] = {
      {imgFormat, Message::OutputFormatHint},         {imgRes, Message::OutputResolutionHint},
      {cmbResolution, Message::OutputResolutionHint}, {imgMode, Message::FilterModeHint},
      {imgPreview, Message::EmbedPreviewHint},        {imgSave, Message::OutputFileNameHint},
      {imgVD, Message::VirtualDubFolderHint},         {cmdBrowseVD, Message::VirtualDubFolderHint},
      {cmdConfigure, Message::ConfigureCodecHint},    {cmdCancel, Message::CloseDialogHint},
      {txtWidth, Message::OutputWidthHint},           {txtHeight, Message::OutputHeightHint}};
  for (const ControlText& hint : hints) details.Explain(hint.control, hint.message);
  for (const Hint& hint : kStepHints) details.Add(hint);
  Hovered.Connect([this] { ShowStepHint(); });
}

bool EmbedWizard::CheckEmbedDocument() {
  const Text title = p_.strings[Message::EmbedSubtitles];
  const auto refuse = [&](Message message) {
    p_.ports.messages.Show({p_.strings[message], BoxIcon::Warning, BoxButtons::Ok, title});
    return false;
  };
  const Text& subtitle = p_.document.SubtitlePath;
  const Text& video = p_.document.VideoPath;
  if (subtitle.empty()) return refuse(Message::EmbedNeedsSubtitle);
  if (!ToLower(subtitle).ends_with(u".ssa")) return refuse(Message::EmbedNeedsSsa);
  if (video.empty()) return refuse(Message::EmbedNeedsVideo);
  const Text ending = LastThree(video);
  if (OneOf(ending, {u"snd", u"wav", u".au", u"aif", u"wma", u"mp3"})) return refuse(Message::EmbedNeedsVideo);
  if (!OneOf(ending, {u"mpg", u"avi", u"peg"})) return refuse(Message::EmbedNeedsAviOrMpeg);
  if (p_.ports.files.Exists(subtitle) && p_.ports.files.Exists(video)) return true;
  const Text end(kLineEnd);
  p_.ports.messages.Show({video + end + subtitle + end + end + p_.strings[Message::EmbedFilesMissing], BoxIcon::Error,
                          BoxButtons::Ok, title});
  return false;
}

void EmbedWizard::Open() {
  ApplyTexts();
  Begin();
  DeleteFileWait(p_.ports.files, p_.ports.events, script_, false);
  FillControls();
  ShowStepHint();
  TellOpened();
}

void EmbedWizard::ApplyTexts() {
  const LangStrings& s = p_.strings;
  const ControlText rows[] = {{lblTop2, Message::OutputFileSettings}, {lblFormat, Message::OutputFormat},
                              {cmdConfigure, Message::Configure},     {lblRes, Message::OutputResolution},
                              {lblSize, Message::OutputSize},         {lblMode, Message::FilterMode},
                              {chkPreview, Message::EmbedPreview},    {lblStep2, Message::DownloadPrograms},
                              {lblStep4, Message::ReadyToEmbed},      {lblNotice, Message::VbrWarning},
                              {lblNote1, Message::VbrWarningText},    {lblNote2, Message::VbrLinkText},
                              {lblConvert, Message::VbrGuide},        {details.lblDetailsTitle, Message::Details}};
  Wizard::ApplyTexts(rows);
  const ControlText spoken[] = {{txtWidth, Message::OutputWidthHint},
                                {txtHeight, Message::OutputHeightHint},
                                {txtTFileName, Message::TextColumn},
                                {txtVFileName, Message::ReadyToEmbed},
                                {sldPreview, Message::EmbedPreview}};
  SpeakTexts(spoken, s);
  lblX.SetText(u"x");
  imgConfigure.SetText(u"Tessaly Ratemeter");
  cmbFormat.SetItems({u"AVI (XviD)"});
  std::vector<Text> sizes;
  sizes.reserve(kResolutions.size());
  for (const Resolution& size : kResolutions) sizes.emplace_back(size.entry);
  sizes.front() = s[Message::UseOriginal];
  sizes.back() = s[Message::CustomSize];
  cmbResolution.SetItems(std::move(sizes));
  cmbMode.SetItems({s[Message::FilterStandard], s[Message::FilterBilinear], s[Message::FilterBicubic],
                    s[Message::FilterPreciseBilinear]});
}

void EmbedWizard::FillControls() {
  txtWidth.SetText(u"640");
  txtHeight.SetText(u"480");
  cmbFormat.SetIndex(0);
  cmbResolution.SetIndex(kOriginalSize);
  cmbMode.SetIndex(0);
  ChooseResolution();
  chkPreview.SetValue(false);
  sldPreview.SetRange(1, 1);
  TogglePreview();
  txtSave.SetText(StripExtension(p_.document.VideoPath) + u"[sub].avi");
  txtTFileName.SetText({});
  txtVFileName.SetText({});
  ShowNotice(false);
}

void EmbedWizard::ShowNotice(bool shown) {
  for (Control* control : std::initializer_list<Control*>{&imgNotice, &lblNotice, &lblNote1, &lblNote2, &lblConvert}) {
    control->SetVisible(shown);
  }
}

void EmbedWizard::ChooseResolution() {
  const int index = cmbResolution.Index();
  const bool custom = index == kCustomSize;
  for (Control* control : std::initializer_list<Control*>{&txtWidth, &txtHeight, &lblSize, &lblX}) {
    control->SetEnabled(custom);
  }
  const bool scaled = index != kOriginalSize;
  lblMode.SetEnabled(scaled);
  cmbMode.SetEnabled(scaled);
  imgMode.SetVisible(scaled);
  if (!scaled || custom || index < 0) return;
  const Resolution& size = ItemAt(kResolutions, index);
  txtWidth.SetText(size.width);
  txtHeight.SetText(size.height);
}

void EmbedWizard::TakeSize(TextBox& box) {
  Text digits = box.GetText();
  std::erase_if(digits, [](char16_t unit) { return unit < u'0' || unit > u'9'; });
  const double value = LeadingNumber(digits);
  if (value < kLeastSize) digits = Decimal(kLeastSize);
  if (value > kMostSize) digits = Decimal(kMostSize);
  box.SetText(digits);
}

std::int64_t EmbedWizard::MediaSeconds() const { return std::llround(std::trunc(p_.ports.player.Duration())); }

void EmbedWizard::TogglePreview() {
  if (chkPreview.Value()) {
    const std::int64_t seconds = MediaSeconds();
    if (seconds >= kShortestPreview) {
      sldPreview.SetRange(1, Checked32(seconds / 60));
    } else {
      chkPreview.SetValue(false);
      const bool unknown = seconds <= 0;
      p_.ports.messages.Show({p_.strings[unknown ? Message::LengthUnknown : Message::VideoTooShort],
                              unknown ? BoxIcon::Error : BoxIcon::Warning});
    }
  }
  lblPreview.SetEnabled(chkPreview.Value());
  sldPreview.SetEnabled(chkPreview.Value());
  ShowPreview();
}

void EmbedWizard::ShowPreview() {
  const int minutes = sldPreview.Value();
  lblPreview.SetText(Decimal(minutes) + u" " + p_.strings[minutes == 1 ? Message::Minute : Message::Minutes]);
}

bool EmbedWizard::XvidPresent() {
  if (tool_.Get().kind == VideoTool::Kind::Wine) {
    return p_.ports.files.Exists(p_.folders.SystemFolder + u"xvidvfw.dll");
  }
  return p_.processes != nullptr && FfmpegEncodesMpeg4(*p_.processes, p_.ports.events);
}

bool EmbedWizard::OfferXvid() {
  if (XvidPresent()) return true;
  const MessageBox box{p_.strings[Message::XvidNotFound], BoxIcon::Question, BoxButtons::YesNo, Title()};
  if (p_.ports.messages.Show(box) == BoxAnswer::Yes) tool_.OpenDownload(Download::Xvid);
  return false;
}

void EmbedWizard::Configure() {
  if (!OfferXvid()) return;
  if (tool_.Get().kind == VideoTool::Kind::Wine) {
    tool_.StartWine({u"rundll32.exe", ToolPath(tool_.Get(), p_.folders.SystemFolder + u"xvidvfw.dll") + u",Configure"});
  } else {
    AskQuantizer();
  }
}

void EmbedWizard::AskQuantizer() {
  const Text stored = p_.store.GetSetting(kMainSection, kQuantizerKey, Decimal(kDefaultQuantizer));
  const Text typed =
      p_.ports.messages.Ask({p_.strings[Message::PictureQuality], p_.strings[Message::ConfigureCodec], stored});
  if (IsBlank(typed)) return;
  p_.store.SaveSetting(kMainSection, kQuantizerKey,
                       Decimal(std::clamp(LeadingInt(typed), kLeastQuantizer, kMostQuantizer)));
}

bool EmbedWizard::ToolServes(TextView folder) {
  const bool runner = FindVideoTool(p_.ports.files, folder).kind == VideoTool::Kind::Runner;
  const Text filter = runner ? Text(u"FFmpeg: libass") : Text(folder) + u"plugins/subtitler.vdf";
  const bool draws = runner ? p_.processes != nullptr && FfmpegDrawsSubtitles(*p_.processes, p_.ports.events)
                            : p_.ports.files.Exists(filter);
  if (draws) return true;
  const MessageBox box{Fill(p_.strings[Message::SubtitlerNotFound], filter), BoxIcon::Warning, BoxButtons::YesNo};
  if (p_.ports.messages.Show(box) == BoxAnswer::Yes) tool_.OpenDownload(Download::Subtitler);
  return false;
}

void EmbedWizard::ShowStepHint() { details.Show(ItemAt(kStepHints, Step())); }

bool EmbedWizard::MayLeave() {
  if (!CheckEmbedDocument()) return false;
  switch (Step()) {
    case kOutputStep:
      // Enter presses the button without taking the focus from the box, so what was typed hasn't been taken over.
      if (txtWidth.Enabled()) {
        TakeSize(txtWidth);
        TakeSize(txtHeight);
      }
      return OfferXvid();
    case kToolStep:
      if (!tool_.Check(txtVirtualdub.GetText())) return false;
      AskAgain();
      return true;
    case kTargetStep:
      return TakeTarget() != Target::Refused;
    default:
      return true;
  }
}

void EmbedWizard::EnterStep() {
  ShowStepHint();
  if (AtLastStep()) WriteScript();
}

void EmbedWizard::ReturnToStep() {
  cmdNext.SetEnabled(true);
  cmdNext.SetText(p_.strings[Message::Next] + u" >");
  ShowStepHint();
  lblTop2.SetText(p_.strings[Message::OutputFileSettings]);
}

void EmbedWizard::SetWorking(bool working) {
  p_.ports.desktop.SetBusy(working);
  for (Button* button : {&cmdBack, &cmdNext, &cmdCancel}) button->SetEnabled(!working);
}

void EmbedWizard::WriteScript() {
  SetWorking(true);
  txtTFileName.SetText(p_.document.SubtitlePath);
  txtVFileName.SetText(p_.document.VideoPath);
  // A failure here is told when the run starts and finds no script.
  CarryOn step;
  step([&] { FillScript(); });
  cmdNext.SetText(p_.strings[Message::Ok]);
  lblTop2.SetText(p_.strings[Message::ReadyToBegin]);
  p_.ports.events.WaitMs(kWaitMs);
  SetWorking(false);
  RequestFocus(cmdNext);
  // Giving the focus to the button has replaced the hint of the step by that of the button.
  ShowStepHint();
  ShowNotice(ToLower(p_.document.VideoPath).ends_with(u"avi"));
}

void EmbedWizard::FillScript() {
  Files& files = p_.ports.files;
  const VideoTool& tool = tool_.Get();
  const auto held = [&](TextView path) { return ShortPathOf(files, path, p_.folders.TempFolder); };
  files.Remove(script_);
  EmbedValues values;
  values.source = QuotedDoubled(tool, held(p_.document.VideoPath));
  values.subtitle = QuotedSlashed(tool, held(p_.document.SubtitlePath));
  values.target = QuotedDoubled(tool, ShortTarget(files, target_, p_.folders.TempFolder));
  if (chkPreview.Value()) values.leftOut = MediaSeconds() * kSecondMs - sldPreview.Value() * kMinuteMs;
  if (cmbMode.Enabled()) values.size = EmbedValues::Size{txtWidth.GetText(), txtHeight.GetText(), cmbMode.Index()};
  files.WritePrivate(script_, EmbedScriptBytes(values));
}

void EmbedWizard::Finish() {
  if (!p_.ports.files.Exists(script_)) {
    const Text end(kLineEnd);
    p_.ports.messages.Show(
        {u"Failed to create script file:" + end + end + script_, BoxIcon::Error, BoxButtons::Ok, Text(kProductName)});
    return;
  }
  SetWorking(true);
  for (const char* name : {"frmFind", "frmReport"}) p_.openForms.UnloadForm(name);
  FilesNeeded();
  p_.ports.events.WaitMs(kWaitMs);
  StartTool();
  p_.ports.desktop.SetBusy(false);
  Close();
}

void EmbedWizard::StartTool() {
  if (tool_.Start(script_, txtVirtualdub.GetText(), false) != nullptr) {
    p_.ports.events.WaitMs(kWaitMs);
    return;
  }
  p_.ports.desktop.SetBusy(false);
  const Text end(kLineEnd);
  p_.ports.messages.Show({p_.strings[Message::StartFailed] + end + end + tool_.Get().path, BoxIcon::Error,
                          BoxButtons::Ok, Text(kProductName)});
}

}  // namespace cuewright
