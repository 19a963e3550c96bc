#include "forms/save_check.h"

#include <algorithm>
#include <array>

#include "core/counting.h"
#include "core/numbers.h"
#include "forms/notices.h"
#include "text/labels.h"
#include "text/units.h"

namespace cuewright {
namespace {

/// Lines that are shown of those with letters that the encoding lacks.
constexpr std::size_t kMostShown = 1000;

/// In the order of the kinds.
constexpr std::array kNames = {
    Message::LossBold,    Message::LossItalic,   Message::LossUnderline,     Message::LossStrike, Message::LossColour,
    Message::LossSpeaker, Message::LossPosition, Message::LossExactPosition, Message::LossFont,   Message::LossSize,
    Message::LossKaraoke, Message::LossRuby,     Message::LossDrawing,       Message::LossEffect, Message::LossClass,
    Message::LossRemark,  Message::LossTimes,    Message::LossLineBreak,     Message::LossOther};
static_assert(kNames.size() == kLossKinds);

}  // namespace

SaveCheck::SaveCheck(Workbench bench, const FormatCatalogue& catalogue, FormatState& state, const Exporter& exporter)
    : dialog("frmSaving", bench.strings), bench_(bench), catalogue_(catalogue), state_(state), exporter_(exporter) {}

bool SaveCheck::AgreesToLosses() {
  if (!bench_.options.manner.TellsWhatIsLost()) return true;
  const Losses losses = exporter_.Foreseen(bench_.list.Rows() - 1);
  if (!losses.Any()) return true;
  const LangStrings& strings = bench_.strings;
  const Text format = catalogue_.ReadIni(catalogue_.Identifier(state_.CurrentFormatIndex), u"name", {});
  ListDialogContent content{WithoutDots(strings[Message::SaveAs]), strings[Message::LossHead], {}};
  for (const Loss kind : kAllLosses) {
    const std::size_t count = losses.Of(kind);
    if (count == 0) continue;
    const Text row = Fill(strings[Message::LossRow], format, strings[ItemAt(kNames, kind)]);
    content.lines.push_back(ReplaceAll(row, u"%3", Decimal(count)));
  }
  content.save = strings[Message::Save];
  dialog.Open(content, bench_.window.RightToLeft());
  return dialog.Result();
}

bool SaveCheck::AgreesToEncoding(Row lastRow) {
  if (!bench_.options.manner.ChoosesEncodings()) return true;
  const std::vector<LackingPlace> places = exporter_.LackingLetters(lastRow);
  if (places.empty()) return true;
  const LangStrings& strings = bench_.strings;
  ListDialogContent content{
      WithoutDots(strings[Message::SaveAs]), Fill(strings[Message::LackingHead], EncodingName(state_.Encoding)), {}};
  for (std::size_t i = 0; i < std::min(places.size(), kMostShown); ++i) content.lines.push_back(LineOf(places[i]));
  if (places.size() > kMostShown) {
    content.lines.push_back(strings.Counted(Message::MoreLines, u"%1", places.size() - kMostShown));
  }
  content.save = strings[Message::SaveInUtf8];
  dialog.Open(content, bench_.window.RightToLeft());
  if (dialog.Result()) state_.Encoding = DocumentEncoding();
  return dialog.Result();
}

Text SaveCheck::LineOf(const LackingPlace& place) const {
  Text letters;
  for (std::size_t at = 0; at < place.letters.size(); ++at) {
    const bool trail = IsTrail(place.letters[at]);
    if (at != 0 && !trail) letters += u' ';
    letters += place.letters[at];
  }
  const LangStrings& strings = bench_.strings;
  if (place.row == 0) {
    return Fill(strings[Message::NumberedLine], Decimal(place.line), letters);
  }
  const Text line = Fill(strings[Message::LackingInCaption], Decimal(place.row.Number()), Decimal(place.rowLine));
  return ReplaceAll(line, u"%3", letters);
}

}  // namespace cuewright
