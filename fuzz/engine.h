#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "core/memory_reader.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "core/ports/settings_reader.h"
#include "formats/export.h"
#include "formats/import.h"

namespace cuewright::fuzz {

/// Captions that one load may give: the stop falls on a multiple of 100 behind 32000, and the caption in work is kept.
inline constexpr Row kMostCaptions = 32101;

/// Ends the run with a report when something doesn't hold.
inline void Demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

/// Files in memory.
class MemoryFiles final : public Files {
 public:
  std::map<Text, std::string, std::less<>> contents;

  bool Exists(TextView path) const override { return contents.find(path) != contents.end(); }
  bool IsRegular(TextView path) const override { return Exists(path); }
  std::uint64_t Size(TextView path) const override { return Find(path).size(); }
  std::string Read(TextView path, std::uint64_t) const override { return Find(path); }
  std::unique_ptr<FileReader> OpenToRead(TextView path) const override {
    return std::make_unique<MemoryReader>(Find(path));
  }
  void Replace(TextView path, const std::function<void(ByteSink&)>& write) override {
    Sink sink;
    write(sink);
    contents[Text(path)] = std::move(sink.bytes);
  }
  void WritePrivate(TextView path, std::string_view bytes) override { contents[Text(path)] = bytes; }
  std::vector<Text> Names(TextView) const override { return {}; }
  bool Remove(TextView path) override { return contents.erase(Text(path)) != 0; }
  bool MakeLink(TextView, TextView) override { return false; }
  void MakePrivateFolder(TextView) override {}

 private:
  struct Sink final : ByteSink {
    void Write(std::string_view more) override { bytes += more; }
    std::string bytes;
  };
  const std::string& Find(TextView path) const {
    const auto hit = contents.find(path);
    if (hit == contents.end()) throw RuntimeError{kErrorFileNotFound, u"File not found"};
    return hit->second;
  }
};

class SilentMessages final : public Messages {
 public:
  BoxAnswer Show(const MessageBox&) override { return BoxAnswer::Ok; }
  Text Ask(const InputBox& box) override { return box.initial; }
};

class DefaultSettings final : public SettingsReader {
 public:
  Text GetSetting(TextView, TextView, TextView fallback) const override { return Text(fallback); }
};

inline std::string ShippedFile(const std::string& name) {
  std::ifstream file(std::string(CUEWRIGHT_SOURCE_DIR) + "/resources/" + name, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  Demand(!bytes.empty(), "the shipped catalogue is there");
  return bytes;
}

/// The shipped formats, read once.
inline const FormatCatalogue& ShippedCatalogue() {
  static const FormatCatalogue& catalogue = *[] {
    auto* made = new FormatCatalogue;
    made->Load(ShippedFile("formats.ini"), ShippedFile("formats.dat"), Encodings());
    return made;
  }();
  return catalogue;
}

/// A document with the engine around it, without a window.
struct Engine {
  explicit Engine(const FormatCatalogue& formats, int codePage = kCodePageWestern)
      : catalogue(formats), encodings(codePage) {}

  void Open(TextView name, std::string content, Loading loading = Loading::NewDocument) {
    files.contents[Text(name)] = std::move(content);
    importer.DetectFormat(name, loading, 3600);
  }

  std::string Save(int index) {
    state.CurrentFormatIndex = index;
    const bool frames = catalogue.ReadIni(catalogue.Identifier(index), u"timecode", u"ms").find(u"ff") != Text::npos;
    state.CurrentFps = frames ? 25.0 : 0.0;
    exporter.ExportSubtitle(captions.Rows() - 1);
    return files.contents[path];
  }

  const FormatCatalogue& catalogue;
  MemoryFiles files;
  AppOptions options;
  bool modified = false;
  bool cancelled = false;
  Text path = u"saved";
  CaptionList captions{options, modified};
  Encodings encodings;
  FormatState state;
  LangStrings strings;
  DefaultSettings settings;
  SilentMessages messages;
  FormatTalk talk{strings, messages};
  FormatLoader loader{catalogue, state, settings, talk};
  FormatSet formats{catalogue, state, loader};
  Importer importer{formats, talk, captions, {files, encodings}, cancelled};
  Exporter exporter{formats, talk, captions, {files, encodings}, path, modified};
};

/// A number made of the input, for choices that shall not take part in its bytes.
inline std::size_t Choice(std::string_view bytes, std::size_t below) {
  std::size_t hash = bytes.size();
  for (const char byte : bytes.substr(0, 64)) hash = hash * 31 + static_cast<unsigned char>(byte);
  return hash % below;
}

}  // namespace cuewright::fuzz
