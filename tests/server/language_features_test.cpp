// Completion, hover, definition and rename, as an editor asks for them in a small game.
#include "server/error_codes.h"
#include "tests/server/editor_session.h"

namespace brindlemoor {
namespace {

/// A game of two card files, one of them in another encoding, and an opponent.
class LanguageFeatures : public EditorSession {
 protected:
  LanguageFeatures() {
    WriteFile("Small.txt",
              "#GAMERULES, Small, , #112233, small, \"\"\n"
              "#RULESCARD\n"
              "#TRAIT, TRAITGRAPHIC:GLOW:glow.png:#MYTRAIT/GLOW#:#FFFFFF:1:1\n"
              "#EFFECT, ALL, TRAITCHANGE:Glow, \"REQTRAIT:PLAYER:WINGAME\"\n"
              "#TRAITACTION, GLOW\n"
              "#EFFECT, SELF, PHASE1, \"MODTRAIT:HP:SRCTRAIT/GLOW\"\n"
              "#DECKRULES, \"TRAITMINIMUM:GLOW:3\"\n"
              "#CUSTOMSTRING, %GLOWS%, \"has #MYTRAIT/GLOW# light\"\n");
    WriteFile("small/Cards.txt",
              "#CARD, INDECK, \"\xC9"
              "clair\", E-1, , , , , \"Glows. <b>Bright</b>\"\r\n"
              "#TRAIT, GLOW:2, #TRAIT, HP:1\r\n"
              "#EFFECT, SELF, PHASE2, \"ECHO:\xC9:BONUS:SETTRAIT:BONUSGLOW:1\"\r\n");
    WriteFile("small/Rival.txt",
              "#GAME, Small\n#INCLUDE, Cards.txt, INDECK\n#REFINDECK, \u00C9clair, Cards.txt\n"
              "#REFINDECK, Nobody, Cards.txt\n");
    WriteFile("Other.txt", "#CARD, INDECK, Stranger, , , , , , \"\"\n#TRAIT, GLOW\n");
  }

