// Connections of the workbench wave and of the film.

#include "forms/program.h"

namespace cuewright {

void Program::ConnectWave() {
  audioBar.Opened.Connect([this](const Text& path) {
    if (options.manner.WaveIsAWorkbench()) waveDetails.Open(path);
  });
  audioBar.Forgotten.Connect([this] { waveDetails.Forget(); });
  waveDetails.Changed.Connect([this] { waveBoard.ShowAnew(); });
  waveBoard.HeightChosen.Connect([this] { shell.UpdateBars(); });
  // Snapping follows the profile, which may have changed.
  check.findings.Changed.Connect([this](Row, Row) { waveBoard.SetRules(EdgeRulesOf(check.findings)); });
  filmShots.Changed.Connect([this] {
    waveBoard.shots.SetShots(filmShots.Shots());
    check.SetShots(filmShots.Shots());
    waveBoard.ShowAnew();
  });
}

void Program::ConnectFilm() {
  film.Stepped.Connect([this](std::int64_t frame, Ms ms) {
    if (options.manner.FilmIsAWorkbench()) statusLine.ShowFrame(frame, ms);
  });
  // Another sound track has a wave of its own, which is then read as if the film had just opened.
  filmWorkbench.TrackChanged.Connect([this] {
    if (!filmSound.Running() && !filmSound.Shown()) return;
    filmSound.ForgetFilm();
    audioBar.Forget();
  });
  pairing.Wanted.Connect([this](FileKind kind, const Text& path) { router.OpenAs(kind, path); });
  states.Shown.Connect([this] { pairing.Look(); });
  session.Leaving.Connect([this](bool) { pairing.Remember(); });
  for (Announcement<>* gone : std::initializer_list<Announcement<>*>{&session.FilmEnds, &playerBinding.FilmChanges}) {
    gone->Connect([this] { pairing.Remember(); });
  }
  session.Began.Connect([this](DocumentBaseline) { retakes.Forget(); });
}

}  // namespace cuewright
