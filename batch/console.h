#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "batch/output.h"
#include "text/text.h"

namespace cuewright {

/// The standard streams of a run: results in blocks on the output, messages a line each on the error stream, and
/// there a bar of progress while a terminal shows it.
class Console final : public Output {
 public:
  Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  /// From now on only results are written, no messages and no bar.
  void SetQuiet() { quiet_ = true; }

  /// Results go to the error stream from now on, since a file is written to the output.
  void ResultsToErrors() { resultsTo_ = 2; }

  /// Writes a result. Blocks are written as they fill; on a terminal each line at once.
  void Out(std::string_view text) override;

  /// Writes one line of message, unless quiet. Results before it are written first.
  void Say(std::string_view line) override;

  /// Writes one line even when quiet: what is wrong with the call itself.
  void Complain(std::string_view line) override;

  /// Announces that `done` of `total` files are dealt with. The bar shows on a terminal once the work takes long.
  void Progress(std::size_t done, std::size_t total);

  /// Removes the bar and writes what is left of the results; false when a result could not be written.
  bool Finish();

 private:
  void FlushOut();
  void EraseBar();
  void Write(int fd, std::string_view text, bool& failed) const;

  std::string block_;
  int resultsTo_ = 1;  ///< the file descriptor that results go to
  bool quiet_ = false;
  bool outIsTerminal_ = false;
  bool barPossible_ = false;
  bool barShown_ = false;
  bool outFailed_ = false;
  bool errorFailed_ = false;
  std::int64_t startMs_ = 0;
  std::int64_t shownMs_ = 0;
};

/// UTF-8 for display and for results: unlike `ToUtf8` always valid, since a lone surrogate becomes U+FFFD.
std::string DisplayUtf8(TextView text);

}  // namespace cuewright
