#include "forms/proposals_dialog.h"

#include <algorithm>
#include <utility>

#include "core/caption_time.h"
#include "core/seen_text.h"
#include "forms/access_keys.h"

namespace cuewright {
namespace {

Text SeenIn(const CaptionList& list, const Text& stored) {
  SeenText seen;
  seen.Take(stored, list.Options().lineSeparator, list.Marks());
  return Text(seen.View());
}

}  // namespace

Text CaptionWords(const CaptionList& list, const Caption& caption, const Caption& other) {
  Text words;
  if (caption.start != other.start || caption.end != other.end) {
    words = MsToTimeText(caption.start) + u" \u2013 " + MsToTimeText(caption.end);
  }
  if (caption.text == other.text && !words.empty()) return words;
  Text text = SeenIn(list, caption.text);
  // When only marks change, the texts are shown with their marks.
  if (text == SeenIn(list, other.text)) text = ReplaceAll(caption.text, list.Options().lineSeparator, u"\n");
  if (!words.empty()) words += u'\n';
  return words + text;
}

ProposalsDialog::ProposalsDialog(const CaptionList& list, const LangStrings& strings)
    : Dialog("frmProposals"), list_(list), strings_(strings) {
  lstProposals.SetTickable(true);
  lstProposals.TickChanged.Connect([this] { ShowTotal(); });
  for (CheckBox& kind : chkKind) kind.Clicked.Connect([this] { Asked(); });
  for (ComboBox* box : {&cmbScope, &cmbLanguage}) box->Chosen.Connect([this] { Asked(); });
  for (const auto& [button, ticked] : {std::pair<Button*, bool>{&cmdAll, true}, {&cmdNone, false}}) {
    button->Clicked.Connect([this, ticked = ticked] {
      lstProposals.TickAll(ticked);
      ShowTotal();
    });
  }
  cmdApply.Clicked.Connect([this] {
    result_ = true;
    Close();
  });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void ProposalsDialog::Prepare(const ProposalsContent& content, bool rightToLeft) {
  result_ = false;
  SetTitle(content.title);
  SetAllRightToLeft(rightToLeft);
  lblTop.SetText(strings_[Message::ProposalsHint]);
  lblScope.SetText(strings_[Message::ScopeLabel]);
  cmbScope.SetItems({strings_[Message::ProposalsOfAll], strings_[Message::ProposalsOfSelected]});
  cmbScope.SetIndex(0);
  cmbScope.SetSpokenName(strings_[Message::ScopeLabel]);
  lblLanguage.SetText(strings_[Message::CleaningLanguage]);
  cmbLanguage.SetItems(content.languages);
  cmbLanguage.SetIndex(content.languages.empty() ? -1 : content.language);
  cmbLanguage.SetSpokenName(strings_[Message::CleaningLanguage]);
  lblScope.SetVisible(content.scope);
  cmbScope.SetVisible(content.scope);
  lblLanguage.SetVisible(!content.languages.empty());
  cmbLanguage.SetVisible(!content.languages.empty());
  for (std::size_t kind = 0; kind < chkKind.size(); ++kind) {
    const bool given = kind < content.kinds.size();
    chkKind[kind].SetVisible(given);
    chkKind[kind].SetText(given ? content.kinds[kind] : Text());
    chkKind[kind].SetValue(given && content.kindsOn[kind]);
  }
  lstProposals.SetHeadings(
      {strings_[Message::HeadingCaption], strings_[Message::HeadingNow], strings_[Message::HeadingThen]});
  lstProposals.SetSpokenName(content.title);
  AccessKeys keys;
  cmdAll.SetText(keys.Give(strings_[Message::TakeAll]));
  cmdNone.SetText(keys.Give(strings_[Message::TakeNone]));
  cmdApply.SetText(keys.Give(strings_[Message::MakeChanges]));
  cmdCancel.SetText(keys.Give(strings_[Message::Cancel]));
}

void ProposalsDialog::ShowProposals(std::vector<Proposal> proposals) {
  proposals_ = std::move(proposals);
  std::vector<SheetRow> rows;
  rows.reserve(proposals_.size());
  for (const Proposal& proposal : proposals_) {
    const Caption& now = list_.At(proposal.row);
    const Caption then = proposal.after.value_or(Caption{now.start, now.end, {}});
    rows.push_back({{Decimal(proposal.row.Number()), CaptionWords(list_, now, then),
                     proposal.after ? CaptionWords(list_, then, now) : strings_[Message::CaptionGoes]}});
  }
  lstProposals.SetRows(std::move(rows));
  ShowTotal();
}

void ProposalsDialog::Open() { NoteOpened(); }

void ProposalsDialog::ShowTotal() {
  const auto& rows = lstProposals.Rows();
  const auto ticked = std::ranges::count_if(rows, &SheetRow::ticked);
  lblTotal.SetText(rows.empty() ? strings_[Message::NothingToChange]
                                : Fill(strings_[Message::ProposalsTaken], Decimal(ticked), Decimal(rows.size())));
  cmdApply.SetEnabled(ticked > 0);
  cmdAll.SetEnabled(!rows.empty());
  cmdNone.SetEnabled(!rows.empty());
}

std::vector<Proposal> ProposalsDialog::Taken() const {
  std::vector<Proposal> taken;
  for (std::size_t i = 0; result_ && i < proposals_.size(); ++i) {
    if (lstProposals.Rows()[i].ticked) taken.push_back(proposals_[i]);
  }
  return taken;
}

}  // namespace cuewright
