// Messages in and out, and the life of the server.
#include "server/language_server.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/state.h"
#include "platform/program_frame.h"
#include "server/error_codes.h"
#include "text/text.h"

namespace brindlemoor {

struct LanguageServer::RequestRow {
  std::string_view Method;
  Answer (LanguageServer::*Carry)(const Json& params);
};

struct LanguageServer::NotificationRow {
  std::string_view Method;
  void (LanguageServer::*Take)(const Json& params);
};

const LanguageServer::RequestRow* LanguageServer::FindRequest(std::string_view method) {
  using S = LanguageServer;
  static constexpr auto kRows = std::to_array<RequestRow>({
      {"initialize", &S::Initialize},
      {"shutdown", &S::ShutDown},
      {"textDocument/completion", &S::Complete},
      {"textDocument/hover", &S::Hover},
      {"textDocument/definition", &S::Define},
      {"textDocument/prepareRename", &S::PrepareRename},
      {"textDocument/rename", &S::Rename},
  });
  const auto* row = std::ranges::find(kRows, method, &RequestRow::Method);
  return row == kRows.end() ? nullptr : row;
}

const LanguageServer::NotificationRow* LanguageServer::FindNotification(std::string_view method) {
  using S = LanguageServer;
  static constexpr auto kRows = std::to_array<NotificationRow>({
      {"initialized", &S::BeginWork},
      {"exit", &S::End},
      {"textDocument/didOpen", &S::OpenText},
      {"textDocument/didChange", &S::ChangeText},
      {"textDocument/didClose", &S::CloseText},
      {"textDocument/didSave", &S::LookAgain},
      {"workspace/didChangeWatchedFiles", &S::LookAgain},
  });
  const auto* row = std::ranges::find(kRows, method, &NotificationRow::Method);
  return row == kRows.end() ? nullptr : row;
}

namespace {

/// What an answer can be given to.
bool IsId(const Json* id) { return id != nullptr && (id->is_string() || id->is_number_integer()); }

std::unique_ptr<OverlayFileSystem> OverMachine(FileSystem& machine) {
  return std::make_unique<OverlayFileSystem>(machine, [](const std::string&) { return false; });
}

}  // namespace

LanguageServer::LanguageServer(std::unique_ptr<FileSystem> machine)
    : machine_(std::move(machine)),
      desktop_(std::make_shared<HeadlessPlatform>(OverMachine(*machine_))),
      texts_(static_cast<OverlayFileSystem&>(desktop_->Files())) {
  State() = Session{};
  State().Desktop = desktop_;
}

LanguageServer::~LanguageServer() { State() = Session{}; }

void LanguageServer::Receive(std::string_view bytes) {
  frames_.Add(bytes);
  while (auto frame = frames_.Next()) {
    Message message{Json(), std::move(frame->Problem)};
    if (message.Problem.empty()) {
      auto content = ParsedJson(frame->Content);
      if (!content) message.Problem = "A message is no JSON, or nested too deep.";
      if (content) message.Content = std::move(*content);
    }
    if (TextIn(message.Content, {"method"}) == "$/cancelRequest") {
      const Json* id = ValueIn(message.Content, {"params", "id"});
      if (id != nullptr) Cancel(*id);
    } else {
      waiting_.push_back(std::move(message));
    }
  }
}

void LanguageServer::Cancel(const Json& id) {
  for (Message& message : waiting_) {
    const Json* present = ValueIn(message.Content, {"id"});
    message.IsCancelled = message.IsCancelled || (present != nullptr && *present == id);
  }
}

void LanguageServer::Work() {
  if (waiting_.empty()) return;
  const Message message = std::move(waiting_.front());
  waiting_.pop_front();
  if (!hasEnded_) CarryOut(message);
}

void LanguageServer::CarryOut(const Message& message) {
  const Json* id = ValueIn(message.Content, {"id"});
  const std::optional<std::string> method = TextIn(message.Content, {"method"});
  if (!message.Problem.empty()) {
    Refuse(nullptr, kParseError, message.Problem);
  } else if (!message.Content.is_object()) {
    Refuse(nullptr, kInvalidRequest, "A message is no object.");
  } else if (!method) {
    // Answers to what the server asks tell nothing that it needs.
    const bool isAnswer = message.Content.contains("result") || message.Content.contains("error");
    if (!isAnswer) Refuse(IsId(id) ? *id : nullptr, kInvalidRequest, "The method is missing.");
  } else if (id != nullptr && !IsId(id)) {
    Refuse(nullptr, kInvalidRequest, "The ID is neither a number nor a text.");
  } else {
    const Json* given = ValueIn(message.Content, {"params"});
    const Json params = given != nullptr ? *given : Json::object();
    if (id != nullptr) {
      Answer answer = AnswerTo(*method, params, message.IsCancelled);
      if (answer.Code != 0) return Refuse(*id, answer.Code, std::move(answer.Problem));
      Send({{"id", *id}, {"result", std::move(answer.Result)}});
    } else if (const NotificationRow* row = FindNotification(*method)) {
      const bool counts = (isInitialized_ && !isShutDown_) || *method == "exit";
      if (counts) (this->*row->Take)(params);
    }
  }
}

LanguageServer::Answer LanguageServer::AnswerTo(std::string_view method, const Json& params,
                                                bool isCancelled) {
  if (isShutDown_) return {nullptr, kInvalidRequest, "The server is shut down."};
  const RequestRow* row = FindRequest(method);
  const bool isFirst = method == "initialize";
  if (!isInitialized_ && !isFirst) return {nullptr, kNotInitialized, "Nothing is initialized yet."};
  if (isInitialized_ && isFirst) return {nullptr, kInvalidRequest, "All is initialized already."};
  if (row == nullptr) {
    return {nullptr, kMethodNotFound, Joined("There is no method \"", method, "\".")};
  }
  if (isCancelled) return {nullptr, kRequestCancelled, "The request was cancelled."};
  try {
    return (this->*row->Carry)(params);
  } catch (...) {  // as a text that is too long for the memory there is
    return {nullptr, kInternalError, ProblemInHand()};
  }
}

void LanguageServer::Send(Json message) {
  message["jsonrpc"] = "2.0";
  output_ += Framed(JsonLine(message));
}

void LanguageServer::Refuse(const Json& id, int code, std::string problem) {
  Send({{"id", id}, {"error", {{"code", code}, {"message", std::move(problem)}}}});
}

void LanguageServer::Notify(std::string_view method, Json params) {
  Send({{"method", method}, {"params", std::move(params)}});
}

std::string LanguageServer::TakeOutput() { return std::exchange(output_, {}); }

LanguageServer::Answer LanguageServer::Initialize(const Json& params) {
  isInitialized_ = true;
  const Json* units = ValueIn(params, {"capabilities", "general", "positionEncodings"});
  if (ListHolds(units, "utf-8")) units_ = PositionUnits::kUtf8;
  watchesFiles_ =
      FlagIn(params, {"capabilities", "workspace", "didChangeWatchedFiles", "dynamicRegistration"});
  takesMarkdown_ = ListHolds(
      ValueIn(params, {"capabilities", "textDocument", "hover", "contentFormat"}), "markdown");
  const bool asksBefore =
      FlagIn(params, {"capabilities", "textDocument", "rename", "prepareSupport"});
  constexpr int kPieces = 2;  // of a text that changes, not all of it
  Json capabilities = {
      {"positionEncoding", units_ == PositionUnits::kUtf8 ? "utf-8" : "utf-16"},
      {"textDocumentSync", {{"openClose", true}, {"change", kPieces}, {"save", true}}},
      {"completionProvider", {{"triggerCharacters", {"#", ":", "/", ",", " ", "\""}}}},
      {"hoverProvider", true},
      {"definitionProvider", true},
      {"renameProvider", asksBefore ? Json{{"prepareProvider", true}} : Json(true)},
  };
  return {{{"capabilities", std::move(capabilities)}, {"serverInfo", {{"name", "brindle"}}}}};
}

LanguageServer::Answer LanguageServer::ShutDown(const Json&) {
  isShutDown_ = true;
  return {nullptr};
}

void LanguageServer::End(const Json&) { hasEnded_ = true; }

/// Asks to be told of card files that others write.
void LanguageServer::BeginWork(const Json&) {
  if (!watchesFiles_) return;
  const Json options = {{"watchers", Json::array({{{"globPattern", "**/*.txt"}}})}};
  Send({{"id", "watch"},
        {"method", "client/registerCapability"},
        {"params",
         {{"registrations", Json::array({{{"id", "watch"},
                                          {"method", "workspace/didChangeWatchedFiles"},
                                          {"registerOptions", options}}})}}}});
}

}  // namespace brindlemoor
