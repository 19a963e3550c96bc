#include "formats/rival_formats.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>

#include "text/digits.h"

namespace cuewright {
namespace {

constexpr std::size_t kBytesOfTrial = 1 << 16;
/// Time codes number up to 30 frames a second as a rule, and never more than 60.
constexpr int kUsualFrames = 30;
constexpr int kMostFrames = 60;
/// A second rate, by which frames are told from hundredths; any but `kRateOfTrials` would do.
constexpr int kSomeRate = 25;

/// What speaks against a reading; the fewer the better.
struct Faults {
  std::size_t notUnderstood = 0;
  std::size_t notTimed = 0;  ///< captions that don't end behind their start
  std::size_t digits = 0;    ///< digits in the texts, since times may have been taken for text
  int highestFrame = 0;
  std::size_t rows = 0;

  bool IsPossible() const { return rows != 0 && highestFrame < kMostFrames; }
  bool IsNoWorseThan(const Faults& other) const {
    return IsPossible() && rows >= other.rows && notUnderstood <= other.notUnderstood && notTimed <= other.notTimed &&
           digits <= other.digits;
  }
  auto Order() const { return std::tuple(highestFrame >= kUsualFrames, notUnderstood, notTimed, digits); }
};

int FrameOf(Ms time) { return (time % 1000).Count() / 10; }

Faults FaultsOf(const TrialReading& trial) {
  Faults faults;
  faults.notUnderstood = trial.notUnderstood;
  faults.rows = trial.rows.size();
  for (const Caption& row : trial.rows) {
    if (row.end <= row.start) ++faults.notTimed;
    faults.digits += std::ranges::count_if(row.text, IsDigit<char16_t>);
    if (trial.countsFrames) faults.highestFrame = std::max({faults.highestFrame, FrameOf(row.start), FrameOf(row.end)});
  }
  return faults;
}

/// Moves times that were read at `kRateOfTrials` to where their frames are at `kSomeRate`.
void CountFrames(std::vector<Caption>& rows) {
  for (Caption& row : rows) {
    for (Ms* time : {&row.start, &row.end}) *time += FrameOf(*time) * (1000 / kSomeRate - 10);
  }
}

struct Rated {
  const TrialReading* trial;
  Faults faults;
};

}  // namespace

std::vector<int> BestFitting(std::vector<TrialReading> trials) {
  std::vector<Rated> fitting;
  for (TrialReading& trial : trials) {
    const Faults faults = FaultsOf(trial);
    if (trial.countsFrames) CountFrames(trial.rows);
    // The first is the one on which recognition settled. It stays in front unless it can't be right and another can.
    if (fitting.empty() || faults.IsNoWorseThan(fitting.front().faults)) fitting.push_back({&trial, faults});
  }
  if (fitting.size() > 1 && !fitting.front().faults.IsPossible()) fitting.erase(fitting.begin());
  std::ranges::stable_sort(fitting, {}, [](const Rated& rated) { return rated.faults.Order(); });
  std::vector<int> formats;
  std::vector<const std::vector<Caption>*> readings;
  for (const Rated& rated : fitting) {
    const auto same = [&](const std::vector<Caption>* rows) { return *rows == rated.trial->rows; };
    if (std::ranges::any_of(readings, same)) continue;
    readings.push_back(&rated.trial->rows);
    formats.push_back(rated.trial->format);
  }
  return formats;
}

TextFile BeginningOf(const TextFile& file) {
  std::string_view bytes = file.Bytes();
  if (bytes.size() > kBytesOfTrial) {
    bytes = bytes.substr(0, kBytesOfTrial);
    const std::size_t end = bytes.find_last_of("\r\n");
    if (end != std::string_view::npos) bytes = bytes.substr(0, end + 1);
  }
  return TextFile::Kept(std::string(bytes), file.Encoding());
}

}  // namespace cuewright
