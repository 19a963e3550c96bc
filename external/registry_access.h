#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "core/ports/event_queue.h"
#include "core/ports/files.h"
#include "external/registry_calls.h"
#include "form/controls.h"
#include "text/encodings.h"

namespace cuewright {

/// A value as an enumeration gives it: a text, a number, or nothing for a type that has neither.
using RegistryData = std::variant<std::monostate, Text, std::int32_t>;

/// Any text by its hexadecimal pairs: a NUL for "00", and for each other pair the character of that number. What is no
/// hexadecimal digit ends a pair's number; a last odd digit is a pair of one.
Text StrToBin(TextView binaryText);

/// Hexadecimal pairs with a blank before each, so that the text begins with one; callers trim.
Text BinToStr(TextView bytes);

/// True for a text of hexadecimal digits, blanks aside, that has at least one.
bool isBinValid(TextView text);

/// The number of "&H" and the text, in 32 bits: reading stops at what is no digit, and 0 is the number of none.
/// Run-time error 6 when it has more than 32 bits.
std::int32_t HexNumber(TextView text);

/// A registry by key paths "root\sub-path", the root in its long or short form in any case. No operation raises an
/// error: reads give their default, writes false, enumerations -1, export and import 0.
class clsRegistryAccess {
 public:
  /// `events` are handled while an export shows where it is.
  clsRegistryAccess(RegistryCalls& calls, Files& files, const Encodings& encodings, EventQueue& events)
      : calls_(calls), files_(files), encodings_(encodings), events_(events) {}

  /// The write operations make a missing key first.
  bool CreateKeyIfDoesntExists = true;

  /// Returns the handle that the key had, which is closed; 0 on failure.
  std::int32_t CreateKey(TextView KeyName);
  /// Removes a key without keys below it. The result tells only that the key was there, as for `CreateKey`.
  std::int32_t KillKey(TextView KeyName);
  /// True when the key opens with all access: one that may only be read counts as missing.
  bool KeyExists(TextView KeyName);
  /// How many keys are right below, with their names; -1 when the key can't be opened.
  int EnumKeys(TextView KeyName, std::vector<Text>& names);
  bool HaveSubkey(TextView KeyName);

  /// "@" is the key's default value here, and here alone.
  bool WriteString(TextView KeyName, TextView ValueName, TextView Value);
  /// The text, trimmed; the default also for one of more than 254 characters.
  Text ReadString(TextView KeyName, TextView ValueName, TextView Default = {});
  bool WriteDWORD(TextView KeyName, TextView ValueName, std::int32_t Value);
  std::int32_t ReadDWORD(TextView KeyName, TextView ValueName, std::int32_t Default = 0);
  /// `Value` is hexadecimal pairs with or without blanks between.
  bool WriteBinary(TextView KeyName, TextView ValueName, TextView Value);
  Text ReadBinary(TextView KeyName, TextView ValueName, TextView Default = {});
  bool KillValue(TextView KeyName, TextView ValueName);
  bool ValueExists(TextView KeyName, TextView ValueName);
  /// How many values there are of the type, or of all with -1, with names and data; -1 when the key can't be opened.
  /// Binary data beyond 255 bytes is cut off.
  int EnumValues(TextView KeyName, std::vector<Text>& names, std::vector<RegistryData>& values, int type = -1);

  /// Writes the key, with all below it when `Recursive`, into a new file: 1 on success. An existing file stays as it
  /// is, and a file that can't be completed is not made. `Progress` shows the key in work.
  int ExportToReg(TextView KeyName, TextView FileName, bool Recursive, Label* Progress = nullptr);
  /// Does what the file says: 1 at its end. What stands before a line that fails stays done, and all of it is stored
  /// at once.
  int ImportFromReg(TextView FileName);

  /// Why the last export or import failed, or else why the registry could not be read or written; empty when all is
  /// well.
  const Text& LastFailure() const { return failure_.empty() ? calls_.Failure() : failure_; }

 private:
  class OpenKey;

  void Parse(TextView KeyName);
  bool Write(TextView KeyName, TextView name, std::uint32_t type, TextView data);
  bool Query(TextView KeyName, TextView name, Text& data);
  void ExportKey(TextView KeyName, bool recursive, Label* progress, Text& out);
  void ExportValues(TextView path, Text& out);
  void ImportLine(TextView key, TextView line);
  void ImportLines(const std::vector<Text>& lines);

  RegistryCalls& calls_;
  Files& files_;
  const Encodings& encodings_;
  EventQueue& events_;
  std::uint32_t root_ = 0;  ///< of the path parsed last; 0 when it is none
  Text subPath_;
  Text failure_;
};

}  // namespace cuewright
