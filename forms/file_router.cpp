#include "forms/file_router.h"

#include "core/paths.h"

namespace cuewright {

FileRouter::FileRouter(const DocumentState& document, DocumentFiles& texts, PlayerBinding& films, AudioCommands& sounds)
    : document_(document), texts_(texts), films_(films), sounds_(sounds) {}

void FileRouter::OpenAs(FileKind kind, const Text& path) {
  switch (kind) {
    case FileKind::Film:
      return films_.LoadVideoFile(path);
    case FileKind::Sound:
      return sounds_.OpenAudioFile(path, kAudioToPlayer);
    case FileKind::Subtitle:
      return texts_.Open(path);
  }
}

void FileRouter::OpenDropped(const std::vector<Text>& paths) {
  if (document_.FileInWork) return;
  Text text;
  for (const Text& path : paths) {
    const FileKind kind = KindOfFile(path);
    if (kind == FileKind::Subtitle) {
      text = path;
    } else {
      OpenAs(kind, path);
    }
  }
  if (!text.empty()) OpenAs(FileKind::Subtitle, text);
}

void FileRouter::OpenStartFile(TextView path) {
  const Text extension = StartExtension(path);
  for (const TextView video : {u"asf", u"mkv", u"mpeg", u"mpg", u"mp4", u"avi", u"ogm", u"wmv"}) {
    if (extension == video) return films_.LoadVideoFile(path);
  }
  for (const TextView audio : {u"wav", u"mp2", u"mp3"}) {
    if (extension == audio) return sounds_.OpenAudioFile(path, kAudioToPlayer);
  }
  texts_.OpenSubtitleFile(path);
}

}  // namespace cuewright
