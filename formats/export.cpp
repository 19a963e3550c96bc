#include "formats/export.h"

#include <optional>

#include "formats/caption_writers.h"
#include "formats/carried_texts.h"
#include "formats/encoding_rules.h"
#include "formats/rules_writer.h"
#include "formats/script_header.h"
#include "formats/source/source_writer.h"
#include "text/encoding_names.h"

namespace cuewright {

bool Exporter::Classic() const { return EqualLoose(captions_.Options().readAs, u"classic"); }

bool Exporter::MayBeWritten(Row lastRow) const {
  const int index = formats_.state.CurrentFormatIndex;
  const Text& id = formats_.CurrentIdentifier();
  const std::shared_ptr<const SourceMap> map = SourceOf(id);
  const bool over =
      map && (map->Rules().WritesChanges() || !SourceWriter(*map, captions_, lastRow, TimesOf(*map)).Differs());
  if (over || (!map && index < formats_.catalogue.CountToWrite(captions_.Options().manner))) return true;
  const Text text = Fill(talk_.strings[Message::FormatOnlyRead], formats_.catalogue.DisplayName(id));
  talk_.messages.Show({text, BoxIcon::Warning, BoxButtons::Ok, {}});
  return false;
}

bool Exporter::ExportSubtitle(Row lastRow) {
  if (!MayBeWritten(lastRow)) return false;
  const Text id = formats_.CurrentIdentifier();
  talk_.Report(FileStage::SaveBegins, Fill(talk_.strings[Message::ExportingFile], formats_.catalogue.DisplayName(id)));
  CarryOn errors;
  if (id != kPlainText) errors([&] { formats_.loader.LoadFormatDefinition(id); });
  const bool written = WriteFile(lastRow, errors);
  if (!written && (errors.Last()->number == kErrorPathFileAccess || errors.Last()->number == kErrorDiskFull)) {
    TellNotSaved(*errors.Last());
    talk_.Report(FileStage::SaveEnds);
    return false;
  }
  talk_.Report(FileStage::SaveEnds);
  // After a failure inside the lines the file counts as saved; where no file was written, the changes are still
  // unsaved.
  if (written) modified_ = false;
  if (errors.Last()) TellError(*errors.Last());
  return written;
}

bool Exporter::WriteFile(Row lastRow, CarryOn& errors) {
  const Text id = formats_.CurrentIdentifier();
  const std::shared_ptr<const SourceMap> map = SourceOf(id);
  std::optional<CarriedTexts> carried;
  lost_ = {};
  const bool byRules = formats_.catalogue.IsFurther(formats_.state.CurrentFormatIndex);
  if (!map) CountFieldless(id, lastRow, lost_);
  if (!map && !byRules && CarriesMarks(id, lastRow)) {
    carried.emplace(captions_, lastRow, Origin(), id, formats_.loader.Definition(), lost_);
  }
  DocumentEncoding encoding = formats_.state.Encoding;
  std::optional<SourceWriter> source;
  if (map) source.emplace(*map, captions_, id == kPlainText ? captions_.Rows() - 1 : lastRow, TimesOf(*map));
  const bool bytes = map && map->Rules().BlockBytes() != 0;
  if (bytes) encoding = map->File().Encoding();
  const std::shared_ptr<const Codec> codec =
      bytes ? MakeCodec(encoding.codePage) : ChooseCodec(lastRow, source ? &*source : nullptr, encoding);
  if (bytes && !source->HeldBy(*codec)) {
    errors.Note({kErrorInvalidCall, u"The file's character table lacks letters of the text; they become \"?\""});
  }
  const FormatDefinition definition = DefinitionToWrite(id, encoding, carried ? &*carried : nullptr);
  const TimeRules times{formats_.state.CurrentFps, captions_.Options().manner.TimesAreExact()};
  const WriteJob job{
      carried ? carried->List() : captions_,   lastRow, definition, id, times, errors, carried && carried->AreWritten(),
      carried ? carried->AllBeside() : nullptr};
  const bool written = errors([&] {
    access_.files.Replace(path_, [&](ByteSink& file) {
      if (encoding.mark) file.Write(MarkOf(encoding.codePage));
      if (source) return WriteOver(*map, *source, *codec, encoding.codePage, file);
      WriteLines(job, *codec, file);
    });
  });
  if (written && !bytes && !Classic() && id != kAdobeEncore && encoding.codePage != formats_.state.Encoding.codePage) {
    formats_.state.Encoding = encoding;
  }
  return written;
}

FormatDefinition Exporter::DefinitionToWrite(TextView id, const DocumentEncoding& encoding,
                                             const CarriedTexts* carried) const {
  const Manner& manner = captions_.Options().manner;
  FormatDefinition definition = formats_.loader.Definition();
  if (manner.ChoosesEncodings()) {
    definition.headerText = WithEncodingDeclared(definition.headerText, encoding.codePage);
  }
  if (carried != nullptr && carried->AreWritten() && id == kTtml) DeclareStyles(definition);
  if (manner.KeepsStylesWithin()) FitToPicture(formats_.state.FilmPicture, definition);
  if (carried != nullptr && carried->AllBeside()) carried->AllBeside()->MakeRoom(definition);
  return definition;
}

void Exporter::WriteLines(const WriteJob& job, const Codec& codec, ByteSink& bytes) {
  LineSink sink(bytes, codec);
  if (formats_.catalogue.IsFurther(formats_.state.CurrentFormatIndex)) {
    WriteByRules(job, Origin(), lost_, sink);
  } else if (job.identifier == kPlainText) {
    WritePlainText(job, sink);
  } else if (job.identifier == kTmPlayer) {
    WriteTmPlayer(job, sink);
  } else if (job.identifier == kAdobeEncore) {
    WriteEncore(job, access_.encodings, Classic(), sink);
  } else {
    WriteTemplate(job, sink);
  }
  sink.Flush();
}

void Exporter::WriteOver(const SourceMap& map, SourceWriter& source, const Codec& codec, int codePage,
                         ByteSink& bytes) {
  // A file that names another encoding than its own keeps the name as long as it keeps the encoding.
  const bool other = codePage != map.File().Encoding().codePage;
  source.Write(codec, codePage != map.File().BytesCodePage(), other ? DeclaredName(codePage) : "", bytes);
}

Losses Exporter::Foreseen(Row lastRow) const {
  Losses losses;
  const Text id = formats_.CurrentIdentifier();
  if (SourceOf(id)) return losses;
  const FormatDefinition inForce = formats_.loader.Definition();
  if (id != kPlainText) formats_.loader.LoadFormatDefinition(id);
  CountFieldless(id, lastRow, losses);
  if (CarriesMarks(id, lastRow)) {
    const CarriedTexts unwritten(captions_, lastRow, Origin(), id, formats_.loader.Definition(), losses);
  }
  formats_.loader.Definition() = inForce;
  return losses;
}

void Exporter::CountFieldless(TextView id, Row lastRow, Losses& lost) const {
  if (!captions_.Options().manner.TellsWhatIsLost() ||
      formats_.catalogue.IsFurther(formats_.state.CurrentFormatIndex)) {
    return;
  }
  const FormatDefinition& definition = formats_.loader.Definition();
  const bool plain = id == kPlainText;
  const bool lines = plain || definition.lineBreak != u"none";
  if (!plain && lines) return;
  for (Row row = 1; row <= lastRow && captions_.InRange(row); ++row) {
    LossSet of;
    if (plain && captions_.IsCaptionTimed(row)) of.Add(Loss::Times);
    if (!lines && FindPlain(captions_.At(row).text, captions_.Options().lineSeparator) != Text::npos)
      of.Add(Loss::LineBreak);
    lost.AddCaption(of);
  }
}

std::vector<LackingPlace> Exporter::LackingLetters(Row lastRow) const {
  const Text id = formats_.CurrentIdentifier();
  const int codePage = formats_.state.Encoding.codePage;
  if (Classic() || id == kAdobeEncore) return {};
  const std::shared_ptr<const Codec> codec = MakeCodec(codePage);
  const std::shared_ptr<const SourceMap> map = SourceOf(id);
  // A file of bytes has no encoding to choose.
  if (codec->IsUtf8() || (map && map->Rules().BlockBytes() != 0)) return {};
  // Bytes of the file that stay in its encoding are kept, whatever they are.
  if (map && codePage == map->File().Encoding().codePage &&
      SourceWriter(*map, captions_, lastRow, TimesOf(*map)).HeldBy(*codec)) {
    return {};
  }
  return FindLackingLetters(captions_, lastRow, map.get(), *codec);
}

bool Exporter::CarriesMarks(TextView id, Row lastRow) const {
  if (!captions_.Options().manner.KeepsStylesWithin() || id == kPlainText) return false;
  const SourceMap* const origin = Origin();
  return (origin != nullptr && origin->Rules().TellsBeside()) || CarriedTexts::HasMarks(captions_, lastRow);
}

std::shared_ptr<const SourceMap> Exporter::SourceOf(TextView id) const {
  const std::shared_ptr<const SourceMap>& map = formats_.state.Source;
  if (!map || map->Format() != id || map->Pieces().empty()) return {};
  const Manner& manner = captions_.Options().manner;
  // The first line of the file tells the rate by which its frames are counted.
  const bool tellsRate = id == kMicroDvd && manner.TimesAreExact();
  if (tellsRate && formats_.state.CurrentFps != map->Fps()) return {};
  return manner.KeepsTheFile() ? map : nullptr;
}

SourceTimes Exporter::TimesOf(const SourceMap& map) const {
  return formats_.state.CurrentFps == map.Fps() ? SourceTimes::AsRead : SourceTimes::Anew;
}

std::shared_ptr<const Codec> Exporter::ChooseCodec(Row lastRow, const SourceWriter* source,
                                                   DocumentEncoding& encoding) const {
  if (Classic()) {
    encoding = {access_.encodings.SystemCodePage(), false};
    return access_.encodings.SystemCodec();
  }
  if (formats_.CurrentIdentifier() == kAdobeEncore) {
    encoding = {kCodePageUtf8, false};
    return MakeCodec(kCodePageUtf8);
  }
  std::shared_ptr<const Codec> codec = encoding.codePage == access_.encodings.SystemCodePage()
                                           ? access_.encodings.SystemCodec()
                                           : MakeCodec(encoding.codePage);
  if (source != nullptr ? source->HeldBy(*codec) : AllHeldBy(*codec, lastRow)) return codec;
  encoding = {kCodePageUtf8, false};
  return MakeCodec(kCodePageUtf8);
}

bool Exporter::AllHeldBy(const Codec& codec, Row lastRow) const {
  if (codec.IsUtf8()) return true;
  const FormatDefinition& definition = formats_.loader.Definition();
  if (formats_.CurrentIdentifier() == kPlainText) {
    lastRow = captions_.Rows() - 1;
  } else {
    for (const Text* text : {&definition.headerText, &definition.recordText, &definition.footerText,
                             &definition.lineBreak, &definition.tagOpen, &definition.tagClose}) {
      if (!codec.Holds(*text)) return false;
    }
  }
  for (Row row = 1; row <= lastRow && captions_.InRange(row); ++row) {
    const Caption& caption = captions_.At(row);
    if (!codec.Holds(caption.text)) return false;
    if (Origin() != nullptr && !codec.Holds(Origin()->BesideOf(caption.origin).speaker)) return false;
  }
  return true;
}

void Exporter::TellNotSaved(const RuntimeError& error) {
  Text text = Fill(talk_.strings[Message::SaveFailed], path_);
  // The general message guesses that the file is read-only, so a full disk gets a message of its own.
  if (error.number == kErrorDiskFull) text.append(kLineEnd).append(kLineEnd).append(error.description);
  talk_.messages.Show({text, BoxIcon::Warning, BoxButtons::Ok, {}});
}

void Exporter::TellError(const RuntimeError& error) {
  Text text = u"An error ocurred while saving the file ";
  text.append(path_).append(u".").append(kLineEnd).append(kLineEnd);
  text += u"Error #" + Decimal(error.number) + u": " + error.description;
  talk_.messages.Show({text, BoxIcon::Warning, BoxButtons::Ok, {}});
}

}  // namespace cuewright
