// The text of journals: what is written is what is read, and other files are refused.
#include "journal/journal_text.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>
#include <unistd.h>

#include "journal/journal.h"
#include "journal/journal_writer.h"
#include "journal/moments.h"
#include "journal/session_words.h"
#include "journal/text_change.h"
#include "platform/files.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

TEST(JournalTextTest, FieldsComeBackAsTheyWere) {
  const JournalFields fields = {"plain",           "",
                                "two words",       "\"quoted\" \\ back",
                                "a\r\nb\tc\x01",   "M\xC3\xBCller",
                                "broken \xFF\xC3", std::string("\0x", 2)};
  const std::string line = JournalLine("word", fields);
  EXPECT_EQ(line.find_first_of("\n\r\t\x01\xFF"), line.npos);
  EXPECT_NE(line.find("M\xC3\xBCller"), line.npos) << "people can read it";
  JournalRecord record;
  ASSERT_TRUE(ReadJournalLine(line, record));
  EXPECT_EQ(record.Word, "word");
  EXPECT_EQ(record.Fields, fields);
}

TEST(JournalTextTest, RefusesLinesThatNoRecordGives) {
  JournalRecord record;
  for (const char* line : {"", " ", "a ", "a  b", "a \"", "a \"b", "a \"b\"c", "a \"\\q\"",
                           "a \"\\x1\"", "a \"\\xg0\"", "a \"\\", "\xC3\xBC"}) {
    EXPECT_FALSE(ReadJournalLine(line, record)) << line;
  }
}

TEST(JournalTextTest, AChangeBringsTheNextVersion) {
  const char* const texts[] = {"",    "abc",       "abcabc",    "xbc",
                               "abx", "M\xC3\xBC", "M\xC3\xA4", "M\xE2\x82\xAC"};
  for (const std::string before : texts) {
    for (const std::string after : texts) {
      const TextChange change = ChangeBetween(before, after);
      EXPECT_EQ(Changed(before, change), after) << before << " " << after;
      EXPECT_NE(change.Middle.substr(0, 1), "\xBC") << "characters stay whole";
    }
  }
  EXPECT_EQ(Changed("abc", {2, 2, ""}), std::nullopt);
  EXPECT_EQ(Changed("abc", {~std::size_t{0}, 1, ""}), std::nullopt);
  EXPECT_EQ(TextDifference("one\ntwo", "one\ntoo"),
            "line 2, byte 6\n  journal: \"one\\ntwo\"\n  replay:  \"one\\ntoo\"");
}

TEST(JournalTextTest, EventsComeBackAsTheyWere) {
  const UserEvent events[] = {
      {.Kind = UserEventKind::kClose},
      {.Kind = UserEventKind::kClick, .Control = "Picture2(1)"},
      {.Kind = UserEventKind::kType, .Control = "Text1", .Text = ""},
      {.Kind = UserEventKind::kPointUp, .Control = "Crop", .Number = 3, .Y = 40},
      {.Kind = UserEventKind::kScroll, .Control = "VScroll1(0)", .Number = -7},
      {.Kind = UserEventKind::kCells, .Control = "Cells", .Text = "1\t2\n", .Number = 3, .Y = 4},
  };
  for (const UserEvent& event : events) {
    for (const Moment when : {Moment{}, Moment{12, 3, false}, Moment{0, 0, true}}) {
      const auto read = ReadEvent(EventFields(5, when, "Form", event));
      ASSERT_TRUE(read);
      EXPECT_EQ(read->Event, event);
      EXPECT_EQ(read->When, when);
      Journal journal;
      EXPECT_EQ(ReadJournal(Joined("brindlemoor-journal 1\nstart\n",
                                   JournalLine("event", EventFields(5, when, "Form", event)), "\n"),
                            journal),
                "");
    }
  }
  for (const JournalFields& fields :
       {JournalFields{"1", "-", "click"}, JournalFields{"0", "-", "click", "F", "C"},
        JournalFields{"1", "1.x", "click", "F", "C"}, JournalFields{"1", "-", "kick", "F", "C"},
        JournalFields{"1", "-", "scroll", "F", "C"},
        JournalFields{"1", "-", "click", "F", "C", "C"},
        JournalFields{"1", "-", "scroll", "F", "C", "1x"}}) {
    EXPECT_FALSE(ReadEvent(fields)) << JournalLine("event", fields);
  }
}

