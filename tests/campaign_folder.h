// A copy of the sample campaign for each test to alter, with its folder velmoran as the current directory.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <random>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "events/events.h"
#include "fakes.h"
#include "files/mission_file.h"
#include "state/run_state.h"

using Bytes = std::string;
using Messages = std::vector<std::string>;

inline Bytes Read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return (std::ostringstream() << file.rdbuf()).str();
}

inline void Write(const std::filesystem::path& path, const Bytes& bytes) {
  std::filesystem::remove(path);  // some systems wait for the disk where a file is emptied and written
  std::ofstream(path, std::ios::binary) << bytes;
}

// The bytes with the value stored at the offset, in width bytes, least significant first.
inline Bytes Poked(Bytes bytes, std::size_t offset, std::int64_t value, std::size_t width = 4) {
  for (std::size_t i = 0; i < width; ++i) bytes.at(offset + i) = static_cast<char>(value >> (8 * i));
  return bytes;
}

// The text with the first occurrence of a part replaced.
inline Bytes Replaced(const Bytes& text, const Bytes& part, const Bytes& other) {
  return Bytes(text).replace(text.find(part), part.size(), other);
}

// The bytes with a change as data/faults.txt describes it.
inline Bytes Changed(Bytes bytes, std::string change) {
  change = std::regex_replace(change, std::regex(R"(\\n)"), "\n");
  if (const std::size_t arrow = change.find(" -> "); arrow != Bytes::npos) {
    return Replaced(bytes, change.substr(0, arrow), change.substr(arrow + 4));
  }
  std::istringstream numbers(change.starts_with("size ") ? change.substr(5) : change);
  std::int64_t size = 0, value = 0;
  if (change.starts_with("size ") && numbers >> size) {
    bytes.resize(static_cast<std::size_t>(size) + (size < 0 ? bytes.size() : 0));
  }
  for (std::size_t offset = 0, width = 0; numbers >> offset >> width >> value;) {
    bytes = Poked(bytes, offset, value, width);
  }
  return bytes;
}

// The lines that begin so, without their beginning.
inline Messages Lines(const Bytes& text, const std::string& beginning = "") {
  Messages lines;
  std::istringstream all(text);
  for (std::string line; std::getline(all, line);) {
    if (line.starts_with(beginning)) lines.push_back(line.substr(beginning.size()));
  }
  return lines;
}

// The lines of a file in data, by column, without its comments.
inline std::vector<std::vector<std::string>> DataRows(const std::string& name) {
  const std::regex separator(R"( \| )");
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : Lines(Read(VELMORAN_TEST_DATA "/" + name))) {
    if (line.starts_with('#')) continue;
    rows.emplace_back(std::sregex_token_iterator(line.begin(), line.end(), separator, -1),
                      std::sregex_token_iterator());
  }
  return rows;
}

// The path in the system's own spelling.
inline std::string Native(std::filesystem::path path) { return path.make_preferred().string(); }

class CampaignFolder : public testing::Test {
 protected:
  CampaignFolder() {
    std::filesystem::copy(VELMORAN_SAMPLE, root, std::filesystem::copy_options::recursive);
    std::filesystem::current_path(root / "velmoran");
    intact = Read(mis);
  }
  ~CampaignFolder() override {
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    std::error_code held;  // by a program of the test that is still ending
    std::filesystem::remove_all(root, held);
  }

  // Runs the event, with what the user types into its dialog. Returns the messages that it shows, then "failed" if it
  // ends the program because of a failure.
  Messages Press(void (*event)(velmoran::RunState&), const std::optional<std::string>& typed = {}) {
    fakes::form.messages.clear();
    fakes::form.answer = typed;
    try {
      event(*state);
    } catch (const fakes::ProgramEnded& end) {
      fakes::form.messages.push_back(end.failed ? "failed" : "ended");
    }
    return fakes::form.messages;
  }
  Messages Load() {
    state = std::make_unique<velmoran::RunState>();
    fakes::form = {};
    return Press(velmoran::Form_Load);
  }
  Messages Open(const std::string& typed = "../campaign/campgn01.mis") { return Press(velmoran::OpenB_Click, typed); }
  // The messages of Massage for this mission file.
  Messages MassageOf(const Bytes& mission) {
    Write(mis, mission);
    EXPECT_EQ((Load(), Open()), Messages{});
    return Press(velmoran::MassageB_Click);
  }

 public:
  // The exit status of a shell command.
  static int Status(const std::string& command) {
    const int result = std::system(command.c_str());
    return result > 255 ? result / 256 : result;
  }
  // What a program prints to standard output for the lines typed, and "status 0" or its other exit status. The file
  // errors has its standard error.
  static Bytes Run(const std::string& command, const Bytes& typed) {
    Write("typed", typed);
    const int status = Status(command + " <typed >output 2>errors");
    return std::regex_replace(Read("output"), std::regex("\r"), "") + "status " + std::to_string(status);
  }

 protected:
  static Bytes Console(const Bytes& typed) { return Run("\"" VELMORAN_CONSOLE "\"", typed); }
  static Bytes Window(const Bytes& typed) { return Run("\"" VELMORAN_DRIVER "\"", typed); }

  Bytes Composed() const {
    const std::vector<velmoran::Byte> image = velmoran::ComposeMissionImage(*state);
    return {reinterpret_cast<const char*>(image.data()), image.size()};
  }

  const std::filesystem::path root = (std::filesystem::temp_directory_path() / u8"velm\u00F8ran-") +=
      std::to_string(std::random_device{}());
  const std::filesystem::path ini = root / "velmoran/Velmoran.ini", txt = root / "data/simpatch/Velmoran.txt",
                              roster = root / "data/simpatch/squadron.dat", mis = root / "campaign/campgn01.mis",
                              dat = root / "campaign/campgn01.dat";
  Bytes intact;  // the mission file
  std::unique_ptr<velmoran::RunState> state = std::make_unique<velmoran::RunState>();
};
