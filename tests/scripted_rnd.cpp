#include <gtest/gtest.h>

#include <deque>

#include "fakes.h"
#include "state/rnd.h"

namespace {

std::deque<float> script;

}  // namespace

void fakes::Script(std::vector<float> draws) { script.assign(draws.begin(), draws.end()); }

std::size_t fakes::DrawsLeft() { return script.size(); }

void velmoran::SeedRnd(RunState& /*run*/) {}

double velmoran::Rnd(RunState& /*run*/) {
  if (script.empty()) {
    ADD_FAILURE() << "unexpected draw";
    return 0;
  }
  const float draw = script.front();
  script.pop_front();
  return static_cast<double>(draw);
}
