// MessageFrames: the messages of a stream of bytes, each behind a header that tells its length.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brindlemoor {

/// Cuts the frames of the Language Server Protocol out of what comes in, in pieces of any size.
class MessageFrames {
 public:
  static constexpr std::size_t kMostHeaderBytes = 4096;
  static constexpr std::size_t kMostContentBytes = 8 << 20;

  struct Frame {
    std::string Content;
    std::string Problem;  ///< what is wrong with a header; Content is empty then
  };

  void Add(std::string_view bytes) { bytes_ += bytes; }
  /// The next frame; nothing while it is not whole. Behind a header that is none all is left out up
  /// to what looks like the next one.
  std::optional<Frame> Next();

 private:
  std::optional<Frame> LeaveOut(std::string problem);
  bool FindHeader();

  std::string bytes_;
  bool isLost_ = false;  ///< behind a broken header: the next one is looked for
};

/// A message with its header.
std::string Framed(std::string_view content);

}  // namespace brindlemoor
