// An author's file keeps all that the author wrote, whatever is done to its cards.
#include "editor/card_document.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <random>
#include <set>

#include "core/cards.h"
#include "data/card_reader.h"
#include "data/card_writer.h"
#include "game/card_sorting.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr const char* kPath = "/game/own.txt";

Lines LinesOf(const std::string& bytes) {
  Lines lines;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', start), bytes.size() - 1);
    lines.push_back(bytes.substr(start, end + 1 - start));
    start = end + 1;
  }
  return lines;
}

class CardDocumentTest : public SessionTest {
 protected:
  /// Opens a file as the editor does. False when it can't be read whole.
  bool Open(const std::string& bytes) {
    WriteFile("own.txt", bytes);
    Session& state = State();
    state.Collection = Pile(1);
    state.Templates.Reset(1);
    state.GameFileName = Text();
    if (!ReadCards(kPath, state.Players[1], 1, "COLLECTION", 1)) return false;
    SortCards(state.Collection, "NAME");
    document_.Read(kPath, state.Collection);
    return true;
  }
  std::optional<std::string> Bytes() const {
    return document_.BytesWith(State().Collection, State().Templates);
  }
  static Card& CardCalled(std::string_view name) {
    Pile& cards = State().Collection;
    for (int place = 1; place <= cards.UpperBound(); ++place) {
      if (cards[place].Name == name) return cards[place];
    }
    ADD_FAILURE() << "no card " << name;
    return cards[1];
  }
  /// What the cards of the list and of a file are, in any order.
  static std::multiset<std::string> Described() {
    std::multiset<std::string> cards;
    for (Card card : State().Collection) {
      if (IsFree(card)) continue;
      card.SourceFile = card.UniqueID = Text();
      cards.insert(CardToText(card, ""));
    }
    return cards;
  }

  CardDocument document_;
};

constexpr const char* kFile =
    "Cards of the marsh, by Ann\n"
    "\n"
    "#GAMEFILE, marsh.txt\n"
    "#CARD, INDECK, \"Elf\", Elf1, old.txt, e.jpg, e-mini.jpg, #00FF00, \"A &quotsmall&quot one\"\n"
    "#TRAIT, HP:3, #TRAIT, FAST, \n"
    "fast is new\n"
    "#EFFECT, SELF, PHASE1, \"ECHO:a\"\n"
    "  the second is for the night\n"
    "#EFFECT, SELF, PHASE2, \"ECHO:b\"\n"
    "#EXTRADATA, 3, , , , \n"
    "#DUPLICATE, 4\n"
    "\n"
    "********** Frog\n"
    "#COLLECTION, Frog, f.jpg, f-mini.jpg, , hops, \"Wet.\"\n"
    "#TRAIT, HP:1\n"
    "\n"
    "#CUSTOMSTRING, CROAK, \"Brekekekex\"\n"
    "#CARD, #PLAYERCARD, Queen, , , q.jpg, , , \"\"\n"
    "#CARDINDECK, Hidden, , , , , \"in the draw pile\"\n"
    "#RULESCARD\n"
    "#EFFECT, SELF, PHASE1, \"ECHO:rules\"\n";

TEST_F(CardDocumentTest, OnlyTheLinesOfChangedCardsChange) {
  ASSERT_TRUE(Open(kFile));
  EXPECT_EQ(Bytes(), kFile);
  Card& elf = CardCalled("Elf");
  SetTrait(elf, "HP", "4", 1);
  elf.Effects.Edit(2).Script = "ECHO:night";
  std::string expected = kFile;
  const auto replace = [&expected](const std::string& from, const std::string& to) {
    ASSERT_NE(expected.find(from), std::string::npos) << from;
    expected.replace(expected.find(from), from.size(), to);
  };
  replace("#TRAIT, HP:3,", "#TRAIT, \"HP:4\",");
  replace("\"ECHO:b\"", "\"ECHO:night\"");
  replace("Elf1, old.txt", "\"Elf1\", own.txt");
  EXPECT_EQ(Bytes(), expected);

  CardCalled("Frog").Name = "Toad";
  replace("********** Frog", "***************************************** Toad");
  replace("#COLLECTION, Frog, f.jpg, f-mini.jpg, , hops,",
          "#COLLECTION, \"Toad\", f.jpg, f-mini.jpg, , hops,");
  EXPECT_EQ(Bytes(), expected);

  FreeCard(CardCalled("Elf"));
  const std::size_t begin = expected.find("#CARD, INDECK");
  expected.replace(begin, expected.find("*****************************************") - begin,
                   "fast is new\n  the second is for the night\n");
  EXPECT_EQ(Bytes(), expected) << "remarks stay";

  FreeCard(CardCalled("Toad"));
  const std::size_t toad = expected.find("*****************************************");
  expected.erase(toad, expected.find("#CUSTOMSTRING") - toad);
  EXPECT_EQ(Bytes(), expected) << "what follows is not the card's";
}

