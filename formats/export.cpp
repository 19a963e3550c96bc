#include "formats/export.h"

#include <algorithm>
#include <utility>

#include "formats/caption_writers.h"

namespace cuewright {

Exporter::Exporter(FormatLoader& loader, const CaptionList& captions, Files& files, const Encodings& encodings,
                   const Text& path, bool& modified)
    : loader_(loader), captions_(captions), files_(files), encodings_(encodings), path_(path), modified_(modified) {}

bool Exporter::Classic() const { return EqualLoose(captions_.Options().readAs, u"classic"); }

bool Exporter::ExportSubtitle(std::int16_t lastRow) {
  FormatHost& host = loader_.Host();
  host.SetTextFileLabel(loader_.StatusText(Message::ExportingFile, loader_.CurrentIdentifier()));
  host.ClearVideoFileLabel();
  host.Yield();
  CarryOn errors;
  errors([&] { LoadFormat(); });
  const bool written = WriteFile(lastRow, errors);
  if (!written && (errors.Last()->number == kErrorPathFileAccess || errors.Last()->number == kErrorDiskFull)) {
    TellNotSaved(*errors.Last());
    host.RefreshStatusLabels();
    return false;
  }
  host.RefreshStatusLabels();
  // A failure inside the lines leaves a file that was saved; without a file the changes are still to be saved.
  if (written) modified_ = false;
  if (errors.Last()) TellError(*errors.Last());
  return written;
}

void Exporter::LoadFormat() {
  const Text id = loader_.CurrentIdentifier();
  if (id != kPlainText) loader_.LoadFormatDefinition(id, false, false);
}

bool Exporter::WriteFile(Row lastRow, CarryOn& errors) {
  const Text id = loader_.CurrentIdentifier();
  const WriteJob job{captions_, lastRow, loader_.Definition(), id, loader_.State().CurrentFps, errors};
  DocumentEncoding encoding = loader_.State().Encoding;
  const DocumentEncoding before = encoding;
  const std::shared_ptr<const Codec> codec = ChooseCodec(lastRow, encoding);
  const bool written = errors([&] {
    files_.Replace(path_, [&](ByteSink& bytes) {
      if (encoding.mark) bytes.Write(MarkOf(encoding.codePage));
      LineSink sink(bytes, *codec);
      if (id == kPlainText) {
        WritePlainText(job, sink);
      } else if (id == kTmPlayer) {
        WriteTmPlayer(job, sink);
      } else if (id == kAdobeEncore) {
        WriteEncore(job, encodings_, Classic(), sink);
      } else {
        WriteTemplate(job, sink);
      }
      sink.Flush();
    });
  });
  const bool changed = written && !Classic() && id != kAdobeEncore && encoding.codePage != before.codePage;
  if (changed) {
    loader_.State().Encoding = encoding;
    loader_.Host().SavedAsUtf8(before);
  }
  return written;
}

std::shared_ptr<const Codec> Exporter::ChooseCodec(Row lastRow, DocumentEncoding& encoding) const {
  if (Classic()) {
    encoding = {encodings_.SystemCodePage(), false};
    return encodings_.SystemCodec();
  }
  if (loader_.CurrentIdentifier() == kAdobeEncore) {
    encoding = {kCodePageUtf8, false};
    return MakeCodec(kCodePageUtf8);
  }
  std::shared_ptr<const Codec> codec =
      encoding.codePage == encodings_.SystemCodePage() ? encodings_.SystemCodec() : MakeCodec(encoding.codePage);
  if (AllHeldBy(*codec, lastRow)) return codec;
  encoding = {kCodePageUtf8, false};
  return MakeCodec(kCodePageUtf8);
}

bool Exporter::AllHeldBy(const Codec& codec, Row lastRow) const {
  if (codec.IsUtf8()) return true;
  const FormatDefinition& definition = loader_.Definition();
  if (loader_.CurrentIdentifier() == kPlainText) {
    lastRow = captions_.Rows() - 1;
  } else {
    for (const Text* text : {&definition.headerText, &definition.recordText, &definition.footerText,
                             &definition.lineBreak, &definition.tagOpen, &definition.tagClose}) {
      if (!codec.Holds(*text)) return false;
    }
  }
  for (Row row = 1; row <= lastRow && captions_.InRange(row); ++row) {
    if (!codec.Holds(captions_.At(row).text)) return false;
  }
  return true;
}

void Exporter::TellNotSaved(const RuntimeError& error) {
  Text text = Fill(loader_.Strings()[Message::SaveFailed], path_);
  // The message guesses at a read-only file; a full disk is told by name.
  if (error.number == kErrorDiskFull) text.append(kLineEnd).append(kLineEnd).append(error.description);
  loader_.Boxes().Show({text, BoxIcon::Warning, BoxButtons::Ok, {}});
}

void Exporter::TellError(const RuntimeError& error) {
  Text text = u"An error ocurred while saving the file ";
  text.append(path_).append(u".").append(kLineEnd).append(kLineEnd);
  text += u"Error #" + Decimal(error.number) + u": " + error.description;
  loader_.Boxes().Show({text, BoxIcon::Warning, BoxButtons::Ok, {}});
}

}  // namespace cuewright
