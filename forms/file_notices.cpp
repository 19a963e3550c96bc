#include "forms/file_notices.h"

namespace cuewright {

FileNotices::FileNotices(Workbench bench, DocumentFormats formats, DocumentFiles& files, LinesReport& lines,
                         Notices& notices, Messages& messages)
    : bench_(bench), formats_(formats), notices_(notices), messages_(messages) {
  files.Loaded.Connect([this, &lines] {
    TellFile(Message::ReadAs);
    if (const int count = lines.Count(); count != 0) notices_.TellLines(count);
  });
  files.Saved.Connect([this](bool) {
    if (!notices_.Shown()) TellFile(Message::SavedAs);
  });
  files.SavedAsUtf8.Connect([this](const DocumentEncoding& lacking) { TellSavedAsUtf8(lacking); });
}

void FileNotices::TellFile(Message text) {
  const FormatState& state = formats_.state;
  notices_.Tell(text, formats_.catalogue.ReadIni(formats_.catalogue.Identifier(state.CurrentFormatIndex), u"name", {}),
                EncodingName(state.Encoding));
}

void FileNotices::TellSavedAsUtf8(const DocumentEncoding& lacking) {
  const Text name = EncodingName(lacking);
  notices_.Tell(Message::SavedAsUtf8, name);
  // Notices are part of the information bar: without it a box tells.
  if (!notices_.Seen()) {
    messages_.Show({bench_.document.SubtitlePath + u"\r\n\r\n" + Fill(bench_.strings[Message::SavedAsUtf8], name),
                    BoxIcon::Information});
  }
}

}  // namespace cuewright
