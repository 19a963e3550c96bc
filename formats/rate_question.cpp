#include "formats/rate_question.h"

#include "core/numbers.h"
#include "formats/rate_line.h"
#include "text/labels.h"

namespace cuewright {
namespace {

FrameRate AcceptedRate(const Text& answer, bool exact) {
  if (exact) {
    const FrameRate rate = FrameRate::FromText(answer);
    return rate.IsUsual() ? rate : FrameRate();
  }
  // The whole part decides: "30,9" is accepted because 30 is.
  const double whole = LeadingNumber(ReplaceAll(answer, u".", u","));
  if (answer.size() >= 9 || whole < 15 || whole > 30) return {};
  return LeadingNumber(ReplaceAll(answer, u",", u"."));
}

}  // namespace

FrameRate AskFrameRate(const FormatTalk& talk, const RateQuestion& question) {
  const LangStrings& strings = talk.strings;
  const bool filmKnown = question.exact && question.film.IsUsual();
  const Text offered = filmKnown ? question.film.AsText() : Decimal(kUsualRate);
  for (;;) {
    const Text answer = talk.messages.Ask(
        {Fill(strings[Message::FpsForImport], question.format), strings[Message::SourceVideoFps], offered});
    if (answer.empty()) return {};
    if (const FrameRate rate = AcceptedRate(answer, question.exact)) return rate;
    talk.messages.Show({strings[question.exact ? Message::FpsOutOfRange : Message::FpsInvalid], BoxIcon::Error,
                        BoxButtons::Ok, WithoutDots(strings[Message::OpenText])});
  }
}

}  // namespace cuewright