TEST_F(CardDocumentTest, TheFileIsLookedAtWithoutAWord) {
  const std::string file = "#CARDINDECK, Bat, , , , , \n#TRAITACTIONDESC, HP, x\n";
  desktop_->ExpectedMessages = {
      "Error in reading cards: Bat references trait HP but does not have it."};
  ASSERT_TRUE(Open(file));  // the read of the list says it once
  const std::size_t problems = State().Problems.size();
  EXPECT_EQ(Bytes(), file);
  EXPECT_EQ(State().Problems.size(), problems);
}

TEST_F(CardDocumentTest, NewCardsComeBehindTheLastAndTemplatesToTemplates) {
  ASSERT_TRUE(Open(kFile));
  State().Collection.Append(MakeCard("Newt", 1, {"HP:2"}));
  State().Templates.Append({MakeCard("Beast", 1), "art/back.bmp", "", 7});
  const std::string bytes = Bytes().value();
  const std::string front(bytes, 0, bytes.find("***************************************** Newt"));
  EXPECT_TRUE(std::string(kFile).starts_with(front));
  EXPECT_TRUE(front.ends_with("#TRAIT, HP:1\n\n")) << front;
  EXPECT_NE(bytes.find("#CARD, COLLECTION, \"Newt\", \"Newt3\", own.txt,"), std::string::npos);
  EXPECT_NE(bytes.find("#TEMPLATEDATA, back.bmp, , 7\n"), std::string::npos);
  EXPECT_EQ(bytes.find('\r'), std::string::npos) << "the file has line feeds only";
  const auto before = Described();
  ASSERT_TRUE(Open(bytes));
  EXPECT_EQ(Described().size(), before.size());
  EXPECT_EQ(State().Templates.UpperBound(), 1);
  State().GameFileName = "other.txt";
  EXPECT_NE(Bytes().value().find("#GAMEFILE, other.txt\n"), std::string::npos);
}

TEST_F(CardDocumentTest, EncodingsAndLineEndsStay) {
  for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
      const std::string file = Joined(mark, "Müll", end, "#CARD, INDECK, Käfer, , , , , , ", end,
                                      "#TRAIT, HP:1", end, "Ende");
      ASSERT_TRUE(Open(file));
      EXPECT_EQ(Bytes(), file);
      SetTrait(CardCalled("Käfer"), "HP", "2", 1);
      const std::string bytes = Bytes().value();
      EXPECT_TRUE(bytes.starts_with(Joined(mark, "Müll", end)));
      EXPECT_TRUE(bytes.ends_with(Joined("#TRAIT, \"HP:2\"", end, "Ende"))) << bytes;
    }
  }
  const std::string file =
      "M\xFCll \x81\n#CARD, INDECK, K\xE4"
      "fer, , , , , , \n#TRAIT, HP:1\n";
  ASSERT_TRUE(Open(file));
  CardCalled("Käfer").Description = "groß";
  const std::string bytes = Bytes().value();
  EXPECT_TRUE(
      bytes.starts_with("M\xFCll \x81\n#CARD, INDECK, \"K\xE4"
                        "fer\""))
      << bytes;
  EXPECT_NE(bytes.find("gro\xDF"), std::string::npos);
  CardCalled("Käfer").Description = "虫";
  EXPECT_NE(Bytes().value().find("Müll"), std::string::npos) << "it needs UTF-8 now";
}

TEST_F(CardDocumentTest, OnlyFilesOfTheEditorAreWrittenAnew) {
  desktop_->AcceptMessages = true;
  WriteFile("more.txt", "#CARD, COLLECTION, Ant, , , , , , \n");
  const std::string deck = "a deck\n#INCLUDE, more.txt, INDECK\n#CARD, INDECK, Bee, , , , , , \n";
  ASSERT_TRUE(Open(deck));
  CardCalled("Bee").Description = "hums";
  const std::string bytes = Bytes().value();
  EXPECT_TRUE(bytes.starts_with("a deck\n#INCLUDE, more.txt, INDECK\n#CARD, INDECK, \"Bee\""));
  EXPECT_FALSE(document_.IsMixed());
  ASSERT_TRUE(Open("#CARD, INDECK, Bee, , , , , , \n#INCLUDE, more.txt, COLLECTION\n"));
  EXPECT_EQ(Bytes(), std::nullopt);
  EXPECT_TRUE(document_.IsMixed());
  ASSERT_TRUE(Open("#CARD, INDECK, Bee, , , , , , \n"));
  EXPECT_TRUE(document_.IsAsLeft());
  WriteFile("own.txt", "changed by another");
  EXPECT_FALSE(document_.IsAsLeft());
}

