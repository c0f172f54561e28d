// A document on a disk that fills up at any place, and beside others of its name.
#include "platform/shared/growing_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>
#include <utility>

#include "platform/shared/image_files.h"
#include "support/full_disk.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

/// Pixels that nothing packs: three bytes each on the disk.
Bitmap noise(int width, int height) {
  Bitmap picture = plainBitmap(width, height, 0);
  std::uint32_t value = 7;
  for (Colour& pixel : picture.pixels) {
    value = value * 1664525U + 1013904223U;
    pixel = static_cast<Colour>(value >> 8);
  }
  return picture;
}

/// Two pages of more than 400 KB together. \returns whether every step of it said that all is well.
bool writeDocument(const fs::path& path, const Bitmap& page) {
  PdfDocument document(path);
  const bool first = static_cast<bool>(document.addPage(page));
  const bool second = static_cast<bool>(document.addPage(page));
  const bool finished = static_cast<bool>(document.finish());
  return first && second && finished;
}

bool isWholeDocument(const std::string& bytes) {
  const std::size_t end = bytes.rfind("%%EOF");
  return bytes.rfind("%PDF-", 0) == 0 && end != std::string::npos && bytes.size() - end <= 6;
}

std::set<std::string> namesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
  return names;
}

TEST(AGrowingFile, TakesItsNameFromAnotherOneOnlyWhereItMay) {
  const TempFolder temp;
  const fs::path target = temp.path() / "book.pdf";
  for (const auto& [how, left] : {std::pair{Taking::onlyFree, "another's"}, {Taking::replaces, "ours"}}) {
    GrowingFile file(target);
    ASSERT_EQ(file.write("ours"), 4);
    ASSERT_TRUE(file.isOnDisk());
    temp.put("book.pdf", "another's");  // it came meanwhile
    EXPECT_EQ(file.takeName(target, how), how == Taking::replaces);
    EXPECT_EQ(temp.get("book.pdf"), left);
    EXPECT_EQ(namesIn(temp.path()), std::set<std::string>({"book.pdf"}));
  }
  fs::remove(target);
  GrowingFile free(target);
  ASSERT_EQ(free.write("ours"), 4);
  EXPECT_TRUE(free.takeName(target, Taking::onlyFree));
  EXPECT_EQ(temp.get("book.pdf"), "ours");
}

