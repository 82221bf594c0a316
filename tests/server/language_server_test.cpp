// The life of the server: the order of its messages, and what strange bytes come to.
#include "server/error_codes.h"
#include "tests/server/editor_session.h"

namespace brindlemoor {
namespace {

using LanguageServerTest = EditorSession;

Json Request(const Json& id, std::string_view method, const Json& params = Json::object()) {
  return {{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}};
}

/// The number of the error that the only message tells.
int ErrorOf(const std::vector<Json>& said) {
  return said.size() == 1 && said[0].contains("error") ? said[0]["error"]["code"].get<int>() : 0;
}

TEST_F(LanguageServerTest, AnswersBetweenInitializeAndShutdownOnly) {
  EXPECT_EQ(ErrorOf(Exchange(Request(1, "textDocument/hover"))), kNotInitialized);
  EXPECT_TRUE(Open("A.txt", "#CARD").empty());
  EXPECT_EQ(Begin()["capabilities"]["positionEncoding"], "utf-16");
  EXPECT_EQ(ErrorOf(Exchange(Request("two", "initialize"))), kInvalidRequest);
  EXPECT_EQ(ErrorOf(Exchange(Request(3, "textDocument/unheard"))), kMethodNotFound);
  EXPECT_TRUE(Tell("$/unheard", {{"value", 1}}).empty());

  const auto last = Exchange(Request("four", "shutdown"));
  ASSERT_EQ(last.size(), 1U);
  EXPECT_EQ(last[0]["id"], "four");
  EXPECT_TRUE(last[0].at("result").is_null());
  EXPECT_EQ(ErrorOf(Exchange(Request(5, "shutdown"))), kInvalidRequest);
  EXPECT_FALSE(server_.HasEnded());
  Tell("exit", nullptr);
  EXPECT_TRUE(server_.HasEnded());
  EXPECT_TRUE(server_.EndsInOrder());
}

TEST_F(LanguageServerTest, EndsAtOnceWhenTheEditorLeaves) {
  Tell("exit", nullptr);
  EXPECT_TRUE(server_.HasEnded());
  EXPECT_FALSE(server_.EndsInOrder());
}

TEST_F(LanguageServerTest, CancelsWhatStillWaits) {
  Begin();
  const auto said =
      ExchangeBytes(Framed(Request(7, "shutdown").dump()) +
                    Framed(R"({"jsonrpc":"2.0","method":"$/cancelRequest","params":{"id":7}})") +
                    Framed(R"({"jsonrpc":"2.0","method":"$/cancelRequest","params":{"id":99}})"));
  EXPECT_EQ(ErrorOf(said), kRequestCancelled);
}

TEST_F(LanguageServerTest, AsksToHearOfFilesThatOthersWrite) {
  const Json capabilities = {
      {"workspace", {{"didChangeWatchedFiles", {{"dynamicRegistration", true}}}}}};
  Ask("initialize", {{"capabilities", capabilities}});
  const auto said = Tell("initialized", Json::object());
  ASSERT_EQ(said.size(), 1U);
  const Json& watched = said[0]["params"]["registrations"][0];
  EXPECT_EQ(watched["method"], "workspace/didChangeWatchedFiles");
  EXPECT_EQ(watched["registerOptions"]["watchers"][0]["globPattern"], "**/*.txt");
  EXPECT_TRUE(Exchange({{"jsonrpc", "2.0"}, {"id", said[0]["id"]}, {"result", nullptr}}).empty());
}

TEST_F(LanguageServerTest, RefusesWhatIsNoMessageAndGoesOn) {
  const std::pair<std::string, int> rows[] = {
      {"", kParseError},
      {"{\"id\":1", kParseError},
      {"\xFF\xFE", kParseError},
      {R"({"id":1,"method":"\ud800"})", kParseError},
      {std::string(100000, '['), kParseError},
      {std::string(1000, '[') + std::string(1000, ']'), kParseError},
      {"{\"a\":" + std::string(65, '[') + std::string(65, ']') + "}", kParseError},
      {"[]", kInvalidRequest},
      {"7", kInvalidRequest},
      {R"({"id":1})", kInvalidRequest},
      {R"({"id":1,"method":7})", kInvalidRequest},
      {R"({"id":{},"method":"shutdown"})", kInvalidRequest},
      {R"({"id":1.5,"method":"shutdown"})", kInvalidRequest},
      {R"({"id":1,"method":"textDocument/hover"})", kNotInitialized},
  };
  for (const auto& [content, code] : rows) {
    EXPECT_EQ(ErrorOf(ExchangeBytes(Framed(content))), code) << content.substr(0, 60);
  }
  EXPECT_TRUE(Begin()["capabilities"].contains("textDocumentSync"));
}

TEST_F(LanguageServerTest, TakesParametersOfAnyType) {
  Begin();
  const Json values[] = {nullptr,
                         1,
                         "x",
                         -1,
                         1e300,
                         true,
                         Json::array({1}),
                         {{"uri", 7}},
                         {{"uri", "http://x/y"}, {"text", "#CARD"}}};
  const char* const methods[] = {"textDocument/didOpen",  "textDocument/didChange",
                                 "textDocument/didClose", "textDocument/didSave",
                                 "initialized",           "workspace/didChangeWatchedFiles",
                                 "$/cancelRequest"};
  Open("A.txt", "#NOTAWORD\n");
  for (const char* const method : methods) {
    for (const Json& value : values) {
      Tell(method, value);
      Tell(method, {{"textDocument", value}, {"contentChanges", value}, {"id", value}});
      Tell(method, {{"textDocument", {{"uri", AddressOf("A.txt")}, {"version", value}}},
                    {"contentChanges", Json::array({value, {{"text", "?"}, {"range", value}}})}});
    }
  }
  Open("A.txt", "#NOTAWORD\n");
  EXPECT_EQ(FindingsTold(Change("A.txt", Json::array({{{"text", "\n#NOTAWORD"}}})), "A.txt"),
            "1:0-1:9 unknown-directive");
}

}  // namespace
}  // namespace brindlemoor
