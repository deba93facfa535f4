// A copy of the sample campaign for each test, to be spoiled at will, and the directory of the process meanwhile.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "fakes.h"
#include "state/run_state.h"
#include "window/events.h"

using Bytes = std::string;
using Messages = std::vector<std::string>;

inline Bytes Read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void Write(const std::filesystem::path& path, const Bytes& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// The bytes with the value at the offset, least significant byte first, in as many bytes as width tells.
inline Bytes Poked(Bytes bytes, std::size_t offset, std::int64_t value, std::size_t width = 4) {
  for (std::size_t i = 0; i < width; ++i) bytes.at(offset + i) = static_cast<char>(value >> (8 * i));
  return bytes;
}

class CampaignFolder : public testing::Test {
 protected:
  CampaignFolder()
      : root(std::filesystem::temp_directory_path() / ("velm\xC3\xB8ran-" + std::to_string(std::random_device{}()))) {
    std::filesystem::copy(VELMORAN_SAMPLE, root, std::filesystem::copy_options::recursive);
    std::filesystem::current_path(root / "velmoran");
    fakes::Reset();
  }
  ~CampaignFolder() override {
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    std::filesystem::remove_all(root);
  }

  // Starts a new run, does the event, and gives the messages that it shows; "failed" or "ended" for the program's end.
  template <class Event>
  Messages Show(Event event) {
    fakes::form.messages.clear();
    try {
      event();
    } catch (const fakes::ProgramEnded& end) {
      fakes::form.messages.push_back(end.failed ? "failed" : "ended");
    }
    return fakes::form.messages;
  }
  Messages Load() {
    state = std::make_unique<velmoran::RunState>();
    return Show([this] { velmoran::Form_Load(*state); });
  }
  Messages Open(const std::string& answer = "../campaign/campgn01.mis") {
    fakes::form.answer = answer;
    return Show([this] { velmoran::OpenB_Click(*state); });
  }
  Messages Massage() {
    return Show([this] { velmoran::MassageB_Click(*state); });
  }
  Messages Report(const std::string& answer) {
    fakes::form.answer = answer;
    return Show([this] { velmoran::ReportB_Click(*state); });
  }
  Messages WriteBack() {
    return Show([this] { velmoran::WriteB_Click(*state); });
  }

  const std::filesystem::path root;
  const std::filesystem::path ini = root / "velmoran/Velmoran.ini", txt = root / "data/simpatch/Velmoran.txt",
                              roster = root / "data/simpatch/squadron.dat", mis = root / "campaign/campgn01.mis",
                              dat = root / "campaign/campgn01.dat";
  std::unique_ptr<velmoran::RunState> state = std::make_unique<velmoran::RunState>();
};
