// EditorSession: an editor that talks to the server, on files in memory.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/memory_files.h"
#include "server/language_server.h"
#include "text/addresses.h"
#include "text/text.h"

namespace brindlemoor {

class EditorSession : public ::testing::Test {
 protected:
  EditorSession() : EditorSession(std::make_unique<MemoryFileSystem>()) {}
  explicit EditorSession(std::unique_ptr<MemoryFileSystem> files)
      : files_(*files), server_(std::move(files)) {}

  /// What stands on the disk, by its name in the folder "/game".
  void WriteFile(std::string_view name, std::string bytes) {
    files_.Contents[PathOf(name)] = std::move(bytes);
  }
  static std::string PathOf(std::string_view name) { return Joined("/game/", name); }
  static std::string AddressOf(std::string_view name) { return FileUrl(PathOf(name)); }

  /// Sends a message, lets the server work until nothing waits, and gives all that it said.
  std::vector<Json> Exchange(const Json& message) { return ExchangeBytes(Framed(message.dump())); }
  std::vector<Json> ExchangeBytes(std::string_view bytes) {
    server_.Receive(bytes);
    while (server_.HasWork()) server_.Work();
    server_.PublishFindings();
    MessageFrames frames;
    frames.Add(server_.TakeOutput());
    std::vector<Json> said;
    while (auto frame = frames.Next()) {
      EXPECT_EQ(frame->Problem, "");
      said.push_back(Json::parse(frame->Content));
      EXPECT_EQ(said.back()["jsonrpc"], "2.0");
    }
    return said;
  }
  /// Begins; params are those of "initialize".
  Json Begin(const Json& params = Json::object()) {
    const Json answer = Ask("initialize", params);
    Tell("initialized", Json::object());
    return answer;
  }
  /// The result of a request, or its error.
  Json Ask(std::string_view method, const Json& params) {
    const Json id = ++requests_;
    const auto said =
        Exchange({{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}});
    for (const Json& message : said) {
      if (message.contains("id") && message["id"] == id) {
        return message.contains("error") ? message["error"] : message["result"];
      }
    }
    ADD_FAILURE() << "no answer to " << method;
    return nullptr;
  }
  std::vector<Json> Tell(std::string_view method, const Json& params) {
    return Exchange({{"jsonrpc", "2.0"}, {"method", method}, {"params", params}});
  }
  std::vector<Json> Open(std::string_view name, std::string_view text) {
    return Tell(
        "textDocument/didOpen",
        {{"textDocument",
          {{"uri", AddressOf(name)}, {"languageId", "cards"}, {"version", 1}, {"text", text}}}});
  }
  std::vector<Json> Change(std::string_view name, const Json& changes) {
    return Tell("textDocument/didChange",
                {{"textDocument", {{"uri", AddressOf(name)}, {"version", 2}}},
                 {"contentChanges", changes}});
  }
  static Json PositionAt(std::size_t line, std::size_t character) {
    return {{"line", line}, {"character", character}};
  }
  Json AskAt(std::string_view method, std::string_view name, std::size_t line,
             std::size_t character, Json params = Json::object()) {
    params["textDocument"] = {{"uri", AddressOf(name)}};
    params["position"] = PositionAt(line, character);
    return Ask(method, params);
  }

  /// "0:9-0:14 unknown-command" for each finding that was told of a file; "(none)" for a list
  /// without any, "(untold)" when none came.
  static std::string FindingsTold(const std::vector<Json>& said, std::string_view name) {
    std::string told = "(untold)";
    for (const Json& message : said) {
      if (message.value("method", "") != "textDocument/publishDiagnostics") continue;
      if (message["params"]["uri"] != AddressOf(name)) continue;
      told.clear();
      for (const Json& finding : message["params"]["diagnostics"]) {
        told += Joined(told.empty() ? "" : ", ", RangeText(finding["range"]), " ",
                       finding["code"].get<std::string>());
      }
      if (told.empty()) told = "(none)";
    }
    return told;
  }
  static std::string RangeText(const Json& range) {
    const auto place = [&range](const char* end) {
      return Joined(range[end]["line"].get<int>(), ":", range[end]["character"].get<int>());
    };
    return Joined(place("start"), "-", place("end"));
  }

  MemoryFileSystem& files_;
  LanguageServer server_;
  int requests_ = 0;
};

}  // namespace brindlemoor
