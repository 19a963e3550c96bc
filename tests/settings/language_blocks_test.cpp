// Every language that has a file, checked against the English texts.

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <set>

#include "tests/settings/language_rig.h"

namespace cuewright {
namespace {

using testing::LanguageRig;

/// From here on texts may still wait for their translators: English and Spanish alone have all of them.
constexpr int kFirstNewText = 1000;

/// The new texts that went to the translators at once; what came after them waits for the next time.
bool WentToTheTranslators(int id) {
  return (id >= kFirstNewText && id <= 1531) || (id >= 1600 && id <= 1635) || (id >= 1700 && id <= 1754);
}

const std::filesystem::path kMessages = CUEWRIGHT_SOURCE_DIR "/resources/messages";

std::vector<std::string> LanguageFiles() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kMessages)) {
    const std::string name = entry.path().stem().string();
    if (name != "english" && name != "identifiers" && name != "table" && name != "translation_file")
      names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

UScriptCode ScriptOf(const std::string& name) {
  static const std::map<std::string, UScriptCode> kScripts = {
      {"greek", USCRIPT_GREEK},        {"persian", USCRIPT_ARABIC},  {"arabic", USCRIPT_ARABIC},
      {"bulgarian", USCRIPT_CYRILLIC}, {"kazakh", USCRIPT_CYRILLIC}, {"russian", USCRIPT_CYRILLIC},
      {"serbian", USCRIPT_CYRILLIC},   {"thai", USCRIPT_THAI},       {"japanese", USCRIPT_HAN}};
  const auto at = kScripts.find(name);
  return at == kScripts.end() ? USCRIPT_LATIN : at->second;
}

/// Rows that hold no word: what stands between two names or beside a number, and the program's own name.
constexpr std::initializer_list<int> kWithoutWords = {1151, 1191, 1198, 1397, 1399};

/// The rows that are rightly the same as in English.
std::set<int> SameAsEnglish(const std::string& name) {
  static const std::map<std::string, std::set<int>> kRows = {
      // No, Color, Web, Unicode, ms, Pedal
      {"spanish", {69, 264, 349, 1133, 1395, 1714}},
      // Format, Status, Start, OK, Version, Pause, Details, Text, Standard, Bilinear, Player
      {"german",
       {2, 21, 40, 66, 88, 127, 190, 229, 360, 361, 380, 381, 417, 1133, 1151, 1191, 1198, 1395, 1397, 1399, 1526}},
      {"portuguese_br", {66, 381, 911, 1133, 1395, 1713, 1714}},
      {"italian", {0, 66, 69, 380, 911, 1133, 1395, 1713}},
      {"french", {2, 26, 66, 88, 127, 172, 173, 336, 361, 378, 380, 911, 982, 1115, 1133, 1191, 1395, 1397}},
      {"portuguese", {66, 381, 911, 1133, 1395, 1714}},
      {"dutch", {6, 21, 66, 1133, 1151, 1160, 1191, 1198, 1285, 1395, 1397, 1399, 1507}},
      {"japanese", {66}},
      {"swedish", {2, 21, 40, 66, 88, 229, 360, 361, 380, 1133, 1160, 1395, 1526, 1714}},
      {"danish", {2, 21, 40, 66, 88, 127, 128, 208, 361, 380, 976, 1133, 1151, 1160, 1191, 1198, 1395, 1397, 1399}},
      {"hungarian", {66, 1133, 1151, 1160, 1191, 1198, 1395, 1397, 1399}},
      {"romanian", {2, 66, 216, 229, 360, 361, 380, 382, 417, 1133, 1137, 1138, 1139, 1160, 1395}},
      {"catalan", {2, 69, 229, 264, 360, 361, 378, 1133, 1151, 1191, 1198, 1395, 1397, 1399, 1714}},
      {"croatian", {216, 1133, 1151, 1160, 1191, 1198, 1395, 1397, 1399}},
      {"finnish", {66, 1133, 1151, 1191, 1198, 1395, 1397, 1399}},
      {"arabic", {1133, 1151, 1191, 1198, 1397, 1399}},
      {"bulgarian", {1151, 1191, 1198, 1397, 1399}},
      {"greek", {1133, 1151, 1191, 1198, 1397, 1399}},
      {"indonesian", {2, 21, 66, 361, 1133, 1151, 1160, 1191, 1198, 1397, 1399}},
  };
  const auto at = kRows.find(name);
  std::set<int> rows = at == kRows.end() ? std::set<int>() : at->second;
  rows.insert(kWithoutWords);
  // French has a space in front of a colon.
  if (name == "french") std::erase_if(rows, [](int id) { return id == 1151 || id == 1198 || id == 1399; });
  return rows;
}

/// Names and units that stay in Latin letters in every language.
const std::set<Text>& LatinWords() {
  static const std::set<Text> kWords = {
      u"Tessaly",    u"Cuewright", u"Ratemeter",    u"QXM",        u"VirtualDub", u"VirtualDubMPEG",
      u"XviD",       u"VSFilter",  u"DirectVobSub", u"DirectShow", u"Windows",    u"Media",
      u"Player",     u"WMP",       u"Microsoft",    u"Office",     u"Word",       u"Unicode",
      u"SubStation", u"UTF",       u"Alpha",        u"SSA",        u"AVI",        u"MPEG",
      u"PAL",        u"NTSC",      u"WAV",          u"PCM",        u"VBR",        u"CBR",
      u"DVD",        u"DLL",       u"FPS",          u"KB",         u"FN",         u"A",
      u"Z",          u"plugins",   u"subtitler",    u"exe",        u"AutoUpdate", u"OK",
      u"Hz",         u"Enter",     u"UpdateSite",   u"ms",         u"espeak",     u"ng"};
  return kWords;
}

struct LanguageBlock : ::testing::TestWithParam<std::string> {
  LanguageBlock() {
    std::filesystem::copy_file(kMessages / (GetParam() + ".txt"),
                               rig.folder.Path() / "languages" / (GetParam() + ".txt"));
    rig.StartIn(ToUpper(FromUtf8(GetParam())));
  }

  const Text& English(int id) const { return *rig.catalogue.Find(CatalogueNumber(0, id)); }
  const Text& Own(int id) const { return rig.strings[NumberedMessage(static_cast<std::size_t>(id))]; }
  static std::string Row(int id, const Text& text) { return std::to_string(id) + ": " + ToUtf8(text); }
  bool Has(int id) const { return rig.catalogue.Find(CatalogueNumber(rig.options.languageRow, id)) != nullptr; }
  /// Calls `check(id)` for each row that has a text in English; new ones that wait for their translation are left out.
  template <class Check>
  void ForEachText(Check&& check) const {
    ForEachEnglishText([&](int id) {
      if (id < kFirstNewText || Has(id)) check(id);
    });
  }
  /// The same with those that wait.
  template <class Check>
  void ForEachEnglishText(Check&& check) const {
    for (int id = 0; id < static_cast<int>(kEndOfTexts); ++id) {
      const Text* english =
          IsTextNumber(static_cast<std::size_t>(id)) ? rig.catalogue.Find(CatalogueNumber(0, id)) : nullptr;
      if (english != nullptr && !english->empty()) check(id);
    }
  }

  LanguageRig rig;
};

/// The text with the last of its forms for a count, the one that always holds the count.
Text WithLastForms(Text text) {
  for (std::size_t open = text.find(u"{%"); open != Text::npos; open = text.find(u"{%")) {
    const std::size_t close = text.find(u'}', open);
    const std::size_t last = text.rfind(u'|', close);
    text = text.substr(0, open) + text.substr(last + 1, close - last - 1) + text.substr(close + 1);
  }
  return text;
}

std::size_t Count(TextView text, TextView part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != TextView::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

TEST_P(LanguageBlock, IsAsNamedInTheLanguageTable) {
  const std::size_t row = static_cast<std::size_t>(rig.options.languageRow);
  EXPECT_EQ(ToLower(rig.languages.LanguageTable()[row].name), FromUtf8(GetParam()));
}

TEST_P(LanguageBlock, IsComplete) {
  EXPECT_EQ(rig.languages.LoadLanguageStrings(false), 100);
  for (int id = 0; id < static_cast<int>(kMessageCount); ++id) EXPECT_TRUE(Has(id)) << id;
  ForEachEnglishText([&](int id) { EXPECT_TRUE(Has(id) || (id >= kFirstNewText && GetParam() != "spanish")) << id; });
}

// New texts stand in English and Spanish at once; the other languages get those of one time together.
TEST_P(LanguageBlock, HasAllOfTheNewTextsOrNone) {
  std::string lacking;
  int present = 0;
  ForEachEnglishText([&](int id) {
    if (!WentToTheTranslators(id)) return;
    if (Has(id)) {
      ++present;
    } else {
      lacking += " " + std::to_string(id);
    }
  });
  RecordProperty("lacking", lacking);
  EXPECT_TRUE(lacking.empty() || present == 0) << GetParam() << " lacks" << lacking;
}

TEST_P(LanguageBlock, WritesTheFormsForACountWhole) {
  ForEachText([this](int id) {
    const Text& own = Own(id);
    for (std::size_t open = own.find(u"{%"); open != Text::npos; open = own.find(u"{%", open + 1)) {
      const std::size_t close = own.find(u'}', open);
      ASSERT_NE(close, Text::npos) << Row(id, own);
      const std::vector<Text> parts = Split(TextView(own).substr(open + 1, close - open - 1), u"|");
      ASSERT_EQ(parts.size() % 2, 1u) << Row(id, own);
      EXPECT_EQ(parts[parts.size() - 2], u"other") << Row(id, own);
      EXPECT_EQ(Count(parts.back(), parts.front()), 1u) << Row(id, own);
    }
  });
}

TEST_P(LanguageBlock, KeepsThePlacesForValues) {
  ForEachText([this](int id) {
    const Text own = WithLastForms(Own(id));
    const Text english = WithLastForms(English(id));
    for (const TextView place : {u"%1", u"%2", u"%FN"}) {
      EXPECT_EQ(Count(own, place), Count(english, place)) << Row(id, Own(id));
    }
    EXPECT_EQ(Count(own, u"%"), Count(english, u"%")) << Row(id, Own(id));
  });
}

TEST_P(LanguageBlock, KeepsLineBreaksAndBlanksAtTheEnds) {
  ForEachText([this](int id) {
    const Text& own = Own(id);
    const Text& english = English(id);
    EXPECT_EQ(Count(own, u"\n"), Count(english, u"\n")) << Row(id, own);
    EXPECT_EQ(own.starts_with(u' '), english.starts_with(u' ')) << Row(id, own);
    EXPECT_EQ(own.ends_with(u' '), english.ends_with(u' ')) << Row(id, own);
    EXPECT_EQ(own.find(u"  "), Text::npos) << Row(id, own);
  });
}

TEST_P(LanguageBlock, KeepsColonsAndEllipsesAtTheEnd) {
  ForEachText([this](int id) {
    for (const TextView end : {u":", u": ", u"..."}) {
      EXPECT_EQ(Own(id).ends_with(end), English(id).ends_with(end)) << Row(id, Own(id));
    }
  });
}

TEST_P(LanguageBlock, HasAcceleratorsWhereEnglishHas) {
  ForEachText([this](int id) {
    EXPECT_EQ(Count(Own(id), u"&"), Count(English(id), u"&")) << Row(id, Own(id));
    const std::size_t mark = Own(id).find(u'&');
    if (mark == Text::npos) return;
    ASSERT_LT(mark + 1, Own(id).size()) << Row(id, Own(id));
    EXPECT_TRUE(u_isalpha(Own(id)[mark + 1])) << Row(id, Own(id));
  });
}

TEST_P(LanguageBlock, HasEachAcceleratorOnceInAWindow) {
  // The menu bar with the main window's Cancel, a message box, the settings dialog, the start window.
  const std::vector<std::vector<int>> windows = {{0, 1, 2, 3, 4, 5, 6, 67}, {66, 67, 68, 69}, {66, 67, 71}, {5, 70}};
  for (const auto& window : windows) {
    std::set<Text> letters;
    for (const int id : window) {
      const Text letter = ToLower(Own(id).substr(Own(id).find(u'&') + 1, 1));
      EXPECT_TRUE(letters.insert(letter).second) << Row(id, Own(id));
    }
  }
}

TEST_P(LanguageBlock, LeavesNothingInEnglish) {
  const std::set<int> same = SameAsEnglish(GetParam());
  ForEachText([&](int id) {
    const bool equal = WithoutAccessKey(Own(id)) == WithoutAccessKey(English(id));
    EXPECT_EQ(equal, same.contains(id)) << Row(id, Own(id));
  });
}

TEST_P(LanguageBlock, IsWrittenInItsScript) {
  const UScriptCode script = ScriptOf(GetParam());
  const std::set<int> same = SameAsEnglish(GetParam());
  ForEachText([&](int id) {
    Text word;
    bool own = false;
    for (const char16_t unit : WithoutAccessKey(WithLastForms(Own(id))) + u" ") {
      UErrorCode status = U_ZERO_ERROR;
      const UScriptCode found = uscript_getScript(unit, &status);
      own =
          own || found == script || (script == USCRIPT_HAN && (found == USCRIPT_HIRAGANA || found == USCRIPT_KATAKANA));
      if (found == USCRIPT_LATIN && script != USCRIPT_LATIN) {
        word += unit;
        continue;
      }
      EXPECT_TRUE(word.empty() || LatinWords().contains(word)) << Row(id, Own(id)) << " has " << ToUtf8(word);
      word.clear();
      const bool strange = u_isalpha(unit) && script == USCRIPT_LATIN && found != USCRIPT_LATIN;
      EXPECT_FALSE(strange) << Row(id, Own(id));
    }
    // Places for values and what stands between them are of no script.
    const bool words = std::ranges::any_of(WithLastForms(English(id)), [](char16_t unit) { return u_isalpha(unit); });
    EXPECT_TRUE(own || !words || same.contains(id)) << Row(id, Own(id));
  });
}

TEST_P(LanguageBlock, CallsControlsByTheirOwnNames) {
  struct Mention {
    int text;
    int control;
  };
  constexpr Mention kMentions[] = {{23, 0},   {36, 39}, {37, 40},  {37, 41},   {81, 68},  {81, 69}, {150, 6},
                                   {297, 66}, {308, 6}, {343, 16}, {379, 380}, {395, 66}, {452, 41}};
  for (const auto& [text, control] : kMentions) {
    EXPECT_NE(FindLoose(Own(text), WithoutAccessKey(Own(control))), Text::npos) << Row(text, Own(text));
  }
}

TEST(LanguageFiles, AreThereForEveryLanguageOfTheTable) {
  LanguageRig rig;
  rig.StartIn(u"ENGLISH");
  const std::vector<std::string> files = LanguageFiles();
  std::size_t others = 0;
  for (const LanguageRow& row : rig.languages.LanguageTable()) {
    const std::string name = ToUtf8(ToLower(row.name));
    if (name == "english") continue;
    EXPECT_NE(std::find(files.begin(), files.end(), name), files.end()) << name;
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(CUEWRIGHT_SOURCE_DIR "/docs/languages") / (name + ".md")))
        << name;
    ++others;
  }
  EXPECT_EQ(files.size(), others);
}

INSTANTIATE_TEST_SUITE_P(Files, LanguageBlock, ::testing::ValuesIn(LanguageFiles()),
                         [](const auto& row) { return row.param; });

}  // namespace
}  // namespace cuewright
