#pragma once

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

#include "batch/converter.h"
#include "batch/output.h"

namespace cuewright {

/// Converts the files of a run, several at once. Messages and outcomes are handed on in the order of the files.
class ConvertJobs {
 public:
  /// `session` does the work on the caller's thread when there is one job only; else each job has a session like it.
  ConvertJobs(const Request& request, const std::vector<Text>& files, Session& session, int format);
  ~ConvertJobs();

  /// Waits for the next file, hands its messages on, and returns its outcome.
  Outcome Next(Output& output);

 private:
  /// A file's way through the run.
  struct Job {
    Recorder told;
    Outcome outcome;
    bool done = false;
  };

  void Begin();
  void Work();
  void ConvertGroups(Session& session);
  void ConvertGroup(Converter& converter, Session& session, const std::vector<std::size_t>& group);
  void ConvertOne(Converter& converter, Session& session, std::size_t index);

  const Request& request_;
  const std::vector<Text>& files_;
  Session& session_;
  int format_;
  Guard guard_;
  std::vector<Job> jobs_;
  // Files with the same result are one group, converted one after the other in their order.
  std::vector<std::vector<std::size_t>> groups_;
  std::size_t nextJob_ = 0;

  std::mutex mutex_;  // guards the members below
  std::condition_variable finished_;
  std::size_t nextGroup_ = 0;
  std::size_t working_ = 0;  // threads that may still finish a file
  bool stopped_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace cuewright
