// The list of shipped files, and whether it is true of the games here.
#include "sharing/shipped_list.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "text/hash.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

const std::string kHead =
    "The files that came with Brindlemoor: since which edition, hash, name.\n";

std::string BytesOf(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(ShippedListTest, IsTrueOfTheGamesHere) {
  const fs::path games = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games";
  FileHashes present;
  for (const auto& entry : fs::recursive_directory_iterator(games)) {
    const std::string ending = entry.path().extension().string();
    const bool isNotShipped =
        ending == ".py" || ending == ".pyc" || ending == ".md" || ending == ".list";
    if (!entry.is_regular_file() || isNotShipped) continue;
    present[entry.path().lexically_relative(games).generic_string()] =
        HashOf(BytesOf(entry.path()));
  }
  const auto list = ReadShippedList(BytesOf(games / kShippedList));
  ASSERT_TRUE(list);
  EXPECT_TRUE(list->Latest == present) << "call tools/shipped_files.py: games/ has changed";
}

TEST(ShippedListTest, TellsTheFirstEditionTheLatestAndAllThatWasShipped) {
  const std::string a(16, 'a');
  const std::string b(16, 'b');
  const auto list =
      ReadShippedList(kHead + "1 " + a + " Goblins.txt\n1 " + a + " art/old moth.jpg\n2 " + b +
                      " Goblins.txt\n2 " + b + " Elves.txt\n3 - art/old moth.jpg\n");
  ASSERT_TRUE(list);
  EXPECT_EQ(list->First, (FileHashes{{"Goblins.txt", a}, {"art/old moth.jpg", a}}));
  EXPECT_EQ(list->Latest, (FileHashes{{"Elves.txt", b}, {"Goblins.txt", b}}));
  EXPECT_TRUE(list->Known.contains({"art/old moth.jpg", a}));
  EXPECT_TRUE(list->Known.contains({"Goblins.txt", a}));
  EXPECT_FALSE(list->Known.contains({"Elves.txt", a}));
}

TEST(ShippedListTest, OneWrongLineMakesItNone) {
  const std::string hash(16, 'a');
  for (const std::string& bytes : std::array<std::string, 10>{
           "", "Goblins.txt\n", kHead + "Goblins.txt\n", kHead + "0 " + hash + " Goblins.txt\n",
           kHead + "1 " + hash + "a Goblins.txt\n", kHead + "1 " + hash + " \n",
           kHead + "1 " + hash + " ../Goblins.txt\n", kHead + "1 " + hash + " a/b/Goblins.txt\n",
           kHead + "1x " + hash + " Goblins.txt\n",
           kHead + "2 " + hash + " Goblins.txt\n1 " + hash + " Elves.txt\n"}) {
    EXPECT_FALSE(ReadShippedList(bytes)) << bytes;
  }
  EXPECT_TRUE(ReadShippedList(kHead));
}

}  // namespace
}  // namespace brindlemoor
