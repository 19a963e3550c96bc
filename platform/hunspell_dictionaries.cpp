#include "platform/hunspell_dictionaries.h"

#include <dlfcn.h>
#include <hunspell.h>
#include <unicode/ucnv.h>
#include <unicode/uloc.h>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <utility>

#include "core/counting.h"
#include "platform/library_function.h"
#include "text/digits.h"

namespace cuewright {

/// The functions of Hunspell in use.
struct HunspellApi {
  decltype(&::Hunspell_create) create = nullptr;
  decltype(&::Hunspell_destroy) destroy = nullptr;
  decltype(&::Hunspell_spell) spell = nullptr;
  decltype(&::Hunspell_suggest) suggest = nullptr;
  decltype(&::Hunspell_free_list) free_list = nullptr;
  decltype(&::Hunspell_get_dic_encoding) get_dic_encoding = nullptr;
};

namespace {

/// What Hunspell can look up, in bytes.
constexpr std::size_t kLongestWord = 99;

bool FillTable(void* library, HunspellApi& api) {
  return FindFunction(library, "Hunspell_create", api.create) &&
         FindFunction(library, "Hunspell_destroy", api.destroy) && FindFunction(library, "Hunspell_spell", api.spell) &&
         FindFunction(library, "Hunspell_suggest", api.suggest) &&
         FindFunction(library, "Hunspell_free_list", api.free_list) &&
         FindFunction(library, "Hunspell_get_dic_encoding", api.get_dic_encoding);
}

/// Text and the bytes of a dictionary, in whichever code page that is written.
class DictionaryCodec {
 public:
  /// `name` is the code page by the names that dictionaries use; run-time error for one that isn't known.
  explicit DictionaryCodec(std::string name) {
    constexpr std::string_view kMicrosoft = "microsoft-cp";
    if (name.starts_with(kMicrosoft)) name.replace(0, kMicrosoft.size(), "windows-");
    if (name == "TIS620-2533") name = "TIS-620";
    UErrorCode status = U_ZERO_ERROR;
    converter_.reset(ucnv_open(name.c_str(), &status));
    if (U_FAILURE(status)) {
      throw RuntimeError{kErrorInvalidCall, u"The dictionary is written in an unknown code page: " + FromUtf8(name)};
    }
    ucnv_setFromUCallBack(converter_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  }

  /// Empty for a text with a character that the code page does not have.
  std::optional<std::string> Bytes(TextView text) const {
    UErrorCode status = U_ZERO_ERROR;
    std::string bytes(UCNV_GET_MAX_BYTES_FOR_STRING(text.size(), ucnv_getMaxCharSize(converter_.get())), '\0');
    const std::int32_t length =
        ucnv_fromUChars(converter_.get(), bytes.data(), CountOf(bytes), text.data(), CountOf(text), &status);
    if (U_FAILURE(status)) return std::nullopt;
    bytes.resize(SizeOf(length));
    return bytes;
  }

  Text TextOf(std::string_view bytes) const {
    UErrorCode status = U_ZERO_ERROR;
    Text text(bytes.size() * 2 + 1, u'\0');
    const std::int32_t length =
        ucnv_toUChars(converter_.get(), text.data(), CountOf(text), bytes.data(), CountOf(bytes), &status);
    text.resize(U_FAILURE(status) ? 0 : SizeOf(length));
    return text;
  }

 private:
  struct Close {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
  };
  std::unique_ptr<UConverter, Close> converter_;
};

class HunspellDictionary final : public SpellDictionary {
 public:
  /// `path` is that of the two files without their endings.
  HunspellDictionary(std::shared_ptr<const HunspellApi> api, const std::string& path)
      : api_(std::move(api)),
        handle_(api_->create((path + ".aff").c_str(), (path + ".dic").c_str()), {api_->destroy}),
        codec_(api_->get_dic_encoding(handle_.get())) {}

  bool Knows(TextView word) override {
    const auto bytes = codec_.Bytes(word);
    // A word too long for the library counts as correct.
    if (bytes && bytes->size() > kLongestWord) return true;
    return bytes && api_->spell(handle_.get(), bytes->c_str()) != 0;
  }

  std::vector<Text> Suggest(TextView word) override {
    std::vector<Text> suggestions;
    const auto bytes = codec_.Bytes(word);
    if (!bytes || bytes->size() > kLongestWord) return suggestions;
    char** list = nullptr;
    const int count = api_->suggest(handle_.get(), &list, bytes->c_str());
    for (int i = 0; i < count; ++i) suggestions.push_back(codec_.TextOf(list[i]));
    if (count > 0) api_->free_list(handle_.get(), &list, count);
    return suggestions;
  }

 private:
  struct Destroy {
    decltype(&::Hunspell_destroy) destroy;
    void operator()(Hunhandle* handle) const { destroy(handle); }
  };

