#include "external/registry_store.h"

#include <algorithm>

#include "core/paths.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kSizeLimit = 64u << 20;
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kMostLevels = 512;
constexpr std::uint32_t kFirstRoot = 0x80000000;

auto FindValue(std::vector<RegistryValue>& values, TextView name) {
  return std::ranges::find_if(values, [&](const RegistryValue& value) { return EqualLoose(value.name, name); });
}

/// The place of the first key behind `place` and all that is below it.
Text Behind(TextView place) { return Text(place) + u'\x01'; }

}  // namespace

RegistryStore::RegistryStore(Files& files, Text path) : files_(files), path_(std::move(path)) {}

bool RegistryStore::Load() {
  if (path_.empty() || batches_ != 0 || !handles_.empty()) return true;
  CarryOn read;
  std::string bytes;
  if (!read([&] { bytes = files_.Read(path_, kSizeLimit); })) {
    const RuntimeError& error = *read.Last();
    if (error.number != kErrorFileNotFound) {
      readFailure_ = error.description;
      return false;
    }
    bytes_.clear();
    tree_ = EmptyRegistry();
  } else if (bytes_.empty() || bytes != bytes_) {
    bytes_.clear();
    Text why;
    std::optional<RegistryTree> tree = ReadRegistry(bytes, why);
    if (!tree) {
      readFailure_ = u"The registry file is damaged (" + why + u") and is left as it is: " + path_;
      return false;
    }
    tree_ = std::move(*tree);
    bytes_ = std::move(bytes);
  }
  readFailure_.clear();
  return true;
}

bool RegistryStore::Write() {
  changed_ = false;
  if (path_.empty()) return true;
  std::string bytes = RegistryBytes(tree_);
  CarryOn write;
  const bool written = write([&] {
    if (bytes.size() > kSizeLimit) throw RuntimeError{kErrorOutOfMemory, u"The registry is full: " + path_};
    Text folder = FolderOfPath(path_);
    if (folder.size() > 1) folder.pop_back();
    if (!folder.empty()) files_.MakePrivateFolder(folder);
    files_.Replace(path_, [&](ByteSink& sink) { sink.Write(bytes); });
  });
  if (!written) {
    // The changes are dropped: the content of the file is in force again.
    handles_.clear();
    bytes_.clear();
    Load();
    writeFailure_ = write.Last()->description;
    return false;
  }
  bytes_ = std::move(bytes);
  writeFailure_.clear();
  return true;
}

std::int32_t RegistryStore::Commit() {
  changed_ = true;
  if (batches_ != 0) return kRegistryOk;
  return Write() ? kRegistryOk : kRegistryIoFailed;
}

bool RegistryStore::BeginBatch() {
  if (!Load()) return false;
  ++batches_;
  return true;
}

bool RegistryStore::EndBatch() { return --batches_ != 0 || !changed_ || Write(); }

std::uint32_t RegistryStore::NewHandle(Text place, bool mayWrite) {
  // Handles of closed keys are not reused soon, and none equals a root's.
  lastHandle_ = lastHandle_ >= 0x7FFFFFF0 ? 4 : lastHandle_ + 4;
  handles_[lastHandle_] = {std::move(place), mayWrite, 0, {}};
  return lastHandle_;
}

const RegistryStore::Handle* RegistryStore::Find(std::uint32_t key) const {
  const auto at = handles_.find(key);
  return at == handles_.end() ? nullptr : &at->second;
}

std::optional<Text> RegistryStore::PathOf(std::uint32_t key, TextView subKey) const {
  Text path;
  if (key >= kFirstRoot && key - kFirstRoot < RegistryRoots().size()) {
    path = RegistryRoots()[key - kFirstRoot];
  } else if (const Handle* handle = Find(key); handle != nullptr && tree_.contains(handle->place)) {
    path = tree_.at(handle->place).path;
  } else {
    return std::nullopt;
  }
  for (const Text& name : Split(subKey, u"\\")) {
    if (!name.empty()) path += u"\\" + name;
  }
  return path;
}

std::int32_t RegistryStore::RegOpenKeyExA(std::uint32_t key, TextView subKey, std::uint32_t access,
                                          std::uint32_t& opened) {
  opened = 0;
  if (!Load()) return kRegistryDamaged;
  const std::optional<Text> path = PathOf(key, subKey);
  if (!path) return kRegistryInvalidHandle;
  Text place = RegistryPlace(*path);
  const auto at = subKey.find(u'\0') == TextView::npos ? tree_.find(place) : tree_.end();
  if (at == tree_.end()) return kRegistryNotFound;
  const bool toWrite = (access & ~kRegistryRead) != 0;
  if (toWrite && at->second.readOnly) return kRegistryAccessDenied;
  opened = NewHandle(std::move(place), toWrite);
  return kRegistryOk;
}

std::int32_t RegistryStore::RegOpenKeyA(std::uint32_t key, TextView subKey, std::uint32_t& opened) {
  const std::int32_t result = RegOpenKeyExA(key, subKey, kRegistryAllAccess, opened);
  return result == kRegistryAccessDenied ? RegOpenKeyExA(key, subKey, kRegistryRead, opened) : result;
}

