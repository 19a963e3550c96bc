#include "tests/external/registry_fixture.h"

namespace cuewright {
namespace {

using Registry = testing::RegistryFixture;
using Names = std::vector<Text>;

TEST_F(Registry, EveryRootIsTakenInBothFormsAndInAnyCase) {
  const std::vector<std::array<Text, 2>> roots = {{u"HKEY_CURRENT_USER", u"HKCU"},     {u"HKEY_LOCAL_MACHINE", u"HKLM"},
                                                  {u"HKEY_CLASSES_ROOT", u"HKCR"},     {u"HKEY_USERS", u"HKUS"},
                                                  {u"HKEY_PERFORMANCE_DATA", u"HKPD"}, {u"HKEY_DYN_DATA", u"HKDD"},
                                                  {u"HKEY_CURRENT_CONFIG", u"HKCC"}};
  for (const auto& [longForm, shortForm] : roots) {
    EXPECT_TRUE(registry.KeyExists(longForm)) << ToUtf8(longForm);
    EXPECT_TRUE(registry.WriteString(longForm + u"\\a", u"n", longForm));
    for (const Text& form : {longForm, shortForm, ToLower(longForm), ToLower(shortForm)}) {
      EXPECT_EQ(registry.ReadString(form + u"\\A", u"N"), longForm) << ToUtf8(form);
    }
    EXPECT_EQ(registry.EnumKeys(shortForm, *std::make_unique<Names>()), 1);
  }
}

TEST_F(Registry, AShortRootWrittenInLowerCaseIsAccepted) {
  EXPECT_TRUE(registry.WriteString(u"hkcu\\Software\\Test", u"name", u"value"));
  EXPECT_EQ(registry.ReadString(key, u"name"), u"value");
}

TEST_F(Registry, TheRootIsTheFirstFourCharactersOfAPathWithABackslash) {
  EXPECT_TRUE(registry.WriteString(u"HKCUxyz\\a", u"n", u"v"));
  EXPECT_EQ(registry.ReadString(u"HKCU\\a", u"n"), u"v");
  // A long form is replaced wherever it stands.
  EXPECT_TRUE(registry.WriteString(u"HKCU\\HKEY_USERS", u"n", u"w"));
  EXPECT_EQ(registry.ReadString(u"HKCU\\HKUS", u"n"), u"w");
}

TEST_F(Registry, AnUnknownRootFailsInEveryOperation) {
  Names names = {u"old"};
  std::vector<RegistryData> values(1);
  for (const Text& path : {Text(), Text(u"HKXX"), Text(u"HKXX\\a"), Text(u"\\a"), Text(u"HKCUx")}) {
    EXPECT_EQ(registry.CreateKey(path), 0);
    EXPECT_EQ(registry.KillKey(path), 0);
    EXPECT_FALSE(registry.KeyExists(path));
    EXPECT_EQ(registry.EnumKeys(path, names), -1);
    EXPECT_FALSE(registry.HaveSubkey(path));
    EXPECT_FALSE(registry.WriteString(path, u"n", u"v"));
    EXPECT_EQ(registry.ReadString(path, u"n", u"d"), u"d");
    EXPECT_FALSE(registry.WriteDWORD(path, u"n", 1));
    EXPECT_EQ(registry.ReadDWORD(path, u"n", 7), 7);
    EXPECT_FALSE(registry.WriteBinary(path, u"n", u"01"));
    EXPECT_EQ(registry.ReadBinary(path, u"n", u"d"), u"d");
    EXPECT_FALSE(registry.KillValue(path, u"n"));
    EXPECT_FALSE(registry.ValueExists(path, u"n"));
    EXPECT_EQ(registry.EnumValues(path, names, values), -1);
    EXPECT_EQ(registry.ExportToReg(path, folder / "none.reg", true), 0);
    EXPECT_FALSE(files.Exists(folder / "none.reg"));
  }
}

TEST_F(Registry, CreateKeyMakesTheKeysAboveAndGivesANumber) {
  EXPECT_FALSE(registry.KeyExists(u"HKCU\\a\\b\\c"));
  EXPECT_NE(registry.CreateKey(u"HKCU\\a\\b\\c"), 0);
  EXPECT_TRUE(registry.KeyExists(u"HKCU\\A\\B"));
  EXPECT_TRUE(registry.KeyExists(u"hkcu\\a\\b\\C\\"));
  EXPECT_NE(registry.CreateKey(u"HKCU\\a\\b\\c"), 0);
  EXPECT_EQ(registry.CreateKey(u"HKCU\\" + Text(256, u'x')), 0);
  EXPECT_NE(registry.CreateKey(u"HKCU\\" + Text(255, u'x')), 0);
}

TEST_F(Registry, KillKeyRemovesAKeyAndTellsOnlyThatItWasThere) {
  registry.WriteString(u"HKCU\\a\\b", u"n", u"v");
  EXPECT_EQ(registry.KillKey(u"HKCU\\missing"), 0);
  EXPECT_NE(registry.KillKey(u"HKCU\\a"), 0);
  EXPECT_TRUE(registry.KeyExists(u"HKCU\\a")) << "a key with keys below it stays";
  EXPECT_NE(registry.KillKey(u"HKCU\\a\\b"), 0);
  EXPECT_FALSE(registry.KeyExists(u"HKCU\\a\\b"));
  EXPECT_NE(registry.KillKey(u"HKCU\\a"), 0);
  EXPECT_FALSE(registry.KeyExists(u"HKCU\\a"));
  EXPECT_NE(registry.KillKey(u"HKCU"), 0);
  EXPECT_TRUE(registry.KeyExists(u"HKCU"));
}

TEST_F(Registry, EnumKeysGivesTheKeysRightBelowInOrder) {
  for (const Text& name : {Text(u"b"), Text(u"A"), Text(u"a b"), Text(u"b\\inner\\most"), Text(u"C")}) {
    registry.CreateKey(key + u"\\" + name);
  }
  Names names = {u"old"};
  EXPECT_EQ(registry.EnumKeys(key, names), 4);
  EXPECT_EQ(names, (Names{u"A", u"a b", u"b", u"C"}));
  EXPECT_EQ(registry.EnumKeys(key + u"\\A", names), 0);
  EXPECT_EQ(registry.EnumKeys(key + u"\\none", names), -1);
  EXPECT_TRUE(registry.HaveSubkey(key));
  EXPECT_TRUE(registry.HaveSubkey(key + u"\\b"));
  EXPECT_FALSE(registry.HaveSubkey(key + u"\\A"));
  EXPECT_FALSE(registry.HaveSubkey(key + u"\\none"));
}

TEST_F(Registry, AStringIsReadTrimmedAndWithoutItsTerminator) {
  const std::vector<std::array<Text, 2>> rows = {
      {u"plain", u"plain"},
      {u"", u""},
      {u"  front", u"front"},
      {u"behind  ", u"behind  "},
      {u"=\"\\%\r\n\t", u"=\"\\%\r\n\t"},
      {Text(u"a\0b", 3), Text(u"a\0b", 3)},
      {u"\u00E9\u4E2D\U0001F600", u"\u00E9\u4E2D\U0001F600"},
      {Text{0xDCE9, 0xD800, 0xDCC3, 0xDCA9}, Text{0xDCE9, 0xD800, 0xDCC3, 0xDCA9}},
      {Text(254, u'x'), Text(254, u'x')},
      {Text(255, u'x'), u"default"}};
  for (const auto& [written, read] : rows) {
    EXPECT_TRUE(registry.WriteString(key, u"name", written));
    EXPECT_EQ(registry.ReadString(key, u"NAME", u"default"), read);
    EXPECT_EQ(Other(*this).registry.ReadString(key, u"name", u"default"), read);
  }
  EXPECT_EQ(registry.ReadString(key, u"missing", u"default"), u"default");
  EXPECT_EQ(registry.ReadString(u"HKCU\\missing", u"name", u"default"), u"default");
}

TEST_F(Registry, TheAtSignIsTheDefaultValueInWriteStringAlone) {
  registry.WriteString(key, u"@", u"default value");
  EXPECT_EQ(registry.ReadString(key, u""), u"default value");
  EXPECT_FALSE(registry.ValueExists(key, u"@"));
  registry.WriteDWORD(key, u"@", 5);
  EXPECT_TRUE(registry.ValueExists(key, u"@"));
  EXPECT_EQ(registry.ReadString(key, u""), u"default value");
}

TEST_F(Registry, ANumberHas32Bits) {
  for (const std::int32_t number : {0, 1, -1, 255, 0x12345678, INT32_MAX, INT32_MIN}) {
    EXPECT_TRUE(registry.WriteDWORD(key, u"n", number));
    EXPECT_EQ(Other(*this).registry.ReadDWORD(key, u"n", 9), number);
  }
  EXPECT_EQ(registry.ReadBinary(key, u"n"), u"00 00 00 80");
  EXPECT_EQ(registry.ReadDWORD(key, u"missing", 9), 9);
  registry.WriteBinary(key, u"n", u"01 02");
  EXPECT_EQ(registry.ReadDWORD(key, u"n", 9), 0x201);
  registry.WriteBinary(key, u"n", u"01 02 03 04 05");
  EXPECT_EQ(registry.ReadDWORD(key, u"n", 9), 9);
}

TEST_F(Registry, BinaryDataIsWrittenAndReadAsPairs) {
  const std::vector<std::array<Text, 2>> rows = {{u"00 0a FF", u"00 0A FF"}, {u"000AFF", u"00 0A FF"},
                                                 {u" 1 2 3 ", u"12 03"},     {u"", u""},
                                                 {u"zz 1z", u"00 01"},       {u"20", u"20"}};
  for (const auto& [written, read] : rows) {
    EXPECT_TRUE(registry.WriteBinary(key, u"b", written));
    EXPECT_EQ(Other(*this).registry.ReadBinary(key, u"b", u"default"), read);
  }
  EXPECT_EQ(registry.ReadBinary(key, u"missing", u"default"), u"default");
  registry.WriteBinary(key, u"b", Text(2000, u'7'));
  EXPECT_EQ(registry.ReadBinary(key, u"b").size(), 1000u * 3 - 1) << "more than the buffers of an enumeration";
}

TEST(BinaryText, IsPairsWithABlankBeforeEach) {
  EXPECT_EQ(BinToStr(Text(u"\0A\u00FF", 3)), u" 00 41 FF");
  EXPECT_EQ(BinToStr(u""), u"");
  EXPECT_EQ(StrToBin(u" 00 41 FF "), Text(u"\0A\u00FF", 3));
  EXPECT_EQ(StrToBin(u"  "), u"");
  EXPECT_EQ(StrToBin(u"414"), u"A\u0004");
  for (const Text& valid : {Text(u"0"), Text(u"aF 09"), Text(u" 1 ")}) EXPECT_TRUE(isBinValid(valid));
  for (const Text& wrong : {Text(), Text(u"  "), Text(u"0x1"), Text(u"1,2"), Text(u"g")})
    EXPECT_FALSE(isBinValid(wrong));
}

TEST(HexNumbers, EndAtTheFirstOtherCharacterAndOverflowBeyond32Bits) {
  EXPECT_EQ(HexNumber(u"0000000A"), 10);
  EXPECT_EQ(HexNumber(u"0x0000000A"), 0);
  EXPECT_EQ(HexNumber(u" ff,1"), 255);
  EXPECT_EQ(HexNumber(u"FFFF"), 65535);
  EXPECT_EQ(HexNumber(u"FFFFFFFF"), -1);
  EXPECT_EQ(HexNumber(u"000000001"), 1);
  EXPECT_EQ(HexNumber(u""), 0);
  EXPECT_THROW(HexNumber(u"123456789"), RuntimeError);
}

TEST_F(Registry, WithoutCreationAWriteToAMissingKeyFails) {
  EXPECT_TRUE(registry.CreateKeyIfDoesntExists);
  registry.CreateKeyIfDoesntExists = false;
  EXPECT_FALSE(registry.WriteString(key, u"s", u"v"));
  EXPECT_FALSE(registry.WriteDWORD(key, u"d", 1));
  EXPECT_FALSE(registry.WriteBinary(key, u"b", u"01"));
  EXPECT_FALSE(registry.KeyExists(key));
  EXPECT_EQ(store.creations, 0);
  registry.CreateKeyIfDoesntExists = true;
  EXPECT_TRUE(registry.WriteDWORD(key, u"d", 1));
  EXPECT_EQ(store.creations, 1);
}

TEST_F(Registry, AKeyThatMayOnlyBeReadDoesNotExistAndAWriteThereCallsCreateKey) {
  registry.WriteString(key, u"n", u"kept");
  SetReadOnly(u"Software\\Test");
  const int before = store.creations;
  EXPECT_FALSE(registry.KeyExists(key));
  EXPECT_FALSE(registry.WriteString(key, u"n", u"new"));
  EXPECT_EQ(store.creations, before + 1);
  EXPECT_EQ(registry.ReadString(key, u"n"), u"kept");
  EXPECT_FALSE(registry.KillValue(key, u"n"));
  EXPECT_EQ(registry.KillKey(key), 0);
  EXPECT_EQ(registry.CreateKey(key + u"\\below"), 0);
  EXPECT_NE(registry.CreateKey(key), 0);
  EXPECT_FALSE(Other(*this).registry.KeyExists(key)) << "the mark is in the file";
}

TEST_F(Registry, KillValueRemovesOneValue) {
  registry.WriteString(key, u"a", u"1");
  registry.WriteString(key, u"b", u"2");
  EXPECT_FALSE(registry.KillValue(key, u"c"));
  EXPECT_TRUE(registry.KillValue(key, u"A"));
  EXPECT_FALSE(registry.ValueExists(key, u"a"));
  EXPECT_TRUE(registry.ValueExists(key, u"B"));
  EXPECT_FALSE(registry.KillValue(u"HKCU\\missing", u"a"));
}

TEST_F(Registry, EnumValuesGivesEachTypeAsItIsRead) {
  registry.WriteString(key, u"text", u" t");
  registry.WriteDWORD(key, u"number", -2);
  registry.WriteBinary(key, u"bytes", u"20 00");
  registry.WriteBinary(key, u"nothing", u"");
  SetRaw(u"Software\\Test", u"other", 7, u"xyz");
  registry.WriteString(key, u"text", u"again");
  Names names = {u"old"};
  std::vector<RegistryData> values(5);
  EXPECT_EQ(registry.EnumValues(key, names, values), 5);
  EXPECT_EQ(names, (Names{u"text", u"number", u"bytes", u"nothing", u"other"}));
  EXPECT_EQ(values, (std::vector<RegistryData>{Text(u"again"), -2, Text(u"20 00"), Text(), {}}));
  EXPECT_EQ(registry.EnumValues(key, names, values, 4), 1);
  EXPECT_EQ(names, Names{u"number"});
  EXPECT_EQ(registry.EnumValues(key, names, values, 1), 1);
  EXPECT_EQ(registry.EnumValues(key, names, values, 3), 2);
  EXPECT_EQ(registry.EnumValues(key, names, values, 11), 0);
  EXPECT_EQ(registry.EnumValues(key + u"x", names, values), -1);
}

TEST_F(Registry, AnEnumerationHasBuffersOf255Characters) {
  registry.WriteBinary(key, u"long", Text(600, u'1'));
  registry.WriteString(key, u"text", Text(255, u'x'));
  Names names;
  std::vector<RegistryData> values;
  ASSERT_EQ(registry.EnumValues(key, names, values), 2);
  EXPECT_EQ(std::get<Text>(values[0]).size(), 255u * 3 - 1);
  EXPECT_EQ(std::get<Text>(values[1]), u"");
  EXPECT_FALSE(registry.WriteString(key, Text(256, u'n'), u"v"));
  EXPECT_TRUE(registry.WriteString(key, Text(255, u'n'), u"v"));
}

}  // namespace
}  // namespace cuewright
