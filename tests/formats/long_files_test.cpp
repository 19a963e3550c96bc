#include <gtest/gtest.h>

#include <ctime>

#include "tests/formats/catalogue_documents.h"
#include "tests/formats/format_rig.h"

// Files of megabytes that nobody wrote as subtitles, each against the parser of every format.

namespace cuewright::testing {
namespace {

#if defined(__SANITIZE_ADDRESS__)
// Under the sanitizers the reading counts, not its time.
constexpr std::size_t kSize = 1 << 17;
constexpr double kMostMs = 20000;
#elif defined(__OPTIMIZE__)
constexpr std::size_t kSize = 5 << 20;
constexpr double kMostMs = 500;
#else
// A build for debugging takes several times as long.
constexpr std::size_t kSize = 1 << 19;
constexpr double kMostMs = 700;
#endif

std::string Repeated(const std::string& piece) {
  std::string text;
  text.reserve(kSize + piece.size());
  while (text.size() < kSize) text += piece;
  return text;
}

/// Processor time that a read takes, in ms.
double ReadMs(FormatRig& rig, const Text& id, const std::string& bytes) {
  const std::clock_t start = std::clock();
  rig.ImportAs(id, bytes);
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// The beginning of a document of a format: its first caption, still open.
std::string Beginning(FormatRig& rig, const Text& id) {
  rig.Fill({{1000, 2000, u"@"}, {3000, 4000, u"two"}});
  const std::string whole = rig.Save(id, RateOf(rig.catalogue, id));
  const std::size_t text = whole.find('@');
  return text == std::string::npos ? whole : whole.substr(0, text + 1) + "\n";
}

TEST(LongFiles, TakeTimeByTheirLength) {
  FormatRig rig;
  const std::string fillings[] = {":\n", ":\nx\n", "<\n"};
  std::vector<Text> formats = {u"WEBVTT", u"YOUTUBESBV", u"SUBVIEWER2", u"POWERPIXEL", u"SAMI", u"SUBRIP"};
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__)
  formats.clear();
  for (int index = 1; index < rig.catalogue.Count(); ++index) formats.push_back(rig.catalogue.Identifier(index));
#endif
  for (const Text& id : formats) {
    const std::string beginning = Beginning(rig, id);
    for (const std::string& filling : fillings) {
      const double ms = ReadMs(rig, id, beginning + Repeated(filling));
      EXPECT_LT(ms, kMostMs) << ToUtf8(id) << ", lines of " << filling;
    }
  }
}

TEST(LongFiles, OfNestedTagsTakeTimeByTheirLength) {
  FormatRig rig;
  std::string line;
  for (int i = 0; line.size() < 4000; ++i) line += "<a<" + std::to_string(i) + ">";
  const double ms = ReadMs(rig, u"SAMI", "<SAMI>\n<BODY>\n<SYNC START=1000>\n" + Repeated(line + "\n"));
  EXPECT_LT(ms, kMostMs);
}

}  // namespace
}  // namespace cuewright::testing
