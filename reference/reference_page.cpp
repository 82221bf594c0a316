// Composing the reference page, section by section, from the tables and their examples.
#include "reference/reference_page.h"

#include <algorithm>
#include <array>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/directives.h"
#include "language/program_traits.h"
#include "language/target_types.h"
#include "language/values.h"
#include "pages/messages.h"
#include "pages/shown_markup.h"
#include "reference/anchors.h"
#include "reference/word_help.h"
#include "script/command_table.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Reference for authors</title>
<style>
body { background: #0b1524; color: #d9e2ea; font: 16px/1.5 sans-serif; margin: 0 auto; max-width: 50em; padding: 1.5em; }
h1, h2, h3 { color: #ffc35a; line-height: 1.2; } h2 { border-bottom: 1px solid #24405a; margin-top: 2em; }
a { color: #62d9cf; } code { background: #16283c; color: #ffe3a0; padding: .1em .3em; }
dt { margin-top: 1.2em; } dd { margin-left: 1.5em; }
pre { background: #16283c; color: #ffe3a0; margin: .3em 0; padding: .4em .8em; white-space: pre-wrap; overflow-wrap: anywhere; }
.words { line-height: 1.9; }
</style>
</head>
<body>
<p><a href="MainHelp.html">Help</a></p>
<h1>Reference for authors</h1>
<p>Every word that card files and scripts are made of. The program writes this page from its own tables, so it tells what this version really does.</p>
<p><a href="#files">Card files</a> &middot; <a href="#places">Places</a> &middot; <a href="#targets">Targets</a> &middot; <a href="#triggers">Triggers</a> &middot; <a href="#scripts">Scripts</a> &middot; <a href="#values">Values</a> &middot; <a href="#traits">Traits</a> &middot; <a href="#messages">Messages</a> &middot; <a href="#markup">Markup</a> &middot; <a href="#turn">The turn</a> &middot; <a href="#neutral">Neutral cards</a> &middot; <a href="#limits">Limits</a></p>
)";

constexpr std::string_view kFilesIntro =
    R"(<p>A file is read field by field. A field ends at a comma or at the end of the line. A field in double quotes may hold commas. There is no quote inside a quoted field: write <code>&amp;quot</code> there. A field that is no directive is skipped, so a line of stars is a remark.</p>
<p><code>#TRAIT</code>, <code>#EFFECT</code>, <code>#EXTRADATA</code>, <code>#TRAITACTIONDESC</code> and <code>#DUPLICATE</code> speak of the card before them.</p>
)";

constexpr std::string_view kPlacesIntro =
    R"(<p>The first field of a <code>#CARD</code> line says where the card goes.</p>
)";

constexpr std::string_view kTargetsIntro =
    R"(<p>The first field of an action says on whom it acts. A target that is picked must be able to pass the script's requirements.</p>
)";

constexpr std::string_view kTriggersIntro =
    R"(<p>The second field of an action says when it acts. A turn goes like this: both sides play their cards, then TURNSTART, PHASE1 to PHASE10, TURNEND. The rules card gets all of these but PHASE10.</p>
)";

constexpr std::string_view kScriptsIntro =
    R"(<p>The third field of an action is its script: words with a colon between them, done from left to right. Behind a word stand its arguments. An empty field ends the script. A requirement that is not met ends it too, and what stands before it has happened already.</p>
<p>With <code>AI</code> before a requirement it is only a wish: <code>AIREQTRAIT:SINGER</code> looks for a singer first, and takes another card if there is none.</p>
<p>Scripts are also tried out on copies of the cards, and nothing comes of it: when the computer judges its hand, when a target is searched for, when a price is looked at. What a word does in such a trial stands with it, where it is not the same.</p>
<p>Commas end fields, so a script stands in quotes. A colon ends a message: write <code>&amp;col</code> there.</p>
)";

constexpr std::string_view kValuesIntro =
    R"(<p>Where a command takes a VALUE, write a number or an expression: fields with a slash between them, worked out from left to right. A plain number is added, so <code>6/3</code> is 9. A trait that is named is remembered until one of the words with TRAIT counts it, and a value that comes to exactly 0 is the trait named last: <code>SRCTRAIT/HP</code> alone is HP, <code>SRCTRAIT/HP/PLUS2</code> is 2, <code>SRCTRAIT/HP/TRAITPLUS1/PLUS2</code> is HP and 2. A trait that is missing is 0, a card that is missing leaves the value as it was, a division by 0 too. A word that is none counts 0. The examples can stand in any script, as in <code>SUBTRAIT:HP:SRCTRAIT/HUM</code>.</p>
)";

