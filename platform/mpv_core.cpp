#include "platform/mpv_core.h"

#include <array>
#include <charconv>
#include <clocale>
#include <cstring>
#include <optional>

namespace cuewright {
namespace {

constexpr std::uint64_t kLoadReply = 1ULL << 62;
constexpr std::uint64_t kSeekReply = 1ULL << 63;
constexpr std::uint64_t kNumberMask = kLoadReply - 1;

/// The settings that make the library a bare player for our window: it reads no configuration, opens nothing but the
/// file it is given, draws no text of its own and stays at the end of the film.
constexpr std::pair<const char*, const char*> kOptions[] = {
    {"config", "no"},
    {"terminal", "no"},
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"ytdl", "no"},
    {"osc", "no"},
    {"osd-level", "0"},
    {"input-default-bindings", "no"},
    {"input-builtin-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"vo", "libmpv"},
    {"hwdec", "no"},
    {"sid", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"access-references", "no"},
    {"ordered-chapters", "no"},
    {"resume-playback", "no"},
    // Sound ends when it has been heard, not when it has been handed to the device.
    {"gapless-audio", "no"},
    {"idle", "yes"},
    {"keep-open", "yes"},
    {"hr-seek", "yes"},
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "Tessaly Cuewright"},
    // The picture shown is the one that contains the clock's instant.
    {"video-timing-offset", "0"},
};

/// The numbers of a film that the library is asked for, and announces when they change.
struct FilmNumber {
  const char* property;
  MpvNews::Kind kind;
};
constexpr FilmNumber kFilmNumbers[] = {
    {"duration", MpvNews::Kind::Duration},
    {"container-fps", MpvNews::Kind::FrameRate},
    {"video-params/dw", MpvNews::Kind::Width},
    {"video-params/dh", MpvNews::Kind::Height},
    {"current-tracks/audio/ff-index", MpvNews::Kind::AudioTrack},
};

std::uint64_t NumberOf(std::uint64_t reply) { return reply & kNumberMask; }

std::int64_t EntryOfResult(const mpv_node& node) {
  if (node.format != MPV_FORMAT_NODE_MAP) return 0;
  for (int i = 0; i < node.u.list->num; ++i) {
    const mpv_node& value = node.u.list->values[i];
    if (std::strcmp(node.u.list->keys[i], "playlist_entry_id") == 0 && value.format == MPV_FORMAT_INT64) {
      return value.u.int64;
    }
  }
  return 0;
}

std::optional<std::int64_t> ReadNumber(const MpvApi& api, mpv_handle* handle, const std::string& property) {
  std::int64_t number = 0;
  if (api.get_property(handle, property.c_str(), MPV_FORMAT_INT64, &number) < 0) return {};
  return number;
}

std::string ReadString(const MpvApi& api, mpv_handle* handle, const std::string& property) {
  char* value = nullptr;
  if (api.get_property(handle, property.c_str(), MPV_FORMAT_STRING, &value) < 0 || value == nullptr) return {};
  std::string text(value);
  api.free(value);
  return text;
}

std::vector<MpvSoundTrack> ReadSoundTracks(const MpvApi& api, mpv_handle* handle) {
  std::vector<MpvSoundTrack> tracks;
  const std::int64_t count = ReadNumber(api, handle, "track-list/count").value_or(0);
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string track = "track-list/" + std::to_string(i) + "/";
    if (ReadString(api, handle, track + "type") != "audio") continue;
    const auto id = ReadNumber(api, handle, track + "id");
    const auto stream = ReadNumber(api, handle, track + "ff-index");
    if (!id || !stream) continue;
    std::string words = ReadString(api, handle, track + "title");
    const std::string language = ReadString(api, handle, track + "lang");
    if (!language.empty()) words += (words.empty() ? "" : ", ") + language;
    tracks.push_back({static_cast<int>(*id), static_cast<int>(*stream), std::move(words)});
  }
  return tracks;
}

bool ReadFlag(const MpvApi& api, mpv_handle* handle, const char* property) {
  int value = 0;
  return api.get_property(handle, property, MPV_FORMAT_FLAG, &value) >= 0 && value != 0;
}

}  // namespace

