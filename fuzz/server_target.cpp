// The target that talks to the language server.
#include <memory>
#include <utility>

#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "server/error_codes.h"
#include "server/language_server.h"
#include "text/addresses.h"
#include "text/encoding.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The file that is typed: in the small game, beside its cards.
constexpr std::string_view kTypedFile = "small/Typed.txt";
constexpr std::string_view kRawMark = "@raw\n";

std::string AddressOfTyped() { return FileUrl(Joined(kFuzzFolder, "/", kTypedFile)); }

void Send(LanguageServer& server, const Json& message) {
  server.Receive(Framed(JsonLine(message)));
  while (server.HasWork()) server.Work();
}

/// All that is said must be frames of JSON, and no request may fail for the server's own sake.
void MustSpeak(LanguageServer& server) {
  MessageFrames frames;
  frames.Add(server.TakeOutput());
  while (const auto frame = frames.Next()) {
    const auto said = ParsedJson(frame->Content);
    MustHold(said.has_value(), "the server says what is no JSON");
    const Json* code = ValueIn(*said, {"error", "code"});
    MustHold(code == nullptr || *code != kInternalError, "a request has failed in the server");
  }
}

/// Opens a text, changes it, and asks everything at the places that the input's bytes tell.
void TypeAndAsk(LanguageServer& server, std::string_view text) {
  constexpr const char* kQuestions[] = {"textDocument/completion", "textDocument/hover",
                                        "textDocument/definition", "textDocument/prepareRename",
                                        "textDocument/rename"};
  constexpr std::size_t kPlaces = 8;
  const Json file = {
      {"uri", AddressOfTyped()}, {"version", 1}, {"text", DecodeFileText(std::string(text))}};
  Send(server, {{"method", "textDocument/didOpen"}, {"params", {{"textDocument", file}}}});
  for (std::size_t place = 0; place < kPlaces && place < text.size(); ++place) {
    const auto spot = static_cast<unsigned char>(text[text.size() - 1 - place]);
    const Json position = {{"line", spot / 16}, {"character", spot * (place + 1)}};
    for (const char* question : kQuestions) {
      Send(server, {{"id", place},
                    {"method", question},
                    {"params",
                     {{"textDocument", {{"uri", AddressOfTyped()}}},
                      {"position", position},
                      {"newName", "NEWNAME"}}}});
    }
    const Json change = {
        {"range", {{"start", position}, {"end", {{"line", spot}, {"character", 1}}}}},
        {"text", DecodeFileText(std::string(text.substr(0, place)))}};
    Send(server, {{"method", "textDocument/didChange"},
                  {"params",
                   {{"textDocument", {{"uri", AddressOfTyped()}, {"version", place + 2}}},
                    {"contentChanges", Json::array({change})}}}});
  }
}

}  // namespace

void FuzzServer(std::string_view bytes) {
  auto files = std::make_unique<MemoryFileSystem>();
  for (const FolderFile& file : FilesOfText(SmallGame())) {
    files->Contents[Joined(kFuzzFolder, "/", file.Name)] = file.Bytes;
  }
  LanguageServer server(std::move(files));
  if (bytes.starts_with(kRawMark)) {
    server.Receive(bytes.substr(kRawMark.size()));
    while (server.HasWork()) server.Work();
  } else {
    Send(server, {{"id", 1}, {"method", "initialize"}, {"params", Json::object()}});
    TypeAndAsk(server, bytes);
  }
  server.PublishFindings();
  MustSpeak(server);
}

}  // namespace brindlemoor