/// A card of the list, changed in a way that an author might.
void ChangeSomething(Card& card, std::mt19937& dice) {
  switch (dice() % 6) {
    case 0:
      SetTrait(card, "HP", Text(Joined(dice() % 90 + 100)), 1);
      break;
    case 1:
      SetTrait(card, Joined("NEW", dice() % 100), "1", 1);
      break;
    case 2:
      if (card.Traits.UpperBound() > 0) card.Traits.Edit(card.Traits.UpperBound()) = Text();
      break;
    case 3:
      AddEffect(card, Joined("ECHO:", dice()), 7, "PHASE1", 0, "SELF");
      break;
    case 4:
      if (card.Effects.UpperBound() > 0) card.Effects.Edit(1).Script = Text("ECHO:changed");
      break;
    default:
      card.Description = Joined("Changed, \"so\" ", dice());
  }
}

/// Changes some cards of the list, takes some out and adds one. Returns how many.
int ChangeSome(unsigned seed) {
  std::mt19937 dice(seed);
  Pile& cards = State().Collection;
  int changed = 0;
  for (unsigned change = 0; change < seed % 6; ++change) {
    Card& card = cards[static_cast<int>(dice() % static_cast<unsigned>(cards.UpperBound())) + 1];
    if (IsFree(card)) continue;
    ++changed;
    if (dice() % 6 == 0) {
      FreeCard(card);
    } else {
      ChangeSomething(card, dice);
    }
  }
  if (dice() % 4 != 0) return changed;
  cards.Append(MakeCard("Newcomer", 1, {"HP:1"}));
  return changed + 1;
}

/// A file of a stranger: whatever may stand in one, in any order, on one line or on many.
std::string StrangeFile(unsigned seed) {
  constexpr const char* kPieces[] = {"a remark",
                                     "",
                                     "   ",
                                     "****************************** A",
                                     "#CARD, INDECK, A, A1, f.txt, p.jpg, t.jpg, #00FF00, \"d, e\"",
                                     "\"#CARD\", COLLECTION, \"B, b\", , , , , , two\n  lines",
                                     "#CARD, COLLECTION, C, , , , , , \"over\ntwo\"",
                                     "#CARD, INDECK, A, A1, f.txt, p.jpg, t.jpg, , \"the same ID\"",
                                     "#COLLECTION, D, p, t, #FF0000, more, \"x\"",
                                     "#CARD, NOWHERE, Lost, , , , , , ",
                                     "#CARD, #PLAYERCARD, Queen, , , , , , ",
                                     "#CARDINDECK, Hidden, , , , , ",
                                     "#TRAIT, HP:3",
                                     "#TRAIT, HP:4",
                                     "#TRAIT, \"LOUD\"",
                                     "#EFFECT, SELF, PHASE1, \"ECHO:x\ny\"",
                                     "#EFFECT, SELF, MENU:PHASE1:Click, ECHO:z",
                                     "#EXTRADATA, 3, PHASE1, , , ",
                                     "#TRAITACTIONDESC, HP, \"health\"",
                                     "#DUPLICATE, 2",
                                     "#TEMPLATE, T, , , , , ",
                                     "#TEMPLATEDATA, a.bmp, b.bmp, 3",
                                     "#TOKENS, 5",
                                     "#CUSTOMSTRING, KEY, value",
                                     "#INCLUDE, none.txt, ",
                                     "#INCLUDE, other.txt, INDECK",
                                     "#RULESCARD",
                                     "#REFCOLLECTION, A, other.txt",
                                     "#UNKNOWN, word"};
  std::mt19937 dice(seed);
  std::string file;
  for (unsigned piece = 0; piece < 4 + seed % 40; ++piece) {
    file += kPieces[dice() % std::size(kPieces)];
    constexpr const char* kEnds[] = {"\n", "\r\n", "\r", ", ", ",", "\n\n"};
    file += kEnds[seed % 3 == 0 ? dice() % std::size(kEnds) : seed % 2];
  }
  if (seed % 7 == 0) file += "\"never closed #CARD, INDECK, E, , , , , , ";
  return file;
}

