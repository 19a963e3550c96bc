#include "batch/converter.h"

namespace cuewright {

Guard::Guard(const std::vector<Text>& inputs) {
  for (const Text& input : inputs) {
    if (const auto identity = IdentityOfInput(input)) inputs_.insert(*identity);
  }
}

Text Guard::Objection(const Text& input, const Text& out, bool whole) const {
  if (Text objection = ObjectionToSource(input, out, whole); !objection.empty()) return objection;
  const std::optional<FileIdentity> target = IdentityOfResult(out);
  if (!target) return {};
  const std::lock_guard lock(mutex_);
  if (results_.contains(*target)) return u"Not written: " + out + u" is the result of another file of this run.";
  if (target == IdentityOfInput(input)) return {};
  if (inputs_.contains(*target)) return u"Not written: " + out + u" is another input of this run.";
  return {};
}

void Guard::NoteWritten(const Text& out) {
  const auto identity = IdentityOfResult(out);
  const std::lock_guard lock(mutex_);
  if (identity) results_.insert(*identity);
}

Text ResultPath(const Request& request, const FormatCatalogue& catalogue, int format, const Text& input) {
  if (request.out) return *request.out;
  const Text folder = *request.folder + (request.folder->ends_with(u'/') ? u"" : u"/");
  const Text name = input.substr(input.rfind(u'/') + 1);
  if (format < 0) return folder + name;
  const std::size_t dot = name.rfind(u'.');
  // A dot at the beginning of a name hides the file and begins no extension.
  const Text stem = dot == Text::npos || dot == 0 ? name : name.substr(0, dot);
  const Text extensions = catalogue.ReadIni(catalogue.Identifier(format), u"extension", u"txt");
  return folder + stem + u'.' + Text(TrimBlanks(Split(extensions, u",").front()));
}

Outcome Converter::Convert(const Text& input) {
  Outcome outcome;
  outcome.out = ResultPath(request_, session_.Catalogue(), format_, input);
  outcome.to = request_.to;
  if (session_.Load(input)) {
    if (request_.rules) session_.ApplyRules();
    outcome.format = session_.Format();
    if (format_ < 0) outcome.to = outcome.format;
    outcome.captions = session_.Captions().Count();
    Write(input, outcome);
  }
  outcome.whole = !session_.LoadedWithTrouble();
  outcome.messages = session_.Boxes().Shown();
  return outcome;
}

void Converter::Write(const Text& input, Outcome& outcome) {
  const bool whole = !session_.LoadedWithTrouble();
  if (const Text objection = guard_.Objection(input, outcome.out, whole); !objection.empty()) {
    session_.Boxes().Tell(objection);
    return;
  }
  outcome.written = session_.Save(outcome.out, format_ < 0 ? session_.FormatIndex() : format_, request_.keepUntimed);
  if (outcome.written) guard_.NoteWritten(outcome.out);
}

}  // namespace cuewright