constexpr std::string_view kMessagesIntro =
    R"(<p>Messages may hold these marks, and descriptions where they are shown in the list of a deck's cards; beside the table a description fills in <code>$MYNAME</code> alone. A word of a <code>#CUSTOMSTRING</code> line is filled in as well.</p>
)";

constexpr std::string_view kMarkupIntro =
    R"(<p>Names, descriptions, captions and messages may hold these tags, with the attributes that stand beside them. Pages show nothing else: other tags and attributes, comments, style sheets and scripts are left out, and so is a tag that browsers would have to mend, such as one without its <code>&gt;</code>. A <code>&lt;</code> that opens no tag is text. Pictures come from the game's folders, by name. Links are those that the program makes itself. <code>brindle check</code> tells of markup that no page shows.</p>
)";

constexpr std::string_view kTraitsIntro =
    R"(<p>A trait is any name with a value, and it means what the game's scripts make of it. Names are the same in small and capital letters. These few the program itself knows.</p>
<p>A trait that a card has not counts 0. A trait without a value counts 1. A value that is a text counts as the number that it begins with, 0 for none.</p>
)";

constexpr std::string_view kTurn =
    R"(<p>A turn goes like this. What begins to act in the middle of it acts from the next step on.</p>
<ol>
<li>The computer judges its hand and plays; then the player's planned cards come. Each card pays its price and goes to the table: its actions at ENTERPLAY run, and those of others at OTHERENTERSPLAY.</li>
<li>TURNSTART, then PHASE1 to PHASE9: in each the rules card acts first and the cards of the table after it. In PHASE10 only cards act: the rules card gets no PHASE10. Cards that scripts have made come in behind each of them; at TURNSTART only when rules and cards have acted.</li>
<li>TURNEND: here the cards act first. Then all that begins with BONUS is gone, and then the rules card acts.</li>
</ol>
<p>A card that is not in play yet answers no trigger but the one that brings it in: the word in the second field of <code>#EXTRADATA</code>. Within a step cards act in the order in which they came to the table, and a card's actions in the order of its lines.</p>
)";

constexpr std::string_view kNeutral =
    R"(<p>Cards with the place NEUTRAL belong to no side. They lie on the table and act like others. A card of <code>#NEUTRALCARD</code> (as of <code>#CARDINPLAY</code> and <code>#REFINPLAY</code>) only lies there: it has not entered play, so it never acts and nothing aims at it. Neither is shown: no table of the report shows them. To show one, let its action write a message (<code>ECHO</code>), or give it the trait STORE and menu actions: then its page stands beside the report when the player comes in. REQALLY and RANDOMALLY find them for each other only; REQENEMY and RANDOMENEMY take them for enemies of both sides, so a script that means the other side only should ask for a trait that its cards have.</p>
)";

std::string LimitsText() {
  return Joined("<p>Whatever a script asks for has an end: the work of a turn stops at ",
                limits::kStepsOfTurn,
                " steps (a step is about one command on one card), runs in runs at ",
                limits::kNestedRuns, ", the table at ", limits::kTableCards,
                " cards, a booster at ", limits::kBoosterCards,
                " cards. At a bound the work stops in order, and the page says "
                "so once.</p>\n");
}

struct Family {
  std::string_view Title;
  std::span<const Command> (*Rows)();
};
constexpr std::array<Family, 5> kFamilies = {{
    {"Requirements and chances", RequirementCommands},
    {"Traits, values and tokens", TraitCommands},
    {"Cards, piles and the game", CardCommands},
    {"Texts and colours of the report", DisplayCommands},
    {"Reactions, and scripts that go elsewhere", ReactionCommands},
}};

std::string Section(std::string_view anchor, std::string_view title, std::string_view intro) {
  return Joined("<h2 id=\"", anchor, "\">", title, "</h2>\n", intro);
}

/// HTML of a note: what stands in "`" is code.
std::string NoteText(std::string_view text) {
  std::string html;
  bool inCode = false;
  for (FieldWalker parts(text, '`'); !parts.AtEnd(); inCode = !inCode) {
    const std::string part = HtmlText(parts.Next());
    html += inCode ? Joined("<code>", part, "</code>") : part;
  }
  return Joined("<p>", html, "</p>\n");
}

