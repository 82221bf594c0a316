// Zip archives of the system's library: what goes in comes out, and the same bytes each time.
#include "archive/zip_library.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <vector>

namespace brindlemoor {
namespace {

/// Keeps what it is told of files.
class Listener : public ArchiveVisitor {
 public:
  std::vector<ArchiveFile> Files;
  bool HasOthers = false;  ///< entries that are no plain files
  bool Begin(const ArchiveEntry& entry) override {
    Files.push_back({entry.Name, ""});
    HasOthers = HasOthers || entry.Kind != ArchiveEntryKind::kFile || entry.IsEncrypted;
    return true;
  }
  bool Take(std::string_view bytes) override {
    Files.back().Bytes += bytes;
    return true;
  }
};

const std::vector<ArchiveFile> kFiles = {
    {"Goblins.txt", "#GAMERULES"},
    {"art/M\xC3\xB6we \xE2\x98\x83.png", std::string(5000, 'x')},
    {"art/nothing.png", ""},
    {"goblins/Cards.txt", std::string("a\0b", 3)}};

std::string Written() {
  std::string archive;
  EXPECT_EQ(ZipLibrary().Write(kFiles, archive), "");
  return archive;
}

TEST(ZipLibrary, GivesBackWhatWasPutIn) {
  const std::string archive = Written();
  EXPECT_LT(archive.size(), 3000U);
  Listener listener;
  EXPECT_EQ(ZipLibrary().Read(archive, listener), "");
  EXPECT_EQ(listener.Files, kFiles);
  EXPECT_FALSE(listener.HasOthers);
}

TEST(ZipLibrary, TheSameFilesGiveTheSameBytesInEveryTimeZoneAndLocale) {
  const std::string archive = Written();
  for (const char* zone : {"Pacific/Kiritimati", "America/Los_Angeles"}) {
    setenv("TZ", zone, 1);
    tzset();
    EXPECT_EQ(Written(), archive) << zone;
  }
  unsetenv("TZ");
  tzset();
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "C.UTF-8");
  EXPECT_EQ(Written(), archive);
  std::setlocale(LC_ALL, before.c_str());
}

TEST(ZipLibrary, WhatIsCutOffIsToldOf) {
  const std::string archive = Written();
  for (std::size_t size = 0; size < archive.size(); size += 7) {
    Listener listener;
    EXPECT_NE(ZipLibrary().Read(archive.substr(0, size), listener), "") << size;
  }
}

TEST(ZipLibrary, NoByteThatChangedGivesOtherFilesUnnoticed) {
  const std::string archive = Written();
  int told = 0;
  for (std::size_t place = 0; place < archive.size(); place += 3) {
    std::string changed = archive;
    changed[place] = static_cast<char>(changed[place] ^ 0x55);
    Listener listener;
    if (!ZipLibrary().Read(changed, listener).empty() || listener.HasOthers) {
      ++told;
      continue;
    }
    for (const ArchiveFile& file : listener.Files) {
      const auto original = std::ranges::find(kFiles, file.Name, &ArchiveFile::Name);
      const bool isKnown = original != kFiles.end();
      EXPECT_TRUE(!isKnown || original->Bytes == file.Bytes) << place;
    }
  }
  EXPECT_GT(told, 40);
}

TEST(ZipLibrary, ReadsNoOtherFormat) {
  for (const char* other : {"", "Rar!\x1A\x07", "7z\xBC\xAF\x27\x1C", "\x1F\x8B\x08", "FILES\n"}) {
    Listener listener;
    EXPECT_EQ(ZipLibrary().Read(other, listener), "is no zip archive");
  }
}

/// Ends the reading at a block.
class Impatient : public Listener {
 public:
  bool Take(std::string_view bytes) override { return Listener::Take(bytes) && false; }
};

TEST(ZipLibrary, StopsWhenTheVisitorHasHadEnough) {
  Impatient visitor;
  EXPECT_EQ(ZipLibrary().Read(Written(), visitor), "");
  EXPECT_EQ(visitor.Files.size(), 1U);
}

}  // namespace
}  // namespace brindlemoor
