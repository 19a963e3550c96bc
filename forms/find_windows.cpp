#include "forms/find_windows.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "core/counting.h"
#include "tools/find_replace.h"

namespace cuewright {
namespace {

/// Time that a pattern may take on all captions while the window waits for it.
constexpr std::chrono::milliseconds kMostTime{2000};
/// In place of a count: the fault of the pattern has been told.
constexpr int kFaulty = -1;

}  // namespace

SearchWindow::SearchWindow(std::string name, Message title, CaptionList& list, const LangStrings& strings,
                           const Languages& languages, OpenForms& openForms)
    : ToolForm(std::move(name), openForms), strings_(strings), list_(list), title_(title), languages_(languages) {
  txtFind.Edited.Connect([this] { FollowText(); });
  cmdFind.Clicked.Connect([this] { TellFound(Search(Pass::Find)); });
  cmdClose.Clicked.Connect([this] { Close(); });
}

void SearchWindow::Load() {
  txtFind.SetText({});
  lblInfo.SetText({});
  imgInfo.SetVisible(false);
  chkEntire.SetValue(false);
  chkCase.SetValue(false);
  chkRegex.SetValue(false);
  chkRegex.SetVisible(list_.Options().manner.ChecksAndProposes());
  FollowText();
  ApplyLanguage(languages_.IsRightToLeft());
}

void SearchWindow::ApplyLanguage(bool rightToLeft) {
  SetTitle(strings_[title_]);
  SetAllRightToLeft(rightToLeft);
  fraFind.SetText(strings_[Message::SearchForText]);
  txtFind.SetSpokenName(strings_[Message::SearchForText]);
  chkEntire.SetText(strings_[Message::SingleWordOnly]);
  chkCase.SetText(strings_[Message::MatchCase]);
  chkRegex.SetText(strings_[Message::RegularExpression]);
  cmdFind.SetText(strings_[Message::FindNext]);
  cmdClose.SetText(strings_[Message::Close]);
}

void SearchWindow::FollowText() { cmdFind.SetEnabled(!txtFind.GetText().empty()); }

int SearchWindow::Search(Pass pass, TextView replacement) {
  if (chkRegex.Value()) return SearchPattern(pass, replacement);
  return FindInCaptions(list_, {txtFind.GetText(), chkEntire.Value(), chkCase.Value()}, pass != Pass::Find, replacement,
                        pass == Pass::ReplaceAll);
}

ReplaceOrder SearchWindow::Order(TextView replacement) const {
  return {txtFind.GetText(), Text(replacement), chkRegex.Value(), chkCase.Value(), chkEntire.Value()};
}

TextReplacer SearchWindow::MakeReplacer(TextView replacement) const {
  return {Order(replacement), list_.Options().lineSeparator, &list_.Marks(), kMostTime};
}

bool SearchWindow::TellFault(const TextReplacer& replacer) {
  switch (replacer.Problem()) {
    case TextReplacer::Fault::BadPattern:
      Tell(strings_[Message::PatternWrong]);
      return true;
    case TextReplacer::Fault::BadReplacement:
      Tell(strings_[Message::ReplacementWrong]);
      return true;
    case TextReplacer::Fault::TooSlow:
      Tell(strings_[Message::PatternTooSlow]);
      return true;
    default:
      return false;
  }
}

/// As a plain search: from the selected row down, which itself doesn't hold a search.
int SearchWindow::FindPattern(TextReplacer& replacer) {
  for (Row row = list_.Selected() + 1; row < list_.Rows(); ++row) {
    if (!replacer.FindsIn(list_.At(row).text)) continue;
    list_.MoveSelection(row);
    return 1;
  }
  return replacer.FindsIn(list_.GetCaptionText(list_.Selected())) ? 1 : 0;
}

int SearchWindow::ReplacePattern(TextReplacer& replacer, bool all) {
  std::vector<Proposal> proposals;
  for (Row row = list_.Selected(); row < list_.Rows() && (all || proposals.empty()); ++row) {
    const Row rows[] = {row};
    std::ranges::move(ProposeReplacements(list_, rows, replacer), std::back_inserter(proposals));
  }
  if (replacer.Problem() != TextReplacer::Fault::None || proposals.empty()) return 0;
  CarryOut(list_, all ? EditKind::ReplaceAll : EditKind::Replace, proposals);
  list_.SetRow(all ? list_.Selected() : proposals.front().row, true);
  return CountOf(proposals);
}

int SearchWindow::SearchPattern(Pass pass, TextView replacement) {
  TextReplacer replacer = MakeReplacer(replacement);
  const int count = pass == Pass::Find ? FindPattern(replacer) : ReplacePattern(replacer, pass == Pass::ReplaceAll);
  return TellFault(replacer) ? kFaulty : count;
}

void SearchWindow::TellFound(int count) {
  if (count == kFaulty) return;
  Tell(count > 0 ? Fill(strings_[Message::FoundOnLine], Decimal(list_.Selected().Number()))
                 : strings_[Message::StringNotFound]);
}

void SearchWindow::Tell(TextView text) {
  lblInfo.SetText(text);
  imgInfo.SetVisible(true);
}

ReplaceWindow::ReplaceWindow(CaptionList& list, const LangStrings& strings, const Languages& languages,
                             OpenForms& openForms, ProposalTools& proposals)
    : SearchWindow("frmReplace", Message::Replace, list, strings, languages, openForms), proposals_(proposals) {
  cmdReplace.Clicked.Connect([this] { TellFound(Search(Pass::Replace, txtReplace.GetText())); });
  cmdReplaceAll.Clicked.Connect([this] { ReplaceAll(); });
  cmdList.Clicked.Connect([this] { ListHits(); });
}

std::optional<std::vector<Proposal>> ReplaceWindow::Hits() {
  TextReplacer replacer = MakeReplacer(txtReplace.GetText());
  const std::vector<Row> rows = chkSelected.Value() ? proposals_.SelectedRows() : AllRows(list_);
  std::vector<Proposal> hits = ProposeReplacements(list_, rows, replacer);
  if (TellFault(replacer)) return {};
  return hits;
}

void ReplaceWindow::ReplaceAll() {
  int count = 0;
  if (chkSelected.Value()) {
    const auto hits = Hits();
    if (!hits) return;
    count = proposals_.Make(EditKind::ReplaceAll, *hits);
  } else {
    count = Search(Pass::ReplaceAll, txtReplace.GetText());
    if (count == kFaulty) return;
  }
  Tell(Fill(strings_[Message::ReplacementsMade], Decimal(count)));
}

/// Unlike the other buttons it goes through all captions, or those that are selected: nothing is made unseen.
void ReplaceWindow::ListHits() {
  auto hits = Hits();
  if (!hits) return;
  if (hits->empty()) return Tell(strings_[Message::StringNotFound]);
  const int count = proposals_.Offer(strings_[Message::Replace], EditKind::ReplaceAll, *std::move(hits));
  Tell(Fill(strings_[Message::ReplacementsMade], Decimal(count)));
}

void ReplaceWindow::Load() {
  txtReplace.SetText({});
  chkSelected.SetValue(false);
  for (Control* control : std::initializer_list<Control*>{&chkSelected, &cmdList}) {
    control->SetVisible(list_.Options().manner.ChecksAndProposes());
  }
  SearchWindow::Load();
}

void ReplaceWindow::ApplyLanguage(bool rightToLeft) {
  SearchWindow::ApplyLanguage(rightToLeft);
  fraReplace.SetText(strings_[Message::ReplaceWith]);
  txtReplace.SetSpokenName(strings_[Message::ReplaceWith]);
  cmdReplace.SetText(strings_[Message::Replace]);
  cmdReplaceAll.SetText(strings_[Message::ReplaceAll]);
  cmdList.SetText(strings_[Message::ListHits]);
  chkSelected.SetText(strings_[Message::SelectedOnly]);
}

void ReplaceWindow::FollowText() {
  SearchWindow::FollowText();
  cmdReplace.SetEnabled(cmdFind.Enabled());
  cmdReplaceAll.SetEnabled(cmdFind.Enabled());
  cmdList.SetEnabled(cmdFind.Enabled());
}

}  // namespace cuewright
