// What an operation that may fail gives back: a value, or a Fault with a kind and words.
//
// Nothing in the program throws for a file that is missing or broken; the caller decides whether
// the fault is quiet or gets a message.
#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

namespace gridwright {

struct Fault {
  enum class Kind {
    notFound,
    notReadable,
    notWritable,
    notPlain,  ///< Something other than a plain file bears the name to be written; the words are its path.
    malformed,
    anotherFormat,  ///< A whole file perhaps, but of no format that is read.
  };
  Kind kind;
  std::string words;  ///< Why; a person sees it in a notice, beside the program's own message.
};

template <class T>
class Outcome {
 public:
  Outcome(T value) : content_(std::move(value)) {}      // NOLINT(google-explicit-constructor)
  Outcome(Fault fault) : content_(std::move(fault)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return std::holds_alternative<T>(content_); }
  const T& value() const { return std::get<T>(content_); }
  T& value() { return std::get<T>(content_); }
  const Fault& fault() const { return std::get<Fault>(content_); }

 private:
  std::variant<T, Fault> content_;
};

/// For operations that give nothing but success.
struct Done {};

}  // namespace gridwright
