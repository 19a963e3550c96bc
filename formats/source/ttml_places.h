#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "formats/source/source_format.h"

namespace cuewright {

/// A tag of an XML file whose place behind the bracket is known: its attributes with their places.
class TtmlTag {
 public:
  TtmlTag(std::string_view bytes, std::size_t nameAt);

  std::string_view Name() const { return name_; }
  /// The next attribute's name and the place of its value; false at the end of the tag, which `End` then tells.
  [[nodiscard]] bool Next(std::string_view& name, Stretch& value);

  /// Behind the tag.
  std::size_t End() const { return at_; }
  /// "<p/>": there is nothing in the element.
  bool Closed() const { return closed_; }

 private:
  std::string_view bytes_;
  std::size_t at_;
  std::string_view name_;
  bool closed_ = false;
};

/// Where an element with times and its parts stand.
struct TtmlPlaces {
  Stretch begin;
  Stretch end;
  Stretch duration;
  Stretch inner;
  std::size_t behind = 0;

  bool HasTimes() const { return !begin.Empty() || !end.Empty() || !duration.Empty(); }
};

/// The opening tag whose name stands here, from its bracket on.
Stretch TagAt(std::string_view bytes, std::size_t nameAt);

/// The places of the element whose name stands here.
TtmlPlaces TtmlPlacesOf(std::string_view bytes, std::size_t nameAt, std::string_view name);

/// The element with the indentation in front of it and the line end behind it, where it has lines of its own.
Stretch WithItsLine(std::string_view bytes, std::size_t open, std::size_t behind);

}  // namespace cuewright
