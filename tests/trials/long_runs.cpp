// A program that runs long: what it holds and costs is looked at twenty times on the way.
//
//   long_runs job|title|quits|undos COUNT
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include "platform/headless/headless_desktop.h"
#include "trials/steady_run.h"

int main(int count, char** words) {
  using namespace gridwright::test;
  const std::map<std::string, LongRun> runs = {
      {"job", LongRun::job}, {"title", LongRun::title}, {"quits", LongRun::quits}, {"undos", LongRun::undos}};
  const auto found = count == 3 ? runs.find(words[1]) : runs.end();
  if (found == runs.end()) {
    std::cerr << "usage: long_runs job|title|quits|undos COUNT\n";
    return 2;
  }
  try {
    const auto samples = runLong(found->second, std::atoi(words[2]));
    std::cout << found->first << "\n"
              << "done; passes since; KB of heap; KB resident; open files; million instructions since\n";
    for (const SteadySample& s : samples) {
      std::cout << s.done << "; " << s.passes << "; " << s.heap / 1024 << "; " << s.resident / 1024 << "; "
                << s.files << "; " << s.instructions / 1'000'000 << "\n";
    }
    if (!countsInstructions())
      std::cout << "the processor's counter is not open here: passes are counted alone\n";
    const std::string fault = unsteadiness(samples, bytesEachOf(found->second));
    std::cout << (fault.empty() ? "steady" : fault) << "\n";
    return fault.empty() ? 0 : 1;
  } catch (const gridwright::ScriptStop& stop) {
    std::cerr << stop.message << "\n";
    return 2;
  }
}
