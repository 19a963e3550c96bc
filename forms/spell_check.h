#pragma once

#include <functional>
#include <map>
#include <memory>

#include "capture/workbench.h"
#include "core/ports/spelling.h"
#include "external/own_word.h"
#include "external/spell_session.h"
#include "external/word_spelling.h"
#include "forms/ports.h"
#include "forms/spell_dialog.h"
#include "settings/languages.h"
#include "settings/store.h"

namespace cuewright {

/// What the spelling check works on.
struct SpellParts {
  Workbench bench;
  const Languages& languages;
  SettingsStore& store;
  const SpellDictionaries& dictionaries;
  Text wordsFolder;  ///< of the user's own words, a file a dictionary, with a "/" at its end; empty: they aren't kept
  Ports ports;
};

/// The command `mnuSpell`: the captions go, in blocks, through a word processor's spelling check, which here is the
/// program's own, and those that come back changed are stored. The whole check is one step of undo.
class SpellCheck final : private TextChecker {
 public:
  explicit SpellCheck(const SpellParts& parts);

  SpellDialog dialog;
  WordSpelling word;

  Signal<SpellCheck> Checked;  ///< a check has gone through all captions

  /// `mnuSpell`.
  void CheckAll();
  /// Looks for the dictionaries and forgets what was decided before; to be called before a text goes through `word`.
  void Begin();

 private:
  /// A dictionary that is open, with the user's words beside it.
  struct Opened {
    std::unique_ptr<SpellDictionary> dictionary;
    UserWords userWords;
    SpellLookup lookup;

    Opened(std::unique_ptr<SpellDictionary> opened, Files& files, Text wordsFile)
        : dictionary(std::move(opened)), userWords(files, std::move(wordsFile)), lookup(*dictionary, userWords) {}
  };

  void Prepare() override;
  Text Check(const Text& document) override;
  int CountErrors(const Text& document) override;

  [[nodiscard]] bool CheckBlocks();
  void StoreBlock(Row first, const std::vector<Text>& captions, const Text& checked);
  int PreferredDictionary() const;
  void OpenDictionary(int index);
  [[nodiscard]] bool UseLanguage(int index, SpellSession& session);
  bool ChangeWords(const std::function<void(UserWords&)>& change);
  void TellEnd();

  SpellParts parts_;
  OwnWord ownWord_{*this};
  std::vector<Text> names_;  ///< of the dictionaries, while a check runs
  std::map<int, Opened> opened_;
  int dictionary_ = -1;
  SpellDecisions decisions_;
  int first_ = 1;    ///< row of the block that is checked
  int done_ = 0;     ///< rows that went through the check
  int changed_ = 0;  ///< of them those that came back changed
  std::uint64_t checks_ = 0;
};

}  // namespace cuewright
