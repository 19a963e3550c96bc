#include "tests/external/registry_fixture.h"

namespace cuewright {
namespace {

using RegFiles = testing::RegistryFixture;

const std::string kHead = "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Test]\r\n";

TEST_F(RegFiles, AnExportHoldsTheKeyAndAllBelowIt) {
  registry.WriteDWORD(key, u"number", 10);
  registry.WriteBinary(key, u"bytes", u"00 0A FF");
  registry.WriteString(key, u"text", u"say \"a\\b\"");
  registry.WriteString(key, u"@", u"default");
  registry.CreateKey(key + u"\\empty");
  registry.WriteString(key + u"\\deep\\er", u"n", u"v");
  const std::string own = kHead +
                          "@=\"default\"\r\n\"text\"=\"say \"a\\b\"\"\r\n\"bytes\"=hex:00,0A,FF\r\n"
                          "\"number\"=dword:0x0000000A\r\n\r\n";
  EXPECT_EQ(Exported(false), own);
  EXPECT_EQ(Exported(true), own +
                                "[HKEY_CURRENT_USER\\Software\\Test\\deep]\r\n\r\n"
                                "[HKEY_CURRENT_USER\\Software\\Test\\deep\\er]\r\n\"n\"=\"v\"\r\n\r\n"
                                "[HKEY_CURRENT_USER\\Software\\Test\\empty]\r\n\r\n");
}

TEST_F(RegFiles, AnExportShowsEachKeyAndLetsTheWindowWork) {
  registry.CreateKey(key + u"\\sub");
  Form form("form");
  Label label(form, "lblProgress");
  std::vector<Text> shown;
  events.onYield = [&] { shown.push_back(label.GetText()); };
  EXPECT_EQ(registry.ExportToReg(u"hkcu\\Software\\Test", folder / "out.reg", true, &label), 1);
  EXPECT_EQ(shown, (std::vector<Text>{key, key + u"\\sub"}));
}

TEST_F(RegFiles, AKeyThatGoesDuringTheExportEndsItWithNoFile) {
  registry.CreateKey(key + u"\\sub");
  Form form("form");
  Label label(form, "lblProgress");
  events.onYield = [&] {
    if (label.GetText() != key) registry.KillKey(key + u"\\sub");
  };
  EXPECT_EQ(registry.ExportToReg(key, folder / "out.reg", true, &label), 0);
  EXPECT_FALSE(registry.LastFailure().empty());
  EXPECT_FALSE(files.Exists(folder / "out.reg"));
}

TEST_F(RegFiles, AnExportToAnExistingFileDoesNothing) {
  registry.CreateKey(key);
  const Text path = folder.Write("there.reg", "mine");
  EXPECT_EQ(registry.ExportToReg(key, path, true), 0);
  EXPECT_EQ(folder.Read("there.reg"), "mine");
  EXPECT_NE(registry.LastFailure().find(u"exists"), Text::npos);
  EXPECT_EQ(registry.ExportToReg(key, folder / "no/such/folder.reg", true), 0);
}

TEST_F(RegFiles, AnExportedNumberDoesNotSurviveTheImport) {
  registry.WriteDWORD(key, u"n", 10);
  const std::string text = Exported();
  EXPECT_NE(text.find("\"n\"=dword:0x0000000A\r\n"), std::string::npos);
  EXPECT_EQ(Import(text), 1);
  EXPECT_EQ(registry.ReadDWORD(key, u"n", 9), 0);
}

TEST_F(RegFiles, StringsAndBytesSurviveExportAndImport) {
  const std::vector<Text> texts = {u"plain", u"C:\\dir\\file", u"caf\u00E9", u"\u4E2D\u6587", u"\u00C3\u00A9", u""};
  for (const Text& text : texts) {
    registry.WriteString(key, u"t", text);
    registry.WriteBinary(key, u"b", u"00 7F FF");
    const std::string exported = Exported();
    registry.KillKey(key);
    EXPECT_EQ(Import(exported), 1);
    EXPECT_EQ(registry.ReadString(key, u"t", u"lost"), text);
    EXPECT_EQ(registry.ReadBinary(key, u"b"), u"00 7F FF");
  }
}

TEST_F(RegFiles, AreInTheSystemsCodePageWhereItHoldsThem) {
  registry.WriteString(key, u"t", u"caf\u00E9");
  EXPECT_NE(Exported().find("\"caf\xE9\""), std::string::npos);
  registry.WriteString(key, u"t", u"\u4E2D");
  EXPECT_NE(Exported().find("\"\xE4\xB8\xAD\""), std::string::npos);
}

TEST_F(RegFiles, AStringIsCutAtASecondEqualsSign) {
  EXPECT_EQ(Import(kHead + "\"n\"=\"a=b=c\"\r\n"), 1);
  EXPECT_EQ(registry.ReadString(key, u"n"), u"a");
}

TEST_F(RegFiles, AllQuotesOfALineAreRemovedInnerOnesIncluded) {
  EXPECT_EQ(Import(kHead + "  \"n\"=\"say \"hello\" now\"\"  \r\n"), 1);
  EXPECT_EQ(registry.ReadString(key, u"n"), u"say hello now");
}

struct ImportRow {
  std::string line;
  Text name;
  Text binary;  ///< the value's bytes; "-" for none
};

TEST_F(RegFiles, EachLineOfAnImportMeansOneThing) {
  const std::vector<ImportRow> rows = {
      {"\"n\"=\"v\"", u"n", u"76 00"},
      {"n=v", u"n", u"76 00"},
      {"; n=v", u"n", u"-"},
      {"", u"n", u"-"},
      {"n", u"n", u"-"},
      {"n=", u"n", u"00"},
      {"=v", u"", u"76 00"},
      {"@=\"v\"", u"", u"76 00"},
      {"@=\"\"", u"", u"-"},
      {"n=hex:01,02,ff", u"n", u"01 02 FF"},
      {"n=HEX:01 02", u"n", u"01 02"},
      {"n=hex:", u"n", u""},
      {"n=hex(2):41", u"n", u"68 65 78 28 32 29 3A 34 31 00"},
      {"n=dword:0000000a", u"n", u"0A 00 00 00"},
      {"n=DWord:ffffffff", u"n", u"FF FF FF FF"},
      {"n=dword:0000ffff", u"n", u"FF FF 00 00"},
      {"n=dword:", u"n", u"00 00 00 00"},
      {"n=dword:0x0000000A", u"n", u"00 00 00 00"},
  };
  for (const ImportRow& row : rows) {
    registry.KillKey(key);
    EXPECT_EQ(Import(kHead + row.line + "\r\n"), 1) << row.line;
    EXPECT_EQ(registry.ReadBinary(key, row.name, u"-"), row.binary) << row.line;
  }
}

TEST_F(RegFiles, AMinusRemovesAValueOrAKey) {
  registry.WriteString(key, u"n", u"v");
  registry.WriteString(key, u"m", u"v");
  EXPECT_EQ(Import(kHead + "\"n\"=-\r\n"), 1);
  EXPECT_FALSE(registry.ValueExists(key, u"n"));
  EXPECT_TRUE(registry.ValueExists(key, u"m"));
  EXPECT_EQ(Import("REGEDIT4\r\n[-hkcu\\Software\\Test]\r\n\"n\"=\"v\"\r\n"), 1);
  EXPECT_FALSE(registry.KeyExists(key)) << "lines behind a removed key belong to none";
}

TEST_F(RegFiles, AnImportTurnsCreationOnAndTakesSeveralKeys) {
  registry.CreateKeyIfDoesntExists = false;
  EXPECT_EQ(Import("regedit4\r\na=1\r\n[HKCU\\a]\r\nn=1\r\n [HKLM\\b] \r\nn=2"), 1);
  EXPECT_TRUE(registry.CreateKeyIfDoesntExists);
  EXPECT_EQ(registry.ReadString(u"HKCU\\a", u"n"), u"1");
  EXPECT_EQ(registry.ReadString(u"HKLM\\b", u"n"), u"2");
}

TEST_F(RegFiles, WhatIsNoSuchFileIsRefusedWithAReason) {
  registry.WriteString(key, u"n", u"kept");
  EXPECT_EQ(registry.ImportFromReg(folder / "missing.reg"), 0);
  EXPECT_FALSE(registry.LastFailure().empty());
  for (const std::string& content :
       {std::string(), std::string("REGEDIT5\r\n"), std::string("REGEDIT4\n[HKCU\\a]\nn=1\n"),
        std::string(" REGEDIT4\r\n"), std::string("\xFF\xFER\0E\0", 6), std::string(1000, '\0')}) {
    EXPECT_EQ(Import(content), 0);
    EXPECT_NE(registry.LastFailure().find(u"REGEDIT4"), Text::npos);
  }
  EXPECT_EQ(registry.ImportFromReg(folder / ""), 0) << "a folder";
  EXPECT_EQ(registry.ReadString(key, u"n"), u"kept");
  EXPECT_EQ(Import(kHead), 1);
  EXPECT_EQ(registry.LastFailure(), u"");
}

TEST_F(RegFiles, AFailingLineIsToldByNumberAndWhatStoodBeforeItStays) {
  EXPECT_EQ(Import(kHead + "a=1\r\nb=dword:123456789\r\nc=3\r\n"), 0);
  EXPECT_NE(registry.LastFailure().find(u"Line 5: "), Text::npos) << ToUtf8(registry.LastFailure());
  EXPECT_EQ(registry.ReadString(key, u"a"), u"1");
  EXPECT_FALSE(registry.ValueExists(key, u"c"));
  EXPECT_EQ(Import("REGEDIT4\r\n["), 0);
  EXPECT_NE(registry.LastFailure().find(u"Line 2: "), Text::npos);
}

TEST_F(RegFiles, AFileCutOffAnywhereLosesNothingThatWasStored) {
  registry.WriteString(u"HKCU\\mine", u"n", u"kept");
  const std::string whole =
      kHead + "\"a\"=\"1\"\r\n\"b\"=hex:01,02\r\n\"c\"=dword:00000001\r\n[HKCU\\other]\r\n\"d\"=\"2\"";
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const int result = Import(whole.substr(0, length));
    // The mark has to be whole, and a bracket alone names no key.
    const bool refused = length < 8 || length == 9 || whole[length - 1] == '[';
    EXPECT_EQ(result, refused ? 0 : 1) << length;
    EXPECT_EQ(registry.ReadString(u"HKCU\\mine", u"n"), u"kept");
  }
}

}  // namespace
}  // namespace cuewright
