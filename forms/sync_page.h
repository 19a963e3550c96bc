#pragma once

#include <cstdint>
#include <future>
#include <memory>
#include <vector>

#include "capture/workbench.h"
#include "core/ports/player.h"
#include "core/signal.h"
#include "form/controls.h"
#include "forms/document_files.h"
#include "forms/film_voice.h"
#include "forms/other_captions.h"
#include "tools/retime.h"
#include "voice/sync.h"

namespace cuewright {

/// What captions can be held against.
struct SyncSources {
  FilmVoice& film;
  DocumentFiles& files;  ///< which ask for another subtitle
  const OtherCaptions& others;
  const Player& player;
};

enum class SyncSureness : std::uint8_t { Sure, Doubtful, Fixed };

/// A segment on the time line.
struct SyncBlock {
  Ms start = 0;  ///< of its first caption, as it would be
  Ms end = 0;    ///< the latest of its captions
  Text offset;
  SyncSureness sureness = SyncSureness::Sure;
  bool chosen = false;
};

/// The part of `frmRetime` that finds where in the open film's sound, or among another subtitle's captions, captions
/// belong that were made for another cut or rate. Each segment is listed with its offset and how sure that is. The user
/// may set an offset or a border; what was set by hand is held fixed when the places are looked for again.
class SyncPage {
 public:
  SyncPage(Form& window, Workbench bench, SyncSources sources);
  ~SyncPage();

  Frame fraSync;
  Button cmdSyncFind;
  Button cmdSyncFile;
  Picture picSegments;
  ListBox lstSegments;
  Label lblOffset;
  TextBox txtOffset;
  Button cmdSetOffset;
  Button cmdFreeSegment;
  Button cmdBorder;
  Button cmdJoinSegment;
  Timer tmrSync;

  void ApplyLanguage();
  /// What there is to say while nothing is foreseen.
  const Text& Told() const { return told_; }
  /// The segments in the order of their rows, with the times that would come.
  std::vector<SyncBlock> Blocks() const;
  /// What would become of the captions; empty while nothing was found.
  std::vector<RetimePiece> Pieces() const;
  CaptionTimes TimesOf(Row row, const CaptionTimes& own) const;
  /// The window closes.
  void Forget();

  Signal<SyncPage> Changed;
  Signal<SyncPage> Shown;  ///< the segments, or which is chosen, are shown anew

 private:
  struct Segment {
    SyncSegment found;
    bool fixed = false;  ///< set by hand
  };

  void Wire();
  void ClickFind();
  void FindInFilm();
  void FindAmongCaptions();
  void Begin();
  void Stop();
  void Poll();
  void Search();
  void Finish();
  void ShowSearching();
  /// `%1` of the text is the name of the subtitle that the captions are held against.
  void Tell(Message message);
  static SyncSureness SurenessOf(const Segment& segment);
  Text SurenessText(const Segment& segment) const;
  void Show(int chosen);
  void SetOffset();
  void PutBorder();
  void Join();
  int Chosen() const { return lstSegments.Index(); }
  TimeMap MapOf(const Segment& segment) const;
  /// Puts the segments that were set by hand over those that were found.
  std::vector<Segment> UnderFixed(const std::vector<SyncSegment>& found) const;

  Workbench bench_;
  SyncSources sources_;
  Text told_;
  TimeRatio ratio_;
  std::vector<Segment> segments_;
  std::vector<CaptionTimes> times_;  ///< of the captions when the search began
  Text otherName_;                   ///< of the subtitle that they are held against; empty: the film
  std::future<SyncResult> search_;
  std::vector<std::future<SyncResult>> left_;  ///< whose results nobody waits for any more
};

}  // namespace cuewright
