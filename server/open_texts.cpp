// Keeping the texts of open files, and their paths.
#include "server/open_texts.h"

#include <filesystem>
#include <utility>

#include "text/addresses.h"
#include "text/encoding.h"
#include "text/text.h"

namespace brindlemoor {

std::string OpenTexts::PathOf(std::string_view address) {
  constexpr std::string_view kThisMachine = "file://localhost/";
  const bool named = address.starts_with(kThisMachine);
  const std::string path =
      named ? PathOfUrl(Joined(kFileScheme, address.substr(kThisMachine.size() - 1)))
            : PathOfUrl(address);
  if (!path.starts_with('/') || path.ends_with('/') || path.find('\0') != std::string::npos ||
      !IsUtf8(path))
    return "";
  return std::filesystem::path(path).lexically_normal().string();
}

bool OpenTexts::Put(const std::string& path, OpenFile record, std::string text) {
  Close(path);
  if (text.size() > kMostBytes - bytes_) return false;
  bytes_ += text.size();
  files_.Contents[path] = std::move(text);
  records_[path] = std::move(record);
  return true;
}

void OpenTexts::Close(const std::string& path) {
  if (records_.erase(path) == 0) return;
  bytes_ -= files_.Contents.at(path).size();
  files_.Contents.erase(path);
}

std::string OpenTexts::AddressOf(const std::string& path) const {
  const auto record = records_.find(path);
  return record != records_.end() ? record->second.Address : FileUrl(path);
}

}  // namespace brindlemoor
