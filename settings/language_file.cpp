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
  return p_.folders.TempFolder + u"qxm_" + Decimal(kVersion.major) + Decimal(kVersion.minor) +
         Decimal(kVersion.revision) + u"_" + ToLower(p_.options.language) + u".txt";
}

Text Languages::TranslationHeader() const {
  Text header = ReplaceAll(CatalogueString(kTitle), u"%VER", VersionText());
  header.append(kLineEnd).append(CatalogueString(kRule)).append(kLineEnd);
  if (p_.options.language != u"ENGLISH") {
    header.append(ReplaceAll(CatalogueString(kPurpose), u"%LNG", p_.options.language)).append(kLineEnd);
  }
  for (int id = kFirstInstruction; id <= kYourName; ++id) header.append(CatalogueString(id)).append(kLineEnd);
  return header + Text(kLineEnd) + u"// " + p_.options.language + Text(kLineEnd) + Text(kLineEnd);
}

void Languages::WriteTranslationFile(const Text& content) {
  CarryOn step;
  step([&] { p_.files.Replace(TranslationFilePath(), [&](ByteSink& sink) { sink.Write(ToUtf8(content)); }); });
}

const Text& Languages::TranslationFileMessage() const { return CatalogueString(kCreated); }

Text Languages::CompletionHint(int percent) const {
  return u"This translation is " + Decimal(percent) + u"% complete." + Text(kLineEnd) + Text(kLineEnd) +
         u"To complete the " + ToUpper(p_.options.language) +
         u" translation, click the Complete this translation link and follow the instructions. Thank you!";
}

}  // namespace cuewright
