// The addresses that stand in markup.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

enum class AddressKind : std::uint8_t {
  kLoaded,   ///< pictures, backgrounds and styles
  kLinkedTo  ///< those, and where links lead
};

/// The values of the attributes that hold addresses of files, as they stand, in their order: those
/// of the network, of places in the page and links that are commands are left out. Comments are
/// passed over.
std::vector<std::string> MarkupAddresses(std::string_view text, AddressKind kind);

}  // namespace brindlemoor
