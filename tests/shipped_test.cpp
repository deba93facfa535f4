// The programs as they ship, driven from outside: limits, signals, failing streams and too little memory.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <thread>
#include <utility>

#include "campaign_folder.h"

namespace {

namespace fs = std::filesystem;
// A program that is running. It takes commands and prints lines as the console does; the window does so by its driver.
class Program {
 public:
  explicit Program(const std::string& command) {
    mkfifo("input", 0600);
    output_ = popen(("echo $$; exec " + command + " <input").c_str(), "r");
    if (output_ == nullptr || std::fscanf(output_, "%d", &id_) != 1) throw std::runtime_error("not started");
    input_ = open("input", O_WRONLY | O_CLOEXEC);
    fs::remove("input");
    Answer();  // the form at the start
  }
  ~Program() {
    if (output_ != nullptr) Wait();
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void Type(const Bytes& lines) {
    EXPECT_EQ(write(input_, lines.data(), lines.size()), ssize_t(lines.size())) << "the program has ended";
  }
  void OpenAndMassage() {
    Do("open\n../campaign/campgn01.mis\n");
    Do("massage\n");
  }
  // Types the lines, and returns what is printed until the form shows its commands.
  Bytes Do(const Bytes& lines) {
    Type(lines);
    return Answer();
  }
  void Limit(int resource, rlim_t most) {
    const rlimit limit{most, RLIM_INFINITY};
    EXPECT_EQ(prlimit(id_, static_cast<__rlimit_resource>(resource), &limit, nullptr), 0);
  }
  rlim_t AddressSpace() const {
    std::ifstream statm("/proc/" + std::to_string(id_) + "/statm");
    rlim_t pages = 0;
    statm >> pages;
    return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
  }
  // Ends the input, and returns the status that a shell would show.
  int Wait() {
    close(input_);
    while (std::fgetc(output_) != EOF) continue;
    const int status = pclose(std::exchange(output_, nullptr));
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  }

 private:
  Bytes Answer() {
    Bytes text;
    std::array<char, 1024> line{};
    while (!Bytes(line.data()).starts_with("commands: ") && std::fgets(line.data(), line.size(), output_) != nullptr) {
      text += line.data();
    }
    return text;
  }

  pid_t id_ = 0;
  int input_ = -1;
  std::FILE* output_ = nullptr;
};

// Starts a display that nobody sees and that ends with the tests. Returns its name.
std::string HiddenDisplay() {
  std::FILE* output = popen("exec setpriv --pdeathsig TERM Xvfb -displayfd 1 -screen 0 1024x768x24 -nolisten tcp", "r");
  int number = -1;
  EXPECT_EQ(std::fscanf(output, "%d", &number), 1);
  return ":" + std::to_string(number);
}

const std::string ConsoleCommand = "\"" VELMORAN_CONSOLE "\"";
const Bytes WholeRun = "open\n../campaign/campgn01.mis\nmassage\nwrite\nexit\n";
constexpr std::array FaultSignals{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT, SIGSYS};

bool CanTrace() { return std::system("strace -o /dev/null true 2>/dev/null") == 0; }

// A whole run in which strace changes what a system call does.
Bytes Traced(const Bytes& change, const std::string& command) {
  return CampaignFolder::Run("strace -f -o /dev/null -e inject=" + change + " " + command, WholeRun);
}

class ShippedTest : public CampaignFolder, public testing::WithParamInterface<const char*> {
 protected:
  // The command that starts the program of the test.
  std::string Command() const {
    if (GetParam() == Bytes("Console")) return ConsoleCommand;
    static const std::string display = HiddenDisplay();
    return "env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY DISPLAY=" + display + " \"" VELMORAN_DRIVER "\"";
  }
  // What Write makes of the mission file.
  Bytes Plan() const {
    Program program(ConsoleCommand);
    program.OpenAndMassage();
    program.Do("write\n");
    const Bytes plan = Read(mis);
    ::Write(mis, intact);
    return plan;
  }
  const std::string shown = mis.string(),
                    keep = "The massaged flights are kept: remove the cause, and press Write again";
};
INSTANTIATE_TEST_SUITE_P(, ShippedTest, testing::Values("Console", "Window"),
                         [](const auto& program) { return program.param; });

TEST_P(ShippedTest, PlanSurvivesAWriteThatIsCut) {
  const Bytes plan = Plan(), size = std::to_string(plan.size());
  Program program(Command());
  program.OpenAndMassage();
  for (std::size_t part = 0; part < 10; ++part) {
    const std::size_t length = part < 9 ? part * plan.size() / 9 : plan.size() - 1;
    program.Limit(RLIMIT_FSIZE, length);
    const Bytes output = program.Do("write\n");
    EXPECT_NE(output.find("message: Error # 61 " + shown + ": only " + std::to_string(length) + " of " + size +
                          " bytes could be written: the disk is full"),
              Bytes::npos)
        << output;
    EXPECT_NE(output.find(". The file is incomplete now. " + keep), Bytes::npos) << output;
    EXPECT_TRUE(Read(mis) == plan.substr(0, length)) << length;
  }
  program.Limit(RLIMIT_FSIZE, RLIM_INFINITY);
  EXPECT_NE(program.Do("write\n").find("Write complete"), Bytes::npos);
  EXPECT_TRUE(Read(mis) == plan);
  EXPECT_EQ(program.Wait(), 0);
}

// Every signal that can be held, raised while the file is being flushed: the write is finished first, then the program
// ends as it would have at once.
TEST_P(ShippedTest, SignalsWaitForTheWrite) {
  if (!CanTrace()) GTEST_SKIP() << "strace isn't permitted here";
  const Bytes plan = Plan();
  const bool console = GetParam() == Bytes("Console");
  for (int signal = 1; signal <= SIGRTMAX; signal += console ? 1 : 7) {
    const bool fault = std::ranges::find(FaultSignals, signal) != FaultSignals.end();
    const bool stops = signal >= SIGCONT && signal <= SIGTTOU;  // SIGSTOP among them
    if (fault || stops || signal == SIGKILL || (signal > SIGSYS && signal < SIGRTMIN)) continue;
    const bool passes = signal == SIGCHLD || signal == SIGURG || signal == SIGWINCH || signal == SIGPIPE ||
                        signal == SIGXFSZ;  // of these, the last two are ignored by the console
    if (passes && !console) continue;
    ::Write(mis, intact);
    const Bytes output = Traced("fsync:signal=" + std::to_string(signal), Command());
    EXPECT_TRUE(Read(mis) == plan) << "signal " << signal << " left " << Read(mis).size() << " bytes";
    EXPECT_TRUE(output.ends_with("status " + std::to_string(passes ? 0 : 128 + signal))) << signal << output;
  }
  ::Write(mis, intact);  // SIGHUP is ignored, and doesn't hide SIGTERM
  const Bytes output = Traced("ftruncate:signal=TERM:when=1 -e inject=fsync:signal=HUP", "nohup " + Command());
  EXPECT_TRUE(output.ends_with("status 143") && Read(mis) == plan) << output;
}

// Each system call of a whole run fails once, and what the console then says of the mission file is true.
TEST_F(CampaignFolder, ConsoleIsTruthfulWhicheverCallFails) {
  if (!CanTrace()) GTEST_SKIP() << "strace isn't permitted here";
  ASSERT_TRUE(Run("strace -o calls " + ConsoleCommand, WholeRun).ends_with("status 0"));
  const Bytes plan = Read(mis), calls = Read("calls");
  std::map<Bytes, int> counts;
  for (const Bytes& line : Lines(calls)) ++counts[line.substr(0, line.find('('))];
  EXPECT_EQ(counts["fsync"], 1);
  for (const char* name : {"openat", "newfstatat", "read", "write", "flock", "ftruncate", "fsync", "close", "getcwd"}) {
    const Bytes call = name;
    for (int time = 1; time <= counts[call]; ++time) {
      for (const char* error : {"EIO", "EINTR"}) {
        if (error == Bytes("EINTR") && call != "ftruncate" && call != "fsync") continue;
        ::Write(mis, intact);
        const Bytes output = Traced(call + ":error=" + error + ":when=" + std::to_string(time), ConsoleCommand);
        const Bytes left = Read(mis), what = call + " " + std::to_string(time) + "\n" + output;
        const auto says = [&output](const char* words) { return output.find(words) != Bytes::npos; };
        if (says("Write complete")) {
          EXPECT_TRUE(left == plan) << what;
        } else if (says("incomplete now")) {
          EXPECT_TRUE(output.ends_with("status 1")) << what;
        } else {
          EXPECT_TRUE(left == intact || (left == plan && !says("Nothing was written"))) << what;
        }
      }
    }
  }
}

// The second one waits until the first has finished, and wins.
TEST_F(CampaignFolder, TwoConsolesAtOnceLeaveOnePlan) {
  if (!CanTrace()) GTEST_SKIP() << "strace isn't permitted here";
  fs::copy("../velmoran", "../velmoraX");
  ::Write("../velmoraX/Velmoran.ini", Replaced(Read(ini), "0.90, 1.00, 0.90", "0.45, 0.50, 0.45"));
  const Bytes slowly = "strace -o /dev/null -P " + mis.string() + " -e inject=write:delay_enter=500000 ";
  const Bytes elsewhere = "env --chdir=../velmoraX " + ConsoleCommand;
  ASSERT_TRUE(Run(elsewhere, WholeRun).ends_with("status 0"));
  const Bytes plan = Read(mis);
  ::Write(mis, intact);
  Program first(slowly + ConsoleCommand), second(elsewhere);
  first.OpenAndMassage();
  second.OpenAndMassage();
  first.Type("write\n");
  for (int tries = 0; fs::file_size(mis) > 0 && tries < 300; ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_EQ(fs::file_size(mis), 0U);
  EXPECT_NE(second.Do("write\n").find("hint: Write complete"), Bytes::npos);
  EXPECT_EQ(first.Wait(), 0);
  EXPECT_TRUE(Read(mis) == plan) << Read(mis).size() << " bytes are left, not " << plan.size();
}

TEST_F(CampaignFolder, ConsoleWithAClosedStream) {
  ::Write("typed", WholeRun);
  for (const char* closed : {"0<&-", "1>&-", "2>&-"}) {
    const bool errors = closed == Bytes("2>&-");
    EXPECT_EQ(Status(ConsoleCommand + " <typed >output " + closed), errors ? 0 : 1) << closed;
    EXPECT_EQ(Read(mis) == intact, !errors) << closed;
  }
}

TEST_P(ShippedTest, OnlyRegularFilesAreWritten) {
  const Bytes plan = Plan(), refused = " can't be opened for writing: it is not a regular file. Nothing was written. ";
  const fs::path pipe = root / "velmoran/pipe.txt";
  EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  Program program(Command());
  program.OpenAndMassage();
  EXPECT_NE(program.Do("report\npipe.txt\n").find("Error # 75 " + pipe.string() + refused), Bytes::npos);
  fs::rename(mis, root / "aside");
  fs::rename(pipe, mis);
  EXPECT_NE(program.Do("write\n").find("Error # 75 " + shown + refused + keep), Bytes::npos);
  fs::remove(mis);
  fs::create_symlink("/dev/null", mis);
  EXPECT_NE(program.Do("write\n").find("Error # 75 " + shown + refused + keep), Bytes::npos);
  fs::remove(mis);
  fs::create_directory(mis);
  EXPECT_NE(program.Do("write\n").find(": it is a folder. Nothing was written. " + keep), Bytes::npos);
  fs::remove(mis);
  fs::rename(root / "campaign", root / "away");
  EXPECT_NE(program.Do("write\n").find(": the folder does not exist. Nothing was written. " + keep), Bytes::npos);
  fs::rename(root / "away", root / "campaign");
  EXPECT_NE(program.Do("write\n").find("Write complete"), Bytes::npos);  // makes the file anew
  EXPECT_TRUE(Read(mis) == plan && Read(root / "aside") == intact);
}

TEST_F(CampaignFolder, ConsoleEndsWithOneWhereAStreamFails) {
  const Bytes output = "velmoran-console: standard output can't be written; no further command was done\n";
  ::Write("typed", "open\n../campaign/campgn01.mis\nmassage\nwrite\n");
  EXPECT_EQ(Status(ConsoleCommand + " <typed >/dev/full 2>errors"), 1);
  EXPECT_EQ(Read("errors"), output);
  EXPECT_EQ(Status("( (sleep 0.2; " + ConsoleCommand + " <typed 2>errors; echo $? >status) | true)"), 0);
  EXPECT_EQ(Read("status") + Read("errors"), "1\n" + output);
  EXPECT_EQ(Status(ConsoleCommand + " <. >output 2>errors"), 1);
  EXPECT_EQ(Read("errors"), "velmoran-console: standard input can't be read; nothing more was done\n");
  ::Write("full", Bytes(1024, ' '));  // at the limit, and so output fails
  EXPECT_EQ(Status("(ulimit -f 1; exec " + ConsoleCommand + " <typed >>full 2>errors)"), 1);
  EXPECT_EQ(Read("errors"), output);
  EXPECT_EQ(Read(mis), intact);
}

TEST_F(CampaignFolder, StatusOfTheConsoleSaysWhetherTheLastWriteFailed) {
  for (const bool exits : {true, false}) {
    Program program(ConsoleCommand);
    program.OpenAndMassage();
    program.Limit(RLIMIT_FSIZE, 0);
    program.Do("write\n");
    if (exits) program.Type("exit\n");
    EXPECT_EQ(program.Wait(), 1);
    ::Write(mis, intact);
  }
}

TEST_F(CampaignFolder, ConsoleReportsThatMemoryRunsOut) {
  Program program(ConsoleCommand);
  const auto fails = [&](const Bytes& lines, const Bytes& message) {
    program.Limit(RLIMIT_AS, program.AddressSpace());
    EXPECT_NE(program.Do(lines).find("message: Error # 7 Not enough memory" + message), Bytes::npos);
    program.Limit(RLIMIT_AS, RLIM_INFINITY);
  };
  const fs::path large = root / "campaign/campgn02.mis";  // more than the memory that a program keeps
  const Bytes before = Read(large), open = "open\n" + large.string() + "\n", report = "report\nlarge.txt\n";
  fails(open, " to open the file. No file was changed.");
  EXPECT_NE(program.Do(open).find("File opened"), Bytes::npos);
  fails(report, " for the report. No file was changed.");
  EXPECT_NE(program.Do(report).find("File opened"), Bytes::npos);
  EXPECT_GT(fs::file_size("large.txt"), 1000000);
  program.Do("massage\n");
  program.Limit(RLIMIT_AS, program.AddressSpace());  // Write needs no more than Open had
  EXPECT_NE(program.Do("write\n").find("Write complete"), Bytes::npos);
}

}  // namespace
