// Which files a card file, a page or a style file names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// How a name leads to its file.
enum class NameUse : std::uint8_t {
  kCardFile,  ///< a reference to a card file
  kPicture,   ///< looked for in the program's folders
  kPage,      ///< a page of the program's folder
  kAddress,   ///< an address on a page of the program's folder
};

struct NamedFile {
  std::string Name;  ///< as it stands there
  NameUse Use = NameUse::kPicture;
  int Line = 0;             ///< from 1
  bool IsComposed = false;  ///< a script puts the name together while it runs
};

/// Every file that the directives, scripts, messages and markup of a card file (its bytes) name.
std::vector<NamedFile> FilesNamedBy(std::string bytes);

/// Addresses of files, as they stand, that a page loads or leads to; those of the network, of
/// places in the page and links that are commands are left out.
std::vector<std::string> AddressesOfPage(std::string_view html);
/// The same of a style file.
std::vector<std::string> AddressesOfStyle(std::string_view css);

/// Where an address leads that stands in a file of a folder ("" or "help"): "art/moth.jpg". "" when
/// that is neither in the program's folder nor in one directly below.
std::string PlaceOfAddress(std::string_view folder, std::string_view address);

}  // namespace brindlemoor
