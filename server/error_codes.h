// The numbers of errors in answers, as the Language Server Protocol has them.
#pragma once

namespace brindlemoor {

inline constexpr int kParseError = -32700;
inline constexpr int kInvalidRequest = -32600;
inline constexpr int kMethodNotFound = -32601;
inline constexpr int kInvalidParams = -32602;
inline constexpr int kInternalError = -32603;
inline constexpr int kNotInitialized = -32002;
inline constexpr int kRequestFailed = -32803;  ///< a good request that can't be met
inline constexpr int kRequestCancelled = -32800;

}  // namespace brindlemoor
