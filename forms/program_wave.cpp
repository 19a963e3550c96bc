// What the wave that one works in hangs on.

#include "forms/program.h"

namespace cuewright {

void Program::ConnectWave() {
  audioBar.Opened.Connect([this](const Text& path) {
    if (options.manner.WaveIsAWorkbench()) waveDetails.Open(path);
  });
  audioBar.Forgotten.Connect([this] { waveDetails.Forget(); });
  waveDetails.Changed.Connect([this] { waveBoard.ShowAnew(); });
  waveBoard.HeightChosen.Connect([this] { shell.UpdateBars(); });
  // The rules in force may be others.
  check.findings.Changed.Connect([this](Row, Row) {
    const LiveFindings& found = check.findings;
    // A film whose rate isn't known is counted as the house does.
    const FrameRate rate = found.Rate().IsUsual() ? found.Rate() : found.Rules().rate;
    const auto ms = [&](const HouseTime& time) { return found.Rules().MsOf(time, rate); };
    waveBoard.SetRules({ms(found.Rules().minGap), ms(found.Rules().shotZone), ms(found.Rules().beforeShot)});
  });
}

}  // namespace cuewright