TEST_F(CardDocumentTest, FilesOfStrangersKeepWhatNoCardSays) {
  desktop_->AcceptMessages = true;
  WriteFile("other.txt", "#CARD, INDECK, A, A9, , , , , referred to\n#TRAIT, FAR\n");
  int changed = 0;
  int written = 0;  // anew
  for (unsigned seed = 0; seed < 500; ++seed) {
    State().Problems.clear();
    desktop_->Messages.clear();
    const std::string file = StrangeFile(seed);
    SCOPED_TRACE(testing::Message() << "seed " << seed << ":\n" << file);
    ASSERT_TRUE(Open(file));
    ASSERT_EQ(Bytes(), file);
    const int some = ChangeSome(seed);
    const auto now = Described();
    const auto saved = Bytes();
    written += saved ? 0 : 1;
    if (!saved) continue;
    changed += some;
    const std::string& bytes = *saved;
    SCOPED_TRACE(testing::Message() << "saved:\n" << bytes);
    for (const char* kept : {"a remark", "Lost", "Queen", "Hidden", "#TOKENS", "#CUSTOMSTRING",
                             "#RULESCARD", "#UNKNOWN", "never closed"}) {
      const auto count = [kept](const std::string& text) {
        int found = 0;
        for (auto at = text.find(kept); at != text.npos; at = text.find(kept, at + 1)) ++found;
        return found;
      };
      ASSERT_EQ(count(bytes), count(file)) << kept;
    }
    ASSERT_TRUE(Open(bytes));
    ASSERT_EQ(Described(), now);
  }
  EXPECT_GT(changed, 450);
  EXPECT_LT(written, 10);
}

TEST_F(CardDocumentTest, OfTwentyThousandCardsOnlyTheLinesOfThreeChange) {
  std::string file;
  for (int card = 1; card <= 20'000; ++card) {
    file += Joined("remark ", card, "\n#CARD, INDECK, C", card, ", U", card,
                   ", , , , , \"\"\n#TRAIT, HP:", card, "\n");
  }
  ASSERT_TRUE(Open(file));
  EXPECT_TRUE(Bytes() == file);
  SetTrait(CardCalled("C1"), "HP", "0", 1);
  SetTrait(CardCalled("C20000"), "HP", "0", 1);
  FreeCard(CardCalled("C777"));
  Lines expected = LinesOf(file);
  // A card that has changed names its file and its colour.
  const std::string rest = ", own.txt, , , #FFFFFF, \"\"\n#TRAIT, \"HP:0\"\n";
  expected[1] = Joined("#CARD, INDECK, \"C1\", \"U1\"", rest);
  expected[3 * 20'000 - 2] = Joined("#CARD, INDECK, \"C20000\", \"U20000\"", rest);
  expected[2] = expected[3 * 20'000 - 1] = "";
  expected.erase(expected.begin() + 3 * 776 + 1, expected.begin() + 3 * 777);
  EXPECT_TRUE(Bytes() == std::accumulate(expected.begin(), expected.end(), std::string()));
}

class ShippedFilesTest : public CardDocumentTest {
 protected:
  static std::vector<fs::path> Files() {
    std::vector<fs::path> files;
    for (const auto& entry :
         fs::recursive_directory_iterator(std::string(BRINDLEMOOR_SOURCE_DIR) + "/games")) {
      if (entry.path().extension() == ".txt") files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
  }
  static std::string Read(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
};

TEST_F(ShippedFilesTest, KeepTheirLinesWhateverCardsChange) {
  int changed = 0;
  for (const fs::path& path : Files()) {
    SCOPED_TRACE(path.filename().string());
    const std::string file = Read(path);
    for (unsigned seed = 0; seed < 6; ++seed) {
      ASSERT_TRUE(Open(file));
      ASSERT_EQ(Bytes(), file);
      const int some = ChangeSome(seed);
      changed += some;
      const auto now = Described();
      const std::string bytes = Bytes().value();
      // Lines that went are of cards that changed.
      Lines before = LinesOf(file);
      Lines after = LinesOf(bytes);
      std::ranges::sort(before);
      std::ranges::sort(after);
      Lines gone;
      std::ranges::set_difference(before, after, std::back_inserter(gone));
      EXPECT_LE(gone.size(), static_cast<std::size_t>(some) * 40);
      ASSERT_TRUE(Open(bytes));
      EXPECT_EQ(Described(), now) << "all cards are in the file";
    }
  }
  EXPECT_GT(changed, 100);
}

}  // namespace
}  // namespace brindlemoor
