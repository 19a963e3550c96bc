#include "forms/about_dialog.h"

#include "core/product.h"
#include "forms/web.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kKilobyte = 1024;

}  // namespace

Text GetOsName(const SystemInfo& system) {
  const auto name = system.SystemName();
  if (!name) return u"Linux";
  return name->name + u" (version " + Decimal(name->major) + u"." + Decimal(name->minor) + u")";
}

AboutDialog::AboutDialog(const AppOptions& options, const LangStrings& strings, const Languages& languages,
                         const FormatCatalogue& catalogue, Desktop& desktop, const SystemInfo& system)
    : Dialog("frmAbout"),
      options_(options),
      strings_(strings),
      languages_(languages),
      catalogue_(catalogue),
      system_(system) {
  tmrMemo.Tick.Connect([this] { ShowMemoStats(); });
  lblTessaly.Clicked.Connect(
      [this, &desktop] { OpenWebPage(desktop, ProductPage(options_.language), options_.language); });
  picTop.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left) MoveRequested();
  });
  cmdOK.Clicked.Connect([this] { Close(); });
}

void AboutDialog::Open() {
  SetTitle(strings_[Message::AboutProgram]);
  SetRightToLeft(languages_.IsRightToLeft());
  picTop.SetSpokenName(kProductName);
  lblVersion.SetText(strings_[Message::Version] + u" " + VersionText());
  lblFree.SetText(strings_[Message::ProgramIsFreeware]);
  lblTessaly.SetText(strings_[Message::VisitForUpdates]);
  lblFormat.SetText(
      Fill(strings_[Message::FormatsFileVersion], catalogue_.ReadIni(u"SFD_FILEINFO", u"version", u"1.0")));
  lblOsName.SetText(GetOsName(system_));
  cmdOK.SetText(strings_[Message::Ok]);
  ShowMemoStats();
  tmrMemo.SetEnabled(true);
  NoteOpened();
}

void AboutDialog::ShowMemoStats() {
  lblMemo.SetText(Fill(strings_[Message::PhysicalMemory], Decimal(system_.AvailableMemory() / kKilobyte)));
}

}  // namespace cuewright
