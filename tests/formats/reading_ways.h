#pragma once

#include <utility>
#include <vector>

#include "formats/line_readers.h"

namespace cuewright::testing {

/// The two ways through the lines of a file, which must give the same captions.
enum class Way { ParserAlone, ParserAndRun };

/// Lines to be read by a format's name.
struct LinesOf {
  Text format;
  TextFile file;
  bool literal = false;
  TimeRules times = {};
};

/// Reads lines in one of the ways.
inline std::vector<Caption> ReadLines(Way way, FormatLoader& loader, const Text& separator, LinesOf lines) {
  loader.LoadFormatDefinition(lines.format);
  CarryOn errors;
  RecordPieces pieces;
  if (lines.format != kSubStationAlpha && lines.format != kAdvancedSsa) pieces = CutRecord(loader.Definition(), errors);
  CaptionCollector captions(loader.Definition(), separator);
  const ParseContext context{captions, loader.Definition(), lines.literal, lines.times, errors};
  const LineReader reader = MakeLineReader(lines.format, context, pieces, false);
  ImportLine line;
  while (line.Next(lines.file, nullptr) && !captions.Full()) {
    reader.parser->Parse(line);
    if (way == Way::ParserAndRun && reader.run) reader.run->ReadOn(lines.file);
  }
  if (!captions.captionText.empty() && captions.TimesSet()) captions.FlushImportedCaption();
  return captions.Take();
}

}  // namespace cuewright::testing
