#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// The order of the fields of an event, as a "Format:" line tells it.
struct EventColumns {
  static constexpr std::size_t kNone = std::string_view::npos;

  std::vector<std::string> names;
  std::size_t start = kNone;
  std::size_t end = kNone;
  std::size_t text = kNone;
  std::size_t style = kNone;
  std::size_t speaker = kNone;

  /// The columns that a list with commas names.
  explicit EventColumns(std::string_view list);
  bool Complete() const { return start != kNone && end != kNone && text != kNone; }
};

enum class SubStationVersion { V4, V4Plus };

/// Scripts of SubStation Alpha, v4 and v4+: sections in any order, events in the order of fields that the file gives.
/// Headers, styles, comments, embedded files and the further fields of an event stay as they are.
class SubStationFormat final : public SourceFormat {
 public:
  explicit SubStationFormat(SubStationVersion version);

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool TellsBeside() const override { return tellsBeside_; }
  Beside BesideOf(const SourceText& text, const SourceRecord& record) const override;

 private:
  void ReadStyle(std::string_view line);
  int PlaceOfStyle(std::string_view name) const;

  SubStationVersion version_;
  EventColumns columns_;
  std::size_t alignmentColumn_;                        ///< of the styles
  std::vector<std::pair<std::string, int>> placed_{};  ///< the styles whose captions stand elsewhere than usual
  bool tellsBeside_ = false;
  bool hasDefaultStyle_ = false;
  bool hasStyles_ = false;
  bool closesWholeStyles_ = true;  ///< as the file's last caption did whose style covers all of it
};

}  // namespace cuewright
