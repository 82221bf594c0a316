// LanguageServer: what an editor asks about the card files that are open in it, answered by the
// Language Server Protocol.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/headless/headless_platform.h"
#include "server/json_values.h"
#include "server/message_frames.h"
#include "server/open_texts.h"
#include "server/text_positions.h"

namespace brindlemoor {

/// Takes bytes and gives bytes; whatever comes in, it goes on. Files are only read. The session is
/// the server's own while it works.
class LanguageServer {
 public:
  explicit LanguageServer(std::unique_ptr<FileSystem> machine);
  ~LanguageServer();
  LanguageServer(const LanguageServer&) = delete;
  LanguageServer& operator=(const LanguageServer&) = delete;

  /// Takes what has come from the editor. Messages wait until Work comes to them.
  void Receive(std::string_view bytes);
  bool HasWork() const { return !waiting_.empty(); }
  /// Carries out the message that has waited longest.
  void Work();
  /// Tells what is wrong in the open files, where that has changed. For when nothing waits: a check
  /// between two changes would be thrown away.
  void PublishFindings();
  /// What goes to the editor, since the last call.
  std::string TakeOutput();

  bool HasEnded() const { return hasEnded_; }
  /// True when the end was asked for before.
  bool EndsInOrder() const { return isShutDown_; }

 private:
  /// What a request comes to.
  struct Answer {
    Json Result;
    int Code = 0;  ///< of the error, 0 for none
    std::string Problem{};
  };
  struct RequestRow;
  struct NotificationRow;
  static const RequestRow* FindRequest(std::string_view method);
  static const NotificationRow* FindNotification(std::string_view method);

  struct Message {
    Json Content;
    std::string Problem;  ///< with the frame or its JSON
    bool IsCancelled = false;
  };
  void Cancel(const Json& id);
  void CarryOut(const Message& message);
  Answer AnswerTo(std::string_view method, const Json& params, bool isCancelled);
  void Send(Json message);
  void Refuse(const Json& id, int code, std::string problem);
  void Notify(std::string_view method, Json params);

  // Requests.
  Answer Initialize(const Json& params);
  Answer ShutDown(const Json& params);
  Answer Complete(const Json& params);
  Answer Hover(const Json& params);
  Answer Define(const Json& params);
  Answer PrepareRename(const Json& params);
  Answer Rename(const Json& params);

  /// A byte of an open text.
  struct Place {
    std::string Path;
    std::string_view Text{};
    std::size_t Byte = 0;
  };
  std::optional<Place> PlaceIn(const Json& params) const;
  static Answer NoPlace();

  // Notifications.
  void BeginWork(const Json& params);
  void End(const Json& params);
  void OpenText(const Json& params);
  void ChangeText(const Json& params);
  void CloseText(const Json& params);
  void LookAgain(const Json& params);

  void PutText(const std::string& path, OpenFile record, std::string text);
  void ClearFindings(const std::string& path);

  std::unique_ptr<FileSystem> machine_;
  std::shared_ptr<HeadlessPlatform> desktop_;  ///< of the machine's files behind the open ones
  OpenTexts texts_;
  MessageFrames frames_;
  std::deque<Message> waiting_;
  std::string output_;
  std::map<std::string, std::string> published_;  ///< findings by path, as they were told last
  PositionUnits units_ = PositionUnits::kUtf16;
  bool watchesFiles_ = false;  ///< the editor can tell of files that change
  bool takesMarkdown_ = false;
  bool isInitialized_ = false;
  bool isShutDown_ = false;
  bool hasEnded_ = false;
  bool isChanged_ = false;  ///< since the findings were told
};

}  // namespace brindlemoor
