#pragma once

#include <functional>
#include <map>
#include <set>
#include <unordered_map>
#include <vector>

#include "core/ports/spelling.h"
#include "external/spell_words.h"
#include "external/user_words.h"
#include "text/text.h"

namespace cuewright {

/// Looks words up in a dictionary, each only once however often it comes.
class SpellLookup {
 public:
  SpellLookup(SpellDictionary& dictionary, UserWords& userWords) : dictionary_(dictionary), userWords_(userWords) {}

  /// True when the word, or each of the words that its apostrophes join, is spelt right or the user's own.
  bool Knows(TextView word);
  std::vector<Text> Suggest(TextView word);
  /// To be called when the user's words have changed: what was found out so far is forgotten.
  void Forget() { known_.clear(); }

 private:
  /// Lets texts be found by views of them.
  struct Hash : std::hash<TextView> {
    using is_transparent = void;
  };
  bool LookUp(const Text& word);

  SpellDictionary& dictionary_;
  UserWords& userWords_;
  std::unordered_map<Text, bool, Hash, std::equal_to<>> known_;
};

/// What the user decided about words, for one check from its first text to its last.
struct SpellDecisions {
  std::set<Text, std::less<>> ignored;
  std::map<Text, Text, std::less<>> replaced;  ///< by word: what each further one of it becomes
  bool stopped = false;                        ///< nothing more is to be asked
};

/// The way through one text from one misspelt word to the next. The text has its lines ended by CR, and lines that are
/// marks alone; these are neither looked up nor shown, and no replacement makes or breaks one.
class SpellSession {
 public:
  SpellSession(Text document, SpellDecisions& decisions) : document_(std::move(document)), decisions_(decisions) {}

  /// From now on this dictionary decides, from the present word on.
  void Use(SpellLookup& lookup) { lookup_ = &lookup; }

  /// Goes to the next word that is misspelt, from the present one on; false when there is none. Words that are to be
  /// replaced everywhere are replaced on the way.
  bool Next();
  /// The present word, until the next step; empty at the end.
  TextView Word() const { return TextView(document_).substr(word_.start, word_.length); }

  /// The caption of the present word as the user reads it, with CR LF between its lines, and where the word stands in
  /// it.
  struct Shown {
    Text text;
    WordPlace word;
    int caption = 1;  ///< in the text, from 1
  };
  Shown Caption() const;

  /// True for a text that can stand in the present word's place: not that word itself, without line ends, and making no
  /// mark together with what stands around it.
  bool MayReplace(TextView replacement) const;
  /// The steps: each decides about the present word and goes on behind it. Words that were ignored or replaced
  /// everywhere are not asked about again.
  void Ignore();
  void IgnoreAll();
  void Replace(TextView replacement);
  void ReplaceAllOf(TextView replacement);
  /// The word was added to the user's words.
  void NoteAdded();

  /// Takes the last of these steps back. The word that `NoteAdded` was called for, which the caller has to remove;
  /// empty for any other step.
  Text Undo();
  bool CanUndo() const { return !steps_.empty(); }
  /// True when the text differs from the one given at the beginning.
  bool Changed() const { return changed_; }

  const Text& Document() const { return document_; }
  /// How many words of the whole text are misspelt.
  int Errors() const;

 private:
  struct Step {
    Text document;
    WordPlace word;
    SpellDecisions decisions;
    Text added;
    bool changed = false;
  };

  void Remember(Text added = {});
  void PutAtWord(TextView replacement);
  bool Misspelt(TextView word) const;
  bool MisspeltAt(TextView line, const WordPlace& place) const;

  Text document_;
  SpellDecisions& decisions_;
  SpellLookup* lookup_ = nullptr;
  WordPlace word_;
  bool changed_ = false;
  std::vector<Step> steps_;
};

}  // namespace cuewright
