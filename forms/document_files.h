#pragma once

#include "capture/workbench.h"
#include "core/signal.h"
#include "formats/catalogue.h"
#include "formats/definition.h"
#include "formats/export.h"
#include "formats/format_state.h"
#include "formats/import.h"
#include "forms/document_session.h"
#include "forms/export_dialog.h"
#include "forms/ports.h"
#include "forms/recall.h"
#include "forms/save_check.h"

namespace cuewright {

/// The formats, the one that is in force, and reading and writing by them.
struct DocumentFormats {
  FormatCatalogue& catalogue;
  FormatState& state;
  FormatLoader& loader;
  Importer& importer;
  Exporter& exporter;
};

/// What a save asks.
struct SaveDialogs {
  ExportDialog& format;
  SaveCheck& check;
};

/// The document and its file: the items of the File menu that make, read and write a subtitle.
class DocumentFiles {
 public:
  DocumentFiles(Workbench bench, DocumentFormats formats, DocumentSession& session, Recall& recall, SaveDialogs saving,
                Ports ports);

  /// True when the caller may throw the document away.
  [[nodiscard]] bool PromptForSave();
  /// Loads a subtitle or text file as the document, once the open one may be thrown away.
  void Open(const Text& path);
  /// Loads it without a question.
  void OpenSubtitleFile(TextView path);
  /// Writes to `SubtitlePath` in the format in force; false when no file was written.
  bool SaveDocument();
  /// Asks for a file in any of the formats; the empty text when none was chosen.
  Text OpenFileFilter();
  /// A load or a save of the document's formats has come to a stage.
  void Follow(FileStage stage, TextView status);

  void New();
  void NewFromClipboard();
  void OpenText();
  void Append();
  void Save();
  /// False when a dialog was left, or no file was written.
  bool SaveAs();
  void Close();

  Signal<DocumentFiles> Loaded;    ///< the document has come from its file
  Signal<DocumentFiles> RulesDue;  ///< it has, and the correction rules may see it; what they throw is told
  Signal<DocumentFiles, DocumentEncoding> SavedAsUtf8;  ///< it was, since the encoding it had lacks a character of it
  Signal<DocumentFiles, bool> Saved;    ///< the document was written to its file; true with all of its captions
  Signal<DocumentFiles> FileWorkEnded;  ///< a file was read or written; what waited for that can be done

 private:
  void Wire();
  void ShowLoading(bool loading);
  /// Saves as the user asked for by Yes; false when there is no file with the captions behind it.
  bool SaveBeforeLeaving();
  /// The file that was written with the captions up to a row holds all that the document has.
  bool HoldsAll(Row lastRow) const;
  /// The part of `SaveAs` that may be broken off, or fail, at any place.
  bool ChooseAndSave();
  void LoadSteps(const Text& path, class CarryOn& step);
  void FinishLoad(class CarryOn& step);
  bool LoadFailed() const;
  /// Where a rate is asked for, the film's own is offered; scripts of SubStation are laid out for its picture.
  void NoteFilm() {
    formats_.state.FilmFps = ports_.player.FramesPerSecond();
    formats_.state.FilmPicture = ports_.player.Picture();
  }
  bool Playing() const { return ports_.player.PlayState() == kPlayerPlaying; }
  Text FilterOf(TextView id, TextView fallbackName) const;
  Text Untitled(Message message) const;
  /// Asks about a file of another name than the picker gave, which asked about that one alone.
  bool MayReplace(const Text& path);
  /// As `PromptForSave`; `thrownAway` tells that the user said so.
  bool MayLeave(bool& thrownAway);

  Workbench bench_;
  DocumentFormats formats_;
  DocumentSession& session_;
  Recall& recall_;
  SaveDialogs saving_;
  DocumentEncoding saved_;  ///< what the document had when its save began
  Ports ports_;
};

}  // namespace cuewright
