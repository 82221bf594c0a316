// What expectations share: comparing and saying what was there.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlemoor {

class WordReader;
struct Scene;

/// Counts an expectation and fails it when the texts differ: "WHAT: expected "A", there was "B"".
void ExpectEqual(Scene& scene, std::string_view what, std::string_view expected,
                 std::string_view found);
/// The same for something that must be so; found says what was there.
void ExpectTrue(Scene& scene, bool holds, std::string_view what, std::string_view found);

/// Takes "[is] TEXT", "contains TEXT...", "lacks TEXT...", "starts TEXT" or "once TEXT..." and
/// holds a text against it.
void ExpectText(Scene& scene, WordReader& line, std::string_view what, std::string_view found);

}  // namespace brindlemoor
