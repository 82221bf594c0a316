// An example for every directive and every location of card files.
#include <array>

#include "reference/examples.h"

namespace brindlemoor {
namespace {

// clang-format off
constexpr auto kDirectives = std::to_array<TextExample>({
    {"#INCLUDE", "#INCLUDE, YawnwoodCards.txt, INDECK"},
    {"#STARTERDECK", "#STARTERDECK"},
    {"#GAMEFILE", "#GAMEFILE, Yawnwood.txt"},
    {"#CUSTOMSTRING", "#CUSTOMSTRING, %YAWNS%, \"yawns like a cave\"\n"
                      "#CUSTOMSTRING, %YAWNS%, \"blinks twice\""},
    {"#CARD", "#CARD, INDECK, \"Cricket\", \"YW-Cricket\", YawnwoodCards.txt, cricket.jpg, cricket-mini.jpg, #9CE07A, \"Singer. Hums 1.\""},
    {"#CARDINDECK", "#CARDINDECK, \"Cricket\", cricket.jpg, cricket-mini.jpg, #9CE07A, , \"Singer. Hums 1.\""},
    {"#REFINDECK", "#REFINDECK, \"Cricket\", YawnwoodCards.txt"},
    {"#CARDINPLAYERDECK", "#CARDINPLAYERDECK, 1, \"Cricket\", cricket.jpg, cricket-mini.jpg, #9CE07A, , \"Singer. Hums 1.\""},
    {"#REFINPLAYERDECK", "#REFINPLAYERDECK, 2, \"Cricket\", YawnwoodCards.txt"},
    {"#CARDINPLAY", "#CARDINPLAY, \"Cricket\", cricket.jpg, cricket-mini.jpg, #9CE07A, , \"Singer. Hums 1.\""},
    {"#REFINPLAY", "#REFINPLAY, \"Cricket\", YawnwoodCards.txt"},
    {"#DECKRULES", "#DECKRULES, \"TRAITMINIMUM:#ANY#:12:SAMENAMELIMIT:#ANY#:4:TRAITLIMIT:PLAYER:1\""},
    {"#TRAITACTION", "#TRAITACTION, DEW\n"
                     "#EFFECT, OWNER, COST, \"SUBTRAIT:MANA:SRCTRAIT/DEW\""},
    {"#SIDEBOARDCARD", "#SIDEBOARDCARD, \"Cricket\", cricket.jpg, cricket-mini.jpg, #9CE07A, , \"Singer. Hums 1.\""},
    {"#COLLECTION", "#COLLECTION, \"Cricket\", cricket.jpg, cricket-mini.jpg, #9CE07A, , \"Singer. Hums 1.\""},
    {"#REFCOLLECTION", "#REFCOLLECTION, \"Cricket\", YawnwoodCards.txt"},
    {"#TOKENS", "#TOKENS, 40"},
    {"#DECKNAME", "#DECKNAME, 2, \"All the crickets\""},
    {"#TEMPLATE", "#TEMPLATE, \"Singer\", , , #9CE07A, , \"Singer. Hums 1.\""},
    {"#TEMPLATEDATA", "#TEMPLATE, \"Singer\", , , #9CE07A, , \"Singer. Hums 1.\"\n"
                      "#TEMPLATEDATA, backs-generic.bmp, , 8052890"},
    {"#NEUTRALCARD", "#NEUTRALCARD, \"Toadstool\", , , #E6D2B0, , \"It belongs to nobody.\""},
    {"#PLAYERCARD", "#CARD, #PLAYERCARD, \"Old Hoot\", \"YW-OldHoot\", , old-hoot.jpg, old-hoot-mini.jpg, #FFB98A, \"He has been awake since Tuesday.\""},
    {"#RULESCARD", "#RULESCARD\n"
                   "#EFFECT, ALL, TURNSTART, \"REQTRAIT:WATCHER:DRAWCARDS:1\""},
    {"#COSTCARD", "#COSTCARD\n"
                  "#EFFECT, SELF, COST, \"REQTRAIT:HUM:SETTRAIT:DEW:TARGTRAIT/HUM\""},
    {"#TRAIT", "#TRAIT, SINGER, #TRAIT, HUM:1"},
    {"#EFFECT", "#EFFECT, ENEMYPLAYER, PHASE2, \"SUBTRAIT:HP:1\""},
    {"#EXTRADATA", "#EXTRADATA, 20, PHASE2, , , "},
    {"#TRAITACTIONDESC", "#TRAIT, SINGER\n"
                         "#TRAITACTIONDESC, SINGER, \"$MYNAME rolls up in a leaf.\""},
    {"#DUPLICATE", "#CARDINDECK, \"Cricket\", cricket.jpg, cricket-mini.jpg, #9CE07A, , \"Singer. Hums 1.\"\n"
                   "#DUPLICATE, 2"},
    {"#GAMERULES", "#GAMERULES, Yawnwood, yawnwood-banner.jpg, #16301F, yawnwood, YawnwoodHelp.html"},
    {"#GAME", "#GAME, Yawnwood\n"
              "#CARD, #PLAYERCARD, \"Old Hoot\", \"YW-OldHoot\", , old-hoot.jpg, old-hoot-mini.jpg, #FFB98A, \"He has been awake since Tuesday.\""},
    {"#PLAYERDECK", "#PLAYERDECK\n"
                    "#TOKENS, 40"},
    {"#PLAYERPROFILE", "\"#PLAYERPROFILE\", \"Ann\", \"Ann_Yawnwood.plr:Yawnwood.txt\", \"\", \"\", \"\""},
});

constexpr auto kLocations = std::to_array<TextExample>({
    {"INDECK", "#CARD, INDECK, \"Cricket\", \"YW-Cricket\", YawnwoodCards.txt, cricket.jpg, cricket-mini.jpg, #9CE07A, \"Hums 1.\""},
    {"PLAYERDECK", "#CARD, INPLAYERDECK:2, \"Cricket\", \"YW-Cricket\", YawnwoodCards.txt, cricket.jpg, cricket-mini.jpg, #9CE07A, \"Hums 1.\"\n"
                   "#CARD, PLAYERDECK, \"Firefly\", \"YW-Firefly\", YawnwoodCards.txt, firefly.jpg, firefly-mini.jpg, #9CE07A, \"Blinks.\""},
    {"INPLAY", "#CARD, INPLAY, \"Cricket\", \"YW-Cricket\", YawnwoodCards.txt, cricket.jpg, cricket-mini.jpg, #9CE07A, \"Hums 1.\""},
    {"NEUTRAL", "#CARD, NEUTRAL, \"Toadstool\", \"YW-Toadstool\", , , , #E6D2B0, \"It belongs to nobody.\""},
    {"COLLECTION", "#CARD, COLLECTION, \"Cricket\", \"YW-Cricket\", YawnwoodCards.txt, cricket.jpg, cricket-mini.jpg, #9CE07A, \"Hums 1.\""},
    {"SIDEBOARD", "#CARD, SIDEBOARD, \"Cricket\", \"YW-Cricket\", YawnwoodCards.txt, cricket.jpg, cricket-mini.jpg, #9CE07A, \"Hums 1.\""},
    {"PLAYER", "#CARD, PLAYER, \"Dormouse Watch\", \"YW-Dormouse\", YawnwoodWatch.txt, dormouse-watch.jpg, dormouse-watch-mini.jpg, #FFE3A0, \"Your watcher.\""},
    {"PLAYERCARD", "#CARD, PLAYERCARD, \"Old Hoot\", \"YW-OldHoot\", , old-hoot.jpg, old-hoot-mini.jpg, #FFB98A, \"He has been awake since Tuesday.\""},
    {"TEMPLATE", "#CARD, TEMPLATE, \"Singer\", \"YW-Singer\", , , , #9CE07A, \"Hums 1.\""},
    {"TRAITACTION", "#CARD, TRAITACTION, \"DEW\", \"YW-Dew\", , , , #FFFFFF, \"\"\n"
                    "#EFFECT, OWNER, COST, \"SUBTRAIT:MANA:SRCTRAIT/DEW\""},
    {"CARDINDECK", "#CARD, #CARDINDECK, \"Cricket\", \"YW-Cricket\", YawnwoodCards.txt, cricket.jpg, cricket-mini.jpg, #9CE07A, \"Hums 1.\""},
    {"COSTCARD", "#CARD, #COSTCARD, \"CostCard\", \"YW-Cost\", , , , #FFFFFF, \"\"\n"
                 "#EFFECT, SELF, COST, \"REQTRAIT:HUM:SETTRAIT:DEW:TARGTRAIT/HUM\""},
});
// clang-format on

}  // namespace

std::span<const TextExample> DirectiveExamples() { return kDirectives; }
std::span<const TextExample> LocationExamples() { return kLocations; }

}  // namespace brindlemoor
