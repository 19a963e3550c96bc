#include "forms/reopen_dialog.h"

#include <utility>

#include "forms/access_keys.h"
#include "text/labels.h"
#include "text/text_file.h"

namespace cuewright {
namespace {

constexpr int kLinesShown = 12;

}  // namespace

ReopenDialog::ReopenDialog(const LangStrings& strings) : Dialog("frmReopen"), strings_(strings) {
  cboEncoding.Chosen.Connect([this] { ShowFirstLines(); });
  cmdOK.Clicked.Connect([this] {
    result_ = true;
    Close();
  });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void ReopenDialog::Open(std::string head, const DocumentEncoding& encoding, bool rightToLeft) {
  result_ = false;
  head_ = std::move(head);
  SetTitle(WithoutDots(strings_[Message::ReopenAs]));
  SetAllRightToLeft(rightToLeft);
  AccessKeys keys;
  cmdOK.SetText(keys.Give(strings_[Message::Ok]));
  cmdCancel.SetText(keys.Give(strings_[Message::Cancel]));
  lblTop.SetText(strings_[Message::ReopenHead]);
  lblEncoding.SetText(keys.Give(strings_[Message::EncodingOfFile]));
  cboEncoding.SetSpokenName(strings_[Message::EncodingOfFile]);
  lblPreview.SetText(keys.Give(strings_[Message::FirstLines]));
  txtPreview.SetSpokenName(strings_[Message::FirstLines]);
  encodings_.Fill(strings_);
  encodings_.Choose(encoding);
  ShowFirstLines();
  NoteOpened();
}

void ReopenDialog::ShowFirstLines() {
  TextFile file = TextFile::As(head_, encodings_.Chosen().codePage);
  Text shown;
  LineBuffer line;
  for (int i = 0; i < kLinesShown && file.NextText(line); ++i) {
    if (i != 0) shown += kLineEnd;
    shown += line.View();
  }
  txtPreview.SetText(shown);
}

}  // namespace cuewright
