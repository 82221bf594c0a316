// Access keys: every caption gets one that no other has.
#include "platform/qt/mnemonics.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

TEST(Mnemonics, EachCaptionGetsAKeyOfItsOwn) {
  const std::pair<QStringList, QStringList> cases[] = {
      {{"File", "Options", "Help"}, {"&File", "&Options", "&Help"}},
      {{"Save Cards", "Save Cards As..."}, {"&Save Cards", "Save &Cards As..."}},
      {{"Deck 1", "Deck 2", "Deck 3"}, {"&Deck 1", "Deck &2", "Deck &3"}},
      {{"Rename", "Rename", "Rename"}, {"&Rename", "R&ename", "Re&name"}},
      {{"new", "New"}, {"&new", "N&ew"}},
      {{"a", "A", ""}, {"&a", "A", ""}},
      {{"<<< Back"}, {"<<< &Back"}},
      {{"Salt & Pepper", "Salt"}, {"&Salt && Pepper", "S&alt"}},
      {{"?", "???"}, {"?", "???"}},
  };
  for (const auto& [captions, marked] : cases) {
    EXPECT_EQ(WithMnemonics(captions), marked) << captions.join(", ").toStdString();
  }
}

}  // namespace
}  // namespace brindlemoor
