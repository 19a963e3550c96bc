#pragma once

#include <mutex>
#include <set>

#include "batch/command_line.h"
#include "batch/session.h"
#include "batch/stream_files.h"

namespace cuewright {

/// The files that a run must not write over: its inputs, and the results that it has written. Every thread may ask.
class Guard {
 public:
  explicit Guard(const std::vector<Text>& inputs);

  /// Why `out` is not to be written for `input`; empty when it may be. `whole`: all of the input was read.
  Text Objection(const Text& input, const Text& out, bool whole) const;
  void NoteWritten(const Text& out);

 private:
  std::set<FileIdentity> inputs_;
  mutable std::mutex mutex_;
  std::set<FileIdentity> results_;
};

/// The outcome of one input.
struct Outcome {
  Text out;
  Text to;
  Text format;  ///< empty: not recognised or not read
  int captions = 0;
  bool written = false;
  bool whole = true;  ///< reading it brought no message
  std::vector<Text> messages;
};

/// The file that an input's result is written to; `format`: -1 for the input's own.
Text ResultPath(const Request& request, const FormatCatalogue& catalogue, int format, const Text& input);

/// Converts files, one after the other.
class Converter {
 public:
  /// `format` is -1 for each file's own.
  Converter(const Request& request, Session& session, Guard& guard, int format)
      : request_(request), session_(session), guard_(guard), format_(format) {}

  Outcome Convert(const Text& input);

 private:
  void Write(const Text& input, Outcome& outcome);

  const Request& request_;
  Session& session_;
  Guard& guard_;
  int format_;
};

}  // namespace cuewright
