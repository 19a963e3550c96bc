#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/source/beside.h"
#include "formats/source/source_format.h"
#include "formats/source/source_settings.h"
#include "formats/source/ttml_layout.h"
#include "formats/source/ttml_places.h"
#include "formats/source/ttml_text.h"
#include "formats/source/ttml_time.h"
#include "formats/source/xml_element.h"
#include "formats/source/xml_tags.h"

namespace cuewright {

/// What a TTML file says of its records from a byte on, beside their own bytes.
struct TtmlSaying {
  std::uint32_t from = 0;
  Ms offset = 0;  ///< by which what is around them begins later than the film
  Beside beside{};
};

/// What a TTML file says of its records.
struct TtmlSaid {
  std::vector<TtmlSaying> sayings;
  bool beside = false;  ///< one of them says something beside times
  std::shared_ptr<const TtmlStyles> styles;
  bool sequences = false;  ///< times of records follow from those before them

  /// Of the record at this byte.
  const TtmlSaying& Of(std::uint32_t place) const;
};

/// Walks through the elements of a file and hands on what has times: paragraphs with their own or with those of what is
/// around them, and spans with times in paragraphs that have none. https://www.w3.org/TR/ttml1/#timing
class TtmlWalk {
 public:
  TtmlWalk(const SourceText& text, TextView separator, SourceSink& sink, const TtmlClock& clock,
           const SourceSettings& settings)
      : text_(text), separator_(separator), sink_(sink), clock_(clock), settings_(settings) {}

  /// Reads what is in the root, whose tag `root` has, with the tags behind that one.
  void All(const XmlElement& root, XmlTags& tags);
  TtmlSaid TakeSaid() {
    said_.styles = layout_.Styles();
    return std::move(said_);
  }

 private:
  /// What the elements around a place say of it.
  struct Around {
    Ms offset = 0;
    std::optional<Ms> end;
    bool timed = false;
    bool hasUnknownTime = false;  ///< of the element itself
    bool sequence = false;
    XmlSpace space = XmlSpace::Default;
    TtmlLook look{};
  };
  /// A caption whose end the file doesn't tell.
  struct Open {
    Ms start = 0;
    Text text;
    SourceRecord record;
  };

  Around InsideOf(const pugi::xml_node& node, const Around& around) const;
  template <class Content>
  void Visit(const pugi::xml_node& node, Around& from, Content content);
  void Contents(std::string_view name, const Around& around, int depth);
  void Element(const XmlTag& tag, Around& from, int depth);
  void Container(const XmlTag& tag, Around& from, int depth);
  void Spans(const pugi::xml_node& paragraph, const Around& around);
  void Take(const pugi::xml_node& node, const TtmlPlaces& places, const Around& around, const Around& inside);
  void Say(const SourceRecord& record, Ms offset, const Beside& beside);
  void HandOn(Ms start, std::optional<Ms> end, Text text, const SourceRecord& record);
  void CloseOpen(std::optional<Ms> next);

  const SourceText& text_;
  TextView separator_;
  SourceSink& sink_;
  const TtmlClock& clock_;
  const SourceSettings& settings_;
  XmlTags* tags_ = nullptr;
  XmlElement element_;  // that is being read
  TtmlLayout layout_;
  TtmlSaid said_;
  std::optional<Open> open_;
  Ms latest_ = 0;  // end of what was handed on in the sequence's part
  bool stopped_ = false;
  bool broken_ = false;  // elements don't end where they should
};

}  // namespace cuewright
