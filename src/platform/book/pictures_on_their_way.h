// Many files that get their names in a folder all at once, or not at all.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "canvas/outcome.h"
#include "files/file_place.h"
#include "platform/shared/png_writer.h"

namespace gridwright::book {

/// Until then they lie in a folder within that one, `.gridwright-pictures-XXXXXXXX`, which is held by a lock
/// while its run lives: what a killed run has left of such is told by that, and goes. A million files can't
/// be held open, as single ones are. Both folders are held open, so that one which is exchanged for a link
/// meanwhile leads nothing elsewhere.
class PicturesOnTheirWay {
 public:
  explicit PicturesOnTheirWay(std::filesystem::path folder) : called_(std::move(folder)) {}
  /// What has no name yet goes, and the folder too where `begin` made it and nothing else lies in it.
  ~PicturesOnTheirWay();
  PicturesOnTheirWay(const PicturesOnTheirWay&) = delete;
  PicturesOnTheirWay& operator=(const PicturesOnTheirWay&) = delete;

  /// Makes the folder if it is not there.
  /// \param isOurs whether a name will be one of those that are to come.
  /// \returns a Fault in one line where it can't be made or takes no files, and where one of these names is
  /// borne: by something that may not be replaced, or by what is no plain file.
  Outcome<Done> begin(bool mayReplace, const std::function<bool(const std::string&)>& isOurs);

  /// Writes a file that is to have this name; from any thread, each name once.
  /// \returns a Fault where the disk takes no more.
  Outcome<Done> put(const std::string& name, const std::function<bool(const TakeBytes&)>& write) const;

  /// All take their names, in the order of these. \returns a Fault where one could not; `giveBack` takes
  /// back those before it.
  Outcome<Done> takeNames(bool mayReplace);

  /// What took a name loses it, and what bore the name before has it again.
  void giveBack();

 private:
  Outcome<Done> beginWithin();
  [[nodiscard]] Fault fault(const std::string& why) const;

  std::filesystem::path called_;  // as it was told
  HeldFolder folder_, within_;
  std::string withinName_;
  OpenFile lock_;  // on the one within
  bool made_ = false;
  struct Named {
    std::string name;
    bool replaced = false;  ///< What bore the name before lies within now.
  };
  std::vector<Named> named_;
};

}  // namespace gridwright::book
