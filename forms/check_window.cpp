#include "forms/check_window.h"

#include <algorithm>
#include <utility>

#include "core/counting.h"
#include "forms/access_keys.h"
#include "text/labels.h"

namespace cuewright {

CheckWindow::CheckWindow(Workbench bench, HouseCheck& check, ProposalTools& proposals, Notices& notices,
                         const Languages& languages, OpenForms& openForms)
    : ToolForm("frmCheck", openForms),
      bench_(bench),
      check_(check),
      proposals_(proposals),
      notices_(notices),
      languages_(languages) {
  bench_.window.mnuCheck.Clicked.Connect([this] { Show(); });
  bench_.window.mnuNextFinding.Clicked.Connect([this] { GoToNext(); });
  cmbProfile.Chosen.Connect([this] {
    const std::size_t at = cmbProfile.Index();
    if (at < profiles_.size()) check_.Choose(profiles_[at].id);
    ShowProfile();
  });
  lstFindings.Chosen.Connect([this] { ShowFix(); });
  lstFindings.Activated.Connect([this] { GoTo(); });
  cmdGoTo.Clicked.Connect([this] { GoTo(); });
  cmdFix.Clicked.Connect([this] { Fix(); });
  cmdFixAll.Clicked.Connect([this] { FixAll(); });
  cmdClose.Clicked.Connect([this] { Close(); });
  check_.findings.Changed.Connect([this](Row, Row) {
    stale_ = Loaded();
    if (stale_ && !bench_.list.InCommand()) ShowFindings();
  });
  bench_.list.CommandEnded.Connect([this] {
    if (stale_ && Loaded()) ShowFindings();
  });
}

void CheckWindow::Load() {
  FillProfiles();
  ApplyLanguage(languages_.IsRightToLeft());
  ShowFindings();
}

void CheckWindow::Unload() {
  stale_ = false;
  found_.clear();
  fix_.reset();
  lstFindings.SetRows({});
}

void CheckWindow::ApplyLanguage(bool rightToLeft) {
  const LangStrings& strings = bench_.strings;
  SetTitle(WithoutDots(strings[Message::CheckSubtitles]));
  SetAllRightToLeft(rightToLeft);
  lblProfile.SetText(strings[Message::HouseRulesLabel]);
  cmbProfile.SetSpokenName(strings[Message::HouseRulesLabel]);
  lstFindings.SetSpokenName(Title());
  lstFindings.SetHeadings({strings[Message::HeadingCaption], strings[Message::HeadingRule],
                           strings[Message::HeadingValue], strings[Message::HeadingLimit]});
  AccessKeys keys;
  cmdGoTo.SetText(keys.Give(strings[Message::GoToCaption]));
  cmdFix.SetText(keys.Give(strings[Message::FixFinding]));
  cmdFixAll.SetText(keys.Give(strings[Message::FixAllFindings]));
  cmdClose.SetText(keys.Give(strings[Message::Close]));
  ShowProfile();
  if (Loaded()) ShowFindings();
}

void CheckWindow::FillProfiles() {
  profiles_ = check_.Profiles();
  std::vector<Text> names;
  for (const HouseRulesName& profile : profiles_) names.push_back(profile.name);
  cmbProfile.SetItems(std::move(names));
}

void CheckWindow::ShowProfile() {
  const HouseRules& rules = check_.findings.Rules();
  cmbProfile.SetIndex(PlaceOf(profiles_, rules.id, &HouseRulesName::id));
  lblSource.SetText(check_.Problem().empty()
                        ? Fill(bench_.strings[Message::HouseRulesSource], rules.source, rules.date)
                        : Fill(bench_.strings[Message::HouseRulesUnreadable], FromUtf8(check_.Problem())));
}

void CheckWindow::ShowFindings() {
  stale_ = false;
  const Finding* const before = Selected();
  const std::optional<Finding> chosen = before != nullptr ? std::optional(*before) : std::nullopt;
  const int place = lstFindings.Index();
  found_ = bench_.document.HasDocument() ? check_.findings.All() : std::vector<Finding>();
  FillList();
  // The chosen finding stays chosen; when it was mended, the one that took its place in the list is next.
  const auto at = std::ranges::find_if(found_, [&](const Finding& finding) {
    return chosen && finding.row == chosen->row && finding.rule == chosen->rule;
  });
  const int last = CountOf(found_) - 1;
  lstFindings.SetIndex(at != found_.end() ? PlaceAt(found_, at) : std::clamp(place, std::min(last, 0), last));
  lblTotal.SetText(found_.empty() ? bench_.strings[Message::NothingFound]
                                  : bench_.strings.Counted(Message::FindingsCount, u"%1", found_.size()));
  cmdGoTo.SetEnabled(!found_.empty());
  cmdFixAll.SetEnabled(!found_.empty());
  ShowFix();
}

void CheckWindow::FillList() {
  std::vector<SheetRow> rows;
  rows.reserve(found_.size());
  for (const Finding& finding : found_) {
    rows.push_back({{Decimal(finding.row.Number()), RuleWords(finding.rule, bench_.strings),
                     ValueWords(finding, bench_.strings), LimitWords(finding, bench_.strings)}});
  }
  lstFindings.SetRows(std::move(rows));
}

const Finding* CheckWindow::Selected() const {
  const std::size_t at = lstFindings.Index();
  return at < found_.size() ? &found_[at] : nullptr;
}

void CheckWindow::ShowFix() {
  const Finding* const finding = Selected();
  fix_ = finding != nullptr ? check_.Fix(*finding) : std::nullopt;
  cmdFix.SetEnabled(fix_.has_value());
  Text told;
  if (finding != nullptr) {
    told = fix_ ? Fill(bench_.strings[Message::FixProposed], Decimal(fix_->row.Number()))
                : bench_.strings[Message::NoFixKnown];
  }
  lblFix.SetText(told);
  Text now;
  Text then;
  if (fix_ && fix_->after) {
    now = CaptionWords(bench_.list, bench_.list.At(fix_->row), *fix_->after);
    then = CaptionWords(bench_.list, *fix_->after, bench_.list.At(fix_->row));
  }
  lblNow.SetText(now);
  lblThen.SetText(then);
}

void CheckWindow::GoTo() {
  if (const Finding* const finding = Selected(); finding != nullptr) bench_.list.SetRow(finding->row, true);
}

void CheckWindow::Fix() {
  if (fix_) proposals_.Make(EditKind::Fix, {*fix_});
}

void CheckWindow::FixAll() { proposals_.Offer(bench_.strings[Message::FixAllTitle], EditKind::Fix, check_.FixAll()); }

void CheckWindow::GoToNext() {
  const Row row = check_.findings.Next(bench_.list.Selected());
  if (row == 0) return notices_.Tell(Message::NothingFound);
  bench_.list.SetRow(row, true);
  notices_.Tell(Message::FindingInCaption, Decimal(row.Number()),
                FindingWords(check_.findings.Of(row).front(), bench_.strings));
}

}  // namespace cuewright
