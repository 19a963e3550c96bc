#include "formats/line_readers.h"

#include "formats/catalogue.h"

namespace cuewright {

LineReader MakeLineReader(TextView identifier, const ParseContext& context, const RecordPieces& pieces, bool bodySeen) {
  if (identifier == kSubRip) return {MakeSubRipParser(context), MakeSubRipRun(context)};
  if (identifier == kSubStationAlpha || identifier == kAdvancedSsa) {
    return {MakeDialogueParser(context), MakeDialogueRun(context)};
  }
  if (identifier == kSami) {
    auto parser = std::make_unique<SamiParser>(context);
    auto run = MakeSamiRun(context, *parser);
    return {std::move(parser), std::move(run)};
  }
  if (identifier == kTmPlayer) return {MakeTmPlayerParser(context), nullptr};
  if (identifier == kAdobeEncore) return {MakeEncoreParser(context), nullptr};
  if (identifier == kSpruceDvdMaestro || identifier == kSonicScenarist) {
    return {MakeSpruceParser(context, bodySeen), nullptr};
  }
  auto parser = std::make_unique<GenericParser>(context, pieces);
  auto run = MakeRecordRun(context, pieces, *parser);
  return {std::move(parser), std::move(run)};
}

}  // namespace cuewright
