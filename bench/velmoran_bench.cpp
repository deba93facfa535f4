// Compares what the programs and the events cost with the least that such work can cost, and with the project's aims;
// then how the cost of the events grows with the number of flights. All times are processor time. Ends with status 1 if
// an aim is missed by more than a quarter.
//
//   velmoran_bench CAMPAIGN BUILD
//
// CAMPAIGN is a folder that make_sample has written; plans, reports and copies are added to it. BUILD is the build
// folder of the programs. Needs a display for the windows.

#include <malloc.h>
#include <sys/mman.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "events/events.h"
#include "measure.h"
#include "platform/platform.h"
#include "report/report.h"

namespace {

std::string answer;  // what the user types into the dialogs
long allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace velmoran {

std::string ShowOpenDialog(std::string_view, std::string_view) {
  return answer;
}
std::string ShowSaveDialog(std::string_view, std::string_view) {
  return answer;
}
void EnableButton(Button, bool) {}
void SetHintText(std::string_view) {}
void SetTargetCaption(std::string_view) {}
void ShowMessage(std::string_view text) {
  if (!text.starts_with("Error #")) return;  // a smaller plan has cut off some escorts
  std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
  std::exit(EXIT_FAILURE);
}
void EndProgram(bool failed) {
  std::exit(failed ? EXIT_FAILURE : EXIT_SUCCESS);
}

}  // namespace velmoran

namespace {

using namespace velmoran;
namespace fs = std::filesystem;

// The two sides of a comparison take turns, so that a busy minute slows both; the median of the turns' ratios counts.
constexpr int EventTurns = 201, ConsoleTurns = 201, WindowTurns = 31;

constexpr std::array<Long, 3> Sizes{50, 100, MissionRows};  // in flights

bool missed = false;

void PrintLine(const char* what, double measured, double aim) {
  constexpr double Tolerance = 1.25;
  std::printf("%-66s %8.2f %5g\n", what, measured, aim);
  std::fflush(stdout);
  if (measured > Tolerance * aim) missed = true;
}

std::string MissionFile(Long flights) {
  return "../campaign/flights" + std::to_string(flights) + ".mis";
}

std::unique_ptr<RunState> Opened(const std::string& missionFile) {
  auto run = std::make_unique<RunState>();
  Form_Load(*run);
  answer = missionFile;
  OpenB_Click(*run);
  return run;
}

// Writes plans of each size: the first flights of the sample's largest.
void MakePlans() {
  for (const Long flights : Sizes) {
    const auto run = Opened("../campaign/campgn02.mis");
    run->LoadedCount = run->MissionCount = flights;
    run->MissionFile = MissionFile(flights);
    WriteB_Click(*run);
    fs::copy_file("../campaign/campgn02.dat", fs::path(MissionFile(flights)).replace_extension("dat"),
                  fs::copy_options::overwrite_existing);
  }
}

void CompareConsole(const fs::path& build) {
  const std::string plan = "../campaign/plan.mis", before = "before.txt", after = "after.txt";
  fs::copy_file("../campaign/campgn02.dat", "../campaign/plan.dat", fs::copy_options::overwrite_existing);
  fs::create_directories("../copy");
  std::ofstream("typed") << "open\n"
                         << plan << "\nreport\n"
                         << before << "\nmassage\nreport\n"
                         << after << "\nwrite\nexit\n";
  std::vector<double> ratios;
  for (int turn = 0; turn < ConsoleTurns; ++turn) {
    fs::copy_file("../campaign/campgn02.mis", plan, fs::copy_options::overwrite_existing);
    const double console = bench::RunProgram({build / "velmoran-console"}, "typed").seconds;
    const double copy =
        bench::RunProgram({"cp", "Velmoran.ini", "../data/simpatch/Velmoran.txt", "../data/simpatch/squadron.dat",
                           "../campaign/campgn02.dat", "../campaign/campgn02.mis", before, after, "../copy"})
            .seconds;
    ratios.push_back(console / copy);
  }
  PrintLine("a whole console run / cp of the files that it reads and writes", bench::Median(ratios), 1.3);
}

void CompareMassage(const RunState& opened) {
  constexpr int Copies = 10;  // in a row, since one is as short as taking the time
  const auto run = std::make_unique<RunState>();
  const auto copy = std::make_unique<Table<MissionRec, MissionRows>>();
  std::vector<double> ratios;
  for (int turn = 0; turn < EventTurns; ++turn) {
    *run = opened;
    const double massage = bench::TimeOf([&] { MassageB_Click(*run); });
    const double copying = bench::TimeOf([&] {
      for (int i = 0; i < Copies; ++i) {
        *copy = opened.Missions;
        asm volatile("" : : "r"(copy.get()) : "memory");  // the compiler must not leave out a copy
      }
    });
    ratios.push_back(massage * Copies / copying);
  }
  PrintLine("massaging 201 flights of 31 waypoints / copying their table", bench::Median(ratios), 8);
}

void CompareReport(const RunState& opened) {
  const std::size_t size = ComposeReport(opened).size();
  std::vector<double> ratios;
  for (int turn = 0; turn < EventTurns; ++turn) {
    malloc_trim(0);  // so that the report's memory is fresh too
    const double compose = bench::TimeOf([&] { ComposeReport(opened); });
    const double fill = bench::TimeOf([&] {
      void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
      std::memset(memory, ' ', size);
      munmap(memory, size);
    });
    ratios.push_back(compose / fill);
  }
  PrintLine("composing the largest report / filling fresh memory of its size", bench::Median(ratios), 3);
}

void CompareWindow(const fs::path& build) {
  std::vector<double> times, memories;
  setenv("LD_PRELOAD", (build / "bench/libfirst_paint.so").c_str(), 1);
  for (int turn = 0; turn < WindowTurns; ++turn) {
    const bench::Usage window = bench::RunProgram({build / "velmoran"});
    const bench::Usage plain = bench::RunProgram({build / "bench/plain_window"});
    times.push_back(window.seconds / plain.seconds);
    memories.push_back(window.memory / plain.memory);
  }
  unsetenv("LD_PRELOAD");
  PrintLine("the window up to its first paint / a plain one with its controls", bench::Median(times), 1.05);
  PrintLine("resident memory of the window / that of the plain one", bench::Median(memories), 1.05);
}

void CountAllocations(const RunState& opened) {
  const auto run = std::make_unique<RunState>(opened);
  const long before = allocations;
  MassageB_Click(*run);
  PrintLine("heap allocations in the massage", static_cast<double>(allocations - before), 0);
}

// Prints how many times as long an event takes as with the fewest flights. The event is done to a copy of the plan.
void PrintGrowth(const char* name, const std::vector<std::unique_ptr<RunState>>& plans, void (*event)(RunState&)) {
  const auto run = std::make_unique<RunState>();
  std::array<std::vector<double>, Sizes.size()> growths;
  for (int turn = 0; turn < EventTurns; ++turn) {
    double least = 0;
    for (std::size_t i = 0; i < Sizes.size(); ++i) {
      *run = *plans[i];
      answer = event == OpenB_Click ? MissionFile(Sizes[i]) : "MissionReport.txt";
      const double time = bench::TimeOf([&] { event(*run); });
      if (i == 0) least = time;
      growths[i].push_back(time / least);
    }
  }
  std::printf("%-8s", name);
  for (const auto& growth : growths) std::printf(" %6.2f", bench::Median(growth));
  std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("velmoran_bench CAMPAIGN BUILD\n", stderr);
    return EXIT_FAILURE;
  }
  const fs::path build = fs::absolute(argv[2]);
  fs::current_path(fs::path(argv[1]) / "velmoran");
  MakePlans();
  std::vector<std::unique_ptr<RunState>> plans;
  plans.reserve(Sizes.size());
  for (const Long flights : Sizes) plans.push_back(Opened(MissionFile(flights)));

  std::printf("%-66s %8s %5s\n", "", "measured", "aim");
  CompareConsole(build);
  CompareMassage(*plans.back());
  CompareReport(*plans.back());
  CompareWindow(build);
  CountAllocations(*plans.back());

  std::printf("\nTimes as long as with %d flights:\n        ", Sizes[0]);
  for (const Long flights : Sizes) std::printf(" %6d", flights);
  std::printf("\n");
  PrintGrowth("Open", plans, OpenB_Click);
  PrintGrowth("Massage", plans, MassageB_Click);
  PrintGrowth("Report", plans, ReportB_Click);
  PrintGrowth("Write", plans, WriteB_Click);
  return missed ? EXIT_FAILURE : EXIT_SUCCESS;
}
