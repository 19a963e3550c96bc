#pragma once

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <unordered_map>
#include <vector>

#include "formats/source/beside.h"
#include "formats/source/source_format.h"
#include "formats/source/source_settings.h"
#include "formats/source/ttml_layout.h"
#include "formats/source/ttml_places.h"
#include "formats/source/ttml_text.h"
#include "formats/source/ttml_time.h"

namespace cuewright {

/// From this byte on records lie in an element that begins so much later than the film.
struct TtmlOffset {
  std::uint32_t from = 0;
  Ms offset = 0;
};

/// What a TTML file says of its records beside their own bytes.
struct TtmlSaid {
  std::unordered_map<std::uint32_t, Beside> beside;  ///< by the place of the record, where something is said
  std::vector<TtmlOffset> offsets;
  bool sequences = false;  ///< times of records follow from those before them
};

/// Walks through the elements of a file and hands on what has times: paragraphs with their own or with those of what is
/// around them, and spans with times in paragraphs that have none. https://www.w3.org/TR/ttml1/#timing
class TtmlWalk {
 public:
  TtmlWalk(const SourceText& text, TextView separator, SourceSink& sink, const TtmlClock& clock, TtmlLayout layout,
           const SourceSettings& settings)
      : text_(text),
        separator_(separator),
        sink_(sink),
        clock_(clock),
        layout_(std::move(layout)),
        settings_(settings) {}

  void All(const pugi::xml_node& root);
  TtmlSaid TakeSaid() { return std::move(said_); }

 private:
  /// What the elements around a place say of it.
  struct Around {
    Ms offset = 0;
    std::optional<Ms> end;
    bool timed = false;
    bool sequence = false;
    XmlSpace space = XmlSpace::Default;
    Beside beside{};
  };
  /// A caption whose end the file doesn't tell.
  struct Open {
    Ms start = 0;
    Text text;
    SourceRecord record;
  };

  Around InsideOf(const pugi::xml_node& node, const Around& around) const;
  void Children(const pugi::xml_node& node, const Around& around, int depth);
  void Take(const pugi::xml_node& node, const Around& around, const Around& inside, int depth);
  void HandOn(Ms start, std::optional<Ms> end, Text text, const SourceRecord& record);
  void CloseOpen(std::optional<Ms> next);

  const SourceText& text_;
  TextView separator_;
  SourceSink& sink_;
  const TtmlClock& clock_;
  TtmlLayout layout_;
  const SourceSettings& settings_;
  TtmlSaid said_;
  std::optional<Open> open_;
  Ms latest_ = 0;  // end of what was handed on in the sequence's part
  bool stopped_ = false;
};

}  // namespace cuewright
