#include "batch/convert_jobs.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "batch/console.h"

namespace cuewright {

ConvertJobs::ConvertJobs(const Request& request, const std::vector<Text>& files, Session& session, int format)
    : request_(request), files_(files), session_(session), format_(format), guard_(files), jobs_(files.size()) {
  std::unordered_map<Text, std::size_t> groupOf;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto [place, fresh] =
        groupOf.try_emplace(ResultPath(request, session.Catalogue(), format, files[i]), groups_.size());
    if (fresh) groups_.emplace_back();
    groups_[place->second].push_back(i);
  }
  Begin();
}

ConvertJobs::~ConvertJobs() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
  }
  for (std::thread& thread : threads_) thread.join();
}

void ConvertJobs::Begin() {
  const std::size_t cores = std::max(std::thread::hardware_concurrency(), 1u);
  const std::size_t wanted = request_.jobs == 0 ? cores : request_.jobs;
  const std::size_t count = std::min(wanted, groups_.size());
  if (count < 2) return;
  working_ = count;
  for (std::size_t i = 0; i < count; ++i) threads_.emplace_back([this] { Work(); });
}

void ConvertJobs::Work() {
  Recorder unheard;
  if (const std::unique_ptr<Session> session = session_.Another(unheard)) ConvertGroups(*session);
  {
    const std::lock_guard lock(mutex_);
    --working_;
  }
  finished_.notify_all();
}

void ConvertJobs::ConvertGroups(Session& session) {
  Converter converter(request_, session, guard_, format_);
  for (;;) {
    std::size_t group = 0;
    {
      const std::lock_guard lock(mutex_);
      if (stopped_ || nextGroup_ == groups_.size()) return;
      group = nextGroup_++;
    }
    ConvertGroup(converter, session, groups_[group]);
  }
}

void ConvertJobs::ConvertGroup(Converter& converter, Session& session, const std::vector<std::size_t>& group) {
  for (const std::size_t index : group) {
    ConvertOne(converter, session, index);
    {
      const std::lock_guard lock(mutex_);
      jobs_[index].done = true;
    }
    finished_.notify_all();
  }
}

void ConvertJobs::ConvertOne(Converter& converter, Session& session, std::size_t index) {
  Job& job = jobs_[index];
  session.Boxes().ShowIn(job.told);
  // A file that is more than the program or the machine can bear must not take the others with it.
  try {
    job.outcome = converter.Convert(files_[index]);
  } catch (const std::exception& failure) {
    job.outcome.out = ResultPath(request_, session.Catalogue(), format_, files_[index]);
    job.outcome.to = request_.to;
    session.Boxes().Tell(u"Not converted: " + FromUtf8(failure.what()));
    job.outcome.messages = session.Boxes().Shown();
  }
}

Outcome ConvertJobs::Next(Output& output) {
  const std::size_t index = nextJob_++;
  Job& job = jobs_[index];
  bool done = false;
  {
    std::unique_lock lock(mutex_);
    finished_.wait(lock, [&] { return job.done || working_ == 0; });
    done = job.done;
  }
  if (!done) {
    Converter converter(request_, session_, guard_, format_);
    ConvertOne(converter, session_, index);
  }
  job.told.PlayTo(output);
  return std::move(job.outcome);
}

}  // namespace cuewright
