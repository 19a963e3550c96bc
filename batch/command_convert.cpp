#include <set>

#include "batch/commands.h"
#include "batch/json.h"
#include "batch/stream_files.h"

namespace cuewright {
namespace {

/// The files that a run must not write over: its inputs, and the results that it has written.
class Guard {
 public:
  explicit Guard(const std::vector<Text>& inputs) {
    for (const Text& input : inputs) {
      if (const auto identity = IdentityOfInput(input)) inputs_.insert(*identity);
    }
  }

  /// Why `out` is not to be written for `input`; empty when it may be. `whole`: all of the input was read.
  Text Objection(const Text& input, const Text& out, bool whole) const {
    if (Text objection = ObjectionToSource(input, out, whole); !objection.empty()) return objection;
    const std::optional<FileIdentity> target = IdentityOfResult(out);
    if (!target) return {};
    if (results_.contains(*target)) return u"Not written: " + out + u" is the result of another file of this run.";
    if (target == IdentityOfInput(input)) return {};
    if (inputs_.contains(*target)) return u"Not written: " + out + u" is another input of this run.";
    return {};
  }

  void NoteWritten(const Text& out) {
    if (const auto identity = IdentityOfResult(out)) results_.insert(*identity);
  }

 private:
  std::set<FileIdentity> inputs_;
  std::set<FileIdentity> results_;
};

/// What became of one input.
struct Outcome {
  Text out;
  Text format;  ///< empty: not recognised or not read
  int captions = 0;
  bool written = false;
};

class Converter {
 public:
  Converter(const Request& request, Session& session, int format)
      : request_(request), session_(session), format_(format), guard_(request.files) {}

  Outcome Convert(const Text& input) {
    Outcome outcome;
    outcome.out = request_.out ? *request_.out : PathInFolder(input);
    if (!session_.Load(input)) return outcome;
    if (request_.rules) session_.ApplyRules();
    outcome.format = session_.Format();
    outcome.captions = session_.Captions().Rows() - 1;
    const bool whole = !session_.LoadedWithTrouble();
    if (const Text objection = guard_.Objection(input, outcome.out, whole); !objection.empty()) {
      session_.Boxes().Tell(objection);
      return outcome;
    }
    outcome.written = session_.Save(outcome.out, format_, request_.keepUntimed);
    if (outcome.written) guard_.NoteWritten(outcome.out);
    return outcome;
  }

 private:
  /// The input's name in the folder, with the first extension of the format.
  Text PathInFolder(const Text& input) const {
    const Text name = input.substr(input.rfind(u'/') + 1);
    const std::size_t dot = name.rfind(u'.');
    // A dot in front hides a file and begins no extension.
    const Text stem = dot == Text::npos || dot == 0 ? name : name.substr(0, dot);
    const FormatCatalogue& catalogue = session_.Catalogue();
    const Text extensions = catalogue.ReadIni(catalogue.Identifier(format_), u"extension", u"txt");
    const Text separator = request_.folder->ends_with(u'/') ? u"" : u"/";
    return *request_.folder + separator + stem + u'.' + Text(TrimBlanks(Split(extensions, u",").front()));
  }

  const Request& request_;
  Session& session_;
  int format_;
  Guard guard_;
};

std::string AsJson(const Request& request, const Text& input, const Outcome& outcome, const BatchBoxes& boxes) {
  JsonObject object;
  object.Add("file", input);
  if (outcome.format.empty()) {
    object.AddNull("format");
  } else {
    object.Add("format", outcome.format);
  }
  return object.Add("captions", outcome.captions)
      .Add("to", request.to)
      .Add("out", outcome.out)
      .Add("written", outcome.written)
      .AddRaw("messages", JsonList(boxes.Shown()))
      .Line();
}

}  // namespace

int RunConvert(const Request& request, Session& session, Console& console) {
  const int format = session.Catalogue().IndexOf(request.to);
  if (format < 0) {
    console.Complain("cuewright-batch: the catalogue has no format '" + ToUtf8(request.to) +
                     "'; 'cuewright-batch formats' lists them.");
    return kExitUsage;
  }
  int status = kExitDone;
  if (request.out && IsStandardOutput(*request.out)) console.ResultsToErrors();
  Converter converter(request, session, format);
  for (std::size_t i = 0; i < request.files.size(); ++i) {
    console.Progress(i, request.files.size());
    const Outcome outcome = converter.Convert(request.files[i]);
    if (!outcome.written || session.LoadedWithTrouble()) status = kExitFailed;
    if (request.json) console.Out(AsJson(request, request.files[i], outcome, session.Boxes()));
  }
  return status;
}

}  // namespace cuewright
