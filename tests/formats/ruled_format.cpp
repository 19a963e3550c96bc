#include "tests/formats/ruled_format.h"

#include <gtest/gtest.h>

#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

std::string Shown(const PlainCaptions& captions) {
  std::string shown;
  for (const PlainCaption& caption : captions) {
    shown += std::to_string(caption.start) + "-" + std::to_string(caption.end) + " " + caption.text + "\n";
  }
  return shown;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Ruled& ruled) { return out << ruled.name; }

void ExpectTheSame(const Ruled& ruled) {
  constexpr unsigned kFiles = 300;
  std::size_t captions = 0;
  for (unsigned seed = 1; seed <= kFiles; ++seed) {
    Dice dice(seed);
    const std::string file = ruled.make(dice);
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + file);
    PlainCaptions read;
    const SourceRig rig(ruled.identifier, file);
    for (const Caption& row : rig.Rows()) {
      read.push_back({row.start.Count(), row.end.Count(), ToUtf8(row.text)});
    }
    const PlainCaptions plain = ruled.read(file);
    ASSERT_EQ(Shown(read), Shown(plain));
    captions += plain.size();
  }
  EXPECT_GT(captions, 3 * kFiles);
}

}  // namespace cuewright::testing
