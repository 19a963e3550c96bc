#include "formats/rules_writer.h"

#include <memory>

#include "formats/carried_texts.h"
#include "formats/source/source_format.h"

namespace cuewright {

void WriteByRules(const WriteJob& job, const SourceMap* source, Losses& lost, LineSink& sink) {
  const std::unique_ptr<SourceFormat> rules = MakeSourceFormat(job.identifier);
  const MarkKind from = MarksOf(source);
  const MarkKind kind = MarkKindOf(job.identifier);
  const Text& separator = job.captions.Options().lineSeparator;
  const FileFrame frame = rules->FrameOfNewFile();
  sink.Put(frame.front);
  int number = 0;
  for (Row row = 1; row <= job.lastRow && job.captions.InRange(row); ++row) {
    Caption caption = job.captions.At(row);
    if (IsBlank(caption.text)) continue;
    if (kind != from) caption.text = ConvertWithin(MarkedTextOf(caption, source), from, kind, separator, lost);
    const Text record = rules->Record({caption, ++number, kLineEnd, {}}, separator);
    const bool first = number == 1 && rules->RecordsAreAList();
    sink.Put(TextView(record).substr(first ? 1 : 0));
  }
  sink.Put(frame.back);
}

}  // namespace cuewright
