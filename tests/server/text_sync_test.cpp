// What is told of open texts: while they are typed, among files of the disk, in UTF-16.
#include "check/game_check.h"
#include "tests/server/editor_session.h"

namespace brindlemoor {
namespace {

using TextSyncTest = EditorSession;

constexpr std::string_view kRules =
    "#GAMERULES, Small, , #112233, small, \"\"\n#RULESCARD\n#EFFECT, ALL, TURNSTART, "
    "REQTRAIT:GLOW:WINGAME\n";
constexpr std::string_view kCard = "#CARD, INDECK, \"\u00C9clair \U0001F98A\", E-1, , , , , \"\"\n";

Json Replaced(std::size_t line, std::size_t begin, std::size_t end, std::string_view text) {
  return Json::array({{{"range",
                        {{"start", {{"line", line}, {"character", begin}}},
                         {"end", {{"line", line}, {"character", end}}}}},
                       {"text", text}}});
}

TEST_F(TextSyncTest, TellsTheFindingsOfACheckInThePlaceOfTheEditor) {
  Begin();
  const std::string line =
      "#TRAIT, GLOW, #EFFECT, SELF, PHASE1, \"ECHO:\U0001F98A:MODTRIAT:GLOW:1\"";
  const auto said = Open("Rules.txt", Joined(kRules, kCard, line));
  EXPECT_EQ(FindingsTold(said, "Rules.txt"), "4:46-4:54 unknown-command");
  const Json& finding = said.back()["params"]["diagnostics"][0];
  EXPECT_EQ(finding["message"], "\"MODTRIAT\" is no command. Did you mean \"MODTRAIT\"?");
  EXPECT_EQ(finding["severity"], 1);
  EXPECT_EQ(said.back()["params"]["version"], 1);
}

TEST_F(TextSyncTest, FollowsWhatIsTyped) {
  Begin();
  EXPECT_EQ(FindingsTold(Open("A.txt", Joined(kCard, "#TRAT, X\n")), "A.txt"),
            "1:0-1:5 unknown-directive");
  // Behind a letter of two units, and beyond the end of the line.
  EXPECT_EQ(FindingsTold(Change("A.txt", Replaced(0, 28, 9999, "E-2, , , , , \"\"\r\n#ALSOWRONG")),
                         "A.txt"),
            "1:0-1:10 unknown-directive, 2:0-2:5 unknown-directive");
  EXPECT_EQ(FindingsTold(Change("A.txt", Replaced(1, 0, 10, "")), "A.txt"),
            "2:0-2:5 unknown-directive");
  EXPECT_EQ(FindingsTold(Change("A.txt", Replaced(2, 4, 4, "I")), "A.txt"), "(none)");
  EXPECT_EQ(FindingsTold(Change("A.txt", Json::array({{{"text", "#TRAT"}}})), "A.txt"),
            "0:0-0:5 unknown-directive");
}

TEST_F(TextSyncTest, HoldsAFileAgainstTheOthersAsTheyAreOpenOrOnTheDisk) {
  WriteFile("Rules.txt", std::string(kRules));
  WriteFile("small/Cards.txt", Joined(kCard, "#TRAIT, GLOW\n"));
  Begin();
  EXPECT_EQ(FindingsTold(Open("Rules.txt", kRules), "Rules.txt"), "(none)");
  // The trait goes in a text that was never saved, and both files are told of.
  auto said = Open("small/Cards.txt", Joined(kCard, "#TRAT, GLOW\n"));
  EXPECT_EQ(FindingsTold(said, "small/Cards.txt"), "1:0-1:5 unknown-directive");
  EXPECT_EQ(FindingsTold(said, "Rules.txt"), "2:34-2:38 trait-never-given");
  // Closing shows what stands on the disk.
  said = Tell("textDocument/didClose", {{"textDocument", {{"uri", AddressOf("small/Cards.txt")}}}});
  EXPECT_EQ(FindingsTold(said, "small/Cards.txt"), "(none)");
  EXPECT_EQ(FindingsTold(said, "Rules.txt"), "(none)");
  // Another program writes it.
  WriteFile("small/Cards.txt", std::string(kCard));
  said = Tell("workspace/didChangeWatchedFiles", {{"changes", Json::array()}});
  EXPECT_EQ(FindingsTold(said, "Rules.txt"), "2:34-2:38 trait-never-given");
  EXPECT_TRUE(Tell("textDocument/didSave", Json::object()).empty());  // nothing has changed
}

TEST_F(TextSyncTest, CountsBytesForAnEditorThatDoes) {
  const Json takes = {{"general", {{"positionEncodings", {"utf-32", "utf-8"}}}}};
  EXPECT_EQ(Begin({{"capabilities", takes}})["capabilities"]["positionEncoding"], "utf-8");
  EXPECT_EQ(FindingsTold(Open("A.txt", "#CARD, \u00C9, Name, A-1, , , , , \"\""), "A.txt"),
            "0:7-0:9 unknown-location");
  EXPECT_EQ(FindingsTold(Change("A.txt", Replaced(0, 7, 9, "INDECK")), "A.txt"), "(none)");
}

TEST_F(TextSyncTest, ReadsNeighboursInTheEncodingThatTheyHave) {
  WriteFile("Rules.txt", std::string(kRules));
  WriteFile("small/Cards.txt",
            "#CARD, INDECK, \"\xC9"
            "clair\", E-1, , , , , \"\"\n#TRAIT, GLOW\n");
  Begin();
  EXPECT_EQ(FindingsTold(Open("small/Deck.txt", "#REFINDECK, \u00C9clair, Cards.txt\n"),
                         "small/Deck.txt"),
            "(none)");
  EXPECT_EQ(
      FindingsTold(Open("small/Deck.txt", "#REFINDECK, Eclair, Cards.txt\n"), "small/Deck.txt"),
      "0:12-0:18 missing-reference");
}

TEST(OpenTexts, LeaveAsideWhatThereIsNoRoomFor) {
  OverlayFileSystem files([](const std::string&) { return false; });
  OpenTexts texts(files);
  EXPECT_TRUE(texts.Put("/a", {}, std::string(OpenTexts::kMostBytes - 10, 'x')));
  EXPECT_TRUE(texts.Put("/b", {}, std::string(10, 'x')));
  EXPECT_FALSE(texts.Put("/b", {}, std::string(11, 'x')));
  EXPECT_FALSE(texts.IsOpen("/b"));
  texts.Close("/a");
  EXPECT_TRUE(texts.Put("/b", {}, std::string(11, 'x')));
}

TEST(OpenTexts, KnowFilesByTheirAddresses) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"file:///game/A%20b.txt", "/game/A b.txt"},
      {"file://localhost/game/./x/../A.txt", "/game/A.txt"},
      {"file:///%C3%89.txt", "/\u00C9.txt"},
      {"file:///game/%", "/game/%"},
      {"file:///game/", ""},
      {"file:///a%00b", ""},
      {"file:///%FF", ""},
      {"file://server/A.txt", ""},
      {"untitled:A.txt", ""},
      {"", ""},
  };
  for (const auto& [address, path] : rows) EXPECT_EQ(OpenTexts::PathOf(address), path) << address;
}

}  // namespace
}  // namespace brindlemoor
