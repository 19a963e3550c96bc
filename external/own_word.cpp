#include "external/own_word.h"

namespace cuewright {
namespace {

constexpr TextView kCr = u"\r";

/// A text as a document holds it.
Text Paragraphs(TextView text) { return ReplaceAll(text, kLineEnd, kCr); }

class OwnBasic final : public WordBasic {
 public:
  explicit OwnBasic(TextChecker& checker) : checker_(checker) {}

  void AppMinimize() override {}
  void FileNewDefault() override { text_.clear(); }
  void EditSelectAll() override { selected_ = true; }
  void EditCut() override {
    if (selected_) text_.clear();
    selected_ = false;
  }
  void Insert(TextView text) override {
    if (selected_) text_.clear();
    selected_ = false;
    text_ += Paragraphs(text);
  }
  void StartOfDocument() override { selected_ = false; }
  void ToolsSpelling() override { text_ = checker_.Check(text_); }
  // A document ends in a line end of its own.
  Text Selection() override { return selected_ ? text_ + Text(kCr) : Text(); }
  void FileCloseAll(int save) override {
    (void)save;
    text_.clear();
  }
  void AppClose() override {}

 private:
  TextChecker& checker_;
  Text text_;
  bool selected_ = false;
};

class OwnDocument final : public WordDocument {
 public:
  OwnDocument(TextChecker& checker, Text& text) : checker_(checker), text_(text) {}

  void SetContent(TextView text) override { text_ = Paragraphs(text); }
  Text Content() override { return text_ + Text(kCr); }
  void CheckSpelling() override { text_ = checker_.Check(text_); }
  void Close(bool save) override { (void)save; }
  void QuitApplication(bool save) override { (void)save; }

 private:
  TextChecker& checker_;
  Text& text_;
};

class OwnApplication final : public WordApplication {
 public:
  explicit OwnApplication(TextChecker& checker) : checker_(checker) {}

  void SetVisible(bool visible) override { (void)visible; }
  Text Version() override { return u"1.0"; }
  std::unique_ptr<WordDocument> Add() override { return std::make_unique<OwnDocument>(checker_, text_); }
  std::unique_ptr<WordDocument> Add(int /*documentType*/, bool /*visible*/) override { return Add(); }
  int SpellingErrors() override { return checker_.CountErrors(text_); }

 private:
  TextChecker& checker_;
  Text text_;
};

}  // namespace

void OwnWord::Prepare() {
  try {
    checker_.Prepare();
  } catch (const RuntimeError& error) {
    throw RuntimeError{kErrorCannotCreateObject, error.description};
  }
}

std::unique_ptr<WordBasic> OwnWord::CreateWordBasic() {
  Prepare();
  return std::make_unique<OwnBasic>(checker_);
}

std::unique_ptr<WordApplication> OwnWord::CreateWordApplication() {
  Prepare();
  return std::make_unique<OwnApplication>(checker_);
}

}  // namespace cuewright