MpvCore::MpvCore(const MpvApi& api, const Options& options, std::function<void(const MpvNews&)> news)
    : api_(api), news_(std::move(news)) {
  // The library refuses to start where numbers are written with a comma.
  if (std::strcmp(std::setlocale(LC_NUMERIC, nullptr), "C") != 0) std::setlocale(LC_NUMERIC, "C");
  handle_ = api_.create();
  if (!handle_) return;
  // An option that this version doesn't know is one that it doesn't need.
  for (const auto& [name, value] : kOptions) api_.set_option_string(handle_, name, value);
  for (const auto& [name, value] : options) api_.set_option_string(handle_, name.c_str(), value.c_str());
  if (api_.initialize(handle_) < 0) {
    api_.terminate_destroy(handle_);
    handle_ = nullptr;
    return;
  }
  api_.request_log_messages(handle_, "error");
  api_.observe_property(handle_, 0, "eof-reached", MPV_FORMAT_FLAG);
  for (const FilmNumber& number : kFilmNumbers) api_.observe_property(handle_, 0, number.property, MPV_FORMAT_DOUBLE);
  api_.observe_property(handle_, 0, "seekable", MPV_FORMAT_FLAG);
  api_.observe_property(handle_, 0, "vo-configured", MPV_FORMAT_FLAG);
}

MpvCore::~MpvCore() {
  if (!handle_) return;
  if (listener_.joinable()) {
    quit_ = true;
    api_.wakeup(handle_);
    listener_.join();
  }
  api_.terminate_destroy(handle_);
}

void MpvCore::Listen() {
  if (handle_) listener_ = std::thread([this] { Run(); });
}

bool MpvCore::Load(std::uint64_t load, const std::string& path) {
  return Command(kLoadReply | load, {"loadfile", path.c_str(), "replace"});
}

void MpvCore::Unload() { Command(0, {"stop"}); }

bool MpvCore::Seek(std::uint64_t seek, double seconds) {
  std::array<char, 64> target{};
  // Not by printf: its decimal point depends on the locale.
  std::to_chars(target.data(), target.data() + target.size() - 1, seconds, std::chars_format::fixed, 6);
  return Command(kSeekReply | seek, {"seek", target.data(), "absolute+exact"});
}

void MpvCore::SetFlag(const char* property, bool value) {
  int flag = value ? 1 : 0;
  api_.set_property_async(handle_, 0, property, MPV_FORMAT_FLAG, &flag);
}

void MpvCore::SetNumber(const char* property, double value) {
  api_.set_property_async(handle_, 0, property, MPV_FORMAT_DOUBLE, &value);
}

void MpvCore::SetChoice(const char* property, const char* value) {
  api_.set_property_async(handle_, 0, property, MPV_FORMAT_STRING, &value);
}

bool MpvCore::Command(std::uint64_t reply, std::initializer_list<const char*> words) {
  std::vector<const char*> arguments(words);
  arguments.push_back(nullptr);
  return api_.command_async(handle_, reply, arguments.data()) >= 0;
}

void MpvCore::Run() {
  for (;;) {
    const mpv_event* event = api_.wait_event(handle_, -1);
    if (quit_) return;
    if (event->event_id == MPV_EVENT_SHUTDOWN) {
      Tell({.kind = MpvNews::Kind::Gone});
      return;
    }
    Handle(*event);
  }
}

void MpvCore::Tell(MpvNews news) {
  news.load = news.load ? news.load : load_;
  news_(news);
}

