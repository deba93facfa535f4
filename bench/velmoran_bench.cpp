// Each event, on plans of growing size, beside the plain thing that it can't do without, in the same run.
//
//   velmoran_bench FOLDER [Google Benchmark's options]
//
// FOLDER is a sample campaign that make_sample has written. Its largest plan is cut to smaller ones, which stand beside
// it afterwards.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files/mission_file.h"
#include "platform/platform.h"
#include "report/report.h"
#include "window/events.h"

namespace velmoran {

namespace {

std::string answer;  // what the user types into the dialogs

}  // namespace

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

constexpr const char* ReportFile = "MissionReport.txt";
constexpr std::array<Long, 3> Sizes{50, 100, MissionRows};  // in flights

std::string MissionFile(std::int64_t flights) {
  return flights == MissionRows ? "../campaign/campgn02.mis" : "../campaign/flights" + std::to_string(flights) + ".mis";
}

std::vector<char> PlainRead(const std::string& path) {
  std::vector<char> bytes(std::filesystem::file_size(path));
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
  std::fclose(file);
  return bytes;
}

void PlainWrite(const std::string& path, const std::vector<char>& bytes) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
  std::fclose(file);
}

std::unique_ptr<RunState> Loaded() {
  auto run = std::make_unique<RunState>();
  Form_Load(*run);
  return run;
}

std::unique_ptr<RunState> Opened(std::int64_t flights) {
  auto run = Loaded();
  answer = MissionFile(flights);
  OpenB_Click(*run);
  return run;
}

void MakeSmallerPlans() {
  for (const Long flights : Sizes) {
    if (flights == MissionRows) continue;
    const auto run = Opened(MissionRows);
    run->LoadedCount = run->MissionCount = flights;
    run->MisPath = MissionFile(flights);
    WriteB_Click(*run);
    std::filesystem::copy_file("../campaign/campgn02.dat", run->MisPath.replace(run->MisPath.size() - 3, 3, "dat"),
                               std::filesystem::copy_options::overwrite_existing);
  }
}

void StartPlain(benchmark::State& state) {
  for (auto _ : state) {
    for (const char* path : {"Velmoran.ini", "../data/simpatch/Velmoran.txt", "../data/simpatch/squadron.dat"}) {
      benchmark::DoNotOptimize(PlainRead(path));
    }
  }
}
void Start(benchmark::State& state) {
  const auto run = Loaded();
  for (auto _ : state) Form_Load(*run);
}

void OpenPlain(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(PlainRead(MissionFile(state.range(0))));
}
void Open(benchmark::State& state) {
  const auto run = Loaded();
  answer = MissionFile(state.range(0));
  for (auto _ : state) OpenB_Click(*run);
}

void MassagePlain(benchmark::State& state) {
  const auto run = Opened(state.range(0));
  const auto copy = std::make_unique<Table<MissionRec, MissionRows>>();
  for (auto _ : state) {
    std::copy_n(run->Missions.begin(), state.range(0), copy->begin());
    benchmark::ClobberMemory();
  }
}
void Massage(benchmark::State& state) {
  const auto opened = Opened(state.range(0));
  const auto run = std::make_unique<RunState>();
  for (auto _ : state) {
    state.PauseTiming();
    *run = *opened;
    state.ResumeTiming();
    MassageB_Click(*run);
  }
}

void ReportPlain(benchmark::State& state) {
  const std::string report = ComposeReport(*Opened(state.range(0)));
  const std::vector<char> bytes(report.begin(), report.end());
  for (auto _ : state) PlainWrite(ReportFile, bytes);
}
void Report(benchmark::State& state) {
  const auto run = Opened(state.range(0));
  answer = ReportFile;
  for (auto _ : state) ReportB_Click(*run);
}

void WritePlain(benchmark::State& state) {
  const std::string path = MissionFile(state.range(0));
  const std::vector<char> bytes = PlainRead(path);
  for (auto _ : state) PlainWrite(path, bytes);
}
void Write(benchmark::State& state) {
  const auto run = Opened(state.range(0));
  for (auto _ : state) WriteB_Click(*run);
}

void OnEachSize(benchmark::internal::Benchmark* event) {
  for (const Long flights : Sizes) event->Arg(flights);
}
BENCHMARK(StartPlain);
BENCHMARK(Start);
BENCHMARK(OpenPlain)->Apply(OnEachSize);
BENCHMARK(Open)->Apply(OnEachSize);
BENCHMARK(MassagePlain)->Apply(OnEachSize);
BENCHMARK(Massage)->Apply(OnEachSize);
BENCHMARK(ReportPlain)->Apply(OnEachSize);
BENCHMARK(Report)->Apply(OnEachSize);
BENCHMARK(WritePlain)->Apply(OnEachSize);
BENCHMARK(Write)->Apply(OnEachSize);

// Keeps the times for the ratios at the end.
class Reporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
      times[run.run_name.function_name + run.run_name.args] = run.GetAdjustedRealTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return EXIT_FAILURE;
  std::filesystem::current_path(std::filesystem::path(argv[1]) / "velmoran");
  --argc;
  ++argv;
  MakeSmallerPlans();
  benchmark::Initialize(&argc, argv);
  Reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const auto& times = reporter.times;
  const auto ratio = [&times](const std::string& event, const std::string& plain, const std::string& flights) {
    return times.at(event + flights) / times.at(plain + flights);
  };
  std::printf("Start    %5.2f times the plain thing\n", ratio("Start", "StartPlain", ""));
  const std::string largest = std::to_string(MissionRows);
  constexpr std::array<std::pair<const char*, double>, 4> aims{
      {{"Open", 3}, {"Massage", 20}, {"Report", 8}, {"Write", 3}}};
  for (const auto& [event, aim] : aims) {
    std::printf("%-8s %5.2f times the plain thing (aim: at most %g); its time grows with the flights", event,
                ratio(event, std::string(event) + "Plain", largest), aim);
    for (const Long flights : Sizes) {
      const double growth = times.at(event + std::to_string(flights)) / times.at(event + std::to_string(Sizes[0]));
      std::printf("%s %.2f (%d)", flights == Sizes[0] ? "" : " to", growth, flights);
    }
    std::printf("\n");
  }
}
