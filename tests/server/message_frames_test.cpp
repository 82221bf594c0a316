// Frames as they come: in pieces, broken, too long, and where reading goes on behind them.
#include "server/message_frames.h"

#include <gtest/gtest.h>
#include <vector>

#include "text/text.h"

namespace brindlemoor {
namespace {

/// The contents of all frames; of a broken one "!".
std::vector<std::string> FramesOf(std::string_view bytes, std::size_t piece) {
  MessageFrames frames;
  std::vector<std::string> contents;
  while (!bytes.empty()) {
    frames.Add(bytes.substr(0, piece));
    bytes.remove_prefix(std::min(piece, bytes.size()));
    while (auto frame = frames.Next()) {
      contents.push_back(frame->Problem.empty() ? frame->Content : "!");
    }
  }
  return contents;
}

using Contents = std::vector<std::string>;

TEST(MessageFrames, AreCutOutOfPiecesOfAnySize) {
  const std::string bytes = Framed("{}") +
                            "content-length:3\r\nContent-Type: text; charset=utf-8\r\n\r\n[1]" +
                            Framed("") + Framed("{\"\xC3\xA9\":1}");
  for (const std::size_t piece : {1, 2, 7, 1000}) {
    EXPECT_EQ(FramesOf(bytes, piece), (Contents{"{}", "[1]", "", "{\"\xC3\xA9\":1}"})) << piece;
  }
}

TEST(MessageFrames, AreFoundAgainBehindABrokenHeader) {
  const std::vector<std::string> broken = {
      "Content-Length: many\r\n\r\n{}",
      "Content-Length: -1\r\n\r\n",
      "Content-Length: 99999999999999999999999999\r\n\r\n{}",
      Joined("Content-Length: ", MessageFrames::kMostContentBytes + 1, "\r\n\r\n{\"a\":1}"),
      "Content-Type: x\r\n\r\n[[[[",
      "\r\n\r\n",
      std::string(MessageFrames::kMostHeaderBytes + 1, 'x'),
      std::string(5 * MessageFrames::kMostHeaderBytes, '\n'),
  };
  for (const std::string& bytes : broken) {
    for (const std::size_t piece : {1, 4096, 1 << 20}) {
      EXPECT_EQ(FramesOf(bytes + Framed("{}"), piece), (Contents{"!", "{}"}))
          << bytes.substr(0, 60) << " in pieces of " << piece;
    }
  }
}

}  // namespace
}  // namespace brindlemoor
