// The end of a run: its text on the page, deaths, the end of the game, and what it sets going.
#pragma once

#include <string_view>

namespace brindlemoor {

struct Answer;
struct Run;

/// What still belongs to the run: EndGame, deaths, its text on the page. Returns the result code.
int CloseRun(Run& run);

/// What comes when the run's depth has been given back: TRAITCHANGE triggers, a cancel that reaches
/// the run behind, the action that deletes itself, repeats.
void AfterRun(Run& run);

/// A reaction's answer reaches the action even when deaths, changed traits or repeats have started
/// runs since, each of which cleared it.
void KeepAnswer(const Answer& answer);

/// Adds to the report, within the bound of a page.
void AddToBanner(std::string_view html);

/// The result code of a walk's counts.
int ResultCode(int applied, int failed, int softFailed);

}  // namespace brindlemoor