TEST(ADocument, IsWholeOrSaysSoWhereverTheDiskFillsUp) {
  const TempFolder temp;
  const Bitmap page = noise(270, 270);
  const std::string before = "the one before";
  int failed = 0;
  constexpr rlim_t kKilobyte = 1024;
  for (rlim_t limit = 4 * kKilobyte; limit <= 400 * kKilobyte; limit += 4 * kKilobyte) {
    temp.put("out.pdf", before);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const FullDisk full(limit);
      _exit(writeDocument(temp.path() / "out.pdf", page) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << limit;
    if (WEXITSTATUS(status) == 0) {
      EXPECT_TRUE(isWholeDocument(temp.get("out.pdf"))) << limit << " bytes and told a success";
    } else {
      ++failed;
      EXPECT_EQ(temp.get("out.pdf"), before) << limit;
    }
    EXPECT_EQ(namesIn(temp.path()), std::set<std::string>{"out.pdf"}) << limit;
  }
  EXPECT_EQ(failed, 100) << "no such disk has room for it";
  EXPECT_TRUE(writeDocument(temp.path() / "out.pdf", page));
  EXPECT_GT(temp.get("out.pdf").size(), 400 * kKilobyte);
  EXPECT_TRUE(isWholeDocument(temp.get("out.pdf")));
}

TEST(TheLastBytesOfADocument, CountToo) {
  const TempFolder temp;
  ASSERT_TRUE(writeDocument(temp.path() / "whole.pdf", plainBitmap(8, 6, kNavy)));
  const auto size = static_cast<rlim_t>(temp.get("whole.pdf").size());
  for (rlim_t missing = 1; missing <= 400; missing += 7) {
    const FullDisk full(size - missing);
    EXPECT_FALSE(writeDocument(temp.path() / "out.pdf", plainBitmap(8, 6, kNavy))) << missing;
    EXPECT_EQ(namesIn(temp.path()), std::set<std::string>{"whole.pdf"});
  }
}

TEST(TwoDocumentsOfOneName, GrowApartAndTheLaterOneWinsWhole) {
  const TempFolder temp;
  const fs::path path = temp.path() / "out.pdf";
  const Bitmap page = noise(50, 40);
  const std::size_t pageBytes = 3 * page.pixels.size();
  PdfDocument first(path);
  PdfDocument second(path);
  EXPECT_EQ(namesIn(temp.path()).size(), 2U);
  EXPECT_TRUE(first.addPage(page));
  EXPECT_TRUE(second.addPage(plainBitmap(8, 6, kNavy)));
  EXPECT_TRUE(second.finish());
  const std::string small = temp.get("out.pdf");
  EXPECT_TRUE(isWholeDocument(small));
  EXPECT_TRUE(first.addPage(page));
  EXPECT_TRUE(first.finish());
  EXPECT_TRUE(isWholeDocument(temp.get("out.pdf")));
  EXPECT_GT(temp.get("out.pdf").size(), small.size() + 2 * pageBytes);
  EXPECT_EQ(namesIn(temp.path()), std::set<std::string>{"out.pdf"});
}

TEST(TheNameOfAGrowingFile, IsNeverTheSameAndNamesItsTarget) {
  const TempFolder temp;
  std::set<std::string> names;
  for (int i = 0; i < 50; ++i) {
    EXPECT_FALSE(isGrowing(temp.path() / "out.pdf"));
    const GrowingFile file(temp.path() / "out.pdf");
    ASSERT_TRUE(file.isOpen());
    const auto here = namesIn(temp.path());
    ASSERT_EQ(here.size(), 1U);
    EXPECT_EQ(here.begin()->rfind("out.pdf.", 0), 0U) << *here.begin();
    EXPECT_TRUE(isGrowing(temp.path() / "out.pdf"));
    EXPECT_FALSE(isGrowing(temp.path() / "out"));
    names.insert(*here.begin());
  }
  EXPECT_EQ(names.size(), 50U);
}

TEST(AGrowingFile, RemovesWhatKilledProgramsLeftOfItsTargetAndNothingElse) {
  const TempFolder temp;
  const fs::path path = temp.path() / "out.pdf";
  for (const char* name : {"out.pdf.abcdefgh.building", "out.pdf.building"}) temp.put(name, "half");
  const std::set<std::string> others{"in.pdf.abcdefgh.building", "out.pdf.abcdefgh", "out.pdf"};
  for (const std::string& name : others) temp.put(name, "mine");
  {
    const GrowingFile first(path);
    EXPECT_EQ(namesIn(temp.path()).size(), others.size() + 1);
    const GrowingFile second(path);
    EXPECT_EQ(namesIn(temp.path()).size(), others.size() + 2) << "the first is held";
  }
  EXPECT_EQ(namesIn(temp.path()), others);
}

TEST(AGrowingFile, HasWhatWasWrittenInManySmallPieces) {
  const TempFolder temp;
  std::string all;
  GrowingFile file(temp.path() / "out");
  for (int i = 0; i < 30'000; ++i) {
    const std::string piece = std::to_string(i) + " ";
    all += piece;
    ASSERT_EQ(file.write(piece.data(), static_cast<qint64>(piece.size())), static_cast<qint64>(piece.size()));
  }
  EXPECT_TRUE(file.takeName(temp.path() / "out"));
  EXPECT_EQ(temp.get("out"), all);
  EXPECT_FALSE(file.takeName(temp.path() / "again")) << "it has its name";
}

}  // namespace
}  // namespace gridwright::test
