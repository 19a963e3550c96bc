#pragma once

#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "formats/export.h"
#include "formats/import.h"
#include "platform/posix_files.h"
#include "settings/messages.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"

namespace cuewright::testing {

/// Keeps what a load or a save reported.
struct ProgressLog {
  void Add(FileStage stage, TextView status) {
    ++stages[stage];
    if (!status.empty()) labels.emplace_back(status);
    if (stage == FileStage::Pauses && onPause) onPause();
  }

  std::vector<Text> labels;
  std::map<FileStage, int> stages;
  std::function<void()> onPause;
};

/// Options of formats by section and key.
class FakeSettings final : public SettingsReader {
 public:
  Text GetSetting(TextView section, TextView key, TextView fallback) const override {
    const auto hit = values.find({Text(section), Text(key)});
    return hit == values.end() ? Text(fallback) : hit->second;
  }
  std::map<std::pair<Text, Text>, Text> values;
};

inline std::string FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

/// Every line end as CR LF.
inline std::string CrLf(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

/// A document with the formats around it: the shipped catalogue, or one of the test's own.
struct FormatRig {
  FormatRig() {
    LoadEnglish(MessageCatalogue(), strings);
    UseShippedCatalogue();
  }

  /// `ini` and `dat` are written with plain line ends.
  FormatRig(const std::string& ini, const std::string& dat) {
    LoadEnglish(MessageCatalogue(), strings);
    catalogue.Load(CrLf(ini), CrLf(dat), encodings);
  }

  void UseShippedCatalogue() {
    const std::string shipped = std::string(CUEWRIGHT_SOURCE_DIR) + "/resources/";
    catalogue.Load(FileBytes(shipped + "formats.ini"), FileBytes(shipped + "formats.dat"), encodings);
  }

  /// Answers the question which of several formats a file is read by; the first offered is the best.
  void TakeTheBestFormat() { messages.answers.assign(1, BoxAnswer::Yes); }

  /// Writes a file into the folder and opens it as the program does. `fps` answers the frame rate question.
  Text Open(const std::string& name, const std::string& content, TextView fps = u"25") {
    const Text opened = folder.Write(name, content);
    messages.lines.assign(1, Text(fps));
    importer.DetectFormat(opened, Loading::NewDocument);
    messages.lines.clear();
    return Format();
  }

  /// Opens a file that can only be read with the classic rules.
  Text OpenClassic(const std::string& name, const std::string& content) {
    options.readAs = u"classic";
    options.manner.SetClassic(true);
    return Open(name, content);
  }

  /// Imports with a format by name, without recognition.
  void ImportAs(TextView id, const std::string& content, TextView fps = u"25", Loading loading = Loading::NewDocument) {
    Choose(id);
    loader.LoadFormatDefinition(id);
    messages.lines.assign(1, Text(fps));
    importer.ImportSubtitle(folder.Write("imported", content), loading);
    messages.lines.clear();
  }

  void Choose(TextView id) { state.CurrentFormatIndex = static_cast<std::uint8_t>(catalogue.IndexOf(id)); }

  Text Format() const { return catalogue.Identifier(state.CurrentFormatIndex); }

  /// A new document of these captions.
  void Fill(std::vector<Caption> rows) {
    state.Source = nullptr;
    captions.Replace(1, captions.Count(), std::move(rows));
  }

  std::vector<Caption> Rows() const {
    std::vector<Caption> rows;
    for (Row row = 1; row < captions.Rows(); ++row) rows.push_back(captions.At(row));
    return rows;
  }

  /// Saves all rows in a format and gives the file's bytes.
  std::string Save(TextView id, FrameRate fps = {}, const std::string& name = "saved") {
    Choose(id);
    state.CurrentFps = fps;
    path = folder / name;
    const int codePage = state.Encoding.codePage;
    exporter.ExportSubtitle(captions.Rows() - 1);
    if (state.Encoding.codePage != codePage) savedAsUtf8.push_back(codePage);
    return folder.Read(name);
  }

  TempFolder folder;
  PosixFiles files;
  AppOptions options;
  bool modified = false;
  bool cancelled = false;
  Text path;
  CaptionList captions{options, modified};
  Encodings encodings{1252};
  FormatCatalogue catalogue;
  FormatState state;
  FakeSettings settings;
  LangStrings strings;
  FakeMessages messages;
  ProgressLog progress;
  std::vector<int> savedAsUtf8;  ///< the encodings that lacked a character
  FormatTalk talk{strings, messages, [this](FileStage stage, TextView status) { progress.Add(stage, status); }};
  FormatLoader loader{catalogue, state, settings, talk};
  FormatSet formats{catalogue, state, loader};
  Importer importer{formats, talk, captions, {files, encodings}, cancelled};
  Exporter exporter{formats, talk, captions, {files, encodings}, path, modified};
};

}  // namespace cuewright::testing
