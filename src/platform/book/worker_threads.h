// Threads that do the same work beside each other.
#pragma once

#include <cstddef>
#include <functional>
#include <thread>
#include <vector>

namespace gridwright::book {

/// What a person reads when the system gives no more memory.
inline constexpr const char* kNoMemory = "there is not enough memory; fewer --jobs need less";

/// Begins as many threads as are wanted, or as the system gives: it may have none left.
/// \param work what each of them does; it must stay until they are joined, as they are when they go, and
/// throw nothing.
std::vector<std::jthread> beginThreads(std::size_t wanted, const std::function<void()>& work);

}  // namespace gridwright::book
