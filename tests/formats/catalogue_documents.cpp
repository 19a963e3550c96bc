#include "tests/formats/catalogue_documents.h"

#include <algorithm>
#include <span>

#include "core/numbers.h"

namespace cuewright::testing {
namespace {

std::vector<Caption> SixHundred() {
  const std::vector<Text> texts = {u"The first of many.", u"<i>Somebody called|from the far shore.",
                                   u"Où est passé le café ?|Żółw!", u"<b>No.", u"and so on|and on|and on"};
  std::vector<Caption> rows;
  for (std::int32_t i = 0; i < 600; ++i) {
    const std::int32_t start = 1400 + i * 4200;
    rows.push_back({start, start + 2000 + i % 5 * 200, texts[static_cast<std::size_t>(i) % texts.size()]});
  }
  return rows;
}

/// Files of these are taken for another format's.
constexpr FormatException kTakenForAnother[] = {
    {"OVRSCRIPT", "one", "is known by an end line with a start line behind it"},
    {"DKS", "one", "is known by an end line with a start line behind it"},
};

/// Files of these don't give all times back. Their record is a start line with the text behind it and an end line of
/// the same form, so a start line holds all that an end line is known by, and passes for its own end. Of templates in
/// whole seconds the import tells the two apart by their equal times.
constexpr FormatException kNotReadWhole[] = {
    {"SUBCREATOR1X", "*", "start line passes for its own end; its bare end line then starts the next caption"},
    {"CPC600", "*", "start line passes for its own end; its bare end line then starts the next caption"},
    {"PE2", "*", "start line passes for its own end; starts and texts come back"},
    {"OVRSCRIPT", "*", "start line passes for its own end; starts and texts come back"},
};

bool Lists(std::span<const FormatException> list, const std::string& format, const std::string& document) {
  return std::ranges::any_of(list, [&](const FormatException& one) {
    return one.format == format && (one.document == "*" || one.document == document);
  });
}

Text WithoutMarkers(Text text) {
  for (const TextView marker : {u"<b>", u"<i>", u"<u>"}) text = ReplaceAll(text, marker, u"");
  return text;
}

}  // namespace

const std::vector<SampleDocument>& Documents() {
  static const std::vector<SampleDocument> documents = {
      {"three",
       {{12400, 15200, u"Good evening, Inspector."}, {16000, 19800, u"Nobody leaves."}, {20000, 22600, u"Why?"}}},
      {"one", {{12400, 15200, u"Good evening, Inspector."}}},
      {"two lines",
       {{12400, 15200, u"Good evening,|Inspector."},
        {16000, 19800, u"Nobody leaves this house|until the storm has passed."},
        {20000, 22600, u"- Why?|- You know why."}}},
      {"italics",
       {{12400, 15200, u"<i>Good evening, Inspector."},
        {16000, 19800, u"Nobody leaves."},
        {20000, 22600, u"<i>Why|not?"}}},
      {"accents",
       {{12400, 15200, u"Bonsoir, où étiez-vous ?"},
        {16000, 19800, u"Zażółć gęślą jaźń"},
        {20000, 22600, u"Ёж, ça va?"}}},
      {"six hundred", SixHundred()}};
  return documents;
}

const SampleDocument& CapabilityDocument() {
  static const SampleDocument document = {"capability",
                                          {{12400, 15200, u"Good evening, Inspector."},
                                           {16000, 19800, u"Nobody leaves this house|until the storm has passed."},
                                           {20000, 22600, u"<i>Is that an order?"},
                                           {3605400, 3608000, u"Où étiez-vous|à minuit, señor Müller ?"}}};
  return document;
}

bool TakenForAnother(const std::string& format, const std::string& document) {
  return Lists(kTakenForAnother, format, document);
}

bool HasARival(const std::string& format) { return format == "ADOBEENCORE" || format == "DVDSUBSYSTEM"; }

bool NotReadWhole(const std::string& format, const std::string& document) {
  return Lists(kNotReadWhole, format, document);
}

Caption Carried(const FormatCatalogue& catalogue, const Text& id, Caption caption, bool exact) {
  const Text timecode = catalogue.ReadIni(id, u"timecode", u"ms");
  const bool fraction = timecode.find(u'z') != Text::npos || timecode.find(u"ff") != Text::npos || timecode == u"ms";
  const bool noHours = !exact && timecode.starts_with(u"mm") && id != kKaraokeLrc;
  for (Ms* time : {&caption.start, &caption.end}) {
    if (noHours) *time = *time % 3600000;
    if (id == kPlainText) {
      *time = 0;
    } else if (!fraction) {
      *time = *time / 1000 * 1000 + (*time % 1000 >= (exact ? 500 : 251) ? 1000 : 0);
    }
  }
  // The record of TTML has no tags, but its published rules have.
  const bool byRules = exact && id == u"TTML";
  if (id != kPlainText && !byRules && LeadingNumber(catalogue.ReadIni(id, u"tags", u"0")) == 0) {
    caption.text = WithoutMarkers(caption.text);
  }
  if (catalogue.ReadIni(id, u"lbreak", u"[enter]") == u"none") caption.text = ReplaceAll(caption.text, u"|", u" ");
  return caption;
}

std::vector<Caption> Carried(const FormatCatalogue& catalogue, const Text& id, const SampleDocument& document,
                             bool exact) {
  std::vector<Caption> rows;
  for (const Caption& caption : document.rows) rows.push_back(Carried(catalogue, id, caption, exact));
  return rows;
}

std::vector<Text> TextsOf(const std::vector<Caption>& rows) {
  std::vector<Text> texts;
  for (const Caption& row : rows) texts.push_back(row.text);
  return texts;
}

FrameRate RateOf(const FormatCatalogue& catalogue, const Text& id) {
  return catalogue.ReadIni(id, u"timecode", u"ms").find(u"ff") == Text::npos ? 0.0 : 25.0;
}

}  // namespace cuewright::testing
