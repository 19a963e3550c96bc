#include "forms/update_dialog.h"

#include <utility>

#include "core/counting.h"
#include "core/file_helpers.h"
#include "forms/web.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr int kDelay = 1200;  // ms, so that each line can be read
constexpr std::size_t kLongestVersion = 24;

/// A version as a heading and a link have room for it; the log has the whole of it.
Text Shortened(TextView version) {
  return version.size() <= kLongestVersion ? Text(version) : Text(version.substr(0, kLongestVersion - 1)) + u"\u2026";
}

Text PlainDate(const Day& day) {
  const auto two = [](int number) { return (number < 10 ? u"0" : u"") + Decimal(number); };
  return Decimal(day.year) + u"-" + two(day.month) + u"-" + two(day.day);
}

}  // namespace

UpdateDialog::UpdateDialog(UpdateParts parts)
    : Dialog("frmUpdate"), parts_(std::move(parts)), strings_(parts_.strings) {
  lblWhatsNew.Clicked.Connect([this] { ShowChanges(); });
  cmdOK.Clicked.Connect([this] {
    cmdOK.SetEnabled(false);
    if (lblWhatsNew.Visible()) {
      OpenWebPage(parts_.ports.desktop, ProductPage(parts_.options.language), parts_.options.language);
    }
    Close();
  });
}

void UpdateDialog::Open() {
  ++openings_;
  SetTitle(WithoutDots(WithoutAccessKey(strings_[Message::CheckForUpdates])));
  SetRightToLeft(parts_.languages.IsRightToLeft());
  lblStatus.SetText(strings_[Message::ProcessStatus]);
  txtStatus.SetText({});
  txtStatus.SetSpokenName(WithoutAccessKey(strings_[Message::ProcessStatus]));
  lblWhatsNew.SetVisible(false);
  lblWhatsNew.SetEnabled(true);
  cmdOK.SetText(strings_[Message::Ok]);
  cmdOK.SetEnabled(false);
  NoteOpened();
}

void UpdateDialog::OnActivated() {
  if (!IsOpen() || !txtStatus.GetText().empty()) return;
  Run run{openings_};
  const End end = Check(run);
  if (end == End::Gone) return;
  if (end == End::Finished) {
    cmdOK.SetEnabled(true);
    DefaultRequested();
  }
  if (run.step.Last()) AddError(u"Error while processing updates.", *run.step.Last());
}

void UpdateDialog::AddStatusLine(TextView text) {
  txtStatus.SetText(txtStatus.GetText() + Text(text) + Text(kLineEnd));
  txtStatus.Select(CountOf(txtStatus.GetText()), 0);
}

void UpdateDialog::AddError(TextView heading, const RuntimeError& error) {
  AddStatusLine(Text(heading) + Text(kLineEnd) + u"(Error #" + Decimal(error.number) + u": " + error.description +
                u")");
}

bool UpdateDialog::CheckConnection() const { return (parts_.web.ConnectionState() & kConnectionOffline) == 0; }

bool UpdateDialog::Wait(const Run& run, int ms) {
  parts_.ports.events.WaitMs(ms);
  return StillOpen(run);
}

UpdateDialog::End UpdateDialog::Refuse(TextView line) {
  AddStatusLine(line);
  cmdOK.SetText(strings_[Message::Close]);
  return End::Finished;
}

UpdateDialog::End UpdateDialog::Check(Run& run) {
  const Text site = parts_.store.GetSetting(kMainSection, u"UpdateSite", UpdateSite());
  run.step([&] { DeleteFileWait(parts_.ports.files, parts_.ports.events, TempFile(), false); });
  RequestFocus(txtStatus);
  AddStatusLine(strings_[Message::InitializingUpdate]);
  if (!Wait(run, kDelay)) return End::Gone;
  if (parts_.ports.files.Exists(TempFile())) {
    for (const Text& line : {strings_[Message::UpdateCheckFailed], strings_[Message::CouldNotDelete], TempFile()})
      AddStatusLine(line);
    cmdOK.SetText(strings_[Message::Close]);
    return End::Stopped;
  }
  if (site.empty()) return Refuse(Fill(strings_[Message::NoUpdateSite], parts_.settingsFile));
  Text localVersion;
  run.step([&] { localVersion = LocalVersionNumber(parts_.version); });
  if (!CheckConnection()) return Refuse(strings_[Message::NoInternet]);
  if (!DownloadUpdateList(run, UpdateListUrl(site, parts_.version), TempFile(), kDelay)) {
    return StillOpen(run) ? End::Finished : End::Gone;
  }
  run.step([&] { NormalizeUpdateFile(parts_.ports.files, TempFile()); });
  if (!Wait(run, kDelay)) return End::Gone;
  AddStatusLine(strings_[Message::Done]);
  return Compare(run, localVersion);
}

