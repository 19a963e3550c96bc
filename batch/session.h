#pragma once

#include <memory>
#include <optional>

#include "audio/wave_reader.h"
#include "batch/boxes.h"
#include "batch/command_line.h"
#include "batch/run_settings.h"
#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "core/ports/files.h"
#include "formats/catalogue.h"
#include "formats/definition.h"
#include "formats/export.h"
#include "formats/format_state.h"
#include "formats/import.h"
#include "formats/lacking_letters.h"
#include "settings/store.h"
#include "text/encodings.h"
#include "tools/report_text.h"
#include "tools/rule_report.h"
#include "tools/rules_engine.h"

namespace cuewright {

/// The engine of a run: settings, catalogue and one document at a time.
class Session {
 public:
  /// `systemCodePage` is the ANSI code page of the user's locale.
  Session(const Request& request, Files& files, Output& output, int systemCodePage);

  /// Reads settings and catalogue; false when that fails, which was told then. `programFolder` is where the
  /// catalogue is unless the call says otherwise.
  bool Start(const Text& programFolder);

  /// A session for another thread, started as this one was; null when that fails.
  std::unique_ptr<Session> Another(Output& output) const;

  const FormatCatalogue& Catalogue() const { return catalogue_; }
  /// The folder of the files that come with the program, with "/" at its end.
  Text ProgramFolder() const { return programFolder_.ends_with(u'/') ? programFolder_ : programFolder_ + u'/'; }
  /// Of a document that counts frames; none for any other.
  const FrameRate& Rate() const { return state_.CurrentFps; }
  const Manner& InForce() const { return options_.manner; }
  BatchBoxes& Boxes() { return boxes_; }
  const Files& FileSystem() const { return files_; }

  /// The index of the format that recognition settles on; empty, after telling why, when there is none.
  std::optional<int> Detect(const Text& path);

  /// Reads a file into the document; false, after telling why, when it gave no caption.
  bool Load(const Text& path);
  /// True when the last `Load` brought a message: the document may be less than its file.
  bool LoadedWithTrouble() const { return loadTroubles_ != 0; }
  CaptionList& Captions() { return captions_; }
  const CaptionList& Captions() const { return captions_; }
  /// Runs the correction rules over the document; what they found is in `Report`.
  void ApplyRules();
  const RuleReport& Report() const { return report_; }
  const LangStrings& Strings() const { return strings_; }
  /// Index and identifier of the document's format.
  int FormatIndex() const { return state_.CurrentFormatIndex; }
  const Text& Format() const { return catalogue_.Identifier(state_.CurrentFormatIndex); }

  /// Writes the document in a format; false, after telling why, when that fails.
  bool Save(const Text& path, int format, bool keepUntimed);

  /// Reads the peaks of a wave file; false, after telling why, when that fails.
  bool LoadWave(const Text& path, WavePeaks& peaks, WaveLoadSteps& steps);

 private:
  void TellLost();
  bool ReadSettings();
  bool ReadCatalogue(const Text& programFolder);
  /// Starts on a file; false, after telling so, when there is none.
  bool Begin(const Text& path);
  /// Puts the encoding of the call in force, or else that of the format's rules; false, after telling the places, when
  /// that encoding lacks letters of what is to be written.
  bool TakeEncoding(Row lastRow);
  void TellLacking(const LackingPlace& place);

  const Request& request_;
  int systemCodePage_;
  Text programFolder_;
  Files& files_;
  LangStrings strings_;
  BatchBoxes boxes_;
  std::unique_ptr<SettingsStore> stored_;
  std::unique_ptr<RunSettings> settings_;
  AppOptions options_;
  Encodings encodings_;
  FormatCatalogue catalogue_;
  FormatState state_;
  Text path_;  ///< of the document
  bool modified_ = false;
  bool cancelled_ = false;
  int loadTroubles_ = 0;
  CaptionList captions_;
  RuleReport report_;
  std::unique_ptr<FormatLoader> loader_;  ///< this and the next two exist once the catalogue is read
  std::unique_ptr<Importer> importer_;
  std::unique_ptr<Exporter> exporter_;
};

}  // namespace cuewright
