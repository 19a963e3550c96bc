#pragma once

#include "external/word_automation.h"

namespace cuewright {

/// What goes through the spelling of a text together with the user. Lines end at CR.
class TextChecker {
 public:
  virtual ~TextChecker() = default;
  /// Run-time error, with the reason for the user, when no text can be checked.
  virtual void Prepare() = 0;
  /// The text as the user left it.
  virtual Text Check(const Text& document) = 0;
  /// How many words are misspelt.
  virtual int CountErrors(const Text& document) = 0;
};

/// The program's own stand-in for a word processor: no windows but the one in which the spelling is checked.
class OwnWord final : public WordAutomation {
 public:
  explicit OwnWord(TextChecker& checker) : checker_(checker) {}

  std::unique_ptr<WordBasic> CreateWordBasic() override;
  std::unique_ptr<WordApplication> CreateWordApplication() override;
  void SetBusyTimeout(int ms) override { (void)ms; }

 private:
  void Prepare();

  TextChecker& checker_;
};

}  // namespace cuewright