  /// Opens a file whose text has a "^" at the caret, and asks there.
  Json AskIn(std::string_view method, std::string_view name, std::string text,
             Json params = Json::object()) {
    const std::size_t byte = text.find('^');
    text.erase(byte, 1);
    Open(name, text);
    const TextPosition at = TextPositions(text, PositionUnits::kUtf16).PositionOf(byte);
    return AskAt(method, name, at.Line, at.Character, std::move(params));
  }
  /// The text that comes of it when the item of a label is taken; "(none)" when it is not offered.
  std::string Completed(std::string_view name, std::string text, std::string_view label) {
    const Json answer = AskIn("textDocument/completion", name, text);
    text.erase(text.find('^'), 1);
    for (const Json& item : answer["items"]) {
      if (item["label"] != label) continue;
      const TextPositions positions(text, PositionUnits::kUtf16);
      const Json& range = item["textEdit"]["range"];
      const auto byte = [&](const char* end) {
        return positions.ByteAt(
            {range[end]["line"].get<std::size_t>(), range[end]["character"].get<std::size_t>()});
      };
      const std::size_t begin = byte("start");
      return text.replace(begin, byte("end") - begin,
                          item["textEdit"]["newText"].get<std::string>());
    }
    return "(none)";
  }
  /// "Cards.txt 0:0-0:5" for each place.
  std::string PlacesOf(std::string_view name, std::string text) {
    std::string places;
    for (const Json& place : AskIn("textDocument/definition", name, std::move(text))) {
      const std::string path = OpenTexts::PathOf(place["uri"].get<std::string>());
      places += Joined(places.empty() ? "" : ", ", path.substr(std::string("/game/").size()), " ",
                       RangeText(place["range"]));
    }
    return places;
  }
};

TEST_F(LanguageFeatures, CompleteWhatTheFieldAsksFor) {
  Begin();
  struct Row {
    std::string Text;
    std::string_view Label;
    std::string Completed;
  };
  const std::string line = "#EFFECT, SELF, PHASE1, \"";
  const Row rows[] = {
      {"#TRA^", "#TRAIT, ", "#TRAIT, "},
      {"#TRA^, HP", "#TRAIT", "#TRAIT, HP"},
      {"#TRAIT, HP, ^", "#EFFECT, ", "#TRAIT, HP, #EFFECT, "},
      {"#EFFECT, SELF,\n  #CARDIN^\n#TRAIT, HP", "#CARDINDECK, ",
       "#EFFECT, SELF,\n  #CARDINDECK, \n#TRAIT, HP"},
      {"#CARD, ind^", "INDECK", "#CARD, INDECK"},
      {"#CARD,^", "INDECK", "#CARD,INDECK"},
      {"#EFFECT, RAND^ENEMY, PHASE1", "RANDOMALLY", "#EFFECT, RANDOMALLY, PHASE1"},
      {"#EFFECT, GIDCARD:LASTC^", "LASTCARD", "#EFFECT, GIDCARD:LASTCARD"},
      {"#EFFECT, SELF, TRAITCHANGE:gl^", "GLOW", "#EFFECT, SELF, TRAITCHANGE:GLOW"},
      {"#EFFECT, SELF, MENU:PHASE1:^", "PHASE1", "(none)"},
      {line + "MODTR^", "MODTRAIT:", line + "MODTRAIT:"},
      {line + "ECHO:\U0001F98A:MODTR^:HP:1\"\n#TRAIT, X", "MODTRAIT",
       line + "ECHO:\U0001F98A:MODTRAIT:HP:1\"\n#TRAIT, X"},
      {line + "MODTRAIT:G^", "GLOW", line + "MODTRAIT:GLOW"},
      {line + "MODTRAIT:HP:SRCTR^", "SRCTRAIT/", line + "MODTRAIT:HP:SRCTRAIT/"},
      {line + "REQNAME:\u00C9^", "\u00C9clair", line + "REQNAME:\u00C9clair"},
      {line + "CREATECARD:1:\u00C9clair:C^", "Cards.txt",
       line + "CREATECARD:1:\u00C9clair:Cards.txt"},
      {"#EXTRADATA, 1, PHASE1, \"SETTRAIT:HP:1$|$MODTR^",
       "MODTRAIT:", "#EXTRADATA, 1, PHASE1, \"SETTRAIT:HP:1$|$MODTRAIT:"},
      {"#EXTRADATA, 1, TURNS^", "TURNSTART", "#EXTRADATA, 1, TURNSTART"},
      {"#DECKRULES, \"TRAITMINIMUM:GL^", "GLOW", "#DECKRULES, \"TRAITMINIMUM:GLOW"},
      {"#DECKRULES, \"TRAITMINIMUM:GLOW:3:SAME^", "SAMENAMELIMIT",
       "#DECKRULES, \"TRAITMINIMUM:GLOW:3:SAMENAMELIMIT"},
      {"#REFINDECK, ^, Cards.txt", "\u00C9clair", "#REFINDECK, \u00C9clair, Cards.txt"},
      {"#REFINDECK, \u00C9clair, ^", "Cards.txt", "#REFINDECK, \u00C9clair, Cards.txt"},
      {"#INCLUDE, Cards.txt, C^", "COLLECTION", "#INCLUDE, Cards.txt, COLLECTION"},
      {"#GAME, ^", "Small", "#GAME, Small"},
      {"#CARD, INDECK, \"a name ^", "INDECK", "(none)"},
      {"*** a remark ^", "#TRAIT, ", "(none)"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Completed("small/New.txt", row.Text, row.Label), row.Completed) << row.Text;
  }
}

TEST_F(LanguageFeatures, QuoteNamesThatNeedIt) {
  WriteFile("small/More.txt", "#CARD, INDECK, \"Moth, the grey\", M-1, , , , , \"\"\n");
  Begin();
  EXPECT_EQ(Completed("small/New.txt", "#REFINDECK, M^", "\"Moth, the grey\""),
            "#REFINDECK, \"Moth, the grey\"");
  EXPECT_EQ(Completed("small/New.txt", "#REFINDECK, \"M^\", x", "Moth, the grey"),
            "#REFINDECK, \"Moth, the grey\", x");
}

TEST_F(LanguageFeatures, TellWhatAWordMeans) {
  Begin();
  const std::pair<std::string, std::string_view> rows[] = {
      {"#EFF^ECT, SELF", "#EFFECT, target, trigger, script"},
      {"#CARD, IN^DECK", "the draw pile"},
      {"#EFFECT, RANDOM^ENEMY, PHASE1", "a random card of the other owner"},
      {"#EFFECT, SELF, TRAIT^CHANGE:GLOW", "after the run that made it"},
      {"#EFFECT, SELF, TRAITCHANGE:GL^OW", "1 card has it: \u00C9clair."},
      {"#EFFECT, SELF, PHASE1, \"MOD^TRAIT:HP:1\"", "MODTRAIT:TRAIT:VALUE"},
      {"#EFFECT, SELF, PHASE1, \"AIREQ^TRAIT:HP\"", "REQTRAIT:TRAIT"},
      {"#EFFECT, SELF, PHASE1, \"MODTRAIT:HP:DI^V2\"", "DIVn"},
      {"#EFFECT, SELF, PHASE1, \"MODTRAIT:HP:R^6\"", "rolls two dice"},
      {"#EFFECT, SELF, PHASE1, \"MODTRAIT:H^P:1\"", "hit points"},
      {"#REFINDECK, \u00C9c^lair, Cards.txt", "Glows. Bright"},
      {"#REFINDECK, \u00C9c^lair, Cards.txt", "#TRAIT, GLOW:2\n#TRAIT, HP:1"},
      {"#CARD, INDECK, x, E-^1, Cards.txt", "\u00C9clair, Cards.txt line 1"},
  };
  for (const auto& [text, said] : rows) {
    const Json hover = AskIn("textDocument/hover", "small/New.txt", text);
    ASSERT_TRUE(hover.is_object()) << text;
    const std::string shown = hover["contents"]["value"].get<std::string>();
    EXPECT_NE(shown.find(said), std::string::npos) << text << ": " << shown;
  }
  for (const std::string text : {"#UNHEARD^, X", "#REFINDECK, Nob^ody", "^", "*** re^mark"}) {
    EXPECT_TRUE(AskIn("textDocument/hover", "small/New.txt", text).is_null()) << text;
  }
}

TEST_F(LanguageFeatures, MarkTextsForEditorsThatShowMarkdown) {
  const Json takes = {{"textDocument", {{"hover", {{"contentFormat", {"markdown"}}}}}}};
  Begin({{"capabilities", takes}});
  WriteFile("small/Stars.txt", "#CARD, INDECK, Star, S-1, , , , , \"*Ten* `stars` # each\"\n");
  const Json hover = AskIn("textDocument/hover", "small/New.txt", "#REFINDECK, St^ar");
  EXPECT_EQ(hover["contents"]["kind"], "markdown");
  EXPECT_EQ(hover["contents"]["value"], "Star, Stars\\.txt line 1\n\n\\*Ten\\* `stars` \\# each");
  EXPECT_EQ(RangeText(hover["range"]), "0:12-0:16");
}

TEST_F(LanguageFeatures, LeadToCardsFilesGamesAndTraitActions) {
  Begin();
  const std::pair<std::string, std::string_view> rows[] = {
      {"#REFINDECK, \u00C9^clair, Cards.txt", "small/Cards.txt 0:0-0:5"},
      {"#REFINDECK, \u00C9clair, Ca^rds.txt", "small/Cards.txt 0:0-0:0"},
      {"#INCLUDE, cards^.txt, INDECK", "small/Cards.txt 0:0-0:0"},
      {"#CARD, INDECK, Copy, E-^1, Cards.txt, , , , \"\"", "small/Cards.txt 0:0-0:5"},
      {"#CARD, INDECK, Copy, E-1, Car^ds.txt, , , , \"\"", "small/Cards.txt 0:0-0:0"},
      {"#GAME, sm^all", "Small.txt 0:0-0:10"},
      {"#GAMEFILE, Small^.txt", "Small.txt 0:0-0:0"},
      {"#TRAIT, gl^ow:1", "Small.txt 4:0-4:12"},
      {"#EFFECT, SELF, PHASE1, \"CREATECARD:1:\u00C9cl^air:Cards.txt\"", "small/Cards.txt 0:0-0:5"},
      {"#EFFECT, SELF, PHASE1, \"CREATECARD:1:\u00C9clair:Ca^rds.txt\"", "small/Cards.txt 0:0-0:0"},
      {"#REFINDECK, Nob^ody, Cards.txt", ""},
      {"#INCLUDE, None^.txt", ""},
      {"#CARD, IN^DECK", ""},
  };
  for (const auto& [text, places] : rows) {
    EXPECT_EQ(PlacesOf("small/New.txt", text), places) << text;
  }
}

TEST_F(LanguageFeatures, RenameATraitInAllFilesOfItsGame) {
  Begin();
  // An open text counts as it stands in the editor.
  const std::string rival =
      "#GAME, Small\n*** \U0001F98A\n#CARD, INDECK, Lamp, L-1, , , , , \"Has "
      "#TRANSVAL/2/TRAIT/glow#.\"\n"
      "#TRAIT, gl^ow:1\n#TRAITACTIONDESC, GLOW, \"Shines.\"\n"
      "#EFFECT, SELF, PHASE1, "
      "\"TRAIT:TRAITEFFECT:GLOW:TRAIT:GLOWING:1:MODTRAIT:HP:TRAITCOUNT/HP/GLOW\"\n";
  const Json edit = AskIn("textDocument/rename", "small/Rival.txt", rival, {{"newName", "SHINE"}});
  std::string told;
  for (const auto& [address, edits] : edit.at("changes").items()) {
    told += OpenTexts::PathOf(address).substr(6) + ":";
    for (const Json& each : edits) {
      EXPECT_EQ(each["newText"], "SHINE");
      told += " " + RangeText(each["range"]);
    }
    told += "\n";
  }
  EXPECT_EQ(told,
            "Small.txt: 2:21-2:25 2:44-2:48 3:26-3:30 4:14-4:18 5:45-5:49 6:26-6:30 7:38-7:42\n"
            "small/Cards.txt: 1:8-1:12 2:51-2:55\n"
            "small/Rival.txt: 2:57-2:61 3:8-3:12 4:18-4:22 5:42-5:46 5:89-5:93\n");
}

TEST_F(LanguageFeatures, RenameTraitsOnlyAndToNamesThatMeanNothingElse) {
  Begin();
  const std::string line = "#TRAIT, GL^OW:1\n#TRAIT, DIM";
  const std::pair<std::string_view, std::string_view> names[] = {
      {"", "can't be the name"},         {"A:B", "can't be the name"},
      {"A,B", "can't be the name"},      {" A", "can't be the name"},
      {"7UP", "can't be the name"},      {"A\nB", "can't be the name"},
      {"hp", "the program itself"},      {"TRAITGRAPHIC", "the program itself"},
      {"BONUSHP", "the program itself"}, {"modtrait", "word of scripts"},
      {"ANY", "word of scripts"},        {"Div2", "word of scripts"},
      {"dim", "of the game already"},
  };
  for (const auto& [name, why] : names) {
    const Json error =
        AskIn("textDocument/rename", "small/New.txt", line, {{"newName", std::string(name)}});
    EXPECT_EQ(error.value("code", 0), kRequestFailed) << name;
    EXPECT_NE(error.value("message", "").find(why), std::string::npos) << error;
  }
  for (const std::string text :
       {"#TRAIT, H^P:1", "#TRAIT, BONUSGL^OW:1", "#TRAIT, TRAITGR^APHIC:GLOW", "#CARD, IN^DECK",
        "^", "#EFFECT, SELF, PHASE1, \"MODTR^AIT:HP:1\""}) {
    EXPECT_EQ(AskIn("textDocument/prepareRename", "small/New.txt", text).value("code", 0),
              kRequestFailed)
        << text;
    EXPECT_EQ(
        AskIn("textDocument/rename", "small/New.txt", text, {{"newName", "NEW"}}).value("code", 0),
        kRequestFailed)
        << text;
  }
  const Json prepared = AskIn("textDocument/prepareRename", "small/New.txt", line);
  EXPECT_EQ(prepared["placeholder"], "GLOW");
  EXPECT_EQ(RangeText(prepared["range"]), "0:8-0:12");
  // Another way to write the same name is none of another trait.
  EXPECT_TRUE(AskIn("textDocument/rename", "small/New.txt", line, {{"newName", "Glow"}})
                  .contains("changes"));
}

TEST_F(LanguageFeatures, AnswerAnyPlaceOfAnyText) {
  Begin();
  const std::string texts[] = {"",
                               "#",
                               "\"",
                               "#EFFECT, \"",
                               "#CARD\r\r\n,,,\n\"",
                               "#EFFECT, SELF, PHASE1, \":::\"$|$\"",
                               "#EXTRADATA,1,2,$|$$|$",
                               "\u00E9\U0001F98A#TRAIT, \u00E9",
                               std::string(3, '\0'),
                               "#DECKRULES, :::::",
                               "#TRAIT, BONUS",
                               "#GAME,",
                               "#REFINDECK",
                               "#EFFECT, SELF, PHASE1, \"MODTRAIT:HP:TRAITCOUNT/////SRCTRAIT/"};
  for (const std::string& text : texts) {
    Open("small/New.txt", text);
    for (std::size_t line = 0; line < 4; ++line) {
      for (const std::size_t character : {0, 1, 9, 13, 24, 40, 1000000}) {
        for (const char* const method : {"textDocument/completion", "textDocument/hover",
                                         "textDocument/definition", "textDocument/rename"}) {
          AskAt(method, "small/New.txt", line, character, {{"newName", "NEW"}});
        }
      }
    }
  }
  for (const Json& position : {Json(nullptr), Json(-1), Json{{"line", -1}, {"character", 0}},
                               Json{{"line", 0.5}, {"character", 0}}}) {
    EXPECT_EQ(Ask("textDocument/hover", {{"textDocument", {{"uri", AddressOf("small/New.txt")}}},
                                         {"position", position}})["code"],
              kInvalidParams);
  }
  EXPECT_EQ(AskAt("textDocument/hover", "Closed.txt", 0, 0)["code"], kInvalidParams);
}

}  // namespace
}  // namespace brindlemoor
