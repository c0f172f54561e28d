#include "platform/book/worker_threads.h"

#include <new>
#include <system_error>

namespace gridwright::book {

std::vector<std::jthread> beginThreads(std::size_t wanted, const std::function<void()>& work) {
  std::vector<std::jthread> threads;
  threads.reserve(wanted);
  try {
    while (threads.size() < wanted) threads.emplace_back([&work] { work(); });
  } catch (const std::system_error&) {
    // those that there are do the work
  } catch (const std::bad_alloc&) {
    // as well
  }
  return threads;
}

}  // namespace gridwright::book
