#include "shots/shot_marks.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace cuewright {
namespace {

constexpr std::string_view kSet = "set ";
constexpr std::string_view kTaken = "taken ";

/// The one nearest to a time, no further away than `reach`; else the end.
std::vector<Ms>::const_iterator Nearest(const std::vector<Ms>& times, Ms ms, Ms reach) {
  const auto away = [ms](Ms time) { return Abs(time - ms); };
  const auto nearest = std::ranges::min_element(times, {}, away);
  return nearest != times.end() && away(*nearest) <= reach ? nearest : times.end();
}

}  // namespace

ShotMarks::Change ShotMarks::Toggle(Ms ms, const std::vector<Ms>& found, Ms reach) {
  const std::vector<Ms> shots = Apply(found);
  if (const auto shot = Nearest(shots, ms, reach); shot != shots.end()) {
    if (std::erase(set_, *shot) == 0) taken_.push_back(*shot);
    return Change::Taken;
  }
  if (const auto back = Nearest(taken_, ms, reach); back != taken_.end()) {
    taken_.erase(back);
  } else {
    set_.push_back(ms);
  }
  return Change::Set;
}

std::vector<Ms> ShotMarks::Apply(const std::vector<Ms>& found) const {
  std::vector<Ms> shots = found;
  std::erase_if(shots, [this](Ms shot) { return std::ranges::find(taken_, shot) != taken_.end(); });
  shots.insert(shots.end(), set_.begin(), set_.end());
  std::ranges::sort(shots);
  shots.erase(std::unique(shots.begin(), shots.end()), shots.end());
  return shots;
}

void ShotMarks::Clear() {
  set_.clear();
  taken_.clear();
}

std::string ShotMarks::Lines() const {
  std::string lines;
  for (const Ms ms : set_) lines += std::string(kSet) + std::to_string(ms.Count()) + '\n';
  for (const Ms ms : taken_) lines += std::string(kTaken) + std::to_string(ms.Count()) + '\n';
  return lines;
}

void ShotMarks::Read(std::string_view lines) {
  Clear();
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find('\n'), lines.size());
    const std::string_view line = lines.substr(0, end);
    lines.remove_prefix(std::min(end + 1, lines.size()));
    const bool set = line.starts_with(kSet);
    if (!set && !line.starts_with(kTaken)) continue;
    std::int32_t ms = 0;
    const char* const first = line.data() + (set ? kSet : kTaken).size();
    const char* const last = line.data() + line.size();
    const auto read = std::from_chars(first, last, ms);
    if (read.ec == std::errc() && read.ptr == last && ms >= 0) (set ? set_ : taken_).push_back(ms);
  }
}

}  // namespace cuewright
