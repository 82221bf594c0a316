// An example for every word of value expressions and every mark of messages.
#include <array>

#include "reference/examples.h"

namespace brindlemoor {
namespace {

// clang-format off
constexpr auto kValues = std::to_array<TextExample>({
    {"SRCTRAIT", "SRCTRAIT/HUM"},
    {"TARGETTRAIT", "TARGETTRAIT/HP"},
    {"TARGTRAIT", "TARGTRAIT/HPMAX"},
    {"MYTRAIT", "MYTRAIT/HUM"},
    {"TRAIT", "TRAIT/HP"},
    {"TRAITPLUS#", "1/SRCTRAIT/HUM/TRAITPLUS2"},
    {"TRAITMINUS#", "10/TARGTRAIT/HP/TRAITMINUS1"},
    {"TRAITMULT#", "2/SRCTRAIT/HUM/TRAITMULT2"},
    {"TRAITPERC#", "10/SRCTRAIT/HUM/TRAITPERC10"},
    {"DIV#", "SRCTRAIT/HP/TRAITPLUS1/DIV2"},
    {"MULT#", "SRCTRAIT/HP/TRAITPLUS1/MULT1.5"},
    {"PLUS#", "SRCTRAIT/HUM/TRAITPLUS1/PLUS2"},
    {"MINUS#", "SRCTRAIT/HP/TRAITPLUS1/MINUS1"},
    {"NEG", "SRCTRAIT/HUM/TRAITPLUS1/NEG"},
    {"INTEGER", "SRCTRAIT/HP/TRAITPLUS0.5/INTEGER"},
    {"LASTAMT", "LASTAMT"},
    {"LASTVAL", "LASTVAL/DIV2"},
    {"TOKENS", "TOKENS/DIV10"},
    {"TRAITCOUNT", "TRAITCOUNT/HUM/SINGER/SRCALLY"},
    {"TRAITTOTAL", "TRAITTOTAL/HUM/SINGER/SRCALLY"},
    {"NAMECOUNT", "NAMECOUNT/Cricket/SINGER/ANY"},
    {"MYGID", "MYGID"},
    {"$MYGID", "$MYGID"},
    {"TARGETGID", "TARGETGID"},
    {"MYOWNERGID", "MYOWNERGID"},
    {"TARGETOWNERGID", "TARGETOWNERGID"},
    {"LASTCARD", "LASTCARD"},
    {"MYNAME", "MYNAME"},
    {"TARGETNAME", "TARGETNAME"},
    {"SRCALLY", "TRAITCOUNT/SINGER/SRCALLY"},
    {"TARGETALLY", "TRAITCOUNT/SINGER/TARGETALLY"},
    {"SRCENEMY", "TRAITCOUNT/SINGER/SRCENEMY"},
    {"TARGETENEMY", "TRAITCOUNT/SINGER/TARGETENEMY"},
    {"ANY", "TRAITCOUNT/SINGER/ANY"},
    {"$MYNAME", "$MYNAME"},
    {"$TARGETNAME", "$TARGETNAME"},
    {"$TARGETGID", "$TARGETGID"},
    {"R#Die#", "R2Die6"},
});

constexpr auto kMessages = std::to_array<TextExample>({
    {"$MYIMG", "$MYIMG The night begins."},
    {"$GIDCARD", "The owl looks at $GIDCARD."},
    {"$MYOWNER", "$MYOWNER wakes up."},
    {"$OWNER", "$OWNER yawns."},
    {"$TARGETIMG", "$TARGETIMG Somebody yawns."},
    {"$AMT", "That costs $AMT hit points."},
    {"$TARGETNAME", "The song reaches $TARGETNAME."},
    {"$TARGETCARD", "The song finds $TARGETCARD."},
    {"$MYNAME", "$MYNAME sings."},
    {"$SRCCARD", "$SRCCARD hums."},
    {"$TRAIT", "It loses $TRAIT something."},
    {"$EFFSTR", "It does something $EFFSTR."},
    {"$LASTAMT", "Sleepier by $LASTAMT."},
    {"$LASTVAL", "It was $LASTVAL."},
    {"#TOKENS#", "You have #TOKENS# tokens."},
    {"&col", "The owl says&col good night."},
    {"#MYTRAIT", "It hums #MYTRAIT/HUM# times."},
    {"#TRAIT", "There are #TRAIT/HP# hit points left."},
    {"#CARD", "It thinks of #CARD/MYOWNERGID#."},
    {"#TRANSVAL", "Next time it will be #TRANSVAL/SRCTRAIT/HUM/TRAITPLUS2#."},
    {"#IMG", "A drop of dew falls. #IMG/magiccost.jpg#"},
    {"#MYTRAITACTIONDESC", "#MYTRAITACTIONDESC/HUM#"},
    {"#TARGETTRAITACTIONDESC", "#TARGETTRAITACTIONDESC/HP#"},
    {"#MYTRAITACTIONDESCREVERSE", "#MYTRAITACTIONDESCREVERSE/HUM#"},
    {"#TARGETTRAITACTIONDESCREVERSE", "#TARGETTRAITACTIONDESCREVERSE/HP#"},
});
// clang-format on

}  // namespace

std::span<const TextExample> ValueExamples() { return kValues; }
std::span<const TextExample> MessageExamples() { return kMessages; }

}  // namespace brindlemoor
