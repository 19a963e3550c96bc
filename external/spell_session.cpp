#include "external/spell_session.h"

#include <algorithm>

#include "external/spell_text.h"

namespace cuewright {
namespace {

constexpr char16_t kCr = u'\r';

bool IsMark(TextView line) { return line == kCaptionMark || line == kBreakMark || line == kItalicMark; }

TextView LineAt(TextView text, std::size_t start) { return text.substr(start, text.find(kCr, start) - start); }

std::size_t LineStart(TextView text, std::size_t at) {
  return at == 0 ? 0 : text.rfind(kCr, at - 1) == TextView::npos ? 0 : text.rfind(kCr, at - 1) + 1;
}

int Count(TextView text, TextView needle) {
  int count = 0;
  for (std::size_t at = text.find(needle); at != TextView::npos; at = text.find(needle, at + 1)) ++count;
  return count;
}

}  // namespace

bool SpellLookup::Knows(TextView word) {
  if (const auto found = known_.find(word); found != known_.end()) return found->second;
  const Text looked(word);
  return known_[looked] = LookUp(looked);
}

bool SpellLookup::LookUp(const Text& word) {
  const Text plain = ComposedLetters(PlainApostrophes(ReplaceAll(word, u"\u00AD", {})));
  const auto known = [&](const Text& one) { return userWords_.Has(one) || dictionary_.Knows(one); };
  if (known(plain) || (plain != word && known(word))) return true;
  const std::vector<Text> parts = Split(plain, u"'");
  return parts.size() > 1 &&
         std::all_of(parts.begin(), parts.end(), [&](const Text& part) { return part.size() < 2 || known(part); });
}

std::vector<Text> SpellLookup::Suggest(TextView word) {
  const Text plain = ComposedLetters(PlainApostrophes(word));
  std::vector<Text> suggestions = dictionary_.Suggest(plain);
  // Replacements are written with the apostrophes of the word.
  if (PlainApostrophes(word) != word) {
    for (Text& one : suggestions) one = ReplaceAll(one, u"'", u"\u2019");
  }
  std::erase_if(suggestions, [&](const Text& one) { return one.empty() || one == word; });
  return suggestions;
}

bool SpellSession::Misspelt(TextView word) const {
  return decisions_.ignored.find(word) == decisions_.ignored.end() && lookup_ != nullptr && !lookup_->Knows(word);
}

bool SpellSession::MisspeltAt(TextView line, const WordPlace& place) const {
  if (!Misspelt(line.substr(place.start, place.length))) return false;
  // The apostrophe in front may open a quotation or belong to the word.
  const Text whole = WithLeadingApostrophe(line, place);
  return whole.empty() || !lookup_->Knows(whole);
}

bool SpellSession::Next() {
  std::size_t from = word_.start;
  std::size_t line = LineStart(document_, from);
  while (line <= document_.size()) {
    const TextView text = LineAt(document_, line);
    const std::vector<WordPlace> words = IsMark(text) ? std::vector<WordPlace>() : WordsOf(text);
    bool again = false;
    for (const WordPlace& place : words) {
      if (line + place.start < from) continue;
      word_ = {line + place.start, place.length};
      const TextView word = Word();
      const auto everywhere = decisions_.replaced.find(word);
      if (everywhere != decisions_.replaced.end() && MayReplace(everywhere->second)) {
        PutAtWord(everywhere->second);
        from = word_.start;
        again = true;
        break;
      }
      if (MisspeltAt(text, place)) return true;
    }
    if (!again) line += text.size() + 1;
  }
  word_ = {document_.size(), 0};
  return false;
}

SpellSession::Shown SpellSession::Caption() const {
  Shown shown;
  std::size_t start = 0;
  std::size_t end = document_.size();
  for (std::size_t line = 0; line <= document_.size();) {
    const TextView text = LineAt(document_, line);
    if (text == kCaptionMark) {
      if (line > word_.start) {
        end = line;
        break;
      }
      start = line + text.size() + 1;
      ++shown.caption;
    }
    line += text.size() + 1;
  }
  bool joins = true;  // the next line goes on where the last one ended
  for (std::size_t line = start; line < end;) {
    const TextView text = LineAt(document_, line);
    if (text == kItalicMark) {
      joins = true;
    } else if (text != kBreakMark) {
      if (!joins) shown.text += kLineEnd;
      if (word_.start >= line && word_.start < line + text.size()) {
        shown.word = {shown.text.size() + word_.start - line, word_.length};
      }
      shown.text += text;
      joins = false;
    }
    line += text.size() + 1;
  }
  return shown;
}

bool SpellSession::MayReplace(TextView replacement) const {
  if (word_.length == 0 || replacement == Word() || replacement.find_first_of(u"\r\n") != TextView::npos) return false;
  const std::size_t start = LineStart(document_, word_.start);
  const TextView before = LineAt(document_, start);
  Text after(before);
  after.replace(word_.start - start, word_.length, replacement);
  if (IsMark(after)) return false;
  for (const TextView mark : {kCaptionMark, kBreakMark, kItalicMark}) {
    if (Count(before, mark) != Count(after, mark)) return false;
  }
  return true;
}

void SpellSession::Remember(Text added) {
  steps_.push_back({document_, word_, decisions_, std::move(added), changed_});
}

void SpellSession::PutAtWord(TextView replacement) {
  document_.replace(word_.start, word_.length, replacement);
  word_ = {word_.start + replacement.size(), 0};
  changed_ = true;
}

void SpellSession::Ignore() {
  Remember();
  word_ = {word_.start + word_.length, 0};
}

void SpellSession::IgnoreAll() {
  Remember();
  decisions_.ignored.emplace(Word());
}

void SpellSession::Replace(TextView replacement) {
  if (!MayReplace(replacement)) return;
  Remember();
  PutAtWord(replacement);
}

void SpellSession::ReplaceAllOf(TextView replacement) {
  if (!MayReplace(replacement)) return;
  Remember();
  decisions_.replaced[Text(Word())] = Text(replacement);
  PutAtWord(replacement);
}

void SpellSession::NoteAdded() { Remember(Text(Word())); }

Text SpellSession::Undo() {
  if (steps_.empty()) return {};
  Step step = std::move(steps_.back());
  steps_.pop_back();
  document_ = std::move(step.document);
  word_ = step.word;
  decisions_ = std::move(step.decisions);
  changed_ = step.changed;
  return step.added;
}

int SpellSession::Errors() const {
  int errors = 0;
  for (const Text& line : Split(document_, u"\r")) {
    if (IsMark(line)) continue;
    for (const WordPlace& place : WordsOf(line)) {
      if (MisspeltAt(line, place)) ++errors;
    }
  }
  return errors;
}

}  // namespace cuewright
