#pragma once

#include <memory>

#include "core/runtime_error.h"
#include "text/text.h"

namespace cuewright {

/// The number of the failure to create an object.
inline constexpr int kErrorCannotCreateObject = 429;

/// A word processor by its older set of commands, "Word.Basic". Line ends of its text are CR; each command may fail
/// with a run-time error.
class WordBasic {
 public:
  virtual ~WordBasic() = default;
  virtual void AppMinimize() = 0;
  virtual void FileNewDefault() = 0;
  virtual void EditSelectAll() = 0;
  virtual void EditCut() = 0;
  virtual void Insert(TextView text) = 0;
  virtual void StartOfDocument() = 0;
  /// The user goes through the spelling of the document.
  virtual void ToolsSpelling() = 0;
  /// The text that is selected.
  virtual Text Selection() = 0;
  /// Closes all documents; 2 saves none.
  virtual void FileCloseAll(int save) = 0;
  virtual void AppClose() = 0;
};

/// A document of a word processor.
class WordDocument {
 public:
  virtual ~WordDocument() = default;
  virtual void SetContent(TextView text) = 0;
  /// The whole text, which ends in a line end.
  virtual Text Content() = 0;
  /// The user goes through the spelling of the document.
  virtual void CheckSpelling() = 0;
  virtual void Close(bool save) = 0;
  /// Ends the application that the document belongs to.
  virtual void QuitApplication(bool save) = 0;
};

/// A word processor by its newer set of objects, "Word.Application".
class WordApplication {
 public:
  virtual ~WordApplication() = default;
  virtual void SetVisible(bool visible) = 0;
  virtual Text Version() = 0;
  /// A new document.
  virtual std::unique_ptr<WordDocument> Add() = 0;
  /// A new document by the last two of the four arguments of the command; the first two are left out.
  virtual std::unique_ptr<WordDocument> Add(int documentType, bool visible) = 0;
  /// How many words of the active document are misspelt.
  virtual int SpellingErrors() = 0;
};

/// Word processors that the program can work by. Creating one is run-time error 429 when there is none.
class WordAutomation {
 public:
  virtual ~WordAutomation() = default;
  virtual std::unique_ptr<WordBasic> CreateWordBasic() = 0;
  virtual std::unique_ptr<WordApplication> CreateWordApplication() = 0;
  /// How long a call waits for a processor that is at work, in ms.
  virtual void SetBusyTimeout(int ms) = 0;
};

}  // namespace cuewright
