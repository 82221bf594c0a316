// Program start and the reset of a new game.
#pragma once

namespace brindlemoor {

/// The entry point: debug marker, new game, main window. The platform and the program's folder are
/// in the session already.
void StartProgram();

/// Resets the game, lets the player choose a profile if there is none, reads the stored files and
/// shows the game list. Ends the program when no profile was chosen.
void NewGame();

/// Empties what a rules file fills, so that the rules of one game never stay on in another.
void ForgetRules();

/// Forgets the cards that wait for the table or for a trigger, and the actions that triggers run on
/// the cards of the table: for a table that has been emptied.
void ForgetWaitingCards();

}  // namespace brindlemoor
