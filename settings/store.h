#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "core/ports/files.h"
#include "core/ports/settings_reader.h"
#include "text/text.h"

namespace cuewright {

/// The section of all general settings.
inline constexpr TextView kMainSection = u"Cuewright";

/// The user's settings: root, section, key, text value, in one file. Nothing here fails for the user: a file that
/// can't be read counts as empty, one that can't be written leaves the values in force for the run. One that is there
/// and can't be read is never written.
///
/// The file is text in UTF-8: "[root\section]" lines, then "key=value" lines in which a backslash stands before
/// itself and before "n" (LF) and "r" (CR). Lines that are neither are kept as they stand.
class SettingsStore final : public SettingsReader {
 public:
  /// `path` is the file; an empty one keeps everything in memory.
  SettingsStore(Files& files, Text path);

  Text GetSetting(TextView section, TextView key, TextView fallback) const override;

  /// Stores one value. The file is read again before, so that what another program stored stays.
  void SaveSetting(TextView section, TextView key, TextView value);

  using KeyValue = std::pair<Text, Text>;
  /// Stores several values of a section in one write.
  void SaveSettings(TextView section, const std::vector<KeyValue>& values);

  /// Collects changes: as long as an object of this class lives, nothing is written, and at its end all is written at
  /// once.
  class Batch {
   public:
    explicit Batch(SettingsStore& store) : store_(store) { ++store_.batches_; }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
    ~Batch() {
      if (--store_.batches_ == 0 && !store_.unwritten_.empty()) store_.WriteChanges();
    }

   private:
    SettingsStore& store_;
  };

  /// Why the last write failed; empty when it went well.
  const Text& LastFailure() const { return lastFailure_; }

 private:
  struct Line {
    Text section;
    Text key;    // empty: not a value
    Text value;  // the whole line when it is not a value
    bool heading = false;
  };

  /// The file's lines, none when it isn't there; empty, with the reason in `lastFailure_`, when it can't be read.
  std::optional<std::vector<Line>> ReadFile();
  static void Put(std::vector<Line>& lines, TextView section, TextView key, TextView value);
  void WriteChanges();
  void Write(const std::vector<Line>& lines);

  Files& files_;
  Text path_;
  std::vector<Line> lines_;
  std::vector<std::pair<std::pair<Text, Text>, Text>> unwritten_;
  Text lastFailure_;
  int batches_ = 0;
};

}  // namespace cuewright