std::string Entry(const WordHelp& help) {
  std::string notes;
  for (const std::string& note : help.Notes) notes += NoteText(note);
  return Joined("<dt id=\"", HtmlText(help.Anchor), "\"><code>", HtmlText(help.Form),
                "</code></dt>\n<dd>", HtmlText(help.Meaning), "\n<pre>", HtmlText(help.Example),
                "</pre>\n", notes, "</dd>\n");
}

/// The entries of all rows of a table.
template <class Rows>
std::string Entries(const Rows& rows) {
  std::string html;
  for (const auto& row : rows) html += Entry(HelpOf(row));
  return html;
}

std::string Directives() {
  return Joined(Section("files", "Card files", kFilesIntro), "<dl>\n",
                Entries(kForeignDirectiveRows), Entries(kDirectiveRows), "</dl>\n");
}

std::string Locations() {
  return Joined(Section("places", "Places", kPlacesIntro), "<dl>\n", Entries(kLocationRows),
                "</dl>\n");
}

std::string Targets() {
  return Joined(Section("targets", "Targets", kTargetsIntro), "<dl>\n", Entries(kTargetTypeRows),
                "</dl>\n");
}

std::string Triggers() {
  return Joined(Section("triggers", "Triggers", kTriggersIntro), "<dl>\n", Entries(kTriggerRows),
                "</dl>\n");
}

std::string Arguments() {
  std::string html = "<h3 id=\"arguments\">What the arguments are</h3>\n<p class=\"words\">";
  for (const ArgumentRow& row : ArgumentRows()) {
    html += Joined("<code>", row.Name, "</code> ", HtmlText(row.Meaning), "<br>\n");
  }
  return html + "</p>\n";
}

/// Links to all commands, for those who know the word.
std::string CommandIndex() {
  std::string html = "<p class=\"words\">";
  for (const Family& family : kFamilies) {
    for (const Command& row : family.Rows()) {
      html += Joined("<a href=\"#", row.Word, "\">", row.Word, "</a>\n");
    }
  }
  return html + "</p>\n";
}

std::string Commands() {
  std::string html =
      Section(kScriptsAnchor, "Scripts", kScriptsIntro) + CommandIndex() + Arguments();
  for (const Family& family : kFamilies) {
    html += Joined("<h3>", family.Title, "</h3>\n<dl>\n", Entries(family.Rows()), "</dl>\n");
  }
  return html;
}

std::string Values() {
  return Joined(Section("values", "Values", kValuesIntro), "<dl>\n", Entries(ValueKeywords()),
                "</dl>\n");
}

std::string Messages() {
  return Joined(Section("messages", "Messages", kMessagesIntro), "<dl>\n", Entries(MessageMarks()),
                "</dl>\n");
}

/// Every tag that pages show, with its attributes.
std::string Markup() {
  std::string html = Section("markup", "Markup", kMarkupIntro) + "<p class=\"words\">";
  for (const ShownTag& tag : ShownTags()) {
    std::string names;
    for (const ShownAttribute& attribute : ShownAttributes()) {
      if (HasAttribute(tag, attribute)) names += Joined(" ", attribute.Name);
    }
    html += Joined("<code>&lt;", tag.Name, "&gt;</code>", names, "<br>\n");
  }
  return html + "</p>\n";
}

std::string Traits() {
  return Joined(Section("traits", "Traits of the program", kTraitsIntro), "<dl>\n",
                Entries(ProgramTraits()), "</dl>\n");
}

}  // namespace

std::string ReferencePage() {
  return Joined(kHead, Directives(), Locations(), Targets(), Triggers(), Commands(), Values(),
                Traits(), Messages(), Markup(), Section("turn", "The turn", kTurn),
                Section("neutral", "Neutral cards", kNeutral),
                Section("limits", "Limits", LimitsText()), "</body>\n</html>\n");
}

std::string WriteReferencePage() {
  const std::string path = InProgramFolder(kReferenceFile);
  const std::string page = ReferencePage();
  FileSystem& files = Desktop().Files();
  return files.Read(path) == page ? "" : files.Write(path, page);
}

}  // namespace brindlemoor
