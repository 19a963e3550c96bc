#include <limits>

#include "batch/commands.h"
#include "batch/json.h"

namespace cuewright {
namespace {

/// Nothing is painted here; only a bar of progress is shown.
class Steps final : public WaveLoadSteps {
 public:
  explicit Steps(Console& console) : console_(console) {}

  void OnHeader() override {}
  void OnBegin() override {}
  std::int32_t ScreenColumns() const override { return std::numeric_limits<std::int32_t>::max(); }
  void OnScreenful() override {}
  bool OnProgress(std::int64_t position, std::int64_t size) override {
    console_.Progress(position, size);
    return false;
  }

 private:
  Console& console_;
};

std::string AsLine(std::int32_t column, std::int16_t maximum, std::int16_t minimum) {
  return std::to_string(column) + '\t' + std::to_string(maximum) + '\t' + std::to_string(minimum) + '\n';
}

std::string AsJson(std::int32_t column, std::int16_t maximum, std::int16_t minimum) {
  return JsonObject().Add("column", column).Add("maximum", maximum).Add("minimum", minimum).Line();
}

}  // namespace

int RunPeaks(const Request& request, Session& session, Console& console) {
  WavePeaks peaks;
  Steps steps(console);
  if (!session.LoadWave(request.files.front(), peaks, steps)) return kExitFailed;
  console.Out(request.json ? JsonObject().Add("peakCount", peaks.PeakCount()).Line()
                           : std::to_string(peaks.PeakCount()) + '\n');
  for (std::int32_t column = 0; column < peaks.Columns(); ++column) {
    const std::int16_t maximum = peaks.At(2 * column);
    const std::int16_t minimum = peaks.At(2 * column + 1);
    console.Out(request.json ? AsJson(column, maximum, minimum) : AsLine(column, maximum, minimum));
  }
  return kExitDone;
}

}  // namespace cuewright
