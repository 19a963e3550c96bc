#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "batch/output.h"
#include "core/ports/messages.h"

namespace cuewright {

/// Message boxes without a window. Each is a line "FILE: text" on the error stream, or "FILE:LINE: text" where it is
/// about a line of the file. A question is answered by an option of the call or else by its first answer, which is
/// shown behind it. Before the first file a box is about the call itself, and is shown even when quiet.
class BatchBoxes final : public Messages {
 public:
  /// `fps` answers the frame rate question. It must be one that the question accepts, or it would be asked forever.
  BatchBoxes(Output& output, Text fps);

  /// The file that the next boxes are about, as the user named it; forgets what was shown before.
  void Begin(TextView file);

  /// Boxes go elsewhere from now on.
  void ShowIn(Output& output) { output_ = &output; }

  /// Shows a text that no box has, in the same way.
  void Tell(TextView text);

  /// Tells, even when quiet, that a line of the file was not understood; counts as a trouble.
  void TellNotUnderstood(std::size_t number);

  BoxAnswer Show(const MessageBox& box) override;
  /// The rate of the call for a question that offers a rate; any other gets the answer that it offers.
  Text Ask(const InputBox& box) override;

  /// The boxes since `Begin`, each on one line.
  const std::vector<Text>& Shown() const { return shown_; }

  /// Sets the function that gives the line of the file that the next box is about, counted from 1, or 0 for none. Null:
  /// boxes are about no line.
  std::function<std::size_t()> line;

  /// How many boxes since `Begin` were warnings or errors.
  int Troubles() const { return troubles_; }

 private:
  Output* output_;
  Text fps_;
  std::string file_;
  std::vector<Text> shown_;
  int troubles_ = 0;
};

}  // namespace cuewright
