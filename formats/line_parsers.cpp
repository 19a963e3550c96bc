#include "formats/line_parsers.h"

#include <array>

#include "core/numbers.h"
#include "formats/text_pieces.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

constexpr TextView kColumnLine = u"SP_NUMBER";

char16_t CharacterAt(TextView text, std::size_t place) { return place <= text.size() ? text[place - 1] : u'\0'; }

/// One caption a line, without times.
class PlainTextParser final : public LineParser {
 public:
  explicit PlainTextParser(const ParseContext& context) : captions_(context.captions) {}

  void Parse(ImportLine& line) override {
    if (line.Empty()) return;
    captions_.captionText = TrimBlanks(line.View());
    if (!captions_.captionText.empty()) captions_.StoreImportedCaption();
    captions_.Reset();
  }

 private:
  CaptionCollector& captions_;
};

/// The events of SubStation files.
class DialogueParser final : public LineParser {
 public:
  explicit DialogueParser(const ParseContext& context)
      : context_(context), reader_(context.definition, {{}, context.times.exact}) {}

  void Parse(ImportLine& line) override {
    if (!line.View().starts_with(u"Dialogue: ")) return;
    CaptionCollector& captions = context_.captions;
    std::array<TextView, 10> fields;
    const std::size_t count = SplitFields(line.View(), fields);
    const auto field = [&](std::size_t index) {
      if (index >= count) throw RuntimeError{9, u"Subscript out of range"};
      return fields[index];
    };
    context_.errors([&] { captions.captionStart = reader_.Parse(field(1)); });
    context_.errors([&] { captions.captionEnd = reader_.Parse(field(2)); });
    context_.errors([&] { TakeText(field(9)); });
    captions.FlushImportedCaption();
  }

 private:
  /// Cuts at commas; commas within the last field stay.
  static std::size_t SplitFields(TextView text, std::array<TextView, 10>& fields) {
    std::size_t count = 0;
    std::size_t field = 0;
    for (std::size_t at = 0; at < text.size() && count + 1 < fields.size(); ++at) {
      if (text[at] != u',') continue;
      fields[count++] = text.substr(field, at - field);
      field = at + 1;
    }
    fields[count++] = text.substr(field);
    return count;
  }

  void TakeText(TextView text) {
    Text& into = context_.captions.captionText;
    into.clear();
    for (std::size_t at = 0;;) {
      std::size_t hit = FindCharacter(text, u'\\', at);
      while (hit != TextView::npos && (hit + 1 == text.size() || (text[hit + 1] != u'n' && text[hit + 1] != u'N'))) {
        hit = FindCharacter(text, u'\\', hit + 1);
      }
      into.append(text, at, hit == TextView::npos ? hit : hit - at);
      if (hit == TextView::npos) return;
      into += context_.captions.Separator();
      at = hit + 2;
    }
  }

  ParseContext context_;
  TimecodeReader reader_;
};

/// "hh:mm:ss,n=text", n being the row of the caption.
class TmPlayerParser final : public LineParser {
 public:
  explicit TmPlayerParser(const ParseContext& context)
      : context_(context), reader_(context.definition, {{}, context.times.exact}) {}

  void Parse(ImportLine& line) override {
    const TextView text = line.View();
    if (CharacterAt(text, 11) != u'=') return;
    CaptionCollector& captions = context_.captions;
    const bool firstRow = CharacterAt(text, 10) == u'1';
    if (text.size() < 12) {
      if (!captions.StartSet() || captions.EndSet() || !firstRow) return;
      context_.errors([&] { captions.captionEnd = reader_.Parse(text.substr(0, 8)); });
      captions.FlushImportedCaption();
      return;
    }
    if (!captions.StartSet() && firstRow) {
      context_.errors([&] { captions.captionStart = reader_.Parse(text.substr(0, 8)); });
    }
    const TextView row = text.substr(11);
    if (captions.captionText.empty()) {
      captions.captionText = ReplaceAll(row, u"|", captions.Separator());
    } else {
      captions.AddLine(row);
    }
  }

 private:
  ParseContext context_;
  TimecodeReader reader_;
};

/// Timing lines with colons at the characters 3 and 21, and text lines below.
class EncoreParser final : public LineParser {
 public:
  explicit EncoreParser(const ParseContext& context) : context_(context), reader_(context.definition, context.times) {}

  void Parse(ImportLine& line) override {
    if (line.Empty()) return;
    const TextView text = line.View();
    CaptionCollector& captions = context_.captions;
    if (CharacterAt(text, 3) != u':' || CharacterAt(text, 21) != u':') {
      captions.captionText += captions.Separator();
      captions.captionText += text;
      return;
    }
    // The caption is stored with the text gathered so far, and that text stays for the next one unless this line brings
    // another.
    if (captions.TimesSet() && !IsBlank(captions.captionText)) captions.StoreImportedCaption();
    context_.errors([&] { captions.captionStart = reader_.Parse(text.substr(0, 11)); });
    context_.errors([&] { captions.captionEnd = reader_.Parse(Middle(text, 13, 11)); });
    if (text.size() > 25) captions.captionText = text.substr(24);
  }

 private:
  ParseContext context_;
  TimecodeReader reader_;
};

/// Numbered lines with two times of 11 characters and the text in fixed columns behind the first colon.
class SpruceParser final : public LineParser {
 public:
  SpruceParser(const ParseContext& context, bool bodySeen)
      : context_(context), reader_(context.definition, context.times), bodySeen_(bodySeen) {}

  void Parse(ImportLine& line) override {
    const TextView text = line.View();
    if (!bodySeen_) {
      bodySeen_ = EqualLoose(text.substr(0, kColumnLine.size()), kColumnLine);
      return;
    }
    if (text.size() < 28) return;
    CaptionCollector& captions = context_.captions;
    std::ptrdiff_t place = 0;
    context_.errors([&] {
      const std::ptrdiff_t colon = text.find(u':') + 1;
      if (colon - 2 > 255) ThrowOverflow();
      place = colon - 2;
    });
    context_.errors([&] { captions.captionStart = reader_.Parse(Middle(text, place, 11)); });
    context_.errors([&] { captions.captionEnd = reader_.Parse(Middle(text, place + 12, 11)); });
    context_.errors([&] { captions.captionText = Middle(text, place + 24); });
    captions.FlushImportedCaption();
  }

 private:
  ParseContext context_;
  TimecodeReader reader_;
  bool bodySeen_;
};

}  // namespace

std::unique_ptr<LineParser> MakePlainTextParser(const ParseContext& context) {
  return std::make_unique<PlainTextParser>(context);
}

std::unique_ptr<LineParser> MakeDialogueParser(const ParseContext& context) {
  return std::make_unique<DialogueParser>(context);
}

std::unique_ptr<LineParser> MakeTmPlayerParser(const ParseContext& context) {
  return std::make_unique<TmPlayerParser>(context);
}

std::unique_ptr<LineParser> MakeEncoreParser(const ParseContext& context) {
  return std::make_unique<EncoreParser>(context);
}

std::unique_ptr<LineParser> MakeSpruceParser(const ParseContext& context, bool bodySeen) {
  return std::make_unique<SpruceParser>(context, bodySeen);
}

}  // namespace cuewright
