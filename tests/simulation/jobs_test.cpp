// Work that is shared among processes, and the commands that simulate with them.
#include "apps/brindle/jobs.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "tests/simulation/tool_shell.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

struct Answer {
  std::string Problem;
  std::vector<std::string> Texts;
  int Pieces = 0;
};

Answer RunAll(int jobs, const JobWork& work) {
  Answer answer;
  answer.Problem = RunJobs(
      jobs, work, [&answer](int pieces) { answer.Pieces += pieces; }, answer.Texts);
  return answer;
}

TEST(JobsTest, TextsComeInTheOrderOfTheJobs) {
  const std::string big(300000, '.');
  const JobWork work = [&big](int job, const std::function<void()>& pieceDone) -> JobAnswer {
    std::this_thread::sleep_for(std::chrono::milliseconds(30 * (3 - job)));
    for (int piece = 0; piece <= job; ++piece) pieceDone();
    return {"", Joined(".\n", job, job == 1 ? big : "")};
  };
  const Answer answer = RunAll(3, work);
  EXPECT_EQ(answer.Problem, "");
  EXPECT_EQ(answer.Texts, (std::vector<std::string>{".\n0", ".\n1" + big, ".\n2"}));
  EXPECT_EQ(answer.Pieces, 6);
  EXPECT_EQ(RunAll(1, work).Texts, std::vector<std::string>{".\n0"});
}

TEST(JobsTest, AJobThatFailsEndsTheOthers) {
  const auto run = [](void (*fail)(JobAnswer & answer)) {
    return RunAll(3,
                  [fail](int job, const std::function<void()>&) {
                    JobAnswer answer;
                    if (job == 1) fail(answer);
                    if (job == 2) std::this_thread::sleep_for(std::chrono::minutes(5));
                    return answer;
                  })
        .Problem;
  };
  EXPECT_EQ(run([](JobAnswer& answer) { answer.Problem = "no cards"; }), "no cards");
  EXPECT_EQ(run([](JobAnswer&) { std::raise(SIGKILL); }), "a job was ended: Killed");
  EXPECT_EQ(run([](JobAnswer&) { std::_Exit(0); }), "a job ended without an answer");
}

class SimCommandTest : public ::testing::Test {
 protected:
  SimCommandTest() { fs::create_directories(folder_); }
  ~SimCommandTest() override { fs::remove_all(folder_); }
  std::string Sim(std::string_view options) const {
    return Shell(Joined("cd '", folder_.string(), "' && '", BRINDLE_PROGRAM, "' sim '",
                        BRINDLEMOOR_SOURCE_DIR, "/games' --seed 5 --matches 2 ", options));
  }
  std::string Merge(std::string_view files) const {
    return Shell(Joined("cd '", folder_.string(), "' && '", BRINDLE_PROGRAM, "' merge ", files));
  }
  std::string Bytes(const char* file) const {
    std::ifstream in(folder_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  // Tests run side by side.
  const fs::path folder_ =
      fs::path(testing::TempDir()) / Joined("brindlemoor_sim_command_", ::getpid());
};

TEST_F(SimCommandTest, OneJobFourJobsAndMergedShardsGiveEqualBytes) {
  const std::string table = Sim("--jobs 1 --csv=1.csv --json=1.json --html=1.html");
  EXPECT_TRUE(table.starts_with("Wickwater: 2 matches of each pairing, seed 5")) << table;
  EXPECT_TRUE(table.ends_with("status 0"));
  EXPECT_EQ(Sim("--jobs 4 --csv=4.csv --json=4.json --html=4.html"), table);
  for (const char* kind : {"csv", "json", "html"}) {
    const std::string one = Bytes(Joined("1.", kind).c_str());
    EXPECT_GT(one.size(), 1000U) << kind;
    EXPECT_EQ(Bytes(Joined("4.", kind).c_str()), one) << kind;
  }
  EXPECT_EQ(Sim("--csv"), Bytes("1.csv") + "status 0");
  EXPECT_EQ(Sim("--shard 1/2 --out a.txt"), "status 0");
  EXPECT_EQ(Sim("--shard 2/2 --jobs 2 > b.txt"), "status 0");
  EXPECT_EQ(Merge("b.txt a.txt"), table);
  EXPECT_EQ(Merge("a.txt b.txt --html"), Bytes("1.html") + "status 0");
  EXPECT_EQ(Merge("a.txt"), "brindle: Shard 2 of 2 is missing.\nstatus 1");
  EXPECT_EQ(Merge("a.txt c.txt"), "brindle: can't read c.txt\nstatus 2");
}

TEST_F(SimCommandTest, AFullDiskIsToldAndLeavesNoHalfFile) {
  struct stat device {};
  if (::stat("/dev/full", &device) != 0) GTEST_SKIP() << "no /dev/full";
  const std::string full = "can't write /dev/full: No space left on device\nstatus 2";
  EXPECT_EQ(Sim("--html=/dev/full"), "brindle: " + full);
  EXPECT_EQ(Sim("--shard 1/1 --out /dev/full"), "brindle: " + full);
  EXPECT_EQ(Sim("--csv > /dev/full"), "brindle: the output could not be written\nstatus 2");
  ASSERT_EQ(::stat("/dev/full", &device), 0);
  EXPECT_TRUE(S_ISCHR(device.st_mode)) << "the device itself was not replaced";
  EXPECT_EQ(Sim("--json=none/x.json"),
            "brindle: can't write none/x.json: No such file or directory\nstatus 2");
  EXPECT_TRUE(fs::is_empty(folder_));
}

TEST_F(SimCommandTest, WrongUsageIsNamed) {
  const std::string hint = "\nTry: brindle --help\nstatus 2";
  const std::pair<const char*, std::string> cases[] = {
      {"--jobs 0", "not a value: 0" + hint},
      {"--matches=many", "not a value: --matches=many" + hint},
      {"--shard 3/2", "not a value: 3/2" + hint},
      {"--shard 1/2 --csv", "a shard is reported when all are there: see brindle merge" + hint},
      {"--out x", "--out is for shards; a report goes to a file with --csv=FILE" + hint},
      {"--csv results.csv", "one folder only: results.csv" + hint},
      {"--csv --html",
       "only one form can go to the output; give the others a file, such as --csv=FILE\nstatus 2"},
  };
  for (const auto& [options, problem] : cases) EXPECT_EQ(Sim(options), "brindle: " + problem);
}

}  // namespace
}  // namespace brindlemoor
