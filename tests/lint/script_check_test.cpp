// The script checker: silent about what the engine understands, exact about what it does not.
#include "lint/script_check.h"

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>

#include "core/strings.h"
#include "data/card_reader.h"
#include "language/target_types.h"
#include "lint/reaction_check.h"
#include "lint/word_distance.h"
#include "script/command_table.h"
#include "script/trait_changes.h"
#include "tests/script/run_test.h"
#include "tests/support/shipped_games.h"

namespace brindlemoor {
namespace {

using Kind = FindingKind;
using Findings = std::vector<ScriptFinding>;

std::string Told(const Findings& findings) {
  std::string text;
  for (const ScriptFinding& finding : findings) {
    text += Joined(static_cast<int>(finding.Kind), " field ", finding.Field, " at ", finding.Offset,
                   " (", finding.Suggestion, ") ", finding.Message, "\n");
  }
  return text;
}

/// A text and the one finding about it.
struct Wrong {
  const char* Text;
  Kind What;
  int Field;
  std::size_t Offset;
  const char* Suggestion = "";
};

void ExpectEach(Findings (*check)(std::string_view), const std::vector<Wrong>& rows) {
  for (const Wrong& row : rows) {
    const Findings findings = check(row.Text);
    ASSERT_EQ(findings.size(), 1U) << row.Text << "\n" << Told(findings);
    const ScriptFinding& finding = findings.front();
    EXPECT_EQ(finding.Kind, row.What) << row.Text << "\n" << Told(findings);
    EXPECT_EQ(finding.Field, row.Field) << row.Text << "\n" << Told(findings);
    EXPECT_EQ(finding.Offset, row.Offset) << row.Text << "\n" << Told(findings);
    EXPECT_EQ(finding.Suggestion, row.Suggestion) << row.Text;
    EXPECT_FALSE(finding.Message.empty()) << row.Text;
  }
}

void ExpectNone(Findings (*check)(std::string_view), const std::vector<std::string>& texts) {
  for (const std::string& text : texts) EXPECT_EQ(Told(check(text)), "") << text;
}

class ShippedScriptsTest : public ShippedGamesTest {
 protected:
  int Actions = 0;

