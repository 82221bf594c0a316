// LanguageServer: the texts that are open, and what is wrong in them.
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "server/diagnostics.h"
#include "server/json_ranges.h"
#include "server/language_server.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

std::string PathIn(const Json& params) {
  return OpenTexts::PathOf(TextIn(params, {"textDocument", "uri"}).value_or(""));
}

std::optional<std::int64_t> VersionIn(const Json& params) {
  const Json* version = ValueIn(params, {"textDocument", "version"});
  if (version == nullptr || !version->is_number_integer()) return std::nullopt;
  return version->get<std::int64_t>();
}

/// Carries out one change. False for one that is none.
bool Apply(const Json& change, PositionUnits units, std::string& text) {
  std::optional<std::string> added = TextIn(change, {"text"});
  if (!added) return false;
  const Json* range = ValueIn(change, {"range"});
  if (range == nullptr) {
    text = std::move(*added);
    return true;
  }
  const auto begin = PositionIn(*range, "start");
  const auto end = PositionIn(*range, "end");
  if (!begin || !end) return false;
  const TextPositions positions(text, units);
  const auto [first, last] = std::minmax({positions.ByteAt(*begin), positions.ByteAt(*end)});
  text.replace(first, last - first, *added);
  return true;
}

}  // namespace

void LanguageServer::OpenText(const Json& params) {
  const std::string path = PathIn(params);
  std::optional<std::string> text = TextIn(params, {"textDocument", "text"});
  if (path.empty() || !text) return;
  PutText(path, {*TextIn(params, {"textDocument", "uri"}), VersionIn(params)}, std::move(*text));
}

void LanguageServer::ChangeText(const Json& params) {
  const std::string path = PathIn(params);
  const Json* changes = ValueIn(params, {"contentChanges"});
  if (!texts_.IsOpen(path) || changes == nullptr || !changes->is_array()) return;
  std::string text = texts_.TextOf(path);
  for (const Json& change : *changes) {
    if (!Apply(change, units_, text)) return;
  }
  PutText(path, {texts_.AddressOf(path), VersionIn(params)}, std::move(text));
}

void LanguageServer::PutText(const std::string& path, OpenFile record, std::string text) {
  isChanged_ = true;
  published_.erase(path);
  if (texts_.Put(path, std::move(record), std::move(text))) return;
  ClearFindings(path);
  constexpr int kErrorMessage = 1;
  Notify("window/showMessage",
         {{"type", kErrorMessage},
          {"message", Joined("The open files are too large; this one is left aside: ", path)}});
}

void LanguageServer::CloseText(const Json& params) {
  const std::string path = PathIn(params);
  if (!texts_.IsOpen(path)) return;
  ClearFindings(path);
  texts_.Close(path);
  isChanged_ = true;
}

/// Files that are not open may have changed.
void LanguageServer::LookAgain(const Json&) { isChanged_ = true; }

void LanguageServer::ClearFindings(const std::string& path) {
  published_.erase(path);
  Notify("textDocument/publishDiagnostics",
         {{"uri", texts_.AddressOf(path)}, {"diagnostics", Json::array()}});
}

void LanguageServer::PublishFindings() {
  if (!std::exchange(isChanged_, false)) return;
  std::vector<std::string> paths;
  for (const auto& [path, record] : texts_.Records()) paths.push_back(path);
  for (const auto& [path, findings] : FindingsIn(paths)) {
    Json list = DiagnosticsOf(findings, texts_.TextOf(path), units_);
    std::string& told = published_[path];
    std::string now = JsonLine(list);
    if (std::exchange(told, now) == now) continue;
    const OpenFile& record = texts_.Records().at(path);
    Json params = {{"uri", record.Address}, {"diagnostics", std::move(list)}};
    if (record.Version) params["version"] = *record.Version;
    Notify("textDocument/publishDiagnostics", std::move(params));
  }
}

}  // namespace brindlemoor
