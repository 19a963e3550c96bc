#include "forms/help_window.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr TextView kEnglish = u"ENGLISH";

struct WindowPage {
  const char* window;
  TextView page;
};

constexpr std::array kWindowPages{
    WindowPage{"frmAbout", u"about.html"},
    WindowPage{"frmAudio", u"audio_source.html"},
    WindowPage{"frmAudioWizard", u"extract_audio.html"},
    WindowPage{"frmCheck", u"check.html"},
    WindowPage{"frmDelay", u"delay.html"},
    WindowPage{"frmRetime", u"retime.html"},
    WindowPage{"frmHand", u"menu_edit.html"},
    WindowPage{"frmEmbed", u"embed.html"},
    WindowPage{"frmExport", u"export.html"},
    WindowPage{"frmFind", u"find.html"},
    WindowPage{"frmFormat", u"format_settings.html"},
    WindowPage{"frmKeys", u"menu_film.html#keys"},
    WindowPage{"frmLines", u"open.html#lines"},
    WindowPage{"frmPalette", u"menu_film.html#palette"},
    WindowPage{"frmProposals", u"check.html#proposals"},
    WindowPage{"frmReopen", u"open.html#encoding"},
    WindowPage{"frmReplace", u"find.html#replace"},
    WindowPage{"frmReport", u"report.html"},
    WindowPage{"frmSaving", u"export.html#losses"},
    WindowPage{"frmShots", u"audio_bar.html#shots"},
    WindowPage{"frmSpell", u"spelling.html"},
    WindowPage{"frmStart", u"player.html"},
    WindowPage{"frmSub", u"overlay.html"},
    WindowPage{"frmUpdate", u"update.html"},
};

constexpr std::array<TextView, 5> kSettingsPages{u"settings_timing.html", u"settings_keys.html",
                                                 u"settings_player.html", u"settings_preview.html",
                                                 u"settings_language.html"};

TextView FileOf(TextView page) { return page.substr(0, page.find(u'#')); }

bool IsWebAddress(TextView link) { return link.starts_with(u"http://") || link.starts_with(u"https://"); }

}  // namespace

HelpWindow::HelpWindow(const HelpParts& parts, OpenForms& openForms) : ToolForm("frmHelp", openForms), p_(parts) {
  lblNotice.SetVisible(false);
  cmdBack.Clicked.Connect([this] { Move(at_ - 1); });
  cmdForward.Clicked.Connect([this] { Move(at_ + 1); });
  txtSearch.Edited.Connect([this] {
    ShowTopics();
    PageChanged();
  });
  txtSearch.KeyDown.Connect([this](KeyEvent& key) {
    if (key.code != kKeyEnter || listed_.empty()) return;
    key.handled = true;
    lstTopics.Choose(std::max(lstTopics.Index(), 0));
  });
  lstTopics.Chosen.Connect([this] {
    const std::size_t place = lstTopics.Index();
    if (place >= listed_.size()) return;
    const Text& file = book_.Topics()[listed_[place]].file;
    if (visited_.empty() || file != FileOf(visited_[at_])) Go(file);
  });
}

Text HelpWindow::FolderOf(TextView language) const {
  return p_.folders.AppFolder + u"help/" + ToLower(language) + u"/";
}

bool HelpWindow::Has(TextView language) const { return p_.files.Exists(FolderOf(language) + u"contents.txt"); }

void HelpWindow::OpenFor(const std::string& window) {
  if (!Has(p_.options.language) && !Has(kEnglish)) return;
  Show();
  if (book_.Topics().empty()) return;
  Text page = book_.Topics().front().file;
  const auto at = std::find_if(kWindowPages.begin(), kWindowPages.end(),
                               [&](const WindowPage& entry) { return window == entry.window; });
  if (at != kWindowPages.end()) page = at->page;
  if (window == "frmSettings") page = kSettingsPages[std::min(p_.settings.Page(), kSettingsPages.size() - 1)];
  Go(page);
}

void HelpWindow::Follow(TextView link) {
  if (IsWebAddress(link)) {
    p_.desktop.ShellOpen(Text(link));
  } else if (link.starts_with(u'#')) {
    if (!visited_.empty()) Go(Text(FileOf(visited_[at_])) + Text(link));
  } else {
    Go(Text(link));
  }
}

Text HelpWindow::PagePath() const { return visited_.empty() ? Text() : folder_ + visited_[at_]; }

void HelpWindow::ReadBook() {
  TextView language = p_.options.language;
  if (!Has(language)) language = kEnglish;
  lblNotice.SetVisible(language != p_.options.language);
  folder_ = FolderOf(language);
  book_.Load(p_.files, folder_);
}

void HelpWindow::Load() {
  visited_.clear();
  at_ = 0;
  txtSearch.SetText({});
  ApplyLanguage(p_.languages.IsRightToLeft());
}

void HelpWindow::ApplyLanguage(bool rightToLeft) {
  SetTitle(WithoutAccessKey(p_.strings[Message::HelpTopics]));
  SetRightToLeft(rightToLeft);
  cmdBack.SetText(p_.strings[Message::Back]);
  cmdForward.SetText(p_.strings[Message::ForwardPage]);
  lblSearch.SetText(p_.strings[Message::SearchTheHelp]);
  txtSearch.SetSpokenName(p_.strings[Message::SearchTheHelp]);
  lstTopics.SetSpokenName(p_.strings[Message::Topics]);
  lblNotice.SetText(p_.strings[Message::HelpShownInEnglish]);
  if (!Loaded()) return;
  ReadBook();
  ShowTopics();
  Visit();
}

void HelpWindow::ShowTopics() {
  listed_ = book_.Find(txtSearch.GetText());
  std::vector<Text> items;
  const bool all = listed_.size() == book_.Topics().size();
  for (const std::size_t place : listed_) {
    const HelpTopic& topic = book_.Topics()[place];
    items.push_back(Text(all ? topic.depth * 4 : 0, u' ') + topic.title);
  }
  lstTopics.SetEnabled(!items.empty());
  if (items.empty()) items.push_back(p_.strings[Message::NoTopicFound]);
  if (items != lstTopics.Items()) lstTopics.SetItems(std::move(items));
  if (visited_.empty()) return;
  const auto shown = book_.PlaceOf(FileOf(visited_[at_]));
  lstTopics.SetIndex(cuewright::PlaceOf(listed_, shown.value_or(book_.Topics().size())));
}

void HelpWindow::Go(const Text& page) {
  if (!book_.PlaceOf(FileOf(page))) return;
  if (visited_.empty() || visited_[at_] != page) {
    if (!visited_.empty()) visited_.resize(at_ + 1);
    visited_.push_back(page);
  }
  Move(visited_.size() - 1);
}

void HelpWindow::Move(std::size_t to) {
  if (to >= visited_.size()) return;
  at_ = to;
  ShowTopics();
  Visit();
}

void HelpWindow::Visit() {
  cmdBack.SetEnabled(at_ > 0);
  cmdForward.SetEnabled(at_ + 1 < visited_.size());
  if (visited_.empty()) return;
  const auto place = book_.PlaceOf(FileOf(visited_[at_]));
  if (place) picTopic.SetSpokenName(book_.Topics()[*place].title);
  PageChanged();
}

}  // namespace cuewright
