#include "external/registry_store.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/external/registry_fixture.h"

namespace cuewright {
namespace {

using Store = testing::RegistryFixture;
constexpr const char* kFile = "user/registry";

TEST_F(Store, TwoProgramsOnOneFileKeepEachOthersChanges) {
  Other other(*this);
  EXPECT_TRUE(registry.WriteString(key, u"a", u"1"));
  EXPECT_TRUE(other.registry.WriteString(key, u"b", u"2"));
  EXPECT_TRUE(registry.WriteString(key, u"c", u"3"));
  for (const Text& name : {Text(u"a"), Text(u"b"), Text(u"c")}) {
    EXPECT_TRUE(registry.ValueExists(key, name));
    EXPECT_TRUE(other.registry.ValueExists(key, name));
  }
}

TEST_F(Store, NamesOfEveryKindSurviveTheFile) {
  for (const Text& name : {Text(u"[x]"), Text(u"!"), Text(u"a=b"), Text(u"100%0041"), Text(u"a\nb\r"), Text(u"end "),
                           Text(u"\u00DC\U0001F600"), Text{0xD83D}, Text{0xDCE9}, Text()}) {
    EXPECT_TRUE(registry.WriteString(key, name, name));
    EXPECT_TRUE(registry.WriteString(key + u"\\" + name + u"\\x", u"n", name));
    Other other(*this);
    EXPECT_EQ(other.registry.ReadString(key, name, u"lost"), name);
    EXPECT_EQ(other.registry.ReadString(key + u"\\" + name + u"\\x", u"n", u"lost"), name);
  }
}

TEST_F(Store, AnyCutOrWrongByteOfTheFileIsRefusedAndTheFileLeftAsItIs) {
  registry.WriteString(key, u"n", u"v");
  registry.WriteBinary(key, u"b", u"01");
  const std::string whole = folder.Read(kFile);
  const auto expectRefused = [&](const std::string& damaged) {
    folder.Write(kFile, damaged);
    EXPECT_FALSE(registry.KeyExists(key));
    EXPECT_EQ(registry.ReadString(key, u"n", u"default"), u"default");
    EXPECT_FALSE(registry.WriteString(key, u"n", u"new"));
    EXPECT_EQ(registry.CreateKey(u"HKCU\\a"), 0);
    EXPECT_EQ(Import("REGEDIT4\r\n[HKCU\\a]\r\nn=1\r\n"), 0);
    EXPECT_NE(registry.LastFailure().find(u"damaged"), Text::npos);
    EXPECT_NE(registry.LastFailure().find(folder / kFile), Text::npos);
    EXPECT_EQ(folder.Read(kFile), damaged);
  };
  for (std::size_t length = 0; length < whole.size(); ++length) expectRefused(whole.substr(0, length));
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 1);
    expectRefused(damaged);
  }
  folder.Write(kFile, whole);
  EXPECT_EQ(registry.ReadString(key, u"n"), u"v") << "put back, it counts again";
  EXPECT_TRUE(registry.WriteString(key, u"n", u"new"));
}

/// A disk on which nothing can be written.
class FullDisk final : public Files {
 public:
  explicit FullDisk(Files& files) : files_(files) {}
  bool Exists(TextView path) const override { return files_.Exists(path); }
  bool IsRegular(TextView path) const override { return files_.IsRegular(path); }
  std::uint64_t Size(TextView path) const override { return files_.Size(path); }
  std::string Read(TextView path, std::uint64_t limit) const override { return files_.Read(path, limit); }
  std::unique_ptr<FileReader> OpenToRead(TextView path) const override { return files_.OpenToRead(path); }
  void Replace(TextView, const std::function<void(ByteSink&)>&) override {
    throw RuntimeError{kErrorDiskFull, u"Disk full"};
  }
  void WritePrivate(TextView, std::string_view) override { throw RuntimeError{kErrorDiskFull, u"Disk full"}; }
  std::vector<Text> Names(TextView where) const override { return files_.Names(where); }
  bool Remove(TextView path) override { return files_.Remove(path); }
  bool MakeLink(TextView, TextView) override { return false; }
  void MakePrivateFolder(TextView) override {}

