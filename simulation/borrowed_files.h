// BorrowedFiles: the files of a session that goes on, for another that only reads them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace brindlemoor {

/// Reads what the lender reads, which must live longer; nothing is written.
class BorrowedFiles : public FileSystem {
 public:
  explicit BorrowedFiles(const FileSystem& lender) : lender_(lender) {}

  bool Exists(const std::string& path) const override { return lender_.Exists(path); }
  bool FolderExists(const std::string& path) const override { return lender_.FolderExists(path); }
  std::vector<std::string> ListFiles(const std::string& folder) const override {
    return lender_.ListFiles(folder);
  }
  std::vector<std::string> ListFolders(const std::string& folder) const override {
    return lender_.ListFolders(folder);
  }
  std::optional<std::string> Read(const std::string& path) const override {
    return lender_.Read(path);
  }
  std::string WhyUnread(const std::string& path) const override { return lender_.WhyUnread(path); }
  std::string Followed(const std::string& path) const override { return lender_.Followed(path); }
  std::string Write(const std::string&, std::string_view) override { return ""; }
  std::string Remove(const std::string&) override { return ""; }

 private:
  const FileSystem& lender_;
};

}  // namespace brindlemoor
