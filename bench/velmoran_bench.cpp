// Each event on the largest plan beside the plain thing that it can't do without, in the same run.
//
//   velmoran_bench FOLDER [Google Benchmark's options]
//
// FOLDER is a sample campaign that make_sample has written; its campgn02.mis is rewritten with the same bytes.

#include <benchmark/benchmark.h>

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
  std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
  std::exit(EXIT_FAILURE);
}
void EndProgram(bool failed) {
  std::exit(failed ? EXIT_FAILURE : EXIT_SUCCESS);
}

}  // namespace velmoran

namespace {

using namespace velmoran;

constexpr const char* MissionFile = "../campaign/campgn02.mis";
constexpr const char* ReportFile = "MissionReport.txt";

std::vector<char> PlainRead(const char* path) {
  std::vector<char> bytes(std::filesystem::file_size(path));
  std::FILE* file = std::fopen(path, "rb");
  if (std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
  std::fclose(file);
  return bytes;
}

void PlainWrite(const char* path, const std::vector<char>& bytes) {
  std::FILE* file = std::fopen(path, "wb");
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
  std::fclose(file);
}

std::unique_ptr<RunState> Loaded() {
  auto run = std::make_unique<RunState>();
  Form_Load(*run);
  return run;
}

std::unique_ptr<RunState> Opened() {
  auto run = Loaded();
  answer = MissionFile;
  OpenB_Click(*run);
  return run;
}

void OpenPlain(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(PlainRead(MissionFile));
}
void Open(benchmark::State& state) {
  const auto run = Loaded();
  answer = MissionFile;
  for (auto _ : state) OpenB_Click(*run);
}

void MassagePlain(benchmark::State& state) {
  const auto run = Opened();
  const auto copy = std::make_unique<Table<MissionRec, MissionRows>>();
  for (auto _ : state) {
    *copy = run->Missions;
    benchmark::ClobberMemory();
  }
}
void Massage(benchmark::State& state) {
  const auto opened = Opened();
  const auto run = std::make_unique<RunState>();
  for (auto _ : state) {
    state.PauseTiming();
    *run = *opened;
    state.ResumeTiming();
    MassageB_Click(*run);
  }
}

void ReportPlain(benchmark::State& state) {
  const auto run = Opened();
  const std::string report = ComposeReport(*run);
  const std::vector<char> bytes(report.begin(), report.end());
  for (auto _ : state) PlainWrite(ReportFile, bytes);
}
void Report(benchmark::State& state) {
  const auto run = Opened();
  answer = ReportFile;
  for (auto _ : state) ReportB_Click(*run);
}

void WritePlain(benchmark::State& state) {
  const std::vector<char> bytes = PlainRead(MissionFile);
  for (auto _ : state) PlainWrite(MissionFile, bytes);
}
void Write(benchmark::State& state) {
  const auto run = Opened();
  for (auto _ : state) WriteB_Click(*run);
}

BENCHMARK(OpenPlain);
BENCHMARK(Open);
BENCHMARK(MassagePlain);
BENCHMARK(Massage);
BENCHMARK(ReportPlain);
BENCHMARK(Report);
BENCHMARK(WritePlain);
BENCHMARK(Write);

// Keeps the times for the ratios at the end.
class Reporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
      times[run.run_name.function_name] = run.GetAdjustedRealTime();
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
  benchmark::Initialize(&argc, argv);
  Reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const std::pair<const char*, double> aims[] = {{"Open", 3}, {"Massage", 20}, {"Report", 8}, {"Write", 3}};
  for (const auto& [event, aim] : aims) {
    std::printf("%-8s %5.2f times the plain thing (aim: at most %g)\n", event,
                reporter.times[event] / reporter.times[std::string(event) + "Plain"], aim);
  }
}
