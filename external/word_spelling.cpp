#include "external/word_spelling.h"

namespace cuewright {
namespace {

constexpr int kNoFailure = 1277;
constexpr int kSaveNothing = 2;
constexpr int kBusyTimeout = 999999;
constexpr int kNewDocument = 1;

/// The text without the line end that closes a document.
Text WithoutLast(Text text) {
  if (!text.empty()) text.pop_back();
  return text;
}

}  // namespace

Text WordSpelling::MsSpellCheck(TextView text) {
  failed_ = false;
  Text checked(text);
  Text selection;
  std::unique_ptr<WordBasic> word;
  CarryOn step;
  if (step([&] { word = automation_.CreateWordBasic(); })) {
    step([&] { word->AppMinimize(); });
    step([&] { word->FileNewDefault(); });
    step([&] { word->EditSelectAll(); });
    step([&] { word->EditCut(); });
    step([&] { word->Insert(text); });
    step([&] { word->StartOfDocument(); });
    step([&] { word->ToolsSpelling(); });
    step([&] { word->EditSelectAll(); });
    step([&] { selection = word->Selection(); });
    if (selection.ends_with(u'\r')) selection.pop_back();
    if (selection.size() > 1) checked = std::move(selection);
    step([&] { word->FileCloseAll(kSaveNothing); });
    step([&] { word->AppClose(); });
  }
  if (step.Last() && step.Last()->number != kNoFailure) {
    failed_ = true;
    messages_.Show({strings_[Message::SpellCheckFailed] + u"\r\n\r\n(Error# " + Decimal(step.Last()->number) + u" - " +
                        step.Last()->description + u")",
                    BoxIcon::Error, BoxButtons::Ok, strings_[Message::SpellCheck]});
  }
  return checked;
}

Text WordSpelling::CheckSpelling(TextView text) {
  if (text.empty()) return {};
  Text checked(text);
  std::unique_ptr<WordApplication> word;
  std::unique_ptr<WordDocument> document;
  CarryOn step;
  automation_.SetBusyTimeout(kBusyTimeout);
  if (!step([&] { word = automation_.CreateWordApplication(); })) return checked;
  step([&] { word->SetVisible(false); });
  step([&] {
    const Text version = word->Version();
    const bool knowsMore = version == u"9.0" || version == u"10.0" || version == u"11.0";
    document = knowsMore ? word->Add(kNewDocument, true) : word->Add();
  });
  if (document == nullptr) return checked;
  step([&] { document->SetContent(text); });
  step([&] { document->CheckSpelling(); });
  step([&] {
    if (word->SpellingErrors() > 0) messages_.Show({u"Cancelled"});
  });
  step([&] { checked = ReplaceAll(WithoutLast(document->Content()), u"\r", kLineEnd); });
  if (checked == text) {
    messages_.Show({u"The spelling check is complete.", BoxIcon::Information, BoxButtons::Ok, u"Spelling Complete"});
  }
  step([&] { document->Close(false); });
  step([&] { document->QuitApplication(true); });
  return checked;
}

}  // namespace cuewright