void MpvCore::Handle(const mpv_event& event) {
  switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
      OnReply(event);
      break;
    case MPV_EVENT_START_FILE:
      entry_ = static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id;
      load_ = entry_ == queuedEntry_ ? queuedLoad_ : 0;
      lastComplaint_.clear();
      break;
    case MPV_EVENT_FILE_LOADED:
      Tell({.kind = MpvNews::Kind::Opened});
      TellOfFile();
      break;
    case MPV_EVENT_SEEK:
      begunSeek_ = queuedSeek_;
      break;
    case MPV_EVENT_PLAYBACK_RESTART:
      // Read here, since the notification of a change of this property may come late.
      Tell({.kind = MpvNews::Kind::Landed, .seek = begunSeek_, .flag = ReadFlag(api_, handle_, "eof-reached")});
      break;
    case MPV_EVENT_END_FILE:
      OnEnd(*static_cast<const mpv_event_end_file*>(event.data));
      break;
    case MPV_EVENT_PROPERTY_CHANGE:
      OnProperty(*static_cast<const mpv_event_property*>(event.data));
      break;
    case MPV_EVENT_LOG_MESSAGE:
      lastComplaint_ = static_cast<const mpv_event_log_message*>(event.data)->text;
      while (!lastComplaint_.empty() && lastComplaint_.back() == '\n') lastComplaint_.pop_back();
      break;
    default:
      break;
  }
}

void MpvCore::TellOfFile() {
  // The library announces changes only, and so nothing for a value that equals the previous file's.
  for (const auto& [property, kind] : kFilmNumbers) {
    double number = 0;
    if (api_.get_property(handle_, property, MPV_FORMAT_DOUBLE, &number) >= 0) Tell({.kind = kind, .number = number});
  }
  Tell({.kind = MpvNews::Kind::SoundTracks, .tracks = ReadSoundTracks(api_, handle_)});
  Tell({.kind = MpvNews::Kind::Seekable, .flag = ReadFlag(api_, handle_, "seekable")});
}

void MpvCore::OnReply(const mpv_event& event) {
  const std::uint64_t number = NumberOf(event.reply_userdata);
  if (event.reply_userdata & kSeekReply) {
    if (event.error < 0) {
      Tell({.kind = MpvNews::Kind::SeekFailed, .seek = number});
    } else {
      queuedSeek_ = number;
    }
  } else if (event.reply_userdata & kLoadReply) {
    if (event.error < 0) {
      Tell({.kind = MpvNews::Kind::Failed, .load = number, .text = api_.error_string(event.error)});
    } else {
      queuedLoad_ = number;
      queuedEntry_ = EntryOfResult(static_cast<const mpv_event_command*>(event.data)->result);
    }
  }
}

void MpvCore::OnEnd(const mpv_event_end_file& end) {
  if (end.playlist_entry_id != entry_ || load_ == 0) return;
  if (end.reason == MPV_END_FILE_REASON_ERROR) {
    std::string text = api_.error_string(end.error);
    if (!lastComplaint_.empty()) text += ": " + lastComplaint_;
    Tell({.kind = MpvNews::Kind::Failed, .text = text});
  } else if (end.reason == MPV_END_FILE_REASON_REDIRECT) {
    // The file is a playlist. Only the file that was asked for may be played.
    Unload();
    Tell({.kind = MpvNews::Kind::Failed, .text = "a list of other files, not a film"});
  } else if (end.reason == MPV_END_FILE_REASON_EOF) {
    Tell({.kind = MpvNews::Kind::Gone});
  }
  load_ = 0;
}

void MpvCore::OnProperty(const mpv_event_property& property) {
  if (property.format == MPV_FORMAT_DOUBLE) {
    for (const FilmNumber& number : kFilmNumbers) {
      if (std::strcmp(property.name, number.property) != 0) continue;
      Tell({.kind = number.kind, .number = *static_cast<const double*>(property.data)});
    }
  } else if (property.format == MPV_FORMAT_FLAG) {
    const bool flag = *static_cast<const int*>(property.data) != 0;
    if (std::strcmp(property.name, "seekable") == 0) {
      Tell({.kind = MpvNews::Kind::Seekable, .flag = flag});
    } else if (std::strcmp(property.name, "vo-configured") == 0) {
      if (!flag) Tell({.kind = MpvNews::Kind::NoPicture});
    } else if (flag && ReadFlag(api_, handle_, "eof-reached")) {
      Tell({.kind = MpvNews::Kind::EndReached, .seek = begunSeek_});
    }
  }
}

}  // namespace cuewright
