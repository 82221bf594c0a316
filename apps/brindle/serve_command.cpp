// brindle serve: card files in an editor of the author's choice, by the Language Server Protocol.
#include <array>
#include <cerrno>
#include <poll.h>
#include <unistd.h>

#include "apps/brindle/commands.h"
#include "platform/files.h"
#include "server/language_server.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kPiece = 64 << 10;  // bytes that are read at once

/// True when there is something to read, or the end.
bool InputWaits() {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  return ::poll(&input, 1, 0) > 0;
}

/// The next bytes of the standard input; "" at its end.
std::string ReadInput() {
  std::string bytes(kPiece, '\0');
  ssize_t count = 0;
  do {
    count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
  } while (count < 0 && errno == EINTR);
  bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  return bytes;
}

}  // namespace

int RunServe(Arguments arguments) {
  if (!arguments.empty()) return WrongUsage("takes no words behind it: ", "serve");
  LanguageServer server(std::make_unique<LocalFileSystem>());
  while (!server.HasEnded() && std::cout) {
    if (server.HasWork()) {
      server.Work();
    } else {
      if (!InputWaits()) server.PublishFindings();
      std::cout << server.TakeOutput() << std::flush;
      const std::string bytes = ReadInput();
      if (bytes.empty()) break;
      server.Receive(bytes);
    }
  }
  std::cout << server.TakeOutput() << std::flush;
  return server.EndsInOrder() ? kSuccess : kFailure;
}

}  // namespace brindlemoor
