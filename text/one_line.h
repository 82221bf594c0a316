// OneLine: a name as pages hold it.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// A name out of a file, for one line of a page: line ends and other control characters are blanks.
/// The name itself stays as it is, since files refer to it and it is saved again. Lives no longer
/// than the text that it is made of.
class OneLine {
 public:
  explicit OneLine(std::string_view text);
  OneLine(const OneLine&) = delete;
  OneLine& operator=(const OneLine&) = delete;

  operator std::string_view() const { return text_; }  // NOLINT: meant to convert

 private:
  std::string changed_;  // where there is something to change
  std::string_view text_;
};

}  // namespace brindlemoor
