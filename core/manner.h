#pragma once

namespace cuewright {

/// The manner in which the program works. Today's, the default, departs from the original design wherever its letter
/// loses or spoils a user's work; the classic one keeps the letter, all of it. Each departure is one query here, true
/// in today's manner, and nothing else in the program asks for the setting. docs/manners.md tells them in the user's
/// words.
class Manner {
 public:
  /// The stored setting, for what loads, shows and stores it alone.
  constexpr bool Classic() const { return classic_; }
  constexpr void SetClassic(bool classic) { classic_ = classic; }

  /// The question before work is thrown away comes exactly when the captions differ from what was loaded or saved last.
  constexpr bool AsksWhenCaptionsDiffer() const { return !classic_; }
  /// After Yes a document stays open when its save failed or the dialog for it was cancelled.
  constexpr bool StaysOpenUnsaved() const { return !classic_; }
  /// Yes on a plain text is Save as, and dialogs that come to nothing put format, rate and definition back.
  constexpr bool KeepsTheSource() const { return !classic_; }
  /// Escape and the close button of a question give its harmless answer.
  constexpr bool EscapeIsHarmless() const { return !classic_; }
  /// The second time box always shows the caption's end minus its start.
  constexpr bool ShowsTrueDuration() const { return !classic_; }
  /// The preview's row doesn't follow the film while the pane has the focus or a mark of the wave is dragged.
  constexpr bool FollowWaitsForHands() const { return !classic_; }
  /// Replacing keeps the case and the line breaks of what it doesn't replace.
  constexpr bool ReplaceKeepsTheRest() const { return !classic_; }
  /// The correction rules only look at what is loaded, unless the user lets them change it.
  constexpr bool RulesAskOnLoad() const { return !classic_; }
  /// Captions are sought, and the film's keys work, in a film that is paused or stopped or has no text.
  constexpr bool SeeksAtRest() const { return !classic_; }
  /// The overlay shows all lines of a caption, each by its own direction.
  constexpr bool ShowsAllLines() const { return !classic_; }
  /// The title bears the document's name and whether it was changed.
  constexpr bool TitleNamesTheFile() const { return !classic_; }
  /// A press and a release count at the instant that their event bears, not at the last tick.
  constexpr bool CountsAtTheInstant() const { return !classic_; }
  /// A file that was read whole is saved in its own format with the bytes it had, but for what was edited.
  constexpr bool KeepsTheFile() const { return !classic_; }
  /// Styles stay where they stand inside a caption; the list's markers mean the whole caption.
  constexpr bool KeepsStylesWithin() const { return !classic_; }
  /// Widespread formats are read by their published rules, not by the catalogue's record.
  constexpr bool ReadsByPublishedRules() const { return !classic_; }
  /// Times are written to the nearest step of the format, and frames are counted by the exact rate.
  constexpr bool TimesAreExact() const { return !classic_; }
  /// What a file holds that was not understood, and what a format can't hold, is told.
  constexpr bool TellsWhatIsLost() const { return !classic_; }
  /// The user chooses the encoding of a file that is saved or read anew, and is asked before letters are lost by it.
  constexpr bool ChoosesEncodings() const { return !classic_; }
  /// The menu Film, the palette, and keys for all commands, which the user may change.
  constexpr bool HasEditingKeys() const { return !classic_; }
  /// The list takes many rows at once, and shows times as a clock, what is asked of captions, styles and findings.
  constexpr bool ListIsAWorkbench() const { return !classic_; }
  /// Captions are inserted, split, joined and retimed by commands that the first design doesn't have.
  constexpr bool ShapesCaptions() const { return !classic_; }
  /// The window has a tool bar and a line at its foot, the information band is a line until it is unfolded, and the
  /// buttons that take times name their keys.
  constexpr bool HasCalmWindow() const { return !classic_; }
  /// Captions are held against house rules, and lines, letters and hits are changed by way of proposals.
  constexpr bool ChecksAndProposes() const { return !classic_; }
  /// The Audio bar is a wave to work in: with all captions, at any scale, in any height.
  constexpr bool WaveIsAWorkbench() const { return !classic_; }
  /// The film brings its subtitle, its sound tracks are chosen, positions are typed, and captures are taken again.
  constexpr bool FilmIsAWorkbench() const { return !classic_; }

  /// Captions that were held by hand move to where the film's voice is.
  constexpr bool FitsToTheVoice() const { return !classic_; }

 private:
  bool classic_ = false;
};

}  // namespace cuewright
