// Export to and import from files of registry text.

#include <utility>

#include "core/runtime_error.h"
#include "external/registry_access.h"
#include "external/registry_roots.h"
#include "text/text_search.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr TextView kMark = u"REGEDIT4";
constexpr std::uint64_t kSizeLimit = 64u << 20;

bool IsUtf8(std::string_view bytes) {
  const Text text = FromUtf8(bytes);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsLead(text[i])) {
      ++i;
    } else if (IsTrail(text[i])) {
      return false;
    }
  }
  return true;
}

// Such files are 8-bit text of the system's code page. One that it can't hold, or that would be taken for UTF-8, is
// written as UTF-8, and one that is UTF-8 throughout is read so.
std::string RegBytes(TextView text, const Codec& system) {
  std::string bytes;
  const bool held = system.Encode(text, bytes) && system.Decoded(bytes) == text;
  const bool plain = bytes == ToUtf8(text);
  return held && (plain || !IsUtf8(bytes)) ? bytes : ToUtf8(text);
}

Text RegText(std::string_view bytes, const Codec& system) {
  return IsUtf8(bytes) ? FromUtf8(bytes) : system.Decoded(bytes);
}

Text Quoted(TextView text) { return u"\"" + Text(text) + u"\""; }

Text DwordText(std::int32_t number) {
  Text digits = u"0x";
  for (int shift = 28; shift >= 0; shift -= 4) digits += u"0123456789ABCDEF"[number >> shift & 0xF];
  return digits;
}

/// Trimmed and without any quote.
Text CleanLine(TextView line) { return ReplaceAll(TrimBlanks(line), u"\"", u""); }

/// Keeps the registry's changes together, and ends that in any case.
class Batch {
 public:
  explicit Batch(RegistryCalls& calls) : calls_(calls) {
    if (!calls_.BeginBatch()) throw RuntimeError{kErrorDeviceIo, calls_.Failure()};
  }
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;
  ~Batch() {
    if (!ended_) calls_.EndBatch();
  }
  void End() {
    ended_ = true;
    if (!calls_.EndBatch()) throw RuntimeError{kErrorDeviceIo, calls_.Failure()};
  }

 private:
  RegistryCalls& calls_;
  bool ended_ = false;
};

}  // namespace

int clsRegistryAccess::ExportToReg(TextView KeyName, TextView FileName, bool Recursive, Label* Progress) {
  failure_.clear();
  CarryOn step;
  const bool done = step([&] {
    if (files_.Exists(FileName)) throw RuntimeError{kErrorPathFileAccess, u"The file exists: " + Text(FileName)};
    Text out = Text(kMark).append(kLineEnd).append(kLineEnd);
    ExportKey(KeyName, Recursive, Progress, out);
    const std::string bytes = RegBytes(out, *encodings_.SystemCodec());
    files_.Replace(FileName, [&](ByteSink& sink) { sink.Write(bytes); });
  });
  if (!done) failure_ = step.Last()->description;
  return done ? 1 : 0;
}

void clsRegistryAccess::ExportKey(TextView KeyName, bool recursive, Label* progress, Text& out) {
  Text path(KeyName);
  for (const RegistryRoot& root : kRegistryRootNames) path = ReplaceLoose(path, root.shortForm, root.longForm);
  if (progress != nullptr) {
    progress->SetText(path);
    events_.Yield();
  }
  std::vector<Text> names;
  {
    Batch batch(calls_);
    if (EnumKeys(path, names) < 0) throw RuntimeError{kErrorPathNotFound, u"The key can't be opened: " + path};
    ExportValues(path, out);
    batch.End();
  }
  if (!recursive) return;
  for (const Text& name : names) ExportKey(path + u"\\" + name, true, progress, out);
}

void clsRegistryAccess::ExportValues(TextView path, Text& out) {
  out.append(u"[").append(path).append(u"]").append(kLineEnd);
  const Text none(1, u'\0');
  const Text value = ReadString(path, {}, none);
  if (value != none) out.append(u"@=").append(Quoted(value)).append(kLineEnd);
  std::vector<Text> names;
  std::vector<RegistryData> values;
  EnumValues(path, names, values, kRegistryString);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i].empty()) continue;
    out.append(Quoted(names[i])).append(u"=").append(Quoted(std::get<Text>(values[i]))).append(kLineEnd);
  }
  EnumValues(path, names, values, kRegistryBinary);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const Text bytes = ReplaceAll(TrimBlanks(std::get<Text>(values[i])), u" ", u",");
    out.append(Quoted(names[i])).append(u"=hex:").append(bytes).append(kLineEnd);
  }
  EnumValues(path, names, values, kRegistryDword);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const Text number = DwordText(std::get<std::int32_t>(values[i]));
    out.append(Quoted(names[i])).append(u"=dword:").append(number).append(kLineEnd);
  }
  out.append(kLineEnd);
}

int clsRegistryAccess::ImportFromReg(TextView FileName) {
  failure_.clear();
  CreateKeyIfDoesntExists = true;
  CarryOn step;
  const auto run = [&](auto&& what) {
    if (!step(what) && failure_.empty()) failure_ = step.Last()->description;
  };
  run([&] {
    const Text text = RegText(files_.Read(FileName, kSizeLimit), *encodings_.SystemCodec());
    const std::vector<Text> lines = Split(text, kLineEnd);
    if (ToUpper(lines.front()) != kMark) {
      throw RuntimeError{kErrorInvalidCall, u"The file does not begin with the line REGEDIT4: " + Text(FileName)};
    }
    Batch batch(calls_);
    run([&] { ImportLines(lines); });
    batch.End();
  });
  return failure_.empty() ? 1 : 0;
}

void clsRegistryAccess::ImportLines(const std::vector<Text>& lines) {
  Text key;
  bool inKey = false;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const Text line = CleanLine(lines[i]);
    CarryOn step;
    step([&] {
      if (!line.starts_with(u'[')) {
        if (inKey) ImportLine(key, line);
        return;
      }
      if (line.size() < 2) ThrowInvalidCall();
      key = line.substr(1, line.size() - 2);
      inKey = !key.starts_with(u'-');
      if (!inKey) KillKey(TextView(key).substr(1));
    });
    if (!step.Last()) continue;
    const Text place = u"Line " + Decimal(i + 1) + u": ";
    throw RuntimeError{step.Last()->number, place + step.Last()->description};
  }
}

void clsRegistryAccess::ImportLine(TextView key, TextView line) {
  if (line.empty() || line.starts_with(u';') || line.find(u'=') == TextView::npos) return;
  const std::vector<Text> parts = Split(line, u"=");
  const Text& name = parts[0];
  const Text& value = parts[1];
  const Text lower = ToLower(value);
  if (value == u"-") {
    KillValue(key, name);
  } else if (lower.starts_with(u"hex:")) {
    WriteBinary(key, name, ReplaceAll(TextView(value).substr(4), u",", u" "));
  } else if (lower.starts_with(u"dword:")) {
    WriteDWORD(key, name, HexNumber(TextView(value).substr(6)));
  } else {
    WriteString(key, name, value);
    if (name == u"@" && value.empty()) KillValue(key, {});
  }
}

}  // namespace cuewright
