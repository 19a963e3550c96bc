#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/formats/catalogue_documents.h"
#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

// Every format of the catalogue is written and read back: each must know its own files, and no other's.

namespace cuewright::testing {
namespace {

class Catalogue : public ::testing::TestWithParam<int> {
 protected:
  Text Identifier() const { return rig_.catalogue.Identifier(GetParam()); }
  std::string Name() const { return ToUtf8(Identifier()); }

  /// The document in this format; under a name that allows plain text.
  Text Write(const SampleDocument& document) {
    rig_.Fill(document.rows);
    rig_.Save(Identifier(), RateOf(rig_.catalogue, Identifier()), "saved.txt");
    return rig_.path;
  }

  FormatRig rig_;
};

TEST_P(Catalogue, FormatIsDefinedWhole) {
  EXPECT_TRUE(rig_.loader.LoadFormatDefinition(Identifier()));
  EXPECT_TRUE(rig_.messages.shown.empty());
  EXPECT_NE(rig_.catalogue.ReadIni(Identifier(), u"name", u""), u"");
  EXPECT_NE(rig_.catalogue.ReadIni(Identifier(), u"extension", u""), u"");
}

TEST_P(Catalogue, FormatKnowsItsOwnFilesAndNoOtherDoes) {
  for (const SampleDocument& document : Documents()) {
    SCOPED_TRACE(Name() + ", " + document.name);
    const Text path = Write(document);
    const std::optional<int> settled = rig_.importer.SettleFormat(path);
    ASSERT_TRUE(settled);
    const bool known = rig_.catalogue.Identifier(*settled) == Identifier();
    if (!TakenForAnother(Name(), document.name)) {
      EXPECT_TRUE(known) << "taken for " << ToUtf8(rig_.catalogue.Identifier(*settled));
    } else {
      EXPECT_FALSE(known) << "is an exception no longer";
    }
  }
}

TEST_P(Catalogue, FormatGivesBackWhatItCarries) {
  for (const SampleDocument& document : Documents()) {
    SCOPED_TRACE(Name() + ", " + document.name);
    const Text path = Write(document);
    rig_.messages.lines.assign(1, u"25");
    rig_.messages.shown.clear();
    rig_.TakeTheBestFormat();
    rig_.importer.DetectFormat(path, Loading::NewDocument);
    rig_.messages.lines.clear();
    if (TakenForAnother(Name(), document.name)) continue;
    const std::vector<Caption> expected = Carried(rig_.catalogue, Identifier(), document, true);
    if (!NotReadWhole(Name(), document.name)) {
      EXPECT_EQ(rig_.Rows(), expected);
      EXPECT_LE(rig_.messages.shown.size(), HasARival(Name()) ? 1u : 0u);
    } else {
      EXPECT_NE(rig_.Rows(), expected) << "is an exception no longer";
      EXPECT_EQ(TextsOf(rig_.Rows()), TextsOf(expected));
    }
  }
}

TEST(CatalogueExceptions, OnlyWhereAFractionCanBeFramesOrHundredthsIsTheFormatAskedFor) {
  FormatRig rig;
  const SampleDocument& document = Documents().front();
  for (int i = 0; i < rig.catalogue.Count(); ++i) {
    const Text& id = rig.catalogue.Identifier(i);
    SCOPED_TRACE(ToUtf8(id));
    std::vector<Caption> rows = document.rows;
    // Fractions that are frames as well as hundredths.
    for (Caption& row : rows) row.end = row.end / 1000 * 1000 + 200;
    for (Caption& row : rows) row.start = row.start / 1000 * 1000;
    rig.Fill(rows);
    rig.Save(id, RateOf(rig.catalogue, id), "saved.txt");
    rig.messages.lines.assign(1, u"25");
    rig.messages.shown.clear();
    rig.TakeTheBestFormat();
    rig.importer.DetectFormat(rig.path, Loading::NewDocument);
    EXPECT_EQ(rig.messages.shown.size(), HasARival(ToUtf8(id)) ? 1u : 0u);
  }
}

/// A text that stands in the dialogue of an ordinary file, and what recognition then settles on.
struct Misleading {
  Text written;
  Text dialogue;
  Text detected;  ///< empty: nothing
};

/// What recognition settles on for files with such dialogues.
void ExpectDetected(const std::vector<Misleading>& rows, bool classic) {
  FormatRig rig;
  rig.options.manner.SetClassic(classic);
  for (const Misleading& row : rows) {
    SCOPED_TRACE(ToUtf8(row.written));
    rig.Fill({{12400, 15200, u"Good evening."}, {16000, 19800, row.dialogue}});
    rig.Save(row.written, RateOf(rig.catalogue, row.written), "saved.sub");
    const std::optional<int> settled = rig.importer.SettleFormat(rig.path);
    EXPECT_EQ(settled ? rig.catalogue.Identifier(*settled) : Text(), row.detected);
  }
}

TEST(CatalogueExceptions, DialogueThatLooksLikeAnotherFormatMisleadsClassicRecognition) {
  ExpectDetected(
      {
          // A clock time makes a file of plain counts look as if it had timecodes.
          {u"MICRODVD", u"Back at 10:30:00, he said.", u""},
          {u"SAMI", u"Back at 10:30:00, he said.", u""},
          {u"PIPES", u"Back at 10:30:00, he said.", u""},
          // The double slash is the line break of DVD Subtitle System, and all that tells it from Encore.
          {u"ADOBEENCORE", u"See http://example.org for more.", u"DVDSUBSYSTEM"},
          // Neither matters to a format that is known by more than its times.
          {u"SUBRIP", u"Back at 10:30:00, see http://example.org", u"SUBRIP"},
          {u"MICRODVD", u"Back at 10:30, he said.", u"MICRODVD"},
      },
      true);
}

TEST(CatalogueExceptions, DialogueMisleadsNoFormatThatIsKnownByItsRules) {
  ExpectDetected(
      {
          {u"MICRODVD", u"Back at 10:30:00, he said.", u"MICRODVD"},
          {u"SAMI", u"Back at 10:30:00, he said.", u"SAMI"},
          {u"TTML", u"[00:01:02.00]", u"TTML"},
          {u"WEBVTT", u"Back at 10:30:00,000 --> 10:30:01,000", u"WEBVTT"},
          {u"SUBRIP", u"{1}{2} {QTtext}", u"SUBRIP"},
          {u"KARAOKELRC", u"Back at 10:30:00.50,10:30:01.50", u"KARAOKELRC"},
          {u"ADOBEENCORE", u"See http://example.org for more.", u"DVDSUBSYSTEM"},
      },
      false);
}

TEST(CatalogueDocumentation, NamesEveryFormat) {
  const FormatRig rig;
  const std::string page = FileBytes(std::string(CUEWRIGHT_SOURCE_DIR) + "/docs/formats.md");
  for (int i = 0; i < rig.catalogue.Count(); ++i) {
    const Text& id = rig.catalogue.Identifier(i);
    const std::string row =
        "| " + std::to_string(i) + " | `" + ToUtf8(id) + "` | " + ToUtf8(rig.catalogue.DisplayName(id)) + " |";
    EXPECT_NE(page.find(row), std::string::npos) << row;
  }
}

TEST(CatalogueFiles, HaveWindowsLineEndsAlone) {
  for (const std::string name : {"formats.dat", "formats.ini"}) {
    const std::string bytes = FileBytes(std::string(CUEWRIGHT_SOURCE_DIR) + "/resources/" + name);
    ASSERT_FALSE(bytes.empty());
    EXPECT_TRUE(bytes.ends_with("\r\n"));
    EXPECT_EQ(std::ranges::count(bytes, '\r'), std::ranges::count(bytes, '\n'));
    for (std::size_t at = bytes.find('\n'); at != std::string::npos; at = bytes.find('\n', at + 1)) {
      ASSERT_EQ(bytes[at - 1], '\r') << name << " at " << at;
    }
  }
}

TEST(CatalogueFiles, HoldAtLeast76Formats) {
  const FormatRig rig;
  EXPECT_GE(rig.catalogue.Count(), 76);
  EXPECT_EQ(rig.catalogue.Identifier(0), kPlainText);
  for (const TextView known : {kPlainText, kSubRip, kMicroDvd, kSubStationAlpha, kAdvancedSsa, kSami, kTmPlayer,
                               kAdobeEncore, kPinnacleImp, kDvdSubSystem, kMacDvdPro, kSpruceDvdMaestro,
                               kSonicScenarist, kUleadWorkshop, kKaraokeLrc, kDvdSubtitle, kCsve}) {
    EXPECT_GE(rig.catalogue.IndexOf(known), 0) << ToUtf8(known);
  }
}

/// A file of each format, kept as it was when the format was checked.
class CapabilityFile : public Catalogue {
 protected:
  std::string Bytes() const {
    const Text extension = Split(rig_.catalogue.ReadIni(Identifier(), u"extension", u"txt"), u",").front();
    return FileBytes(std::string(CUEWRIGHT_SOURCE_DIR) + "/tests/data/formats/" + Name() + "." + ToUtf8(extension));
  }
};

TEST_P(CapabilityFile, IsRecognisedAndRead) {
  const std::string bytes = Bytes();
  ASSERT_FALSE(bytes.empty());
  EXPECT_EQ(rig_.importer.SettleFormat(rig_.folder.Write("capability.txt", bytes)), GetParam());
  rig_.Open("capability.txt", bytes);
  const std::vector<Caption> expected = Carried(rig_.catalogue, Identifier(), CapabilityDocument(), false);
  EXPECT_EQ(TextsOf(rig_.Rows()), TextsOf(expected));
  if (!NotReadWhole(Name(), "capability")) {
    EXPECT_EQ(rig_.Rows(), expected);
  }
}

TEST_P(CapabilityFile, IsWhatTheWriterWritesInTheClassicManner) {
  rig_.options.manner.SetClassic(true);
  // The separator of CPC-600 is a byte of the 8-bit code pages.
  if (Identifier() == u"CPC600") rig_.state.Encoding = {kCodePageWestern, false};
  rig_.Fill(CapabilityDocument().rows);
  EXPECT_EQ(rig_.Save(Identifier(), RateOf(rig_.catalogue, Identifier())), Bytes());
}

std::string NameOf(const ::testing::TestParamInfo<int>& info) {
  static const FormatRig rig;
  return ToUtf8(rig.catalogue.Identifier(info.param));
}

INSTANTIATE_TEST_SUITE_P(Shipped, Catalogue, ::testing::Range(0, FormatRig().catalogue.Count()), NameOf);
INSTANTIATE_TEST_SUITE_P(Shipped, CapabilityFile, ::testing::Range(0, FormatRig().catalogue.Count()), NameOf);

}  // namespace
}  // namespace cuewright::testing
