#include "formats/script_header.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr TextView kWidthKey = u"PlayResX:";
constexpr TextView kHeightKey = u"PlayResY:";
constexpr TextView kScriptType = u"ScriptType:";
/// The size of the picture that a script without one is laid out for.
constexpr PictureSize kUsualPicture{384, 288};

/// By which side of the picture a field of a style is measured.
enum class Side { None, Width, Height };

Side SideOf(TextView field) {
  for (const TextView name : {TextView(u"Fontsize"), TextView(u"Outline"), TextView(u"Shadow"), TextView(u"MarginV")}) {
    if (field == name) return Side::Height;
  }
  return field == u"MarginL" || field == u"MarginR" ? Side::Width : Side::None;
}

int NumberBehind(const std::vector<Text>& lines, TextView key, int otherwise) {
  for (const Text& line : lines) {
    if (line.starts_with(key)) return LeadingInt(line.substr(key.size()));
  }
  return otherwise;
}

std::vector<Text> FieldsBehind(const Text& line, TextView key) {
  std::vector<Text> fields = Split(TextView(line).substr(key.size()), u",");
  for (Text& field : fields) field = TrimBlanks(field);
  return fields;
}

Text Scaled(const Text& number, double by) { return Decimal(std::llround(LeadingNumber(number) * by)); }

/// The lines of a script's header.
class ScriptHeader {
 public:
  explicit ScriptHeader(TextView header) : lines_(Split(header, kLineEnd)) {}

  void FitTo(const PictureSize& picture) {
    const int width = NumberBehind(lines_, kWidthKey, kUsualPicture.width);
    const int height = NumberBehind(lines_, kHeightKey, kUsualPicture.height);
    if (width <= 0 || height <= 0) return;
    byWidth_ = 1.0 * picture.width / width;
    byHeight_ = 1.0 * picture.height / height;
    std::erase_if(lines_, [](const Text& line) { return line.starts_with(kWidthKey) || line.starts_with(kHeightKey); });
    for (Text& line : lines_) {
      if (line.starts_with(u"Format:")) columns_ = FieldsBehind(line, u"Format:");
      if (line.starts_with(u"Style:")) ScaleStyle(line);
    }
    const auto type = std::ranges::find_if(lines_, [](const Text& line) { return line.starts_with(kScriptType); });
    if (type == lines_.end()) return;
    const Text size[] = {Text(kWidthKey) + u" " + Decimal(picture.width),
                         Text(kHeightKey) + u" " + Decimal(picture.height)};
    lines_.insert(type + 1, std::begin(size), std::end(size));
  }

  Text Joined() const {
    Text header = lines_.front();
    for (std::size_t i = 1; i < lines_.size(); ++i) header.append(kLineEnd).append(lines_[i]);
    return header;
  }

 private:
  void ScaleStyle(Text& line) const {
    std::vector<Text> fields = FieldsBehind(line, u"Style:");
    line = u"Style: ";
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const Side side = i < columns_.size() ? SideOf(columns_[i]) : Side::None;
      if (i > 0) line += u',';
      line += side == Side::None ? fields[i] : Scaled(fields[i], side == Side::Width ? byWidth_ : byHeight_);
    }
  }

  std::vector<Text> lines_;
  std::vector<Text> columns_;
  double byWidth_ = 1;
  double byHeight_ = 1;
};

}  // namespace

void FitToPicture(const PictureSize& picture, FormatDefinition& definition) {
  if (!picture || definition.headerText.find(kScriptType) == Text::npos) return;
  ScriptHeader header(definition.headerText);
  header.FitTo(picture);
  definition.headerText = header.Joined();
}

}  // namespace cuewright