  std::shared_ptr<const HunspellApi> api_;
  std::unique_ptr<Hunhandle, Destroy> handle_;
  DictionaryCodec codec_;
};

/// Hunspell accepts any file; a real word list begins with the number of its words.
bool IsWordList(const std::string& file) {
  std::ifstream words(file, std::ios::binary);
  std::string line;
  if (!std::getline(words, line)) return false;
  if (line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
  return !line.empty() && IsDigit(line[0]);
}

void AddParts(std::vector<std::string>& folders, const char* variable, const std::string& below) {
  const char* value = std::getenv(variable);
  std::string_view rest = value != nullptr ? value : "";
  while (!rest.empty()) {
    const std::string_view part = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(rest.size(), part.size() + 1));
    if (part.starts_with('/')) folders.push_back(std::string(part) + below);
  }
}

}  // namespace

std::vector<std::string> HunspellDictionaries::DefaultLibraries() {
  const char* chosen = std::getenv("CUEWRIGHT_HUNSPELL_LIBRARY");
  if (chosen != nullptr && *chosen != '\0') return {chosen};
  return {"libhunspell-1.7.so.0", "libhunspell-1.8.so.0", "libhunspell-1.6.so.0"};
}

std::vector<std::string> HunspellDictionaries::DefaultFolders() {
  std::vector<std::string> folders;
  AddParts(folders, "DICPATH", "");
  AddParts(folders, "XDG_DATA_HOME", "/hunspell");
  if (std::getenv("XDG_DATA_HOME") == nullptr) AddParts(folders, "HOME", "/.local/share/hunspell");
  AddParts(folders, "XDG_DATA_DIRS", "/hunspell");
  for (const char* folder : {"/usr/local/share/hunspell", "/usr/share/myspell/dicts", "/usr/share/hunspell"}) {
    folders.emplace_back(folder);
  }
  return folders;
}

HunspellDictionaries::HunspellDictionaries(std::vector<std::string> folders, std::vector<std::string> libraries)
    : folders_(std::move(folders)), libraries_(std::move(libraries)) {}

HunspellDictionaries::~HunspellDictionaries() = default;

const std::shared_ptr<const HunspellApi>& HunspellDictionaries::Api() const {
  if (std::exchange(loaded_, true)) return api_;
  for (const std::string& name : libraries_) {
    void* library = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) continue;
    auto api = std::make_shared<HunspellApi>();
    if (FillTable(library, *api)) {
      api_ = std::move(api);
      break;
    }
  }
  return api_;
}

std::map<std::string, std::string> HunspellDictionaries::Find() const {
  std::map<std::string, std::string> found;
  if (Api() == nullptr) return found;
  for (const std::string& folder : folders_) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
      std::filesystem::path path = entry.path();
      if (path.extension() != ".dic" || !std::filesystem::is_regular_file(path, error)) continue;
      const bool whole = std::filesystem::is_regular_file(path.replace_extension(".aff"), error);
      path.replace_extension();
      if (whole) found.try_emplace(path.filename().string(), path.string());
    }
  }
  return found;
}

std::vector<Text> HunspellDictionaries::Installed() const {
  std::vector<Text> names;
  for (const auto& [name, path] : Find()) names.push_back(FromUtf8(name));
  return names;
}

std::unique_ptr<SpellDictionary> HunspellDictionaries::Open(TextView name) const {
  const auto found = Find();
  const auto at = found.find(ToUtf8(name));
  if (at == found.end()) throw RuntimeError{kErrorFileNotFound, u"There is no dictionary " + Text(name)};
  const std::string& path = at->second;
  if (!IsWordList(path + ".dic") || !std::ifstream(path + ".aff")) {
    throw RuntimeError{kErrorPathFileAccess, u"The dictionary can't be read: " + FromUtf8(path + ".dic")};
  }
  return std::make_unique<HunspellDictionary>(Api(), path);
}

Text HunspellDictionaries::Missing() const {
  if (Api() == nullptr) return u"Hunspell is not installed: " + FromUtf8(libraries_.empty() ? "" : libraries_.front());
  return u"No spelling dictionary is installed in " + FromUtf8(folders_.empty() ? "" : folders_.back()) +
         u"; Debian has them in packages such as hunspell-en-us";
}

Text HunspellDictionaries::DisplayName(TextView name) const {
  std::array<UChar, 256> buffer{};
  UErrorCode status = U_ZERO_ERROR;
  const std::string locale = ToUtf8(name);
  const std::int32_t length = uloc_getDisplayName(locale.c_str(), nullptr, buffer.data(), 255, &status);
  if (U_FAILURE(status) || length <= 0) return Text(name);
  return Text(buffer.data());
}

}  // namespace cuewright