constexpr const char* kSmall =
    "brindlemoor-journal 1\nprogram x\nkind session\nfolder /a\noption seed 3\nfile a.txt "
    "0\nstart\n"
    "clock 3\nend\n";

TEST(JournalTextTest, ReadsTheHeadAndRefusesOtherFiles) {
  Journal journal;
  ASSERT_EQ(ReadJournal(kSmall, journal), "");
  EXPECT_EQ(journal.Folder, "/a");
  EXPECT_EQ(journal.Number("seed"), 3U);
  EXPECT_EQ(journal.Files.size(), 1U);
  EXPECT_EQ(journal.Records.size(), 2U);
  EXPECT_TRUE(journal.Ended);
  const struct {
    std::string Text;
    const char* Said;
  } cases[] = {
      {"", "it is no journal"},
      {"#CARD\n", "it is no journal"},
      {"brindlemoor-journal 2\nstart\n", "it is a journal of another program version"},
      {"brindlemoor-journal 1\nprogram x\n", "it ends before the program started"},
      {"brindlemoor-journal 1\nstart\nclock\n", "line 3 is no line of a journal"},
      {"brindlemoor-journal 1\nstart\nkick 1\n", "line 3 is no line of a journal"},
      {"brindlemoor-journal 1\nclock 1\nstart\n", "line 2 is no line of a journal"},
      {"brindlemoor-journal 1\nstart\n\"\nend\n", "line 3 is no line of a journal"},
      {"brindlemoor-journal 1\nstart\nend\nclock 1\n", "line 4 is no line of a journal"},
  };
  for (const auto& row : cases) EXPECT_EQ(ReadJournal(row.Text, journal), row.Said) << row.Text;
  ASSERT_EQ(ReadJournal("brindlemoor-journal 1\nstart\nclock 1\nclo", journal), "");
  EXPECT_EQ(journal.Records.size(), 1U) << "a line that was cut off";
}

/// A disk that is full is said once, the program goes on, and what is there can be read.
TEST(JournalWriterTest, EndsWithAWordWhereNothingMoreCanBeWritten) {
  const fs::path path = fs::path(testing::TempDir()) / ("full_" + std::to_string(::getpid()));
  fs::remove(path);
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const rlimit small{200, old.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  JournalWriter writer;
  std::vector<std::string> said;
  writer.OnFailure = [&](const std::string& problem) { said.push_back(problem); };
  ASSERT_EQ(writer.Open(path.string()), "");
  WriteHead(writer, {"x", "session", "/a"});
  for (int line = 0; line < 100; ++line) writer.Add("clock", {std::to_string(line)});
  writer.AddText("Display.html", "page");
  ::setrlimit(RLIMIT_FSIZE, &old);
  ASSERT_EQ(said.size(), 1U);
  EXPECT_NE(said[0].find(path.string() + " ends here: "), std::string::npos) << said[0];
  EXPECT_FALSE(writer.Works());
  Journal journal;
  EXPECT_EQ(ReadJournal(LocalFileSystem().Read(path.string()).value_or(""), journal), "");
  EXPECT_GT(journal.Records.size(), 3U);
  EXPECT_FALSE(journal.Ended);
  fs::remove(path);
}

TEST(JournalWriterTest, NeverTouchesAFileThatIsThere) {
  const fs::path folder = fs::path(testing::TempDir()) / ("names_" + std::to_string(::getpid()));
  fs::create_directories(folder);
  JournalWriter first, second, third;
  EXPECT_EQ(first.Open(folder.string()), "");
  EXPECT_TRUE(first.Path().starts_with(folder.string() + "/"));
  EXPECT_TRUE(first.Path().ends_with(".journal"));
  EXPECT_EQ(second.Open(first.Path()), "The journal " + first.Path() + " is there already.");
  EXPECT_NE(third.Open((folder / "no" / "x").string()).find("Can't write the journal"),
            std::string::npos);
  EXPECT_FALSE(second.Works() || third.Works());
  fs::remove_all(folder);
}

}  // namespace
}  // namespace brindlemoor