 private:
  Files& files_;
};

TEST_F(Store, AWriteThatFailsChangesNothing) {
  EXPECT_TRUE(registry.WriteString(key, u"n", u"old"));
  FullDisk disk(files);
  RegistryStore full(disk, folder / kFile);
  clsRegistryAccess access(full, disk, encodings, events);
  const Text in = folder.Write("in.reg", "REGEDIT4\r\n[HKCU\\a]\r\nn=1\r\n");
  const auto expectOld = [&] {
    EXPECT_EQ(access.LastFailure(), u"Disk full");
    EXPECT_EQ(access.ReadString(key, u"n"), u"old");
    EXPECT_FALSE(access.KeyExists(u"HKCU\\a"));
  };
  EXPECT_FALSE(access.WriteString(key, u"n", u"new"));
  expectOld();
  EXPECT_FALSE(access.WriteDWORD(u"HKCU\\a", u"n", 1));
  expectOld();
  EXPECT_FALSE(access.KillValue(key, u"n"));
  expectOld();
  EXPECT_EQ(access.ImportFromReg(in), 0);
  expectOld();
  EXPECT_EQ(access.ExportToReg(key, folder / "out.reg", true), 0);
  expectOld();
  EXPECT_EQ(full.OpenKeys(), 0u);
}

TEST_F(Store, AFolderThatCantBeEnteredIsNotAnEmptyRegistry) {
  EXPECT_TRUE(registry.WriteString(key, u"n", u"old"));
  std::filesystem::remove_all(folder.Path() / "user");
  folder.Write("user", "a file where the folder should be");
  EXPECT_FALSE(registry.WriteString(key, u"n", u"new"));
  EXPECT_FALSE(registry.LastFailure().empty());
  EXPECT_EQ(Import("REGEDIT4\r\n[HKCU\\a]\r\nn=1\r\n"), 0);
  EXPECT_FALSE(registry.LastFailure().empty());
  EXPECT_FALSE(registry.KeyExists(u"HKCU\\a"));
}

TEST_F(Store, AnImportIsStoredAtOnce) {
  // The file is there with the first value or not at all: nothing is written in between.
  std::string content = "REGEDIT4\r\n[HKCU\\a]\r\n";
  for (int i = 0; i < 500; ++i) content += "n" + std::to_string(i) + "=1\r\n";
  EXPECT_TRUE(store.BeginBatch());
  EXPECT_EQ(Import(content), 1);
  EXPECT_FALSE(files.Exists(folder / kFile));
  EXPECT_TRUE(store.EndBatch());
  EXPECT_TRUE(Other(*this).registry.ValueExists(u"HKCU\\a", u"n499"));
}

TEST_F(Store, WithoutAPlaceItLivesInMemory) {
  RegistryStore memory(files, {});
  clsRegistryAccess access(memory, files, encodings, events);
  EXPECT_TRUE(access.WriteDWORD(key, u"n", 3));
  EXPECT_EQ(access.ReadDWORD(key, u"n"), 3);
}

TEST_F(Store, AKillAtAnyMomentLeavesAWholeFile) {
  registry.WriteDWORD(key, u"n", 0);
  for (int round = 0; round < 20; ++round) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
      for (std::int32_t i = 0;; ++i) {
        registry.WriteDWORD(key, u"n", i);
        registry.WriteString(key, u"pad", Text(static_cast<std::size_t>(i % 200), u'x'));
        if (::write(pipe[1], "x", 1) != 1) ::_exit(1);
      }
    }
    ::close(pipe[1]);
    char byte = 0;
    for (int i = 0; i <= round; ++i) ASSERT_EQ(::read(pipe[0], &byte, 1), 1);
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(pipe[0]);
    EXPECT_TRUE(WIFSIGNALED(status));
    Other other(*this);
    EXPECT_GE(other.registry.ReadDWORD(key, u"n", -1), round) << ToUtf8(other.store.Failure());
  }
}

}  // namespace
}  // namespace cuewright