std::int32_t RegistryStore::RegCreateKeyA(std::uint32_t key, TextView subKey, std::uint32_t& opened) {
  const std::int32_t existing = RegOpenKeyA(key, subKey, opened);
  if (existing != kRegistryNotFound) return existing;
  const Text path = PathOf(key, subKey).value();
  const std::vector<Text> names = Split(path, u"\\");
  const bool fits = names.size() <= kMostLevels && path.find(u'\0') == Text::npos &&
                    std::ranges::all_of(names, [](const Text& name) { return name.size() <= kLongestName; });
  if (!fits) return kRegistryInvalidName;
  Text above = names.front();
  for (std::size_t i = 1; i < names.size(); ++i) {
    const RegistryKey& parent = tree_.at(RegistryPlace(above));
    above += u"\\" + names[i];
    if (tree_.contains(RegistryPlace(above))) continue;
    if (parent.readOnly) return kRegistryAccessDenied;
    Text shown = parent.path + u"\\" + names[i];
    tree_[RegistryPlace(above)].path = std::move(shown);
  }
  const std::int32_t result = Commit();
  if (result == kRegistryOk) opened = NewHandle(RegistryPlace(path), true);
  return result;
}

std::int32_t RegistryStore::RegCloseKey(std::uint32_t key) {
  return handles_.erase(key) != 0 ? kRegistryOk : kRegistryInvalidHandle;
}

RegistryKey* RegistryStore::KeyOf(std::uint32_t key, bool toWrite, std::int32_t& result) {
  const Handle* handle = Find(key);
  result = kRegistryInvalidHandle;
  if (handle == nullptr) return nullptr;
  result = kRegistryAccessDenied;
  if (toWrite && !handle->mayWrite) return nullptr;
  const auto at = tree_.find(handle->place);
  result = at == tree_.end() ? kRegistryNotFound : kRegistryOk;
  return at == tree_.end() ? nullptr : &at->second;
}

std::int32_t RegistryStore::RegDeleteKeyA(std::uint32_t key, TextView subKey) {
  const std::optional<Text> path = PathOf(key, subKey);
  if (!path) return kRegistryInvalidHandle;
  const auto at = tree_.find(RegistryPlace(*path));
  if (at == tree_.end()) return kRegistryNotFound;
  const auto next = std::next(at);
  const bool hasKeys = next != tree_.end() && next->first.starts_with(at->first + u'\0');
  const bool isRoot = at->first.find(u'\0') == Text::npos;
  if (hasKeys || isRoot || at->second.readOnly) return kRegistryAccessDenied;
  tree_.erase(at);
  return Commit();
}

std::int32_t RegistryStore::RegDeleteValueA(std::uint32_t key, TextView name) {
  std::int32_t result = kRegistryOk;
  RegistryKey* const found = KeyOf(key, true, result);
  if (found == nullptr) return result;
  const auto at = FindValue(found->values, name);
  if (at == found->values.end()) return kRegistryNotFound;
  found->values.erase(at);
  return Commit();
}

std::int32_t RegistryStore::RegEnumKeyExA(std::uint32_t key, std::uint32_t index, Text& name) {
  std::int32_t result = kRegistryOk;
  const RegistryKey* const found = KeyOf(key, false, result);
  if (found == nullptr) return result;
  Handle& handle = handles_.at(key);
  const Text prefix = handle.place + u'\0';
  // Keys are usually enumerated one after the other: the search continues at the last one found.
  if (handle.at.empty() || index < handle.index) handle.index = 0, handle.at = prefix;
  auto at = tree_.lower_bound(handle.at);
  for (; handle.index < index && at != tree_.end() && at->first.starts_with(prefix); ++handle.index) {
    at = tree_.lower_bound(Behind(at->first));
  }
  handle.at = at == tree_.end() ? Text() : at->first;
  if (at == tree_.end() || !at->first.starts_with(prefix)) {
    handle.at.clear();
    return kRegistryNoMoreItems;
  }
  name = at->second.path.substr(at->second.path.rfind(u'\\') + 1);
  return kRegistryOk;
}

std::int32_t RegistryStore::RegEnumValueA(std::uint32_t key, std::uint32_t index, RegistryValue& value) {
  std::int32_t result = kRegistryOk;
  const RegistryKey* const found = KeyOf(key, false, result);
  if (found == nullptr) return result;
  if (index >= found->values.size()) return kRegistryNoMoreItems;
  value = found->values[index];
  return kRegistryOk;
}

std::int32_t RegistryStore::RegQueryValueExA(std::uint32_t key, TextView name, std::uint32_t& type, Text& data) {
  std::int32_t result = kRegistryOk;
  RegistryKey* const found = KeyOf(key, false, result);
  if (found == nullptr) return result;
  const auto at = FindValue(found->values, name);
  if (at == found->values.end()) return kRegistryNotFound;
  type = at->type;
  data = at->data;
  return kRegistryOk;
}

std::int32_t RegistryStore::RegSetValueExA(std::uint32_t key, TextView name, std::uint32_t type, TextView data) {
  std::int32_t result = kRegistryOk;
  RegistryKey* const found = KeyOf(key, true, result);
  if (found == nullptr) return result;
  if (name.size() > kLongestName) return kRegistryInvalidName;
  Text stored(data);
  if (type == kRegistryString) {
    stored += u'\0';
  } else {
    for (char16_t& byte : stored) byte &= 0xFF;
  }
  const auto at = FindValue(found->values, name);
  if (at == found->values.end()) {
    found->values.push_back({Text(name), type, std::move(stored)});
  } else {
    at->type = type;
    at->data = std::move(stored);
  }
  return Commit();
}

std::int32_t RegistryStore::SetReadOnly(std::uint32_t key, bool readOnly) {
  std::int32_t result = kRegistryOk;
  RegistryKey* const found = KeyOf(key, false, result);
  if (found == nullptr) return result;
  found->readOnly = readOnly;
  return Commit();
}

}  // namespace cuewright
