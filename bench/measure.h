// What a piece of work or a whole program costs, in processor time: on a busy machine that varies far less than the
// time on the clock.
#pragma once

#include <string>
#include <vector>

namespace bench {

// The processor time of this process so far, user and system, in seconds.
double ProcessorTime();

// The processor time that the work takes, in seconds.
template <class Work>
double TimeOf(Work work) {
  const double start = ProcessorTime();
  work();
  return ProcessorTime() - start;
}

struct Usage {
  double seconds;  // of processor time, user and system
  double memory;   // the most that was resident, in kB; not less than this process had when it started the program
};

// Runs a program to its end, with its standard input from a file and its output dropped. The command is the program's
// path or a name in PATH, then its arguments. Exits with a message if the program can't be run or fails.
Usage RunProgram(const std::vector<std::string>& command, const std::string& input = "/dev/null");

// The middle value. Requires at least one.
double Median(std::vector<double> values);

}  // namespace bench
