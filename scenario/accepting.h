// Accepting: what was there takes the place of what a scenario file expected.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/scenario_report.h"

namespace brindlemoor {

struct Scene;

/// The change that would make the present line expect the text that was found: of the word that the
/// line's reader took last, or of the cell that it stands for. Nothing where the file can't say it:
/// a text with line ends or braces, a word made of several, one of many seeds.
std::optional<AcceptedText> Accepted(const Scene& scene, std::string_view found);

/// The bytes of a file with changes made; those are marked so. Changes of one place that contradict
/// each other, and those that do not fit to the bytes, are not made.
std::string WithAccepted(std::string_view bytes, std::vector<AcceptedText*> changes);

}  // namespace brindlemoor
