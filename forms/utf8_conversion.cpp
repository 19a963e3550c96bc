#include "forms/utf8_conversion.h"

#include "formats/convert_from_utf8.h"

namespace cuewright {

Utf8Conversion::Utf8Conversion(Workbench bench, CaptionPanel& panel, const Encodings& encodings, Messages& messages)
    : bench_(bench), panel_(panel), encodings_(encodings), messages_(messages) {
  bench_.window.mnuUTF8.Clicked.Connect([this] { Convert(); });
}

void Utf8Conversion::Convert() {
  const Text question = Fill(bench_.strings[Message::ConversionQuestion], u"UTF-8");
  const Text title = bench_.strings[Message::ConvertFrom] + u" UTF-8";
  if (messages_.Show({question, BoxIcon::Question, BoxButtons::YesNo, title}) != BoxAnswer::Yes) return;
  const EditScope scope(bench_.list, EditKind::Convert);
  ConvertCaptionsFromUtf8(bench_.list, encodings_);
  panel_.ShowText(bench_.list.Selected());
}

}  // namespace cuewright
