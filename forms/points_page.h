#pragma once

#include "capture/workbench.h"
#include "core/ports/player.h"
#include "core/signal.h"
#include "form/controls.h"
#include "tools/retime_points.h"

namespace cuewright {

/// The part of `frmRetime` in which captions get the times at which they belong, typed or taken from the film's
/// position; all others follow on straight lines between them.
class PointsPage {
 public:
  PointsPage(Form& window, Workbench bench, const Player& player);

  Frame fraPoints;
  Label lblPoint;
  TextBox txtPoint;
  Button cmdSetPoint;
  Button cmdFilmPoint;
  ListBox lstPoints;
  Button cmdRemovePoint;

  void ApplyLanguage();
  void Clear() { points_.Clear(); }
  /// Shows the selected caption's time, and the points.
  void Show();
  void ShowCaption();
  void ShowPoints(int chosen = -1);
  /// The film may have been opened, closed or changed.
  void ShowFilm();
  void Follow(const Splice& splice) { points_.Follow(splice); }
  std::vector<TimePoint> Times() const { return points_.Times(bench_.list); }

  Signal<PointsPage> Changed;

 private:
  void Wire();
  void SetPoint(Ms ms);

  Workbench bench_;
  const Player& player_;
  RetimePoints points_;
};

}  // namespace cuewright
