// The short form of the long runs: tests/long/longruns.sh makes two thousand mazes and more.
#include "trials/steady_run.h"

#include <gtest/gtest.h>

namespace gridwright::test {
namespace {

struct Run {
  LongRun run;
  const char* name;
  int count;
};

class ALongRun : public ::testing::TestWithParam<Run> {};
INSTANTIATE_TEST_SUITE_P(Of, ALongRun,
                         ::testing::Values(Run{LongRun::job, "mazes", 60},
                                           Run{LongRun::title, "seconds", 3600},
                                           Run{LongRun::quits, "quits", 100},
                                           Run{LongRun::undos, "undos", 400}),
                         [](const auto& run) { return run.param.name; });

TEST_P(ALongRun, HoldsAsMuchAndCostsAsMuchAtItsEndAsAtItsBeginning) {
  const auto samples = runLong(GetParam().run, GetParam().count);
  ASSERT_EQ(samples.size(), 21U);
  EXPECT_GE(samples.back().done, GetParam().count);
  EXPECT_GT(samples.back().passes, 0);
  EXPECT_EQ(unsteadiness(samples, bytesEachOf(GetParam().run)), "");
}

TEST(ARunThatGrows, IsNoSteadyOne) {
  std::vector<SteadySample> samples(21, SteadySample{0, 1000, 1 << 20, 1 << 24, 9, 0});
  EXPECT_EQ(unsteadiness(samples, 0), "");
  const auto with = [&](auto change) {
    auto changed = samples;
    change(changed.back());
    return unsteadiness(changed, 0);
  };
  EXPECT_NE(with([](SteadySample& s) { s.heap += 200'000; }), "");
  EXPECT_NE(with([](SteadySample& s) { s.resident += 9 << 20; }), "");
  EXPECT_NE(with([](SteadySample& s) { ++s.files; }), "");
  EXPECT_NE(with([](SteadySample& s) { s.passes = 1021; }), "");
  EXPECT_EQ(with([](SteadySample& s) { s.passes = 1019; }), "");
}

}  // namespace
}  // namespace gridwright::test
