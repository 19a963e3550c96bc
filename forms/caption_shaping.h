#pragma once

#include "audio/audio_bar.h"
#include "capture/preview.h"
#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/player.h"
#include "forms/notices.h"
#include "tools/insert_caption.h"
#include "tools/join_captions.h"
#include "tools/split_caption.h"

namespace cuewright {

/// The commands of the Edit menu that make captions of others: insert, split, join, duplicate, and what goes on between
/// a caption and the next one. Each is one step to take back. The classic manner has none of them.
class CaptionShaping {
 public:
  CaptionShaping(Workbench bench, Preview& preview, const AudioBar& audioBar, const Player& player, Notices& notices,
                 Messages& messages);

  /// The menu shows the commands that the manner in force has.
  void ShowItems();

 private:
  void Wire();
  void Insert(Side side);
  void InsertAtFilm();
  void SplitAtCaret();
  void SplitAtFilm();
  void Join(Row first, JoinAs as);
  void Duplicate();
  void Meet();
  void Swap();
  /// Runs `work`, which gives the row to show, as one step. Without a row it has done nothing, and `trouble` is told.
  template <class Work>
  void Run(EditKind kind, Message trouble, Work work);
  void Tell(Message message);
  Ms FilmMs() const;
  Loudness SoundOf(Row row) const;

  Workbench bench_;
  Preview& preview_;
  const AudioBar& audioBar_;
  const Player& player_;
  Notices& notices_;
  Messages& messages_;
};

}  // namespace cuewright
