#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cuewright {

/// Where results and messages go.
class Output {
 public:
  virtual ~Output() = default;

  /// Takes a result.
  virtual void Out(std::string_view text) = 0;
  /// Takes one line of message.
  virtual void Say(std::string_view line) = 0;
  /// Takes one line that is shown even when quiet: what is wrong with the call itself.
  virtual void Complain(std::string_view line) = 0;
};

/// Keeps what it takes, to hand it on in its order.
class Recorder final : public Output {
 public:
  void Out(std::string_view text) override { taken_.emplace_back(&Output::Out, text); }
  void Say(std::string_view line) override { taken_.emplace_back(&Output::Say, line); }
  void Complain(std::string_view line) override { taken_.emplace_back(&Output::Complain, line); }

  /// Hands everything on, and forgets it.
  void PlayTo(Output& output) {
    for (const auto& [take, text] : std::exchange(taken_, {})) (output.*take)(text);
  }

 private:
  std::vector<std::pair<void (Output::*)(std::string_view), std::string>> taken_;
};

}  // namespace cuewright