  void CheckCard(const Card& card) {
    for (const CardEffect& effect : card.Effects) {
      if (effect.Script.empty()) continue;
      ++Actions;
      const std::string trigger = effect.MenuCaption.empty()
                                      ? effect.Trigger.Str()
                                      : Joined("MENU:", effect.Trigger, ":", effect.MenuCaption);
      EXPECT_EQ(Told(CheckScript(effect.Script)), "")
          << card.Name.View() << ": " << effect.Script.View();
      EXPECT_EQ(Told(CheckTrigger(trigger)), "") << card.Name.View() << ": " << trigger;
      EXPECT_EQ(Told(CheckTarget(effect.TargetText)), "") << card.Name.View();
      EXPECT_EQ(Told(CheckReaction(effect.TargetText, trigger, effect.Script)), "")
          << card.Name.View() << ": " << effect.Script.View();
    }
    EXPECT_EQ(Told(CheckScript(card.EntryScripts)), "") << card.Name.View();
  }
  void CheckPile(const Pile& pile) {
    for (const Card& card : pile) CheckCard(card);
  }
};

TEST_F(ShippedScriptsTest, NothingIsWrongInTheShippedGames) {
  int lines = 0;
  for (const auto& [path, bytes] : files_->Contents) {
    if (!path.ends_with(".txt")) continue;
    for (std::size_t at = bytes.find("\n#EFFECT"); at != std::string::npos;
         at = bytes.find("\n#EFFECT", at + 1)) {
      ++lines;
    }
    Session& session = State();
    ReadCards(path, session.GameDeck, 0, "INDECK", 0);
    CheckCard(session.RulesCard);
    for (const Pile* pile : {&session.GameDeck.Deck, &session.GameDeck.StartDeck,
                             &session.TraitActions, &session.CardTable, &session.Collection}) {
      CheckPile(*pile);
    }
  }
  EXPECT_GT(lines, 50);
  EXPECT_GE(Actions, lines);
}

class ScriptCheckTest : public RunTest {};

/// Something that fits an argument of each kind.
std::string Fitting(ArgumentKind kind) {
  static const std::map<ArgumentKind, const char*> fitting = {
      {ArgumentKind::kTrait, "my trait"},
      {ArgumentKind::kValue, "SRCTRAIT/HP/RTRAITDie6/PLUS1"},
      {ArgumentKind::kContent, "TRAITCOUNT/HP/ANY"},
      {ArgumentKind::kSetting, "dark red"},
      {ArgumentKind::kNumber, "1"},
      {ArgumentKind::kText, "Rock Crab"},
      {ArgumentKind::kOptionalText, ""},
      {ArgumentKind::kMessage, "<b>$MYNAME</b> has #TRANSVAL/TARGETGID# & $5"},
      {ArgumentKind::kTrigger, "MENU:PHASE3:Heal a friend"},
      {ArgumentKind::kTarget, "ALL"},
      {ArgumentKind::kScript, "REQENEMY:ADDEFFECT:TRAITCHANGE:HP:GIDCARD:MYGID:DESTROY"},
      {ArgumentKind::kRequirements, "REQTRAIT:X:REQENEMY"}};
  return fitting.at(kind);
}

TEST_F(ScriptCheckTest, EveryCommandIsKnownWithTheArgumentsOfItsUsageLine) {
  for (const std::span<const Command> family : CommandFamilies()) {
    for (const Command& row : family) {
      std::string script(row.Word);
      std::string cut;  // all but the last argument
      int before = 0;   // arguments before the rest
      for (FieldWalker names(ArgumentNames(row), ' '); !names.AtEnd();) {
        const std::string_view name = names.Next();
        if (name.empty()) break;
        EXPECT_TRUE(IsArgumentName(name)) << row.Word << " " << name;
        const ArgumentKind kind = KindOfArgument(name);
        before += kind < ArgumentKind::kTrigger || row.Arguments > before ? 1 : 0;
        cut = kind == ArgumentKind::kRequirements ? "" : script;
        script += Joined(":", Fitting(kind));
      }
      EXPECT_EQ(before, row.Arguments) << row.Word << " has other arguments in its usage line";
      EXPECT_EQ(Told(CheckScript(script)), "") << script;
      const std::string mark = row.Role == CommandRole::kSends ? ":" : ":AI";
      EXPECT_EQ(Told(CheckScript(script + mark + script + ":")), "") << script;
      if (cut.empty()) continue;
      const Findings findings = CheckScript(cut);
      ASSERT_EQ(findings.size(), 1U) << cut;
      EXPECT_EQ(findings[0].Kind, Kind::kMissingArgument) << cut;
      EXPECT_EQ(findings[0].Offset, cut.size()) << cut;
      EXPECT_NE(findings[0].Message.find(CommandForm(row)), std::string::npos) << cut;
    }
  }
}

TEST_F(ScriptCheckTest, WhatTheEngineAcceptsIsNotTold) {
  AddCustomString("$STORM", "rain");
  AddCustomString("%SIDES%", "6");
  ExpectNone(CheckScript, {"",
                           "DESTROY:",
                           "DESTROY::",
                           "SETTRAIT:FLYING:",
                           "SETTRAIT:FLYING::DESTROY",
                           "SETTRAIT:COLOR:srctrait",
                           "SETMYTRAIT:COLOR:MULTICOLOR",
                           "SETTRAIT:X:5",
                           "REQTRAIT:MODTRAIT:DESTROY",
                           "ECHO:MODTRAIT:DESTROY",
                           "ECHO::DESTROY",
                           "REQTRAITIS:COLOR:light blue:DESTROY",
                           "REDIRECT",
                           "BOOSTERWITHREQS:3",
                           "MODTRAIT:HP:0:MODTRAIT:HP: -2:MODTRAIT:HP:5X:MODTRAIT:HP:.5",
                           "REPEAT:GIDCARD:2",
                           "MODTRAIT:HP:$MYNAME",
                           "TRAIT:NOCOUNTERS:",
                           "MODTRAIT:HP:-1:CHANCE:50:DESTROY",
                           "MODTRAIT:HP:-1:REQTRAITLESS:hp:0:DESTROY",
                           "MODTRAIT:HP:-1:AIREQENEMY:DESTROY",
                           "ECHOFAIL:No.:REQENEMY:ECHO:Yes.",
                           "MODTRAIT:HP:1:RETARGET:ALL:REQENEMY:DESTROY",
                           "ADDMOD:MODTRAIT:HP:1:PERMANENT:MODTRAIT:HP:1",
                           "REQTRAIT:X:",
                           "MODTOKENS:-10:ECHO:Torn open!<br>:BOOSTER:8\""});
  ExpectNone(CheckValue, {"", "5", "-2", "0", "3/R1Die6", "R2Die06", "R0Die6", "R10Die100",
                          "SRCTRAIT/SIDES/R2DieTRAIT", "TRAITCOUNT/HP", "TRAITCOUNT/HP/FLYING",
                          "TRAITTOTAL/HP//ANY/NEG", "NAMECOUNT/Rock Crab/HP/SRCALLY", "5/",
                          "7/DIV2", "SRCTRAIT/NEG/TRAITPLUS-.5", "$TARGETGID", "TRAITMULT0"});
  ExpectNone(
      CheckMessage,
      {"$AMT1 $MYNAMEs $STORM US$ $5 $a", "#1 and #2#", "<font color=#FFEEDD>a</font>#",
       "#TOKENS# #TRANSVAL/$TARGETGID#", "<hr color=#FACADE/># \"said\" <3 \"x\"",
       "#TRAIT/my trait##MYTRAIT/HP#", "50&col50&quot#", "#IMG/$x.jpg#", "#TRANSVAL/%SIDES%#"});
  for (const TriggerRow& row : kTriggerRows) {
    std::string trigger(row.Word);
    if (row.Arguments == "TRAIT") trigger += "HP";
    if (trigger.ends_with(':')) trigger += "TURNSTART:Buy (5 tokens)";
    EXPECT_EQ(CheckTrigger(trigger).empty(), row.Runs) << trigger;
  }
  ExpectNone(CheckTrigger, {"beforetraitchange:hp", "MENU:PHASE1:A"});
  for (const TargetTypeRow& row : kTargetTypeRows) {
    const bool expression = row.Code == kTargetGidCard;
    EXPECT_EQ(Told(CheckTarget(Joined(row.Word, expression ? ":MYGID" : ""))), "") << row.Word;
  }
}

TEST_F(ScriptCheckTest, AWrongScriptIsToldOfAtItsPlace) {
  ExpectEach(
      CheckScript,
      {{"REQTRIAT:UNDEAD:MODTRAIT:HP:-3", Kind::kUnknownCommand, 1, 0, "REQTRAIT"},
       {"REQENEMY:AIREQTRAITMOR:HP:3:DESTROY", Kind::kUnknownCommand, 2, 9, "AIREQTRAITMORE"},
       {"modtrait:HP:1", Kind::kUnknownCommand, 1, 0, "MODTRAIT"},
       {" DESTROY", Kind::kUnknownCommand, 1, 0, "DESTROY"},
       {"REQENEMY:HURLSTONES:HP:3:DESTROY", Kind::kUnknownCommand, 2, 9},
       {"ECHO:Damage: five", Kind::kUnknownCommand, 3, 12},
       {"AIRETARGET:ALL:DESTROY", Kind::kUnknownCommand, 2, 11},
       {"MODTRAIT", Kind::kMissingArgument, 2, 8},
       {"DESTROY:MODTRAIT:HP", Kind::kMissingArgument, 4, 19},
       {"MODTRAIT:HP:", Kind::kMissingArgument, 3, 12},
       {"ECHO:", Kind::kMissingArgument, 2, 5},
       {"SETTRAIT:HP", Kind::kMissingArgument, 3, 11},
       {"MODTRAIT:HP::DESTROY", Kind::kMissingArgument, 3, 12},
       {"MODTRAIT:HP:ECHO:Hello", Kind::kMissingArgument, 3, 12},
       {"RETARGET:REQENEMY:DESTROY", Kind::kMissingArgument, 2, 9},
       {"RETARGET:ALL:", Kind::kMissingArgument, 3, 13},
       {"ADDEFFECT:PHASE1:SELF", Kind::kMissingArgument, 4, 21},
       {"ADDEFFECT:TRAITCHANGE::SELF:DESTROY", Kind::kMissingArgument, 3, 22},
       {"ADDEFFECT:MENU", Kind::kMissingArgument, 3, 14},
       {"ADDEFFECT:PHASE1:GIDCARD:", Kind::kMissingArgument, 4, 25},
       {"REQTRAIT:X::DESTROY", Kind::kEmptyFieldEnds, 3, 11},
       {":DESTROY", Kind::kEmptyFieldEnds, 1, 0},
       {"MODTRAIT:HP:2//PLUS1", Kind::kEmptyFieldEnds, 3, 14},
       {"ADDEFFECT:PHASE11:SELF:DESTROY", Kind::kUnknownTrigger, 2, 10, "PHASE1"},
       {"ADDEFFECT:TRAITCHNGE:HP:SELF:DESTROY", Kind::kUnknownTrigger, 2, 10, "TRAITCHANGE"},
       {"ADDEFFECT:beforetraitchange:HP:SELF:DESTROY", Kind::kUnknownTrigger, 2, 10,
        "BEFORETRAITCHANGE"},
       {"ADDEFFECT:PHASE1:SLEF:MODTRAIT:HP:1", Kind::kUnknownTarget, 3, 17, "SELF"},
       {"ADDEFFECT:PHASE1:GIDCARD:MYGUD:DESTROY", Kind::kUnknownValueWord, 4, 25, "MYGID"},
       {"REPEAT:triggeringcard:2", Kind::kUnknownTarget, 2, 7, "TRIGGERINGCARD"},
       {"REPEAT:SELF:TRAITCOUNT/HP/CREATURE/SRCENMY", Kind::kUnknownValueWord, 3, 35, "SRCENEMY"},
       {"MODTRAIT:HP:SRCTRAIT/X/TRAITPLSU1", Kind::kUnknownValueWord, 3, 23, "TRAITPLUS1"},
       {"REQTRAITEQUALS:COLOR:RED", Kind::kUnknownValueWord, 3, 21},
       {"SETTRAIT:X:TARGTRAIT/HP/MINU1", Kind::kUnknownValueWord, 3, 24, "MINUS1"},
       {"SETTRAIT:COLOR:MULTICOLOR", Kind::kUnknownValueWord, 3, 15},
       {"JOIN:enemy", Kind::kUnknownValueWord, 2, 5},
       {"DESTROY:ECHO:Off goes $TARGETNAM!", Kind::kUnknownPlaceholder, 3, 22, "$TARGETNAME"},
       {"CHANGENAME:$HERO", Kind::kUnknownPlaceholder, 2, 11},
       {"REQNAME:The \"Duke\":DESTROY", Kind::kQuoteInText, 2, 12},
       {"ECHO:<font color=\"red\">x</font>", Kind::kQuoteInText, 2, 17},
       {"MODTRAIT:HP:1:REQENEMY:ECHO:x", Kind::kRequirementBehindEffect, 4, 14},
       {"MODTRAIT:HP:1:REQTRAITMORE:MANA:3", Kind::kRequirementBehindEffect, 4, 14}});
  const Findings several = CheckScript("MODTRIAT:HP:SRCTRIAT/X:ECHO:$MYNAM:HURL:MODVAL");
  EXPECT_EQ(several.size(), 5U) << Told(several);
  EXPECT_TRUE(IsRemark(Kind::kRequirementBehindEffect) && !IsRemark(several[0].Kind));
}

TEST_F(ScriptCheckTest, AWrongValueMessageTriggerOrTargetIsToldOfAtItsPlace) {
  ExpectEach(CheckValue, {{"srctrait/HP", Kind::kUnknownValueWord, 0, 0, "SRCTRAIT"},
                          {"5/$MYNAME", Kind::kUnknownValueWord, 0, 2, "MYNAME"},
                          {"ROLL5", Kind::kUnknownValueWord, 0, 0},
                          {"RTRAITDie6", Kind::kUnknownValueWord, 0, 0},
                          {"1/R2d6", Kind::kUnknownValueWord, 0, 2, "R2Die6"},
                          {"R2Die", Kind::kUnknownValueWord, 0, 0},
                          {"R2Die1000", Kind::kUnknownValueWord, 0, 0},
                          {"5/PLUS", Kind::kUnknownValueWord, 0, 2},
                          {"5/SRCTRAIT", Kind::kMissingArgument, 0, 10},
                          {"TRAITTOTAL/HP/ANY", Kind::kMissingArgument, 0, 14},
                          {"TRAITCOUNT/HP/CREATURE/NEG", Kind::kUnknownValueWord, 0, 23}});
  ExpectEach(CheckMessage, {{"$myname!", Kind::kUnknownPlaceholder, 0, 0, "$MYNAME"},
                            {"a #MYTRIAT/HP#", Kind::kUnknownPlaceholder, 0, 2, "#MYTRAIT"},
                            {"#TOKEN# left", Kind::kUnknownPlaceholder, 0, 0, "#TOKENS#"},
                            {"#MYTRAIT/HP", Kind::kUnknownPlaceholder, 0, 0},
                            {"#TRAIT#", Kind::kMissingArgument, 0, 6},
                            {"#CARD/LSTCARD#", Kind::kUnknownValueWord, 0, 6, "LASTCARD"},
                            {"a <b>b</b><i c", Kind::kHiddenMarkup, 0, 10},
                            {"<!-- b -->", Kind::kHiddenMarkup, 0, 0},
                            {"<script>x</script>", Kind::kHiddenMarkup, 0, 0},
                            {"<p align=left onclick=x>", Kind::kHiddenMarkup, 0, 14},
                            {"<img src=//a.invalid>", Kind::kHiddenMarkup, 0, 0}});
  ExpectEach(CheckTrigger, {{"", Kind::kMissingArgument, 1, 0},
                            {"PHASE 1", Kind::kUnknownTrigger, 1, 0, "PHASE1"},
                            {"ENTERSPLAY", Kind::kUnknownTrigger, 1, 0, "ENTERPLAY"},
                            {"traitchange:HP", Kind::kUnknownTrigger, 1, 0, "TRAITCHANGE"},
                            {"TRAITCHANGE", Kind::kMissingArgument, 2, 11},
                            {"PHASE1:", Kind::kUnknownTrigger, 2, 7},
                            {"TRAITCHANGE:HP:3", Kind::kUnknownTrigger, 3, 15},
                            {"MENU:PHASE3", Kind::kMissingArgument, 3, 11},
                            {"MENU:TRAITCHANGE:HP", Kind::kUnknownTrigger, 2, 5},
                            {"MENU:PHASE3:Heal: all", Kind::kUnknownTrigger, 4, 17}});
  ExpectEach(CheckTarget, {{"", Kind::kMissingArgument, 1, 0},
                           {"RANDOMENMY", Kind::kUnknownTarget, 1, 0, "RANDOMENEMY"},
                           {"all", Kind::kUnknownTarget, 1, 0, "ALL"},
                           {"SELF:", Kind::kUnknownTarget, 2, 5, "SELF"},
                           {"GIDCARD", Kind::kMissingArgument, 2, 7},
                           {"GIDCARD:TARGETGUD", Kind::kUnknownValueWord, 2, 8, "TARGETGID"}});
}

TEST_F(ScriptCheckTest, NearWordsAreFoundWithinTwoSteps) {
  const std::vector<std::string_view> known = {"ALL", "SELF", "RANDOM", "RANDOMALLY"};
  for (const auto& [word, nearest] : Rows<const char*, const char*>{{"ALL", "ALL"},
                                                                    {"AL", "ALL"},
                                                                    {"ALLOWED", ""},
                                                                    {"SLEF", "SELF"},
                                                                    {"SLFE", ""},
                                                                    {"RNADMO", "RANDOM"},
                                                                    {"RANDOMALL", "RANDOMALLY"},
                                                                    {"rendom", "RANDOM"},
                                                                    {"RXXXOM", ""},
                                                                    {"", ""}}) {
    EXPECT_EQ(NearestWord(word, known), nearest) << word;
  }
  EXPECT_EQ(NearestWord(std::string(5000, 'A'), known), "");
}

Findings CheckAnswer(std::string_view script) { return CheckReaction("SELF", "TARGETED", script); }

TEST_F(ScriptCheckTest, RandomDamageIsSurvivedAndUnrecognizedWordsAreFound) {
  const std::vector<std::string> seeds = {
      "REQTRAIT:UNDEAD:AIREQENEMY:SUBTRAIT:HP:SRCTRAIT/STING/R2Die6/TRAITPLUS1:ECHO:$MYNAME "
      "stings $TARGETNAME&col #TRANSVAL/TRAITCOUNT/HP/ANY# brine.:CHANCE:40:DESTROY",
      "PERMANENT:ADDMOD:SETTRAIT:X:NAMECOUNT/Crab//SRCALLY:RETARGET:ALL:MODTRAIT:HP:1",
      "ADDEFFECT:MENU:PHASE3:Heal:GIDCARD:MYGID:MODTRAIT:HP:1",
      "REQMYTRAITLESS:HP:3:ADDEFFECT:TARGETED:GIDCARD:MYGID:REQMYTRAITMORE:HP:SRCTRAIT/X"};
  const std::string alphabet = "::::////##$$\"<>AIERTDie019 \xC3\xA4";
  SetTrait(bob, "UNDEAD", 1, 1);
  std::mt19937 random(20261125);
  const auto roll = [&random](std::size_t count) { return random() % count; };
  int unrecognized = 0;
  for (int round = 0; round < 4000; ++round) {
    std::string text = seeds[roll(seeds.size())];
    for (std::size_t change = roll(6); change > 0; --change) {
      const std::size_t at = roll(text.size());
      const char character = alphabet[roll(alphabet.size())];
      if (roll(2) == 0) {
        text[at] = roll(8) == 0 ? static_cast<char>(roll(256)) : character;
      } else {
        text.insert(at, 1, character);
      }
    }
    for (Findings (*check)(std::string_view) :
         {CheckScript, CheckTrigger, CheckTarget, CheckValue, CheckMessage, CheckAnswer}) {
      std::size_t before = 0;
      for (const ScriptFinding& finding : check(text)) {
        ASSERT_LE(finding.Offset, text.size()) << text;
        ASSERT_GE(finding.Offset, before) << text;
        before = finding.Offset;
      }
    }
    Card source = ada;
    Card target = bob;
    RunOn(source, target, "ECHOMINOR:go:" + text, {.CostMode = 1});
    if (TakeBanner().find("Unrecognized command") == std::string::npos) continue;
    ++unrecognized;
    EXPECT_FALSE(CheckScript(text).empty()) << text;
  }
  EXPECT_GT(unrecognized, 300);
}

}  // namespace
}  // namespace brindlemoor
