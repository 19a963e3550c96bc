#include "core/product.h"
#include "core/runtime_error.h"
#include "settings/languages.h"

namespace cuewright {
namespace {

constexpr int kTitle = 660;
constexpr int kRule = 661;
constexpr int kPurpose = 662;
constexpr int kFirstInstruction = 663;
constexpr int kYourName = 669;
constexpr int kCreated = 670;

}  // namespace

Text Languages::TranslationFilePath() const {
  return folders_.TempFolder + u"qxm_" + Decimal(kVersion.major) + Decimal(kVersion.minor) +
         Decimal(kVersion.revision) + u"_" + ToLower(options_.language) + u".txt";
}

Text Languages::TranslationHeader() const {
  Text header = ReplaceAll(CatalogueString(kTitle), u"%VER", VersionText());
  header.append(kLineEnd).append(CatalogueString(kRule)).append(kLineEnd);
  if (options_.language != u"ENGLISH") {
    header.append(ReplaceAll(CatalogueString(kPurpose), u"%LNG", options_.language)).append(kLineEnd);
  }
  for (int id = kFirstInstruction; id <= kYourName; ++id) header.append(CatalogueString(id)).append(kLineEnd);
  return header + Text(kLineEnd) + u"// " + options_.language + Text(kLineEnd) + Text(kLineEnd);
}

void Languages::WriteTranslationFile(const Text& content) {
  CarryOn step;
  step([&] { files_.Replace(TranslationFilePath(), [&](ByteSink& sink) { sink.Write(ToUtf8(content)); }); });
}

const Text& Languages::TranslationFileMessage() const { return CatalogueString(kCreated); }

Text Languages::CompletionHint(int percent) const {
  return u"This translation is " + Decimal(percent) + u"% complete." + Text(kLineEnd) + Text(kLineEnd) +
         u"To complete the " + ToUpper(options_.language) +
         u" translation, click the Complete this translation link and follow the instructions. Thank you!";
}

}  // namespace cuewright
