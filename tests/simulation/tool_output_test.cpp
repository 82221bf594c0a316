// The terminal program where its output, its memory or its standard streams are not as they should
// be: it says so, and never claims success.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/simulation/tool_shell.h"
#include "text/sanitizers.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

// The sanitizer takes terabytes of addresses.
constexpr bool kMemoryCanBeShort = !kUnderAddressSanitizer;

class ToolOutputTest : public ::testing::Test {
 protected:
  ToolOutputTest() { fs::create_directories(folder_); }
  ~ToolOutputTest() override { fs::remove_all(folder_); }

  /// "brindle" stands for the program, "GAMES" for the folder of the shipped games.
  std::string Run(const std::string& command) const {
    return Shell(Joined("cd '", folder_.string(), "'; GAMES='", BRINDLEMOOR_SOURCE_DIR,
                        "/games'; BRINDLE='", BRINDLE_PROGRAM,
                        "'; brindle() { \"$BRINDLE\" \"$@\"; }; ", command));
  }
  std::string Bytes(const std::string& file) const {
    std::ifstream in(folder_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  // Tests run side by side.
  const fs::path folder_ =
      fs::path(testing::TempDir()) / Joined("brindlemoor_tool_output_", ::getpid());
};

TEST_F(ToolOutputTest, ANewGamePlaysAtOnceAndTakesNobodysPlace) {
  for (const char* name : {"Goblins", "\"My 2nd Game\"", "\"\u00c4\u00d6\"", "Tests", "\"It's\""}) {
    const std::string made = Run(Joined("brindle new ", name));
    EXPECT_TRUE(made.ends_with("status 0")) << made;
    EXPECT_NE(Run(Joined("brindle check ", name)).find("4 files, 0 findings\nstatus 0"),
              std::string::npos)
        << name;
    EXPECT_NE(Run(Joined("brindle scenario ", name, "/tests")).find(" 0 failed, 0 could not"),
              std::string::npos)
        << name;
    EXPECT_NE(
        Run(Joined("brindle auto ", name, " --pages pages | grep -c wins")).find("1\nstatus 0"),
        std::string::npos)
        << name;
  }
  const std::string rules = Bytes("Goblins/Goblins.txt");
  EXPECT_NE(rules.find("#GAMERULES, \"Goblins\","), std::string::npos);
  const std::pair<const char*, const char*> refused[] = {
      {"brindle new Goblins", "Goblins is there already.\nstatus 1"},
      {"brindle new Goblins/Goblins.txt/x", "status 1"},
      {"brindle new x --name 'a,b'", "mean something else in card files.\nstatus 1"},
      {"brindle new x --name 'a/b'", "status 1"},
      {"brindle new", "status 2"}};
  for (const auto& [command, told] : refused) {
    const std::string output = Run(command);
    EXPECT_TRUE(output.ends_with(told)) << command << "\n" << output;
  }
  EXPECT_EQ(Bytes("Goblins/Goblins.txt"), rules);
  EXPECT_FALSE(fs::exists(folder_ / "x"));
  EXPECT_TRUE(Run("mkdir empty; brindle new empty --name Elves").ends_with("status 0"));
  EXPECT_NE(Bytes("empty/Elves.txt").find("\"Elves\""), std::string::npos);
}

TEST_F(ToolOutputTest, WatchingLooksOverAGameAtEachChange) {
  Run("brindle new Goblins");
  const std::string well = Run("brindle watch Goblins --once");
  EXPECT_NE(well.find("Starter Deck against Rival: won "), std::string::npos) << well;
  EXPECT_NE(well.find("4 expectations: 0 failed"), std::string::npos) << well;
  EXPECT_TRUE(well.ends_with("status 0")) << well;
  const std::string card = "Goblins/goblins/GoblinsCards.txt";
  const std::string log =
      Run(Joined("timeout 5 \"$BRINDLE\" watch Goblins > log.txt 2>&1 & "
                 "for wait in $(seq 30); do grep -q well log.txt && break; sleep 0.1; done; "
                 "sed -i 's/SUBTRAIT:HP:2/SUBTRIAT:HP:2/' ",
                 card,
                 "; for wait in $(seq 30); do grep -q above log.txt && break; sleep 0.1; done; "
                 "kill $!; cat log.txt"));
  EXPECT_NE(log.find("Did you mean \"SUBTRAIT\"?"), std::string::npos) << log;
  EXPECT_NE(log.find("See above, "), std::string::npos) << log;
  EXPECT_TRUE(Run("brindle watch Goblins --once").ends_with("status 1"));
  EXPECT_TRUE(Run("brindle watch nowhere --once").ends_with("status 2"));
  EXPECT_TRUE(Run("brindle watch").ends_with("status 2"));
}

TEST_F(ToolOutputTest, WhatCanNotBeWrittenWholeIsToldAndIsNoSuccess) {
  struct stat device {};
  if (::stat("/dev/full", &device) != 0) GTEST_SKIP() << "no /dev/full";
  ASSERT_EQ(Run("brindle sim \"$GAMES\" --matches 1 --turns 2 --shard 1/1 --out whole.txt"),
            "status 0");
  const std::string output = "brindle: the output could not be written\nstatus 2";
  const std::string full = "brindle: can't write /dev/full: No space left on device\nstatus 2";
  const std::pair<const char*, std::string> rows[] = {
      {"brindle --help > /dev/full", output},
      {"brindle check --codes > /dev/full", output},
      {"brindle scenario --words > /dev/full", output},
      {"brindle auto \"$GAMES\" --turns 1 --pages pages > /dev/full", output},
      {"brindle merge whole.txt > /dev/full", output},
      {"brindle merge whole.txt --csv=/dev/full", full},
      {"brindle merge whole.txt --json=/dev/full", full},
      {"brindle merge whole.txt --html=/dev/full", full},
      {"brindle reference /dev/full", full},
      {"brindle auto \"$GAMES\" --pages /dev/full > /dev/null",
       "brindle: Can't make /dev/full: Not a directory\nstatus 1"},
      {"ulimit -f 0; brindle merge whole.txt --csv=some.csv",
       "brindle: can't write some.csv: File too large\nstatus 2"},
      {"ulimit -f 1; brindle auto \"$GAMES\" --turns 1 --pages pages --journal j > /dev/null",
       Joined("brindle: The journal j ends here: File too large.\nbrindle: Can't write ",
              folder_.string(), "/pages/turn-000.html: File too large\nstatus 1")},
      {"{ { sleep 0.5; brindle --help; echo \"ended $?\" >&2; } | true; }",
       "brindle: the output could not be written\nended 2\nstatus 0"},
  };
  for (const auto& [command, said] : rows) EXPECT_EQ(Run(command), said) << command;
  EXPECT_FALSE(fs::exists(folder_ / "some.csv"));
}

TEST_F(ToolOutputTest, AClosedStreamLandsInNoOtherFile) {
  const std::string match = "brindle auto \"$GAMES\" --turns 1 ";
  ASSERT_TRUE(Run(match + "--pages open --journal open.journal").ends_with("status 0"));
  ASSERT_EQ(Run(match + "--pages closed --journal closed.journal <&- >&- 2>&-"), "status 0");
  for (const char* page : {"turn-000.html", "turn-001.html"}) {
    EXPECT_EQ(Bytes(Joined("closed/", page)), Bytes(Joined("open/", page)));
  }
  EXPECT_EQ(Bytes("closed.journal"), Bytes("open.journal"));
  EXPECT_NE(Bytes("open.journal"), "");
  EXPECT_EQ(Run("brindle reference open.html"), "status 0");
  EXPECT_EQ(Run("brindle reference closed.html >&- 2>&-"), "status 0");
  EXPECT_EQ(Bytes("closed.html"), Bytes("open.html"));
}

TEST_F(ToolOutputTest, DamagedShardsAreRefusedByName) {
  ASSERT_EQ(Run("brindle sim \"$GAMES\" --matches 1 --turns 2 --shard 1/1 --out whole.txt"),
            "status 0");
  EXPECT_EQ(Run("sed 's/^seed\t1/seed\t2/' whole.txt > other.txt; brindle merge other.txt"),
            "brindle: can't use other.txt: it is damaged: its checksum is another one\nstatus 2");
  EXPECT_EQ(Run("head -c 100 whole.txt > part.txt; brindle merge part.txt"),
            "brindle: can't use part.txt: it is cut off\nstatus 2");
  EXPECT_TRUE(Run("sed -E -e '1s/3/1/' -e '/^card/s/(\t-?[0-9]+){3}$//' -e 's/^end.*/end/' "
                  "whole.txt > old.txt; brindle merge old.txt")
                  .ends_with("status 0"));
}

TEST_F(ToolOutputTest, LittleMemoryIsEnoughOrIsMissedInASentence) {
  if (!kMemoryCanBeShort) GTEST_SKIP() << "the sanitizer needs more";
  const std::string little = "ulimit -v 200000; ";
  for (const char* command :
       {"check \"$GAMES\"", "auto \"$GAMES\" --turns 2 --pages pages",
        "sim \"$GAMES\" --matches 2 --turns 5", "sim \"$GAMES\" --matches 2 --turns 5 --jobs 2"}) {
    EXPECT_TRUE(Run(Joined(little, "brindle ", command)).ends_with("status 0")) << command;
  }
  const std::string large =
      "mkdir -p large; { echo '#GAMERULES, Large'; head -c 150000000 /dev/zero; } > "
      "large/Large.txt; ";
  const std::string missed = "brindle: there is not enough memory\nstatus 1";
  for (const char* command : {"check large", "auto large --pages pages", "sim large"}) {
    EXPECT_EQ(Run(Joined(large, little, "brindle ", command)), missed) << command;
  }
}

}  // namespace
}  // namespace brindlemoor
