// Whether the program runs under the address sanitizer, which needs memory of its own, keeps freed
// memory for a while and must see every block that comes and goes. GCC and clang tell it in
// different ways.
#pragma once

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define BRINDLEMOOR_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define BRINDLEMOOR_ADDRESS_SANITIZER
#endif

namespace brindlemoor {

#ifdef BRINDLEMOOR_ADDRESS_SANITIZER
inline constexpr bool kUnderAddressSanitizer = true;
#else
inline constexpr bool kUnderAddressSanitizer = false;
#endif

}  // namespace brindlemoor