bool UpdateDialog::DownloadUpdateList(const Run& run, const Text& url, const Text& file, int delay) {
  AddStatusLine(strings_[Message::ConnectingToServer]);
  CarryOn step;
  const bool whole = step([&] {
    const std::string body = parts_.web.Get(url);
    if (StillOpen(run)) parts_.ports.files.WritePrivate(file, body);
  });
  if (!StillOpen(run)) return false;
  if (!whole) {
    cmdOK.SetText(strings_[Message::Close]);
    cmdOK.SetEnabled(true);
    AddStatusLine(strings_[Message::UpdateFailed]);
    AddError(u"Error while checking for updates.", *step.Last());
    return false;
  }
  AddStatusLine(strings_[Message::GettingUpdates]);
  if (!Wait(run, delay)) return false;
  AddStatusLine(strings_[Message::ProcessingUpdates]);
  return true;
}

UpdateDialog::End UpdateDialog::Compare(Run& run, const Text& localVersion) {
  Text list;
  run.step([&] { list = UpdateListText(parts_.ports.files.Read(TempFile(), kLongestUpdateList), parts_.encodings); });
  RemoteVersionText = GetUpdateValue(list, u"version");
  const Text remoteVersion = RemoteVersionNumber(RemoteVersionText);
  if (remoteVersion == u"0") return Refuse(strings_[Message::UpdateFailed]);
  // Versions are compared as texts: "99" ranks above "100".
  if (remoteVersion <= localVersion) return Refuse(strings_[Message::NoUpdateNeeded]);
  Offer(run, list);
  return End::Finished;
}

void UpdateDialog::Offer(Run& run, const Text& list) {
  Text releaseDate = GetUpdateValue(list, u"date");
  run.step([&] {
    const std::optional<Day> day =
        DayOf(GetUpdateValue(list, u"year"), GetUpdateValue(list, u"month"), GetUpdateValue(list, u"day"));
    if (!day) return;
    releaseDate = parts_.locale.LongDate(day->year, day->month, day->day);
    if (releaseDate.empty()) releaseDate = PlainDate(*day);
  });
  const Text version = Shortened(RemoteVersionText);
  AddStatusLine(Fill(strings_[Message::NewVersionAvailable], RemoteVersionText));
  AddStatusLine(Fill(strings_[Message::ReleasedOn], releaseDate));
  AddStatusLine(strings_[Message::OkOpensDownloadPage]);
  lblWhatsNew.SetText(Fill(strings_[Message::ViewWhatsNew], version));
  lblWhatsNew.SetVisible(true);
  lblStatus.SetText(TrimBlanks(ReplaceAll(Fill(strings_[Message::NewVersionAvailable], version), u"***", {})));
  cmdOK.SetText(strings_[Message::Ok]);
}

void UpdateDialog::ShowChanges() {
  if (!parts_.ports.files.Exists(TempFile())) return;
  lblWhatsNew.SetEnabled(false);
  AddStatusLine({});
  CarryOn step;
  step([&] {
    const Text list = UpdateListText(parts_.ports.files.Read(TempFile(), kLongestUpdateList), parts_.encodings);
    const auto changes = ChangesOf(list);
    if (!changes) return;
    Text log = Fill(strings_[Message::ChangesInVersion], RemoteVersionText);
    for (const Text& line : *changes) log += Text(kLineEnd) + line;
    AddStatusLine(log);
  });
  AddStatusLine({});
  AddStatusLine(strings_[Message::OkOpensDownloadPage]);
}

void UpdateDialog::OnClose() {
  parts_.web.Abort();
  DeleteFileWait(parts_.ports.files, parts_.ports.events, TempFile(), false);
}

}  // namespace cuewright
