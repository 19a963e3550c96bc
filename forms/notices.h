#pragma once

#include <optional>

#include "capture/main_window.h"
#include "core/app_options.h"
#include "core/lang_strings.h"
#include "text/encodings.h"

namespace cuewright {

/// "UTF-8", "UTF-16LE", "windows-1252" and the like, with " (BOM)" behind where the file bears a mark.
Text EncodingName(const DocumentEncoding& encoding);

/// The strip of the information bar that tells what needs no box. A text stays until the next one, until a document
/// comes or goes, or until `cmdNotice` closes it.
class Notices {
 public:
  Notices(MainWindow& window, const AppOptions& options, const LangStrings& strings);

  /// False when the information bar is off, so that nobody would see the strip.
  bool Seen() const { return options_.infoBarOn; }
  /// Shows a text, with what stands for %1 and %2.
  void Tell(Message text, TextView first = {}, TextView second = {});
  /// Adds to what is told of a document how many lines of its file were not understood, with a button that shows them.
  void TellLines(int count);
  /// Adds to what is told of a document how many findings the rules have in it, with buttons that show them and apply
  /// the rules.
  void TellFindings(int count);
  /// Tells how many captions the rules have changed, with a button that takes it back.
  void TellChanged(int count);
  /// What was told of the rules holds no more.
  void ForgetRules();
  /// That button is there.
  bool OffersUndo() const { return rules_ == Rules::Ran; }
  void Clear();
  bool Shown() const { return text_ || lines_ != 0 || rules_ != Rules::Silent; }
  /// The language has changed: the text is told anew.
  void ApplyLanguage();

 private:
  enum class Rules { Silent, Looked, Ran };

  void TellRules(Rules rules, int count);
  void ShowButtons();

  MainWindow& window_;
  const AppOptions& options_;
  const LangStrings& strings_;
  std::optional<Message> text_;
  Text first_;
  Text second_;
  int lines_ = 0;                ///< that were not understood
  Rules rules_ = Rules::Silent;  ///< what is told of the correction rules
  int count_ = 0;                ///< of their findings, or of the captions that they changed
};

}  // namespace cuewright
