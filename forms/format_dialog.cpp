#include "forms/format_dialog.h"

#include <algorithm>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// A store without any value: every option reads as its default.
class NoSettings final : public SettingsReader {
 public:
  Text GetSetting(TextView, TextView, TextView fallback) const override { return Text(fallback); }
};

}  // namespace

FormatDialog::FormatDialog(const FormatParts& parts)
    : Dialog("frmFormat"),
      dvdSubtitle(*this),
      sami(*this, parts.pickers),
      ssa(*this, parts.pickers),
      parts_(parts),
      strings_(parts_.strings) {
  lstFormats.Chosen.Connect([this] { ShowPanel(); });
  cmdOK.Clicked.Connect([this] { Accept(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
  cmdReset.Clicked.Connect([this] { Reset(); });
  lblGetMore.Clicked.Connect([this] {
    parts_.messages.Show({strings_[Message::MoreFormatsHint], BoxIcon::Information});
  });
  ssa.imgSsaCharset.Clicked.Connect([this] {
    parts_.messages.Show({strings_[Message::FormatCharsetHint], BoxIcon::Information, BoxButtons::Ok,
                          ReplaceAll(strings_[Message::SubtitleCharset], u":", {})});
  });
}

void FormatDialog::Open() {
  ApplyTexts();
  ReadPanels();
  FillList();
  ShowPanel();
  NoteOpened();
}

void FormatDialog::ReadPanels() {
  CarryOn step;
  for (FormatPanel* panel : panels_) step([&] { panel->Read(parts_.store); });
  if (step.Last()) {
    parts_.messages.Show(
        {u"Error # " + Decimal(step.Last()->number) + Text(kLineEnd) + step.Last()->description, BoxIcon::Warning});
  }
}

void FormatDialog::FillList() {
  FormatState& formats = parts_.formats;
  if (formats.SettingsFormatIndex == 0) formats.SettingsFormatIndex = formats.CurrentFormatIndex;
  listed_.clear();
  std::vector<Text> names;
  for (int index = 0; index < parts_.catalogue.Count(); ++index) {
    const Text& id = parts_.catalogue.Identifier(index);
    if (LeadingNumber(parts_.catalogue.ReadIni(id, u"header", u"0")) != 1) continue;
    listed_.push_back(index);
    names.push_back(parts_.catalogue.DisplayName(id));
  }
  lstFormats.SetItems(std::move(names));
  lstFormats.SetIndex(PlaceOf(listed_, formats.SettingsFormatIndex));
}

void FormatDialog::ShowPanel() {
  const int row = lstFormats.Index();
  Text id;
  lblTop.SetText({});
  if (row >= 0) {
    const int index = ItemAt(listed_, row);
    parts_.formats.SettingsFormatIndex = index;
    id = parts_.catalogue.Identifier(index);
    lblTop.SetText(parts_.catalogue.DisplayName(id) + u" [" +
                   ToUpper(parts_.catalogue.ReadIni(id, u"extension", u"---")) + u"]");
  }
  cmdReset.SetEnabled(false);
  for (FormatPanel* panel : panels_) {
    const bool shown = id == panel->Identifier();
    panel->Area().SetVisible(shown);
    if (shown) cmdReset.SetEnabled(true);
  }
}

void FormatDialog::ApplyTexts() {
  SetTitle(strings_[Message::FormatSettings]);
  SetRightToLeft(parts_.languages.IsRightToLeft());
  const ControlText rows[] = {{lblFormats, Message::ConfigurableFormats},
                              {lblGetMore, Message::MoreFormats},
                              {cmdOK, Message::Ok},
                              {cmdCancel, Message::Cancel},
                              {cmdReset, Message::Reset}};
  ShowTexts(rows, strings_);
  const ControlText spoken[] = {{lstFormats, Message::ConfigurableFormats}};
  SpeakTexts(spoken, strings_);
  for (FormatPanel* panel : panels_) {
    panel->ApplyTexts(strings_);
    panel->Area().SetSpokenName(WithoutAccessKey(parts_.catalogue.DisplayName(panel->Identifier())));
  }
  ssa.lblSsaCharset.SetText(u"Charset: " + Decimal(parts_.languages.ListCharset()));
}

void FormatDialog::Accept() {
  for (const FormatPanel* panel : panels_) panel->Save(parts_.store);
  Close();
}

void FormatDialog::Reset() {
  const NoSettings none;
  for (FormatPanel* panel : panels_) {
    if (panel->Area().Visible()) panel->Read(none);
  }
}

}  // namespace cuewright
